// Flat entities of DXF files in planes of their own.
#include <cmath>

#include "tests/support/dxf_reading.h"

using namespace dxf_test;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

using DxfReaderExtrusion = DxfReading;

const std::string kMirrored = "210 0\n220 0\n230 -1\n";
// Upright, looking south: X of the plane is X of the world, its Y is up.
const std::string kUpright = "210 0\n220 -1\n230 0\n";

TEST_F(DxfReaderExtrusion, UpwardsIsTheWorldWhateverItsLength) {
  ReadEntities("0 CIRCLE\n10 1\n20 2\n30 3\n40 4\n210 0\n220 0\n230 5\n");
  ExpectAt(Only<cad::CircleShape>().center, 1, 2, 3);
}

TEST_F(DxfReaderExtrusion, NoDirectionIsUpwards) {
  ReadEntities("0 CIRCLE\n10 1\n20 2\n30 3\n40 4\n210 0\n220 0\n230 0\n");
  ExpectAt(Only<cad::CircleShape>().center, 1, 2, 3);
}

TEST_F(DxfReaderExtrusion, MirroredCircle) {
  ReadEntities("0 CIRCLE\n10 1\n20 2\n30 3\n40 4\n" + kMirrored);
  ExpectAt(Only<cad::CircleShape>().center, -1, 2, -3);
  EXPECT_THAT(Notes(), IsEmpty());
}

TEST_F(DxfReaderExtrusion, MirroredArcRunsFromItsEnd) {
  ReadEntities("0 ARC\n10 1\n20 2\n40 4\n50 10\n51 100\n" + kMirrored);
  const auto arc = Only<cad::ArcShape>();
  ExpectAt(arc.center, -1, 2, 0);
  EXPECT_EQ(arc.start, 80);
  EXPECT_EQ(arc.end, 170);
}

TEST_F(DxfReaderExtrusion, MirroredPolylineBendsTheOtherWay) {
  ReadEntities("0 LWPOLYLINE\n38 5\n10 1\n20 2\n42 0.5\n10 3\n20 4\n" + kMirrored);
  const auto line = Only<cad::PolylineShape>();
  ExpectAt(line.points.at(0), -1, 2, -5);
  ExpectAt(line.points.at(1), -3, 4, -5);
  EXPECT_THAT(line.bulges, ElementsAre(-0.5, 0));
}

TEST_F(DxfReaderExtrusion, MirroredEllipseRunsFromItsEnd) {
  ReadEntities("0 ELLIPSE\n10 1\n20 2\n11 4\n21 0\n40 0.5\n41 0\n42 1.570796326794897\n" +
               kMirrored);
  const auto ellipse = Only<cad::EllipseShape>();
  ExpectAt(ellipse.center, 1, 2, 0);
  ExpectAt(ellipse.major, 4, 0, 0);
  EXPECT_NEAR(ellipse.start, 270, 1e-9);
  EXPECT_NEAR(ellipse.end, 360, 1e-9);
}

TEST_F(DxfReaderExtrusion, MirroredText) {
  ReadEntities("0 TEXT\n10 1\n20 2\n40 3\n50 30\n1 t\n" + kMirrored);
  const auto text = Only<cad::TextShape>();
  ExpectAt(text.at, -1, 2, 0);
  EXPECT_EQ(text.rotation, 150);
}

TEST_F(DxfReaderExtrusion, MirroredSolid) {
  ReadEntities("0 SOLID\n10 0\n20 0\n11 5\n21 0\n12 0\n22 4\n13 5\n23 4\n" + kMirrored);
  ExpectAt(Only<cad::SolidShape>().points.at(2), -5, 4, 0);
}

TEST_F(DxfReaderExtrusion, MirroredInsertMirrorsItsBlock) {
  Read(Section("BLOCKS", Block("B", "0 POINT\n10 1\n")) +
       Section("ENTITIES", "0 INSERT\n2 B\n10 1\n20 2\n41 2\n50 30\n" + kMirrored));
  const auto insert = Only<cad::InsertShape>();
  ExpectAt(insert.at, -1, 2, 0);
  ExpectAt(insert.scale, -2, 1, -1);
  EXPECT_EQ(insert.rotation, 330);
}

TEST_F(DxfReaderExtrusion, EntitiesOfTheWorldStayWhereTheyAre) {
  ReadEntities("0 POINT\n10 1\n20 2\n30 3\n" + kMirrored + "0 LINE\n10 1\n20 2\n30 3\n11 4\n" +
               kMirrored + "0 3DFACE\n10 1\n20 2\n30 3\n11 4\n12 5\n" + kMirrored);
  ExpectAt(ShapeOf<cad::PointShape>(engine.Entities().at(0)).at, 1, 2, 3);
  ExpectAt(ShapeOf<cad::LineShape>(engine.Entities().at(1)).from, 1, 2, 3);
  ExpectAt(ShapeOf<cad::FaceShape>(engine.Entities().at(2)).points.at(0), 1, 2, 3);
}

// ---- Planes that stand upright or lean ----

TEST_F(DxfReaderExtrusion, UprightPolylineIsALineInSpace) {
  ReadEntities("0 LWPOLYLINE\n38 5\n10 1\n20 2\n10 3\n20 4\n" + kUpright);
  const auto line = Only<cad::PolylineShape>();
  ExpectAt(line.points.at(0), 1, -5, 2);
  ExpectAt(line.points.at(1), 3, -5, 4);
  EXPECT_THAT(Notes(), IsEmpty());
}

TEST_F(DxfReaderExtrusion, ArcsOfAnUprightPolylineBecomePoints) {
  ReadEntities("0 LWPOLYLINE\n70 1\n10 1\n20 0\n42 1\n10 -1\n20 0\n42 1\n" + kUpright);
  const auto line = Only<cad::PolylineShape>();
  EXPECT_EQ(line.points.size(), 72U);
  EXPECT_TRUE(line.isClosed);
  for (const cad::Point& point : line.points) {
    EXPECT_NEAR(std::hypot(point.getX(), point.getZ()), 1, 1e-12);
    EXPECT_NEAR(point.getY(), 0, 1e-12);
  }
  // The first arc goes over the top.
  EXPECT_GT(line.points.at(18).getZ(), 0.99);
  EXPECT_EQ(Notes().size(), 1U);
}

TEST_F(DxfReaderExtrusion, UprightCircleBecomesPoints) {
  ReadEntities("0 CIRCLE\n10 1\n20 2\n30 3\n40 4\n" + kUpright);
  const auto line = Only<cad::PolylineShape>();
  EXPECT_TRUE(line.isClosed);
  for (const cad::Point& point : line.points) {
    EXPECT_NEAR(std::hypot(point.getX() - 1, point.getZ() - 2), 4, 1e-12);
    EXPECT_NEAR(point.getY(), -3, 1e-12);
  }
  EXPECT_THAT(Notes(), ElementsAre("circles, ellipses and arcs that do not lie flat became lines "
                                   "of points (1)"));
}

TEST_F(DxfReaderExtrusion, UprightArcBecomesPointsFromItsStartToItsEnd) {
  ReadEntities("0 ARC\n10 0\n20 0\n30 0\n40 2\n50 270\n51 90\n" + kUpright);
  const auto line = Only<cad::PolylineShape>();
  EXPECT_FALSE(line.isClosed);
  ExpectAt(line.points.front(), 0, 0, -2);
  ExpectAt(line.points.at(18), 2, 0, 0);
  ExpectAt(line.points.back(), 0, 0, 2);
}

TEST_F(DxfReaderExtrusion, EllipseThatDoesNotLieFlatBecomesPoints) {
  ReadEntities(
      "0 ELLIPSE\n10 1\n20 2\n30 3\n11 0\n21 0\n31 4\n40 0.5\n41 0\n"
      "42 1.570796326794897\n210 1\n220 0\n230 0\n");
  const auto line = Only<cad::PolylineShape>();
  ExpectAt(line.points.front(), 1, 2, 7);
  ExpectAt(line.points.back(), 1, 0, 3);
}

TEST_F(DxfReaderExtrusion, DirectionNearlyUpwardsHasAnotherRule) {
  ReadEntities(
      "0 SOLID\n10 1\n20 0\n11 0\n21 1\n12 0\n22 0\n210 0.01\n220 0\n230 1\n"
      "0 SOLID\n10 1\n20 0\n11 0\n21 1\n12 0\n22 0\n210 0.02\n220 0\n230 1\n");
  const auto first = ShapeOf<cad::SolidShape>(engine.Entities().at(0)).points;
  ExpectAt(first.at(0), 1, 0, -0.01, 1e-4);
  ExpectAt(first.at(1), 0, 1, 0, 1e-4);
  const auto second = ShapeOf<cad::SolidShape>(engine.Entities().at(1)).points;
  ExpectAt(second.at(0), 0, 1, 0, 1e-3);
  ExpectAt(second.at(1), -1, 0, 0.02, 1e-3);
}

TEST_F(DxfReaderExtrusion, TextsAndInsertsAreLaidFlat) {
  Read(Section("BLOCKS", Block("B", "0 POINT\n10 1\n")) +
       Section("ENTITIES", "0 TEXT\n10 1\n20 2\n30 3\n40 3\n1 t\n" + kUpright +
                               "0 INSERT\n2 B\n10 1\n20 2\n30 3\n50 180\n" + kUpright));
  ExpectAt(ShapeOf<cad::TextShape>(engine.Entities().at(0)).at, 1, -3, 2);
  EXPECT_EQ(ShapeOf<cad::TextShape>(engine.Entities().at(0)).rotation, 0);
  EXPECT_NEAR(ShapeOf<cad::InsertShape>(engine.Entities().at(1)).rotation, 180, 1e-9);
  EXPECT_THAT(Notes(), ElementsAre("texts that do not lie flat are laid flat (1)",
                                   "inserts that do not lie flat are laid flat (1)"));
}

TEST_F(DxfReaderExtrusion, NumbersBeyondAllMeasureMakeNoShape) {
  ReadEntities("0 SOLID\n10 1.7e308\n20 1.7e308\n30 1.7e308\n11 1\n12 2\n210 1\n220 1\n230 1\n");
  EXPECT_EQ(engine.Entities().size(), 0U);
  EXPECT_THAT(Notes(), ElementsAre("entities whose numbers make no shape are left out (1)"));
}

}  // namespace
