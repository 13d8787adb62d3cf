// Whatever a DXF file holds, the reader takes it or refuses it with a reason, and what is in the
// engine then can be drawn: all numbers are numbers, all names are there, no block is in itself.
#include <algorithm>
#include <cmath>
#include <vector>

#include "host/cad/dxf/dxf_reader.h"
#include "memory_file.h"

namespace {

void CheckPoint(const cad::Point& point) {
  if (!std::isfinite(point.getX()) || !std::isfinite(point.getY()) ||
      !std::isfinite(point.getZ())) {
    std::abort();
  }
}

void CheckPolyline(const cad::PolylineShape& line) {
  if (line.points.empty()) std::abort();
  if (!line.bulges.empty() && line.bulges.size() != line.points.size()) std::abort();
  for (const cad::Point& point : line.points) CheckPoint(point);
}

void CheckCorners(const std::vector<cad::Point>& points) {
  if (points.size() < 3 || points.size() > 4) std::abort();
  for (const cad::Point& point : points) CheckPoint(point);
}

// The block that an entity inserts; -1 when it is no insert.
int CheckEntity(const CTcadEng& engine, const cad::Entity& entity) {
  if (entity.drawing < 1 || entity.drawing > engine.GetNoDrawings()) std::abort();
  if (entity.color > cad::kByLayer) std::abort();
  if (const auto* const line = std::get_if<cad::PolylineShape>(&entity.shape)) CheckPolyline(*line);
  if (const auto* const face = std::get_if<cad::FaceShape>(&entity.shape)) {
    CheckCorners(face->points);
  }
  if (const auto* const solid = std::get_if<cad::SolidShape>(&entity.shape)) {
    CheckCorners(solid->points);
  }
  if (const auto* const ellipse = std::get_if<cad::EllipseShape>(&entity.shape)) {
    if (!(ellipse->ratio > 0 && ellipse->ratio <= 1)) std::abort();
  }
  const auto* const insert = std::get_if<cad::InsertShape>(&entity.shape);
  if (insert == nullptr) return -1;
  CheckPoint(insert->at);
  if (insert->block < 0 || static_cast<std::size_t>(insert->block) >= engine.Blocks().size()) {
    std::abort();
  }
  return insert->block;
}

// How deep blocks are nested in each; `depths` is -1 where that is not known yet.
int DepthOf(CTcadEng& engine, int block, std::vector<int>& depths, int above) {
  constexpr int kDeepest = 200;
  if (above > kDeepest) std::abort();
  int& known = depths[static_cast<std::size_t>(block)];
  if (known >= 0) return known;
  int depth = 0;
  for (const cad::Entity& entity : engine.BlockAt(block).entities) {
    const int inner = CheckEntity(engine, entity);
    if (inner >= 0) depth = std::max(depth, 1 + DepthOf(engine, inner, depths, above + 1));
  }
  return known = depth;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const MemoryFile input;
  input.Fill(data, size);
  CTcadEng engine(0, nullptr, false);
  const CadLoad load = ReadDxf(input.Path(), engine);
  if (load.isLoaded != load.errorText.IsEmpty()) std::abort();
  if (load.isLoaded && load.errorLine != 0) std::abort();
  for (const cad::Entity& entity : engine.Entities()) CheckEntity(engine, entity);
  std::vector<int> depths(engine.Blocks().size(), -1);
  for (std::size_t i = 0; i < depths.size(); ++i) DepthOf(engine, static_cast<int>(i), depths, 0);
  return 0;
}
