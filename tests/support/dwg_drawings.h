// Drawings for the tests of DWG files, and how two of them compare.
#pragma once

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <utility>
#include <vector>

#include "host/cad/dwg/dwg_reader.h"
#include "host/cad/dwg/dwg_writer.h"
#include "host/cad/dxf/dxf_reader.h"
#include "host/cad/dxf/dxf_writer.h"
#include "model/undefined.h"
#include "platform/numbers.h"
#include "support/temporary_folder.h"

namespace dwg_test {

inline cad::Entity MakeEntity(cad::Shape shape, int drawing = 1,
                              std::uint16_t color = cad::kByLayer) {
  cad::Entity entity;
  entity.drawing = drawing;
  entity.color = color;
  entity.shape = std::move(shape);
  return entity;
}

/// Adds one of every kind of entity there is, on layers in every state, with blocks in blocks.
class FullDrawing {
 public:
  explicit FullDrawing(CTcadEng& engine) : engine_(engine) {
    walls_ = Layer("WALLS", true, false, 3);
    hidden_ = Layer("HIDDEN", false, true, 200);
    locked_ = Layer("LOCKED", true, true, 255);
    AddBlocks();
    AddLines();
    AddCurves();
    AddAreas();
    AddTexts();
    AddInserts();
  }

 private:
  int Layer(const char* name, bool isVisible, bool isLocked, unsigned color) {
    const int id = engine_.AddDrawing(0, name, isVisible, isLocked, false);
    engine_.SetDrawingColor(id, true, color);
    return id;
  }
  void Add(cad::Shape shape, int drawing, std::uint16_t color = cad::kByLayer) {
    engine_.Add(MakeEntity(std::move(shape), drawing, color));
  }
  void AddBlocks() {
    cad::Block inner;
    inner.name = "INNER";
    inner.entities = {MakeEntity(cad::CircleShape{{0, 0, 0}, 1}, 1, cad::kByBlock)};
    inner_ = engine_.AddBlock(inner);
    cad::InsertShape nested;
    nested.block = inner_;
    nested.scale = {2, 2, 2};
    cad::Block outer;
    outer.name = "OUTER";
    outer.base = {1, 1, 0.5};
    outer.entities = {MakeEntity(nested), MakeEntity(cad::LineShape{{0, 0, 0}, {2, 2, 0}}, walls_),
                      MakeEntity(cad::PolylineShape{{{0, 0, 0}, {1, 1, 1}, {2, 0, 5}}, {}, false})};
    outer.attributes = {{"NAME", {3, 1, 0}, 0.4}, {"HEIGHT", {3, 0, 0}, 0.4}};
    outer_ = engine_.AddBlock(outer);
    cad::Block empty;
    empty.name = "EMPTY";
    engine_.AddBlock(empty);
    cad::Block onlyDefinitions;
    onlyDefinitions.name = "DEFINED";
    onlyDefinitions.attributes = {{"CODE", {0, 0, 0}, 0.25}};
    engine_.AddBlock(onlyDefinitions);
  }
  void AddLines() {
    Add(cad::PointShape{{1680000.125, 4900000.5, 312.75}}, walls_, 1);
    Add(cad::PointShape{{0, 0, 0}}, 1);
    Add(cad::PointShape{{1, -0.25, 1}}, 1);
    Add(cad::LineShape{{0, 0, 0}, {10.25, 1e5, -3}}, walls_);
    Add(cad::LineShape{{1.5, 2.5, 0}, {1.5, 1e-7, 0}}, hidden_, 7);
    Add(cad::PolylineShape{{{0, 0, 5}, {10, 0, 5}, {10, 10, 5}}, {1, 0, -0.5}, true}, walls_);
    Add(cad::PolylineShape{{{0, 0, 0}, {10, 0, 0}}, {}, false}, locked_);
    Add(cad::PolylineShape{{{0, 0, 5}, {10, 0, 6}, {10, 10, 7}}, {}, true}, walls_);
    Add(cad::PolylineShape{{{0, 0, 5}, {10, 0, 6}}, {}, false}, walls_);
  }
  void AddCurves() {
    Add(cad::CircleShape{{3, 3, 1}, 2.5}, hidden_);
    Add(cad::ArcShape{{3, 3, 1}, 2.5, 350, 20}, walls_);
    Add(cad::EllipseShape{{0, 0, 1}, {5, 5, 0}, 0.5, 0, 360}, walls_);
    Add(cad::EllipseShape{{0, 0, 1}, {5, 0, 0}, 0.5, 30, 120}, walls_);
  }
  void AddAreas() {
    Add(cad::FaceShape{{{0, 0, 0}, {1, 0, 0}, {1, 1, 1}}}, walls_);
    Add(cad::FaceShape{{{0, 0, 2}, {1, 0, 2}, {1, 1, 1}, {0, 1, 0}}}, walls_);
    Add(cad::SolidShape{{{0, 0, 3}, {1, 0, 3}, {1, 1, 3}, {0, 1, 3}}}, walls_);
    Add(cad::SolidShape{{{0, 0, 0}, {1, 0, 0}, {1, 1, 0}}}, walls_);
  }
  void AddTexts() {
    Add(cad::TextShape{{1, 2, 3}, 1.5, 30, "caf\xC3\xA9 \xE2\x82\xAC \xD0\x96 \xF0\x9F\x8C\xB2"},
        walls_);
    Add(cad::TextShape{{1, 2, 0}, 1.5, 0, ""}, walls_);
    Add(cad::TextShape{{1, 2, 0}, 1.5, 45, "a^b\tc^J \\U+0041 \\P {x}"}, walls_);
    Add(cad::TextShape{{5, 6, 7}, 1.5, 90, "one {x}\\\n" + std::string(600, 'y') + "\nthr^ee\n"},
        walls_);
  }
  void AddInserts() {
    cad::InsertShape insert;
    insert.block = outer_;
    insert.at = {20, 20, 1};
    insert.scale = {2, 2, 2};
    insert.rotation = 90;
    insert.attributes = {{"NAME", "P1"}, {"HEIGHT", "12.5"}, {"OTHER", ""}};
    Add(insert, walls_);
    insert.attributes = {{"NAME", "\xC3\xA9"}};
    insert.scale = {1, 3, -1};
    Add(insert, hidden_);
    insert.attributes.clear();
    insert.scale = {0.5, 3, 4};
    Add(insert, hidden_);
    insert.block = inner_;
    insert.scale = {1, 1, 1};
    Add(insert, 1);
  }

  CTcadEng& engine_;
  int walls_ = 0;
  int hidden_ = 0;
  int locked_ = 0;
  int inner_ = 0;
  int outer_ = 0;
};

class Describer {
 public:
  explicit Describer(const CTcadEng& engine) : engine_(engine) {}

  std::vector<std::string> Layers() {
    std::vector<std::string> lines;
    for (int id = 1; id <= engine_.GetNoDrawings(); ++id) {
      bool isByLayer = false;
      unsigned color = 0;
      engine_.GetDrawingColor(id, isByLayer, color);
      Begin("layer " + engine_.GetDrawingName(id).ToUtf8());
      Put(engine_.IsDrawingVisible(id) ? " shown" : " off");
      Put(engine_.IsDrawingLocked(id) ? " locked" : "");
      Put(static_cast<double>(color));
      lines.push_back(line_);
    }
    return lines;
  }
  std::vector<std::string> Blocks() {
    std::vector<std::string> lines;
    for (const cad::Block& block : engine_.Blocks()) {
      Begin("block " + block.name);
      Put(block.base);
      lines.push_back(line_);
      for (const auto& each : block.attributes) {
        Begin("  definition " + each.tag);
        Put(each.at);
        Put(each.height);
        lines.push_back(line_);
      }
      for (const auto& each : block.entities) lines.push_back("  " + Entity(each));
    }
    return lines;
  }
  std::vector<std::string> Entities() {
    std::vector<std::string> lines;
    for (const auto& each : engine_.Entities()) lines.push_back(Entity(each));
    return lines;
  }
  std::vector<std::string> All() {
    std::vector<std::string> lines = Layers();
    for (auto& line : Blocks()) lines.push_back(line);
    for (auto& line : Entities()) lines.push_back(line);
    return lines;
  }

  void operator()(const cad::PointShape& it) { Put(" point"), Put(it.at); }
  void operator()(const cad::LineShape& it) { Put(" line"), Put(it.from), Put(it.to); }
  void operator()(const cad::PolylineShape& it) {
    Put(it.isClosed ? " closed polyline" : " polyline"), Put(it.points);
    Put(" bulges");
    for (const double bulge : it.bulges) Put(bulge);
  }
  void operator()(const cad::CircleShape& it) { Put(" circle"), Put(it.center), Put(it.radius); }
  void operator()(const cad::ArcShape& it) {
    Put(" arc"), Put(it.center), Put(it.radius), Put(it.start), Put(it.end);
  }
  void operator()(const cad::EllipseShape& it) {
    Put(" ellipse"), Put(it.center), Put(it.major), Put(it.ratio), Put(it.start), Put(it.end);
  }
  void operator()(const cad::TextShape& it) {
    Put(" text"), Put(it.at), Put(it.height), Put(it.rotation), Put(" '" + it.text + "'");
  }
  void operator()(const cad::InsertShape& it) {
    Put(" insert of " + engine_.Blocks()[static_cast<std::size_t>(it.block)].name);
    Put(it.at), Put(it.scale), Put(it.rotation);
    for (const auto& each : it.attributes) Put(" " + each.tag + "='" + each.text + "'");
  }
  void operator()(const cad::FaceShape& it) { Put(" face"), Put(it.points); }
  void operator()(const cad::SolidShape& it) { Put(" solid"), Put(it.points); }

 private:
  std::string Entity(const cad::Entity& entity) {
    Begin(engine_.GetDrawingName(entity.drawing).ToUtf8());
    Put(static_cast<double>(entity.color));
    std::visit(*this, entity.shape);
    return line_;
  }
  void Begin(const std::string& start) { line_ = start; }
  void Put(const std::string& words) { line_ += words; }
  void Put(const char* words) { line_ += words; }
  void Put(double number) {
    line_ += ' ';
    const double rounded = std::round(number * 1e8) / 1e8;
    platform::AppendShortest(line_, rounded == 0 ? 0 : rounded);
  }
  void Put(const cad::Point& point) {
    line_ += " (";
    Put(point.getX()), Put(point.getY()), Put(point.getZ());
    line_ += " )";
  }
  void Put(const std::vector<cad::Point>& points) {
    for (const auto& each : points) Put(each);
  }

  const CTcadEng& engine_;
  std::string line_;
};

class DwgFiles : public testing::Test {
 protected:
  CadSave How(const std::string& file, enumTCAD_DXFDWG_VER version) const {
    CadSave how;
    how.path = tdk::WString(folder.File(file));
    how.version = version;
    how.flags[1] = onlyVisible;
    return how;
  }
  std::string Write(enumTCAD_DXFDWG_VER version) {
    written = WriteDwgCounting(How("drawing.dwg", version), engine);
    EXPECT_TRUE(written.isWritten);
    return folder.File("drawing.dwg");
  }
  /// Reads a file into `back`, which is new; no notes may come of it.
  void Read(const std::string& path) {
    load = ReadDwg(tdk::WString(path), back);
    EXPECT_TRUE(load.isLoaded) << load.errorText.ToUtf8();
    EXPECT_EQ(Notes(), std::vector<std::string>{});
  }
  std::vector<std::string> Notes() const {
    std::vector<std::string> notes;
    for (const tdk::WString& note : load.notes) notes.push_back(note.ToUtf8());
    return notes;
  }

  TemporaryFolder folder;
  CTcadEng engine{0, nullptr, true};
  CTcadEng back{0, nullptr, true};
  bool onlyVisible = false;
  CadWritten written;
  CadLoad load;
};

}  // namespace dwg_test
