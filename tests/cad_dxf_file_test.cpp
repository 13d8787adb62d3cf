// Whole files of DXF: header, layers, what is left out, and what a failure costs.
#include <sys/resource.h>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <csignal>
#include <cstdlib>
#include <limits>

#include "support/dxf_writing.h"
#include "support/trouble_log.h"

namespace {

using dxf_writer_test::MakeEntity;
using dxf_writer_test::MakePrivate;
using dxf_writer_test::PairLines;
using dxf_writer_test::TextBetween;
constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

class DxfWriterFile : public dxf_writer_test::DxfWriting {
 protected:
  std::string Header(enumTCAD_DXFDWG_VER version = TCAD_DXF_R12) {
    return TextBetween(Write(version), "0 SECTION\n2 HEADER\n", "0 ENDSEC\n");
  }
  // From the lower left to the upper right corner.
  std::string Extent() { return TextBetween(Header(), "9 $EXTMIN\n", "9 $TEXTSTYLE\n"); }

  void ExpectLeftOut(cad::Shape shape) {
    CTcadEng one(0, nullptr, true);
    one.Add(MakeEntity(std::move(shape)));
    for (const auto version : {TCAD_DXF_R12, TCAD_DXF_2000}) {
      EXPECT_EQ(WriteDxfCounting(HowTo(version), one).leftOut, 1U);
      const std::string text = PairLines(ReadBytes(folder.File("drawing.dxf")));
      EXPECT_EQ(TextBetween(text, "2 ENTITIES\n", "0 ENDSEC\n"), "");
      EXPECT_EQ(text.find("nan"), std::string::npos);
    }
  }
};

TEST_F(DxfWriterFile, TellsItsVersionAndCodePage) {
  EXPECT_EQ(Header().find("9 $ACADVER\n1 AC1009\n9 $DWGCODEPAGE\n3 ANSI_1252\n"), 0U);
  EXPECT_EQ(Header(TCAD_DXF_2000).find("9 $ACADVER\n1 AC1015\n9 $DWGCODEPAGE\n3 ANSI_1252\n"), 0U);
  EXPECT_EQ(Header(TCAD_DWG_R14), Header(TCAD_DXF_2000));
}

TEST_F(DxfWriterFile, IsOneLineAValueToItsEnd) {
  for (const auto version : {TCAD_DXF_R12, TCAD_DXF_2000}) {
    EXPECT_TRUE(Write(version).ends_with("0 ENDSEC\n0 EOF\n"));
  }
}

TEST_F(DxfWriterFile, R12HasNoHandlesAndClasses) {
  Add(cad::LineShape{{0, 0, 0}, {1, 1, 1}});
  const std::string text = "\n" + Write(TCAD_DXF_R12);
  for (const char* const code : {"\n5 ", "\n105 ", "\n330 ", "\n100 ", "\n370 "}) {
    EXPECT_EQ(text.find(code), std::string::npos) << code;
  }
}

TEST_F(DxfWriterFile, TheHandleSeedLiesAboveAllHandles) {
  const int block = AddBlock("b", {MakeEntity(cad::PointShape{})});
  cad::InsertShape insert;
  insert.block = block;
  insert.attributes = {{"A", "1"}, {"B", "2"}};
  Add(insert);
  Add(cad::PolylineShape{{{0, 0, 0}, {1, 1, 1}, {2, 2, 3}}, {}, true});
  const std::string text = Write(TCAD_DXF_2000);
  const auto handle = [](const std::string& hex) { return std::strtoul(hex.c_str(), nullptr, 16); };
  const auto seed = handle(TextBetween(text, "9 $HANDSEED\n5 ", "\n"));
  unsigned long largest = 0;
  for (std::size_t at = text.find("2 CLASSES"); (at = text.find("\n5 ", at)) != text.npos; ++at) {
    const auto next = handle(text.substr(at + 3, text.find('\n', at + 3) - at - 3));
    EXPECT_NE(next, largest);
    largest = std::max(largest, next);
  }
  EXPECT_GT(largest, 0x21U);
  EXPECT_GT(seed, largest);
}

TEST_F(DxfWriterFile, LayersInR12) {
  const int locked = engine.AddDrawing(0, "locked", true, true, false);
  engine.SetDrawingColor(locked, true, 3);
  engine.SetDrawingColor(AddLayer("hidden", false), true, 300);
  engine.SetDrawingColor(AddLayer("other"), true, 0);
  EXPECT_EQ(Table(TCAD_DXF_R12, "LAYER"),
            "70 4\n0 LAYER\n2 0\n70 0\n62 7\n6 CONTINUOUS\n"
            "0 LAYER\n2 LOCKED\n70 4\n62 3\n6 CONTINUOUS\n"
            "0 LAYER\n2 HIDDEN\n70 0\n62 -7\n6 CONTINUOUS\n"
            "0 LAYER\n2 OTHER\n70 0\n62 7\n6 CONTINUOUS\n");
}

TEST_F(DxfWriterFile, LayersIn2000) {
  EXPECT_EQ(Table(TCAD_DXF_2000, "LAYER"),
            "5 7\n330 0\n100 AcDbSymbolTable\n70 1\n"
            "0 LAYER\n5 21\n330 7\n100 AcDbSymbolTableRecord\n100 AcDbLayerTableRecord\n"
            "2 0\n70 0\n62 7\n6 Continuous\n370 -3\n390 1D\n");
}

TEST_F(DxfWriterFile, WhatIsHiddenIsWrittenUnlessOnlyTheVisibleIsWanted) {
  const int hidden = AddLayer("hidden", false);
  Add(cad::PointShape{{1, 1, 1}}, hidden);
  Add(cad::PointShape{{2, 2, 2}}, 99);
  EXPECT_EQ(R12(),
            "0 POINT\n8 HIDDEN\n10 1.0\n20 1.0\n30 1.0\n0 POINT\n8 0\n10 2.0\n20 2.0\n30 2.0\n");
  onlyVisible = true;
  EXPECT_EQ(R12(), "");
  EXPECT_EQ(written.leftOut, 0U);
}

TEST_F(DxfWriterFile, BlocksShowWhatIsOnTheFirstDrawingWhereverTheyAre) {
  onlyVisible = true;
  engine.SetDrawingVisible(1, false);
  AddBlock("b", {MakeEntity(cad::PointShape{{1, 1, 1}}),
                 MakeEntity(cad::PointShape{{2, 2, 2}}, AddLayer("hidden", false))});
  const std::string blocks = Blocks(TCAD_DXF_R12);
  EXPECT_NE(blocks.find("0 POINT\n8 0\n10 1.0\n"), std::string::npos);
  EXPECT_EQ(blocks.find("10 2.0\n"), std::string::npos);
}

TEST_F(DxfWriterFile, PrivateEntitiesAreNeverWritten) {
  engine.Add(MakePrivate(cad::PointShape{{1, 1, 1}}));
  AddBlock("b", {MakePrivate(cad::PointShape{{1, 1, 1}})});
  EXPECT_EQ(R12() + V2000(), "");
  EXPECT_EQ(Blocks(TCAD_DXF_R12).find("POINT"), std::string::npos);
  EXPECT_EQ(written.leftOut, 0U);
}

TEST_F(DxfWriterFile, LeavesOutWhatHasNoPlace) {
  for (const double bad : {kNan, kInfinity, -kInfinity, 1.7e200, 8.5e199, -1e300}) {
    ExpectLeftOut(cad::PointShape{{0, 0, bad}});
    ExpectLeftOut(cad::LineShape{{0, 0, 0}, {bad, 0, 0}});
    ExpectLeftOut(cad::PolylineShape{{{0, 0, 0}, {0, bad, 0}}, {}, false});
    ExpectLeftOut(cad::PolylineShape{{{0, 0, 0}, {1, 0, 0}}, {bad}, false});
    ExpectLeftOut(cad::CircleShape{{0, 0, 0}, bad});
    ExpectLeftOut(cad::ArcShape{{0, 0, 0}, 1, bad, 1});
    ExpectLeftOut(cad::EllipseShape{{0, 0, 0}, {bad, 0, 0}, 0.5, 0, 360});
    ExpectLeftOut(cad::TextShape{{0, 0, 0}, 1, bad, "x"});
    ExpectLeftOut(cad::FaceShape{{{0, 0, 0}, {1, 0, 0}, {1, 1, bad}}});
    ExpectLeftOut(cad::SolidShape{{{0, 0, 0}, {1, 0, 0}, {1, bad, 0}}});
  }
}

TEST_F(DxfWriterFile, LargeCoordinatesStayNumbers) {
  const double large = 8.4e199;
  Add(cad::EllipseShape{{large, -large, 0}, {large, -large, 0}, 1, 0, 350});
  Add(cad::TextShape{{large, -large, 0}, large, 45, "one\ntwo"});
  Add(cad::PolylineShape{{{-large, 0, 0}, {large, 0, 0}}, {1e-300, large}, true});
  const int block = AddBlock("b", {MakeEntity(cad::PointShape{{large, large, 0}}, INT_MIN)});
  engine.BlockAt(block).attributes = {{"A", {large, 0, 0}, large}};
  Add(cad::InsertShape{block, {large, 0, 0}, {large, large, large}, 30, {{"A", ""}, {"B", ""}}});
  for (const auto version : {TCAD_DXF_R12, TCAD_DXF_2000}) {
    const std::string text = Write(version);
    EXPECT_EQ(text.find("inf\n"), std::string::npos);
    EXPECT_EQ(text.find("nan\n"), std::string::npos);
  }
  EXPECT_EQ(written.leftOut, 0U);
}

TEST_F(DxfWriterFile, LeavesOutWhatIsNoSuchShape) {
  ExpectLeftOut(cad::PolylineShape{{{0, 0, 0}}, {}, false});
  ExpectLeftOut(cad::CircleShape{{0, 0, 0}, 0});
  ExpectLeftOut(cad::ArcShape{{0, 0, 0}, -1, 0, 90});
  ExpectLeftOut(cad::EllipseShape{{0, 0, 0}, {0, 0, 1}, 0.5, 0, 360});
  ExpectLeftOut(cad::EllipseShape{{0, 0, 0}, {1, 0, 0}, 1.5, 0, 360});
  ExpectLeftOut(cad::TextShape{{0, 0, 0}, 0, 0, "x"});
  ExpectLeftOut(cad::FaceShape{{{0, 0, 0}, {1, 0, 0}}});
  ExpectLeftOut(cad::SolidShape{});
}

TEST_F(DxfWriterFile, TheExtentIsThatOfWhatIsWritten) {
  Add(cad::PointShape{{1, 2, 3}});
  Add(cad::CircleShape{{10, 10, 0}, 2});
  Add(cad::PointShape{{kNan, 0, 0}});
  engine.Add(MakePrivate(cad::PointShape{{-100, -100, -100}}));
  EXPECT_EQ(Extent(), "10 1.0\n20 2.0\n30 0.0\n9 $EXTMAX\n10 12.0\n20 12.0\n30 3.0\n");
}

TEST_F(DxfWriterFile, TheExtentHasArcsAndBulges) {
  Add(cad::ArcShape{{0, 0, 0}, 10, 90, 180});
  // Half a circle below, and one above.
  Add(cad::PolylineShape{{{0, 0, 0}, {4, 0, 0}, {0, 0, 0}}, {1, 0, 0}, false});
  EXPECT_EQ(Extent(), "10 -10.0\n20 -2.0\n30 0.0\n9 $EXTMAX\n10 4.0\n20 10.0\n30 0.0\n");
}

TEST_F(DxfWriterFile, TheExtentHasWhatIsInserted) {
  AddBlock("b", {MakeEntity(cad::LineShape{{1, 0, 0}, {2, 0, 0}})});
  cad::InsertShape insert;
  insert.at = {100, 100, 0};
  insert.scale = {10, 10, 10};
  insert.rotation = 90;
  Add(insert);
  EXPECT_EQ(Extent(), "10 100.0\n20 100.0\n30 0.0\n9 $EXTMAX\n10 100.0\n20 120.0\n30 0.0\n");
}

TEST_F(DxfWriterFile, AnEmptyDrawingHasAnExtentTheWrongWayRound) {
  EXPECT_EQ(Extent(), "10 1e+20\n20 1e+20\n30 1e+20\n9 $EXTMAX\n10 -1e+20\n20 -1e+20\n30 -1e+20\n");
}

TEST_F(DxfWriterFile, TakesTheBackslashesOfAPath) {
  CadSave how = HowTo(TCAD_DXF_2000);
  how.path = tdk::WString(folder.Path() + "\\other.dxf");
  EXPECT_TRUE(WriteDxf(how, engine));
  EXPECT_EQ(folder.Names(), std::vector<std::string>{"other.dxf"});
}

TEST_F(DxfWriterFile, AFolderThatIsNotThereIsReported) {
  const TroubleLog troubles;
  CadSave how = HowTo(TCAD_DXF_2000);
  how.path = tdk::WString(folder.File("none/drawing.dxf"));
  EXPECT_FALSE(WriteDxf(how, engine));
  EXPECT_TRUE(troubles.HasOnly(platform::FileTrouble::Action::kCreate,
                               folder.File("none/drawing.dxf"), ENOENT));
}

TEST_F(DxfWriterFile, AFullDiskIsReported) {
  const TroubleLog troubles;
  for (int i = 0; i < 50'000; ++i) Add(cad::PointShape{{1.0 * i, 0, 0}});
  CadSave how = HowTo(TCAD_DXF_2000);
  how.path = "/dev/full";
  EXPECT_FALSE(WriteDxf(how, engine));
  EXPECT_TRUE(troubles.HasOnly(platform::FileTrouble::Action::kWrite, "/dev/full", ENOSPC));
}

TEST_F(DxfWriterFile, AFileThatCannotBeCompletedLeavesTheOldOne) {
  const TroubleLog troubles;
  folder.Write("drawing.dxf", "old");
  for (int i = 0; i < 50'000; ++i) Add(cad::PointShape{{1.0 * i, 0, 0}});
  rlimit before{};
  getrlimit(RLIMIT_FSIZE, &before);
  const rlimit small{1'000'000, before.rlim_max};
  auto* const handler = std::signal(SIGXFSZ, SIG_IGN);
  setrlimit(RLIMIT_FSIZE, &small);
  EXPECT_FALSE(WriteDxf(HowTo(TCAD_DXF_R12), engine));
  setrlimit(RLIMIT_FSIZE, &before);
  std::signal(SIGXFSZ, handler);
  EXPECT_EQ(ReadBytes(folder.File("drawing.dxf")), "old");
  EXPECT_EQ(folder.Names(), std::vector<std::string>{"drawing.dxf"});
}

}  // namespace
