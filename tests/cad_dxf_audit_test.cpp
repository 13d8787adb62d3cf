// What other programs make of our DXF files.
#include "support/dxf_audit.h"
#include "support/dxf_writing.h"

namespace {

using dxf_writer_test::HasGeometryReader;
using dxf_writer_test::MakeEntity;
using dxf_writer_test::Python;
using dxf_writer_test::TextBetween;
using nlohmann::json;

class DxfWriterAudit : public dxf_writer_test::DxfWriting {
 protected:
  DxfWriterAudit() {
    walls_ = AddLayer("Walls \xC3\xA9");
    engine.SetDrawingColor(walls_, true, 3);
    hidden_ = engine.AddDrawing(0, "hid/den", false, true, false);
    AddSymbol();
  }

  void AddSymbol() {
    const int inner = AddBlock("in ner", {MakeEntity(cad::CircleShape{{0, 0, 0}, 1}, 1, 0)});
    cad::InsertShape nested;
    nested.block = inner;
    cad::Block outer;
    outer.name = "Outer";
    outer.base = {1, 1, 0};
    outer.entities = {MakeEntity(nested), MakeEntity(cad::LineShape{{0, 0, 0}, {2, 2, 0}}, walls_)};
    outer.attributes = {{"NAME", {3, 1, 0}, 0.4}, {"HEIGHT", {3, 0, 0}, 0.4}};
    symbol_ = engine.AddBlock(outer);
  }

  void AddLinesAndAreas() {
    Add(cad::PointShape{{1680000.125, 4900000.5, 312.75}}, walls_, 1);
    Add(cad::LineShape{{0, 0, 0}, {10.25, 1e5, -3}}, walls_);
    Add(cad::PolylineShape{{{0, 0, 5}, {10, 0, 5}, {10, 10, 5}}, {1, 0, -0.5}, true}, walls_);
    Add(cad::PolylineShape{{{0, 0, 5}, {10, 0, 6}, {10, 10, 7}}, {}, true}, walls_);
    Add(cad::CircleShape{{3, 3, 1}, 2.5}, hidden_);
    Add(cad::ArcShape{{3, 3, 1}, 2.5, 350, 20}, walls_);
    Add(cad::EllipseShape{{0, 0, 1}, {5, 5, 0}, 0.5, 0, 360}, walls_);
    Add(cad::EllipseShape{{0, 0, 1}, {5, 0, 0}, 0.5, 30, 120}, walls_);
    Add(cad::FaceShape{{{0, 0, 0}, {1, 0, 0}, {1, 1, 1}}}, walls_);
    Add(cad::FaceShape{{{0, 0, 0}, {1, 0, 0}, {1, 1, 1}, {0, 1, 0}}}, walls_);
    Add(cad::SolidShape{{{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0}}}, walls_);
  }
  void AddTextsAndInserts() {
    Add(cad::TextShape{{1, 2, 3}, 1.5, 30, "caf\xC3\xA9 \xE2\x82\xAC \xD0\x96 \xF0\x9F\x8C\xB2"},
        walls_);
    Add(cad::TextShape{{1, 2, 0}, 1.5, 0, ""}, walls_);
    Add(cad::TextShape{{5, 6, 7}, 1.5, 90, "one {x}\\\n" + std::string(600, 'y') + "\nthree"},
        walls_);
    cad::InsertShape insert;
    insert.block = symbol_;
    insert.at = {20, 20, 1};
    insert.scale = {2, 2, 2};
    insert.rotation = 90;
    insert.attributes = {{"NAME", "P1"}, {"HEIGHT", "12.5"}, {"OTHER", ""}};
    Add(insert, walls_);
    insert.attributes.clear();
    Add(insert, hidden_);
  }
  void AddAll() {
    AddLinesAndAreas();
    AddTextsAndInserts();
  }

  json Look(enumTCAD_DXFDWG_VER version, std::string_view how = "strict") {
    Write(version);
    return dxf_writer_test::Audit(folder.File("drawing.dxf"), std::string(how));
  }
  // All entities, as the geometry library tells them.
  std::string Geometry(enumTCAD_DXFDWG_VER version) {
    Write(version);
    const e2e::Outcome run =
        e2e::RunProgram("ogrinfo", {"-ro", "-al", "-q", folder.File("drawing.dxf")});
    EXPECT_EQ(run.status, 0) << run.err;
    return run.out;
  }

  int walls_ = 0;
  int hidden_ = 0;
  int symbol_ = 0;
};

#define KALVIO_NEEDS_AUDIT() \
  if (Python().empty()) GTEST_SKIP() << "python3 has no ezdxf"
#define KALVIO_NEEDS_GEOMETRY() \
  if (!HasGeometryReader()) GTEST_SKIP() << "there is no ogrinfo"

TEST_F(DxfWriterAudit, AnEmptyDrawingIsInOrder) {
  KALVIO_NEEDS_AUDIT();
  for (const auto version : {TCAD_DXF_R12, TCAD_DXF_2000}) Look(version);
}

TEST_F(DxfWriterAudit, EveryKindIsInOrderIn2000) {
  KALVIO_NEEDS_AUDIT();
  AddAll();
  const json found = Look(TCAD_DXF_2000);
  EXPECT_EQ(found["kinds"], json::parse(R"({"POINT Walls é": 1, "LINE Walls é": 1,
      "LWPOLYLINE Walls é": 1, "POLYLINE Walls é": 1, "CIRCLE hid_den": 1, "ARC Walls é": 1,
      "ELLIPSE Walls é": 2, "3DFACE Walls é": 2, "SOLID Walls é": 1, "TEXT Walls é": 2,
      "MTEXT Walls é": 1, "INSERT Walls é": 1, "INSERT hid_den": 1})"));
  EXPECT_EQ(found["layers"], json::parse(R"({"0": [7, false, false], "Walls é": [3, false, false],
      "hid_den": [-7, true, true]})"));
  EXPECT_EQ(found["blocks"], json::parse(R"(["in ner", "Outer"])"));
}

TEST_F(DxfWriterAudit, EveryKindIsInOrderInR12) {
  KALVIO_NEEDS_AUDIT();
  AddAll();
  const json found = Look(TCAD_DXF_R12);
  EXPECT_EQ(found["kinds"], json::parse(R"({"POINT WALLS__": 1, "LINE WALLS__": 1,
      "POLYLINE WALLS__": 4, "CIRCLE HID_DEN": 1, "ARC WALLS__": 1, "3DFACE WALLS__": 2,
      "SOLID WALLS__": 1, "TEXT WALLS__": 5, "INSERT WALLS__": 1, "INSERT HID_DEN": 1})"));
  EXPECT_EQ(found["layers"], json::parse(R"({"0": [7, false, false], "WALLS__": [3, false, false],
      "HID_DEN": [-7, true, true]})"));
  EXPECT_EQ(found["blocks"], json::parse(R"(["IN_NER", "OUTER"])"));
}

TEST_F(DxfWriterAudit, OnlyTheVisibleIsInOrder) {
  KALVIO_NEEDS_AUDIT();
  AddAll();
  onlyVisible = true;
  EXPECT_FALSE(Look(TCAD_DXF_R12)["kinds"].contains("CIRCLE HID_DEN"));
  EXPECT_FALSE(Look(TCAD_DXF_2000)["kinds"].contains("INSERT hid_den"));
}

TEST_F(DxfWriterAudit, TextsAreReadAsTheyWere) {
  KALVIO_NEEDS_AUDIT();
  AddTextsAndInserts();
  const std::string word = "caf\xC3\xA9 \xE2\x82\xAC \xD0\x96 \xF0\x9F\x8C\xB2";
  const std::string many(600, 'y');
  const json found = Look(TCAD_DXF_2000);
  EXPECT_EQ(found["texts"], json({word, ""}));
  EXPECT_EQ(found["multiline"], json::array({"one {x}\\\n" + many + "\nthree"}));
  EXPECT_EQ(Look(TCAD_DXF_R12)["texts"], json({word, "", "one {x}\\", many, "three"}));
}

TEST_F(DxfWriterAudit, AttributesAreReadInTheirPlaces) {
  KALVIO_NEEDS_AUDIT();
  AddTextsAndInserts();
  const json expected = json::parse(R"([["NAME", "P1", [20.0, 24.0, 1.0]],
      ["HEIGHT", "12.5", [22.0, 24.0, 1.0]], ["OTHER", "", [20.0, 20.0, 1.0]]])");
  EXPECT_EQ(Look(TCAD_DXF_R12)["attributes"], expected);
  EXPECT_EQ(Look(TCAD_DXF_2000)["attributes"], expected);
}

TEST_F(DxfWriterAudit, NamesThatWouldClashAreInOrder) {
  KALVIO_NEEDS_AUDIT();
  const std::string common(31, 'n');
  for (const std::string& name :
       {common + "1", common + "2", std::string("\xC3\x89"), std::string("\xC3\xA9"),
        std::string("a?b"), std::string("a*b")}) {
    Add(cad::PointShape{}, AddLayer(name.c_str()));
    AddBlock(name, {});
  }
  for (const auto version : {TCAD_DXF_R12, TCAD_DXF_2000}) {
    const json found = Look(version);
    EXPECT_EQ(found["layers"].size(), 9U);
    EXPECT_EQ(found["blocks"].size(), 8U);
  }
}

TEST_F(DxfWriterAudit, NamesBeyondTheCodePageAreInOrder) {
  KALVIO_NEEDS_AUDIT();
  Add(cad::PointShape{}, AddLayer("\xD0\x96\xE6\x9D\xB1"));
  const json found = Look(TCAD_DXF_2000, "tolerant");
  EXPECT_EQ(found["kinds"], json::parse(R"({"POINT Ж東": 1})"));
}

TEST_F(DxfWriterAudit, SequencesInBlocksAreInOrder) {
  KALVIO_NEEDS_AUDIT();
  cad::InsertShape insert;
  insert.block = symbol_;
  insert.attributes = {{"NAME", "P1"}, {"OTHER", "x"}};
  const cad::PolylineShape polyline{{{0, 0, 0}, {1, 1, 1}}, {}, true};
  cad::InsertShape outer;
  outer.block = AddBlock("more", {MakeEntity(polyline), MakeEntity(insert)});
  Add(outer);
  EXPECT_EQ(Look(TCAD_DXF_R12)["blocks"].size(), 3U);
  EXPECT_EQ(Look(TCAD_DXF_2000)["blocks"].size(), 3U);
}

TEST_F(DxfWriterAudit, GeometryIsReadWhereItWas) {
  KALVIO_NEEDS_GEOMETRY();
  AddAll();
  for (const auto version : {TCAD_DXF_R12, TCAD_DXF_2000}) {
    const std::string found = Geometry(version);
    for (const char* const wkt :
         {"POINT Z (1680000.125 4900000.5 312.75)", "LINESTRING Z (0 0 0,10.25 100000.0 -3)",
          "LINESTRING Z (0 0 5,10 0 6,10 10 7,0 0 5)", "POLYGON Z ((0 0 0,1 0 0,1 1 1,0 0 0))",
          "POLYGON Z ((0 0 0,1 0 0,1 1 1,0 1 0,0 0 0))", "POLYGON ((0 0,1 0,1 1,0 1,0 0))",
          "POINT Z (1 2 3)", "(22 18 1,18 22 1)"}) {
      EXPECT_NE(found.find(wkt), std::string::npos) << wkt << "\n" << found;
    }
  }
}

TEST_F(DxfWriterAudit, BulgesTurnTheRightWay) {
  KALVIO_NEEDS_GEOMETRY();
  // Half circles below the line from (0, 0) to (10, 0), and above the one back.
  Add(cad::PolylineShape{{{0, 0, 1}, {10, 0, 1}}, {1, 1}, true});
  for (const auto version : {TCAD_DXF_R12, TCAD_DXF_2000}) {
    const std::string found = Geometry(version);
    EXPECT_NE(found.find("LINESTRING Z (0.0 0.0 1,0.01217"), std::string::npos) << found;
    const std::string firstHalf = TextBetween(found, "LINESTRING Z (0.0 0.0 1,", "10 0 1");
    EXPECT_NE(firstHalf.find(" -4.99"), std::string::npos) << found;
    EXPECT_EQ(firstHalf.find(" 4.99"), std::string::npos) << found;
  }
}

}  // namespace
