// Drawings written as DWG and read back.
#include "support/dwg_drawings.h"

using namespace dwg_test;

namespace {

class DwgRoundTrip : public DwgFiles, public testing::WithParamInterface<enumTCAD_DXFDWG_VER> {};

TEST_P(DwgRoundTrip, EveryKindComesBack) {
  const FullDrawing drawing(engine);
  Read(Write(GetParam()));
  EXPECT_EQ(written.leftOut, 0U);
  EXPECT_EQ(Describer(back).Layers(), Describer(engine).Layers());
  // Blocks are written before those that insert them, in that order.
  EXPECT_EQ(Describer(back).Blocks(), Describer(engine).Blocks());
  EXPECT_EQ(Describer(back).Entities(), Describer(engine).Entities());
}

TEST_P(DwgRoundTrip, AnEmptyDrawingComesBack) {
  Read(Write(GetParam()));
  EXPECT_EQ(Describer(back).All(), Describer(engine).All());
}

TEST_P(DwgRoundTrip, TheSameAsDxf) {
  const FullDrawing drawing(engine);
  Read(Write(GetParam()));
  ASSERT_TRUE(WriteDxfCounting(How("drawing.dxf", TCAD_DXF_2000), engine).isWritten);
  CTcadEng fromDxf(0, nullptr, true);
  ASSERT_TRUE(ReadDxf(tdk::WString(folder.File("drawing.dxf")), fromDxf).isLoaded);
  EXPECT_EQ(Describer(back).All(), Describer(fromDxf).All());
}

TEST_P(DwgRoundTrip, WhatIsNotShownMayBeLeftOut) {
  const FullDrawing drawing(engine);
  onlyVisible = true;
  Read(Write(GetParam()));
  EXPECT_LT(back.Entities().size(), engine.Entities().size());
  for (const cad::Entity& entity : back.Entities()) {
    EXPECT_TRUE(back.IsDrawingVisible(entity.drawing));
  }
}

TEST_P(DwgRoundTrip, BrokenShapesAreLeftOutAndCounted) {
  engine.Add(MakeEntity(cad::CircleShape{{0, 0, 0}, 0}));
  engine.Add(MakeEntity(cad::PointShape{{UndefinedValue, 0, 0}}));
  engine.Add(MakeEntity(cad::PolylineShape{{{0, 0, 0}}, {}, false}));
  engine.Add(MakeEntity(cad::TextShape{{0, 0, 0}, 1, 0, std::string(40'000, 'x')}));
  engine.Add(MakeEntity(cad::PointShape{{4, 5, 6}}));
  Read(Write(GetParam()));
  EXPECT_EQ(written.leftOut, 4U);
  EXPECT_EQ(Describer(back).Entities(), std::vector<std::string>{"0 256 point ( 4 5 6 )"});
}

TEST_P(DwgRoundTrip, AreasThatAreNotLevelBecomeFaces) {
  engine.Add(MakeEntity(cad::SolidShape{{{0, 0, 0}, {1, 0, 1}, {1, 1, 2}}}));
  Read(Write(GetParam()));
  EXPECT_EQ(Describer(back).Entities(),
            std::vector<std::string>{"0 256 face ( 0 0 0 ) ( 1 0 1 ) ( 1 1 2 )"});
}

TEST_P(DwgRoundTrip, NumbersAreExact) {
  const cad::Point at(0.1 + 0.2, 4'999'999.123456789, -1e-300);
  engine.Add(MakeEntity(cad::PointShape{at}));
  engine.Add(MakeEntity(cad::TextShape{at, 0.1, 33.3, "x"}));
  Read(Write(GetParam()));
  const auto& point = std::get<cad::PointShape>(back.Entities().at(0).shape).at;
  EXPECT_EQ(point.getX(), at.getX());
  EXPECT_EQ(point.getY(), at.getY());
  EXPECT_EQ(point.getZ(), at.getZ());
  EXPECT_EQ(std::get<cad::TextShape>(back.Entities().at(1).shape).rotation, 33.3);
}

TEST_P(DwgRoundTrip, ManyLayersBlocksAndEntities) {
  for (int i = 0; i < 300; ++i) {
    const int layer =
        engine.AddDrawing(0, tdk::WString("L" + std::to_string(i)), i % 3 != 0, i % 5 == 0, false);
    cad::Block block;
    block.name = "B" + std::to_string(i);
    block.entities = {MakeEntity(cad::PointShape{{1, 2, 3}}, layer)};
    cad::InsertShape insert;
    insert.block = engine.AddBlock(block);
    engine.Add(MakeEntity(insert, layer));
    for (int k = 0; k < 20; ++k)
      engine.Add(MakeEntity(cad::PointShape{{k * 1.5, i * 1.0, 0}}, layer));
  }
  Read(Write(GetParam()));
  EXPECT_EQ(Describer(back).All(), Describer(engine).All());
}

TEST_P(DwgRoundTrip, ALongPolyline) {
  cad::PolylineShape flat;
  cad::PolylineShape inSpace;
  for (int i = 0; i < 20'000; ++i) {
    flat.points.emplace_back(i * 0.5, i % 7, 3);
    inSpace.points.emplace_back(i * 0.5, i % 7, i);
  }
  engine.Add(MakeEntity(flat));
  engine.Add(MakeEntity(inSpace));
  Read(Write(GetParam()));
  EXPECT_EQ(Describer(back).All(), Describer(engine).All());
}

INSTANTIATE_TEST_SUITE_P(Versions, DwgRoundTrip, testing::Values(TCAD_DWG_R14, TCAD_DWG_2000),
                         [](const auto& version) {
                           return version.param == TCAD_DWG_R14 ? "R14" : "V2000";
                         });

class DwgNames : public DwgFiles {};

TEST_F(DwgNames, OfVersion2000KeepTheirLetters) {
  engine.AddDrawing(0, "Wall \xC3\xA9 \xD0\x96 ^", true, false, false);
  Read(Write(TCAD_DWG_2000));
  EXPECT_EQ(back.GetDrawingName(2).ToUtf8(), "Wall \xC3\xA9 \xD0\x96 ^");
}

TEST_F(DwgNames, OfR14AreShortAndInCapitals) {
  engine.AddDrawing(0, "Wall 1", true, false, false);
  engine.AddDrawing(0, "wall_1", true, false, false);
  Read(Write(TCAD_DWG_R14));
  EXPECT_EQ(back.GetDrawingName(2).ToUtf8(), "WALL_1");
  EXPECT_EQ(back.GetDrawingName(3).ToUtf8(), "WALL_1_2");
}

}  // namespace
