// A job and the engine that its display objects draw into.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "host/document/host_document.h"
#include "services/display/displays.h"
#include "services/translate.h"
#include "tests/support/exchange_roads.h"

namespace display_test {

/// Puts a name, a code and a place into whatever is a point.
template <class PointType>
PointType* Fill(PointType* point, const char* name, const char* code, double x, double y,
                double z = UndefinedValue) {
  point->SetNome(name);
  point->SetSecScri(code);
  point->SetCoord(x, y, z);
  return point;
}

class Displayed : public testing::Test {
 protected:
  Displayed() { SetLanguage("en"); }

  // ---- What the job holds ----

  CSta* AddStation(const char* name, double x, double y, double z = UndefinedValue, int job = 0) {
    CLibCmp& jobs = *document.GetLibCmp();
    while (jobs.GetJobArSize() <= job) jobs.AddJob(false)->SetNome("J");
    return Fill(jobs.AddSta(job, false), name, "", x, y, z);
  }
  CPun* AddPoint(const char* name, const char* code, double x, double y,
                 double z = UndefinedValue) {
    CLibCmp& jobs = *document.GetLibCmp();
    return Fill(jobs.AddPun(0, jobs.GetStaArSize(0) - 1, false), name, code, x, y, z);
  }
  CGrpPnt* AddKnownGroup(const char* name) {
    CGrpPnt* const group = document.GetLibPnt()->AddGrp(false);
    group->SetLabels(name, "", "", "");
    return group;
  }
  CPunPnt* AddKnown(const char* name, double x, double y, double z = UndefinedValue) {
    CLibPnt& known = *document.GetLibPnt();
    return Fill(known.AddPtn(known.GetGrpArSize() - 1, false), name, "", x, y, z);
  }
  CRoad& AddRoad(const char* name) {
    CRoad* const road = document.GetLibRoad()->AddRoad(false);
    road->SetName(name);
    return *road;
  }

  // ---- What is drawn ----

  /// The shapes of one kind on a layer, in the order in which they were drawn.
  template <class Shape>
  std::vector<Shape> On(const std::string& layer) const {
    std::vector<Shape> shapes;
    for (const cad::Entity& entity : engine.Entities()) {
      const Shape* const shape = std::get_if<Shape>(&entity.shape);
      if (shape != nullptr && LayerOf(entity) == layer) shapes.push_back(*shape);
    }
    return shapes;
  }
  std::vector<std::string> TextsOn(const std::string& layer) const {
    std::vector<std::string> texts;
    for (const auto& text : On<cad::TextShape>(layer)) texts.push_back(text.text);
    return texts;
  }
  std::string LayerOf(const cad::Entity& entity) const {
    return engine.GetDrawingName(entity.drawing).ToUtf8();
  }
  /// All layers but the one that is always there.
  std::vector<std::string> Layers() const {
    std::vector<std::string> names;
    for (int id = 2; id <= engine.GetNoDrawings(); ++id) {
      names.push_back(engine.GetDrawingName(id).ToUtf8());
    }
    return names;
  }
  std::string BlockOf(const cad::InsertShape& insert) const {
    return engine.Blocks().at(static_cast<std::size_t>(insert.block)).name;
  }

  HostDocument document;
  CTcadEng engine{0, nullptr, true};
  CDocSymbolManager symbols{&engine};
};

inline void ExpectAt(const cad::Point& point, double x, double y, double z, double near = 1e-9) {
  EXPECT_NEAR(point.getX(), x, near);
  EXPECT_NEAR(point.getY(), y, near);
  EXPECT_NEAR(point.getZ(), z, near);
}

}  // namespace display_test
