// What DXF files may look like, and what of them is no drawing.
#include "tests/support/dxf_reading.h"

using namespace dxf_test;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class DxfReaderTolerance : public DxfReading {
 protected:
  static std::string WithLineEnds(const std::string& text, std::string_view lineEnd) {
    std::string changed;
    for (const char c : text) {
      if (c == '\n') {
        changed += lineEnd;
      } else {
        changed += c;
      }
    }
    return changed;
  }
  const std::string text_ = Pairs(Section("ENTITIES",
                                          "0 LINE\n8 A\n10 1\n20 2\n11 3\n21 4\n"
                                          "0 TEXT\n10 5\n1 \n0 TEXT\n10 5\n1 x\n") +
                                  kEnd);
};

TEST_F(DxfReaderTolerance, LinesEndInAnyWay) {
  for (const std::string_view end : {"\n", "\r\n", "\r", "\r\r\n"}) {
    CTcadEng one(0, nullptr, false);
    exchange_test::WriteFile(Path(), WithLineEnds(text_, end));
    load = ReadDxf(tdk::WString(Path()), one);
    EXPECT_TRUE(load.isLoaded) << load.errorLine << Error();
    ASSERT_EQ(one.Entities().size(), 3U);
    ExpectAt(ShapeOf<cad::LineShape>(one.Entities()[0]).to, 3, 4, 0);
    EXPECT_EQ(ShapeOf<cad::TextShape>(one.Entities()[1]).text, "");
    EXPECT_EQ(ShapeOf<cad::TextShape>(one.Entities()[2]).text, "x");
    EXPECT_EQ(one.GetDrawingName(2).ToUtf8(), "A");
  }
}

TEST_F(DxfReaderTolerance, LinesEndInAnyWayInLargeFilesToo) {
  std::string many;
  for (int i = 0; i < 40'000; ++i) many += "0 POINT\n8 0\n10 " + std::to_string(i) + "\n";
  const std::string text = Pairs(Section("ENTITIES", many) + kEnd);
  for (const std::string_view end : {"\n", "\r\n", "\r", "\r\r\n"}) {
    CTcadEng one(0, nullptr, false);
    exchange_test::WriteFile(Path(), WithLineEnds(text, end));
    load = ReadDxf(tdk::WString(Path()), one);
    EXPECT_TRUE(load.isLoaded) << load.errorLine << Error();
    ASSERT_EQ(one.Entities().size(), 40'000U);
    ExpectAt(ShapeOf<cad::PointShape>(one.Entities()[39'999]).at, 39'999, 0, 0);
  }
}

TEST_F(DxfReaderTolerance, CodesMayHaveBlanksAround) {
  ReadBytes("  0\nSECTION \n  2  \nENTITIES\n\t0 \nPOINT  \n 10\n  1.5  \n  0\nENDSEC \n0\nEOF\n");
  ExpectAt(Only<cad::PointShape>().at, 1.5, 0, 0);
}

TEST_F(DxfReaderTolerance, LastLineEndMayBeMissing) {
  ReadBytes(std::string_view(text_).substr(0, text_.size() - 1));
  EXPECT_TRUE(load.isLoaded) << Error();
  EXPECT_THAT(Notes(), IsEmpty());
}

TEST_F(DxfReaderTolerance, WhatComesBehindTheEndMarkIsNotLookedAt) {
  ReadBytes(text_ + "rubbish\x1A\n\n1\n");
  EXPECT_TRUE(load.isLoaded) << Error();
}

TEST_F(DxfReaderTolerance, FileWithoutEndMarkIsTold) {
  for (const std::string rest : {"", "\n", "\n \r\n\x1A"}) {
    ReadBytes(Pairs(Section("ENTITIES", "0 POINT\n10 1\n")) + rest);
    EXPECT_TRUE(load.isLoaded) << Error();
    EXPECT_THAT(Notes(), ElementsAre("the file has no end mark, so parts of it may be missing"));
  }
}

TEST_F(DxfReaderTolerance, CommentsMayBeAnywhere) {
  Read(
      "999 first\n0 SECTION\n999 a\n2 ENTITIES\n999 b\n0 POINT\n999 c\n10 1\n999 d\n20 2\n"
      "0 ENDSEC\n999 e\n");
  ExpectAt(Only<cad::PointShape>().at, 1, 2, 0);
}

TEST_F(DxfReaderTolerance, DrawingMayBeEmpty) {
  Read("");
  EXPECT_TRUE(load.isLoaded) << Error();
  Read(Section("ENTITIES", ""));
  EXPECT_TRUE(load.isLoaded) << Error();
  EXPECT_THAT(Notes(), IsEmpty());
}

TEST_F(DxfReaderTolerance, SectionsThatSayNothingOfTheDrawingAreSkipped) {
  Read(Section("CLASSES", "0 CLASS\n1 X\n") + Section("OBJECTS", "0 POINT\n10 rubbish\n") +
       Section("THUMBNAILIMAGE", "310 00FF\n"));
  EXPECT_TRUE(load.isLoaded) << Error();
  EXPECT_EQ(engine.Entities().size(), 0U);
}

TEST_F(DxfReaderTolerance, WholeNumbersMayHaveADecimalPoint) {
  ReadEntities("0 POINT\n62 5.0\n10 1\n");
  EXPECT_EQ(engine.Entities().at(0).color, 5);
}

TEST_F(DxfReaderTolerance, DataOfOtherProgramsIsNotTheEntity) {
  ReadEntities(
      "0 POINT\n102 {ACAD_REACTORS\n10 9\n330 2F\n102 }\n10 1\n1001 APP\n1010 5\n1020 6\n"
      "1040 rubbish\n1070 rubbish\n");
  ExpectAt(Only<cad::PointShape>().at, 1, 0, 0);
}

TEST_F(DxfReaderTolerance, PathMayHaveBackslashes) {
  exchange_test::WriteFile(Path(), text_);
  load = ReadDxf(tdk::WString(folder.Path() + "\\in.dxf"), engine);
  EXPECT_TRUE(load.isLoaded) << Error();
}

TEST_F(DxfReaderTolerance, LongValuesAreRead) {
  const std::string value(3'000'000, 'x');
  ReadEntities("0 TEXT\n10 1\n1 " + value + "\n0 POINT\n10 1\n");
  EXPECT_EQ(ShapeOf<cad::TextShape>(engine.Entities().at(0)).text, value);
  EXPECT_EQ(engine.Entities().size(), 2U);
}

// ---- What is no part of the drawing ----

TEST_F(DxfReaderTolerance, PaperSpaceIsLeftOutAndTold) {
  ReadEntities(
      "0 POINT\n67 1\n10 1\n0 VIEWPORT\n67 1\n10 1\n0 POINT\n67 0\n10 1\n"
      "0 POLYLINE\n67 1\n66 1\n0 VERTEX\n67 1\n10 1\n0 SEQEND\n67 1\n"
      "0 INSERT\n67 1\n2 B\n0 ATTRIB\n1 x\n2 y\n0 SEQEND\n");
  EXPECT_EQ(engine.Entities().size(), 1U);
  EXPECT_THAT(Notes(), ElementsAre("entities of the paper space are left out (4)"));
}

TEST_F(DxfReaderTolerance, BlocksOfThePaperSpaceAreLeftOutAndTold) {
  Read(Section("BLOCKS", Block("*Model_Space", "") + Block("*Paper_Space", "") +
                             Block("*PAPER_SPACE0", "0 POINT\n10 1\n0 HATCH\n10 1\n") +
                             Block("$PAPER_SPACE", "0 POINT\n10 1\n")));
  EXPECT_EQ(engine.Blocks().size(), 0U);
  EXPECT_EQ(engine.Entities().size(), 0U);
  EXPECT_THAT(Notes(), ElementsAre("entities of the paper space are left out (3)"));
}

TEST_F(DxfReaderTolerance, BlockOfTheModelSpaceIsTheDrawing) {
  Read(Section("BLOCKS", Block("*MODEL_SPACE", "0 POINT\n10 1\n0 INSERT\n2 B\n") +
                             Block("B", "0 POINT\n10 2\n")) +
       Section("ENTITIES", "0 POINT\n10 3\n"));
  EXPECT_EQ(engine.Blocks().size(), 1U);
  EXPECT_EQ(Count<cad::PointShape>(), 2);
  EXPECT_EQ(Count<cad::InsertShape>(), 1);
}

TEST_F(DxfReaderTolerance, InvisibleEntitiesAreLeftOutAndTold) {
  ReadEntities("0 POINT\n60 1\n10 1\n0 POINT\n60 0\n10 1\n");
  EXPECT_EQ(engine.Entities().size(), 1U);
  EXPECT_THAT(Notes(), ElementsAre("invisible entities are left out (1)"));
}

// ---- What a drawing of the engine does not have ----

TEST_F(DxfReaderTolerance, LinesThatAreDashedAreTold) {
  ReadEntities(
      "0 LINE\n6 DASHED\n10 1\n0 LINE\n10 1\n0 LINE\n6 Continuous\n0 LINE\n6 ByLayer\n"
      "0 LINE\n6 BYBLOCK\n0 POINT\n6 HIDDEN\n");
  EXPECT_EQ(engine.Entities().size(), 6U);
  EXPECT_THAT(
      Notes(),
      ElementsAre("layers and entities whose lines are dashed or the like become continuous (2)"));
}

TEST_F(DxfReaderTolerance, LayerWithDashedLinesIsTold) {
  Read(Section("TABLES",
               "0 TABLE\n2 LAYER\n0 LAYER\n2 A\n6 DASHED\n0 LAYER\n2 B\n"
               "6 CONTINUOUS\n0 ENDTAB\n"));
  EXPECT_EQ(engine.GetNoDrawings(), 3);
  EXPECT_EQ(Notes().size(), 1U);
}

TEST_F(DxfReaderTolerance, LooksThatAreLostAreTold) {
  const std::vector<std::string> losing = {
      "0 LINE\n39 0.5\n10 1\n",
      "0 LINE\n370 50\n10 1\n",
      "0 POINT\n420 255\n10 1\n",
      "0 POINT\n440 33554559\n10 1\n",
      "0 LWPOLYLINE\n43 0.2\n10 1\n20 1\n10 2\n20 2\n",
      "0 LWPOLYLINE\n10 1\n20 1\n40 0.1\n41 0\n10 2\n20 2\n",
      "0 POLYLINE\n41 0.3\n0 VERTEX\n10 1\n0 SEQEND\n",
      "0 TEXT\n40 5\n41 2\n1 x\n",
      "0 TEXT\n40 5\n51 15\n1 x\n",
      "0 TEXT\n40 5\n7 ROMANS\n39 2\n41 2\n1 x\n",
  };
  for (const std::string& lines : losing) {
    ReadEntities(lines);
    EXPECT_THAT(Notes(), ElementsAre("layers and entities lose thickness, width, line weight, true "
                                     "colour or text style (1)"))
        << lines;
  }
  EXPECT_EQ(engine.Entities().size(), losing.size());
}

TEST_F(DxfReaderTolerance, UsualLooksAreNotTold) {
  ReadEntities(
      "0 LINE\n39 0\n370 -1\n10 1\n0 LWPOLYLINE\n43 0\n10 1\n20 1\n40 0\n10 2\n20 2\n"
      "0 TEXT\n40 5\n41 1\n51 0\n7 Standard\n1 x\n0 CIRCLE\n40 5\n");
  EXPECT_EQ(engine.Entities().size(), 4U);
  EXPECT_THAT(Notes(), testing::IsEmpty());
}

}  // namespace
