// What becomes of a DXF file: layers, colours and the plain kinds of entities.
#include "tests/support/dxf_reading.h"

using namespace dxf_test;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class DxfReader : public DxfReading {
 protected:
  void ReadLayers(const std::string& layers) {
    Read(Section("TABLES", "0 TABLE\n2 LAYER\n70 9\n" + layers + "0 ENDTAB\n"));
    EXPECT_TRUE(load.isLoaded) << Error();
  }
  unsigned ColorOf(int drawing) const {
    bool byLayer = false;
    unsigned color = 0;
    engine.GetDrawingColor(drawing, byLayer, color);
    EXPECT_TRUE(byLayer);
    return color;
  }
};

// ---- Layers ----

TEST_F(DxfReader, LayersBecomeDrawings) {
  ReadLayers("0 LAYER\n2 Walls\n70 0\n62 3\n6 CONTINUOUS\n0 LAYER\n2 Doors\n62 5\n");
  ASSERT_EQ(engine.GetNoDrawings(), 3);
  EXPECT_EQ(engine.GetDrawingName(2).ToUtf8(), "Walls");
  EXPECT_EQ(ColorOf(2), 3U);
  EXPECT_TRUE(engine.IsDrawingVisible(2));
  EXPECT_FALSE(engine.IsDrawingLocked(2));
  EXPECT_EQ(engine.GetDrawingName(3).ToUtf8(), "Doors");
  EXPECT_EQ(ColorOf(3), 5U);
  EXPECT_THAT(Notes(), IsEmpty());
}

TEST_F(DxfReader, LayersThatAreOffOrFrozenAreNotVisible) {
  ReadLayers("0 LAYER\n2 A\n62 -3\n0 LAYER\n2 B\n70 1\n62 4\n0 LAYER\n2 C\n70 2\n");
  EXPECT_FALSE(engine.IsDrawingVisible(2));
  EXPECT_EQ(ColorOf(2), 3U);
  EXPECT_FALSE(engine.IsDrawingVisible(3));
  EXPECT_EQ(ColorOf(3), 4U);
  EXPECT_TRUE(engine.IsDrawingVisible(4));
  EXPECT_EQ(ColorOf(4), 7U);
}

TEST_F(DxfReader, LayersMayBeLocked) {
  ReadLayers("0 LAYER\n2 A\n70 4\n0 LAYER\n2 B\n70 64\n");
  EXPECT_TRUE(engine.IsDrawingLocked(2));
  EXPECT_FALSE(engine.IsDrawingLocked(3));
}

TEST_F(DxfReader, DrawingWhoseNameIsTakenKeepsItsState) {
  engine.AddDrawing(0, "WALLS", true, false, false);
  engine.SetDrawingColor(2, false, 9);
  ReadLayers("0 LAYER\n2 walls\n62 -3\n70 4\n");
  ASSERT_EQ(engine.GetNoDrawings(), 2);
  EXPECT_TRUE(engine.IsDrawingVisible(2));
  EXPECT_FALSE(engine.IsDrawingLocked(2));
  bool byLayer = true;
  unsigned color = 0;
  engine.GetDrawingColor(2, byLayer, color);
  EXPECT_FALSE(byLayer);
  EXPECT_EQ(color, 9U);
}

TEST_F(DxfReader, FirstDrawingOfAnEmptyEngineIsAsTheFileSays) {
  ReadLayers("0 LAYER\n2 0\n62 -2\n70 4\n");
  EXPECT_FALSE(engine.IsDrawingVisible(1));
  EXPECT_TRUE(engine.IsDrawingLocked(1));
  EXPECT_EQ(ColorOf(1), 2U);
}

TEST_F(DxfReader, FirstDrawingOfAnEngineInUseStaysAsItIs) {
  engine.Add({});
  ReadLayers("0 LAYER\n2 0\n62 -2\n");
  EXPECT_TRUE(engine.IsDrawingVisible(1));
}

TEST_F(DxfReader, LayerThatNoTableHasIsMade) {
  ReadEntities("0 POINT\n8 new\n10 1\n20 2\n0 POINT\n10 1\n20 2\n0 POINT\n8 NEW\n10 1\n20 2\n");
  ASSERT_EQ(engine.GetNoDrawings(), 2);
  EXPECT_EQ(DrawingOf(0), "new");
  EXPECT_EQ(DrawingOf(1), "0");
  EXPECT_EQ(DrawingOf(2), "new");
}

// ---- Entities ----

TEST_F(DxfReader, EntitiesHaveTheirColors) {
  ReadEntities("0 POINT\n10 1\n0 POINT\n62 5\n10 1\n0 POINT\n62 0\n10 1\n0 POINT\n62 999\n10 1\n");
  std::vector<int> colors;
  for (const cad::Entity& entity : engine.Entities()) colors.push_back(entity.color);
  EXPECT_THAT(colors, ElementsAre(cad::kByLayer, 5, cad::kByBlock, cad::kByLayer));
  EXPECT_EQ(engine.Entities()[0].origin, cad::Origin::kUser);
  EXPECT_FALSE(engine.Entities()[0].isPrivate);
}

TEST_F(DxfReader, Point) {
  ReadEntities("0 POINT\n8 0\n10 1.5\n20 -2.25\n30 1e3\n39 2\n");
  ExpectAt(Only<cad::PointShape>().at, 1.5, -2.25, 1000);
}

TEST_F(DxfReader, Line) {
  ReadEntities("0 LINE\n8 0\n10 1\n20 2\n30 3\n11 4\n21 5\n31 6\n");
  const auto line = Only<cad::LineShape>();
  ExpectAt(line.from, 1, 2, 3);
  ExpectAt(line.to, 4, 5, 6);
}

TEST_F(DxfReader, NumbersMayBeWrittenInManyWays) {
  ReadEntities("0 LINE\n10 1.\n20 .5\n30 +7\n11 1e-2\n21 -1.5E+1\n31   25  \n");
  const auto line = Only<cad::LineShape>();
  ExpectAt(line.from, 1, 0.5, 7);
  ExpectAt(line.to, 0.01, -15, 25);
}

TEST_F(DxfReader, CoordinateThatIsNotThereIsZero) {
  ReadEntities("0 LINE\n10 9\n20 9\n30 9\n11 8\n21 8\n31 8\n0 LINE\n10 1\n21 2\n");
  const auto line = ShapeOf<cad::LineShape>(engine.Entities().at(1));
  ExpectAt(line.from, 1, 0, 0);
  ExpectAt(line.to, 0, 2, 0);
}

TEST_F(DxfReader, Circle) {
  ReadEntities("0 CIRCLE\n10 1\n20 2\n30 3\n40 4.5\n");
  const auto circle = Only<cad::CircleShape>();
  ExpectAt(circle.center, 1, 2, 3);
  EXPECT_EQ(circle.radius, 4.5);
}

TEST_F(DxfReader, Arc) {
  ReadEntities("0 ARC\n10 1\n20 2\n30 3\n40 4.5\n50 350\n51 20\n");
  const auto arc = Only<cad::ArcShape>();
  ExpectAt(arc.center, 1, 2, 3);
  EXPECT_EQ(arc.radius, 4.5);
  EXPECT_EQ(arc.start, 350);
  EXPECT_EQ(arc.end, 20);
}

TEST_F(DxfReader, WholeEllipse) {
  ReadEntities(
      "0 ELLIPSE\n10 1\n20 2\n30 3\n11 4\n21 1\n31 0\n40 0.5\n41 0.0\n"
      "42 6.283185307179586\n");
  const auto ellipse = Only<cad::EllipseShape>();
  ExpectAt(ellipse.center, 1, 2, 3);
  ExpectAt(ellipse.major, 4, 1, 0);
  EXPECT_EQ(ellipse.ratio, 0.5);
  EXPECT_EQ(ellipse.start, 0);
  EXPECT_EQ(ellipse.end, 360);
}

TEST_F(DxfReader, PartOfAnEllipse) {
  ReadEntities(
      "0 ELLIPSE\n10 1\n20 2\n11 4\n21 0\n40 0.5\n41 4.71238898038469\n"
      "42 1.570796326794897\n");
  const auto ellipse = Only<cad::EllipseShape>();
  EXPECT_NEAR(ellipse.start, 270, 1e-9);
  EXPECT_NEAR(ellipse.end, 450, 1e-9);
}

TEST_F(DxfReader, AxesOfAnEllipseChangePlacesWhenTheMinorIsLonger) {
  ReadEntities("0 ELLIPSE\n10 0\n20 0\n11 1\n21 0\n40 2\n41 0\n42 1.570796326794897\n");
  const auto ellipse = Only<cad::EllipseShape>();
  ExpectAt(ellipse.major, 0, 2, 0);
  EXPECT_EQ(ellipse.ratio, 0.5);
  EXPECT_NEAR(ellipse.start, 270, 1e-9);
  EXPECT_NEAR(ellipse.end, 360, 1e-9);
}

TEST_F(DxfReader, EllipseWithoutWidthIsToldAndLeftOut) {
  ReadEntities("0 ELLIPSE\n10 0\n20 0\n11 1\n21 0\n40 0\n");
  EXPECT_EQ(engine.Entities().size(), 0U);
  EXPECT_THAT(Notes(), ElementsAre("entities whose numbers make no shape are left out (1)"));
}

TEST_F(DxfReader, FaceOfFourPoints) {
  ReadEntities(
      "0 3DFACE\n10 0\n20 0\n30 1\n11 5\n21 0\n31 2\n12 5\n22 5\n32 3\n13 0\n23 5\n33 4\n");
  const auto face = Only<cad::FaceShape>();
  ASSERT_EQ(face.points.size(), 4U);
  ExpectAt(face.points[2], 5, 5, 3);
  ExpectAt(face.points[3], 0, 5, 4);
}

TEST_F(DxfReader, FaceWhoseFourthPointIsTheThirdIsATriangle) {
  ReadEntities(
      "0 3DFACE\n10 0\n20 0\n11 5\n21 0\n12 5\n22 5\n13 5\n23 5\n"
      "0 3DFACE\n10 0\n20 0\n11 5\n21 0\n12 5\n22 5\n");
  EXPECT_EQ(ShapeOf<cad::FaceShape>(engine.Entities().at(0)).points.size(), 3U);
  EXPECT_EQ(ShapeOf<cad::FaceShape>(engine.Entities().at(1)).points.size(), 3U);
}

TEST_F(DxfReader, PointsOfASolidGoAroundIt) {
  for (const std::string kind : {"SOLID", "TRACE"}) {
    ReadEntities("0 " + kind + "\n10 0\n20 0\n11 5\n21 0\n12 0\n22 4\n13 5\n23 4\n");
    const auto solid = ShapeOf<cad::SolidShape>(engine.Entities().back());
    ASSERT_EQ(solid.points.size(), 4U);
    ExpectAt(solid.points[2], 5, 4, 0);
    ExpectAt(solid.points[3], 0, 4, 0);
  }
}

TEST_F(DxfReader, WhatIsNotReadIsCountedByItsKind) {
  ReadEntities(
      "0 HATCH\n10 0\n91 99999999\n0 POINT\n10 1\n0 DIMENSION\n2 *D1\n0 HATCH\n10 0\n"
      "0 SEQEND\n");
  EXPECT_EQ(engine.Entities().size(), 1U);
  EXPECT_THAT(Notes(), ElementsAre("DIMENSION is not read (1)", "HATCH is not read (2)"));
}

TEST_F(DxfReader, KindsThatAreNotReadAreNamedUpToANumber) {
  std::string lines;
  for (int i = 0; i < 1000; ++i) lines += "0 KIND" + std::to_string(i) + '\n';
  ReadEntities(lines);
  ASSERT_EQ(Notes().size(), 51U);
  EXPECT_EQ(Notes().back(), "other kinds of entities are not read (950)");
}

}  // namespace
