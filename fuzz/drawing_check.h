// What is in an engine when a drawing was read can be drawn: all numbers are numbers, all names are
// there, no block is in itself.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <vector>

#include "model/tcad_eng.h"

class DrawingCheck {
 public:
  /// Aborts when something is wrong.
  static void Run(const CTcadEng& engine) { DrawingCheck(engine).CheckAll(); }

  void operator()(const cad::PointShape& it) const { Check(it.at); }
  void operator()(const cad::LineShape& it) const { Check({it.from, it.to}); }
  void operator()(const cad::PolylineShape& it) const {
    Expect(!it.points.empty() && (it.bulges.empty() || it.bulges.size() == it.points.size()));
    Check(it.points);
    for (const double bulge : it.bulges) Check(bulge);
  }
  void operator()(const cad::CircleShape& it) const { Check(it.center), Check(it.radius); }
  void operator()(const cad::ArcShape& it) const {
    Check(it.center), Check(it.radius), Check(it.start), Check(it.end);
  }
  void operator()(const cad::EllipseShape& it) const {
    Check({it.center, it.major}), Check(it.start), Check(it.end);
    Expect(it.ratio > 0 && it.ratio <= 1);
  }
  void operator()(const cad::TextShape& it) const {
    Check(it.at), Check(it.height), Check(it.rotation);
  }
  void operator()(const cad::InsertShape& it) const {
    Check({it.at, it.scale}), Check(it.rotation);
    Expect(it.block >= 0 && static_cast<std::size_t>(it.block) < engine_.Blocks().size());
  }
  void operator()(const cad::FaceShape& it) const { CheckCorners(it.points); }
  void operator()(const cad::SolidShape& it) const { CheckCorners(it.points); }

 private:
  explicit DrawingCheck(const CTcadEng& engine)
      : engine_(engine), depths_(engine.Blocks().size(), -1) {}

  static void Expect(bool isRight) {
    if (!isRight) std::abort();
  }
  static void Check(double number) { Expect(std::isfinite(number)); }
  static void Check(const cad::Point& it) { Check(it.getX()), Check(it.getY()), Check(it.getZ()); }
  static void Check(const std::vector<cad::Point>& points) {
    for (const cad::Point& point : points) Check(point);
  }
  static void CheckCorners(const std::vector<cad::Point>& points) {
    Expect(points.size() == 3 || points.size() == 4);
    Check(points);
  }
  void CheckEntity(const cad::Entity& entity) const {
    Expect(entity.drawing >= 1 && entity.drawing <= engine_.GetNoDrawings());
    Expect(entity.color <= cad::kByLayer);
    std::visit(*this, entity.shape);
  }
  void CheckAll() {
    for (const cad::Entity& entity : engine_.Entities()) CheckEntity(entity);
    for (const cad::Block& block : engine_.Blocks()) {
      Check(block.base);
      for (const auto& each : block.attributes) Check(each.at), Check(each.height);
      for (const cad::Entity& entity : block.entities) CheckEntity(entity);
    }
    for (std::size_t i = 0; i < depths_.size(); ++i) DepthOf(i, 0);
  }
  // How deep blocks are nested in a block.
  int DepthOf(std::size_t block, int above) {
    constexpr int kDeepest = 200;
    Expect(above <= kDeepest);
    if (depths_[block] >= 0) return depths_[block];
    int depth = 0;
    for (const cad::Entity& entity : engine_.Blocks()[block].entities) {
      const auto* const insert = std::get_if<cad::InsertShape>(&entity.shape);
      if (insert == nullptr) continue;
      depth = std::max(depth, 1 + DepthOf(static_cast<std::size_t>(insert->block), above + 1));
    }
    return depths_[block] = depth;
  }

  const CTcadEng& engine_;
  std::vector<int> depths_;  // -1: not known yet
};
