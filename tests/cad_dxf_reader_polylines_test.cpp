// Polylines, meshes and splines of DXF files.
#include "tests/support/dxf_reading.h"

using namespace dxf_test;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

using DxfReaderPolylines = DxfReading;

std::string Vertex(const std::string& lines) { return "0 VERTEX\n8 0\n" + lines; }
const std::string kSequenceEnd = "0 SEQEND\n8 0\n";

TEST_F(DxfReaderPolylines, LightPolylineHasOneElevation) {
  ReadEntities("0 LWPOLYLINE\n8 0\n90 2\n70 0\n38 12.5\n10 1\n20 2\n40 0.1\n41 0.1\n10 3\n20 4\n");
  const auto line = Only<cad::PolylineShape>();
  ASSERT_EQ(line.points.size(), 2U);
  ExpectAt(line.points[0], 1, 2, 12.5);
  ExpectAt(line.points[1], 3, 4, 12.5);
  EXPECT_THAT(line.bulges, IsEmpty());
  EXPECT_FALSE(line.isClosed);
}

TEST_F(DxfReaderPolylines, LightPolylineWithArcs) {
  ReadEntities("0 LWPOLYLINE\n90 3\n70 129\n10 0\n20 0\n42 1\n10 2\n20 0\n10 1\n20 3\n42 -0.5\n");
  const auto line = Only<cad::PolylineShape>();
  EXPECT_EQ(line.points.size(), 3U);
  EXPECT_THAT(line.bulges, ElementsAre(1, 0, -0.5));
  EXPECT_TRUE(line.isClosed);
}

TEST_F(DxfReaderPolylines, CountInTheFileIsNotBelieved) {
  ReadEntities("0 LWPOLYLINE\n90 2147483647\n10 0\n20 0\n10 2\n20 0\n");
  EXPECT_EQ(Only<cad::PolylineShape>().points.size(), 2U);
}

TEST_F(DxfReaderPolylines, FlatPolylineHasTheElevationOfItsRecord) {
  ReadEntities("0 POLYLINE\n8 A\n66 1\n10 0\n20 0\n30 7\n70 1\n" + Vertex("10 1\n20 2\n30 7\n") +
               Vertex("10 3\n20 4\n42 0.5\n") + kSequenceEnd + "0 POINT\n10 1\n");
  const auto line = ShapeOf<cad::PolylineShape>(engine.Entities().at(0));
  ASSERT_EQ(line.points.size(), 2U);
  ExpectAt(line.points[0], 1, 2, 7);
  ExpectAt(line.points[1], 3, 4, 7);
  EXPECT_THAT(line.bulges, ElementsAre(0, 0.5));
  EXPECT_TRUE(line.isClosed);
  EXPECT_EQ(DrawingOf(0), "A");
  EXPECT_EQ(engine.Entities().size(), 2U);
}

TEST_F(DxfReaderPolylines, ElevationsOfVerticesAreKeptWhereTheRecordHasNone) {
  ReadEntities("0 POLYLINE\n70 0\n" + Vertex("10 1\n20 2\n30 7\n") + Vertex("10 3\n20 4\n30 8\n") +
               kSequenceEnd);
  const auto line = Only<cad::PolylineShape>();
  ASSERT_EQ(line.points.size(), 2U);
  ExpectAt(line.points[0], 1, 2, 7);
  ExpectAt(line.points[1], 3, 4, 8);
}

TEST_F(DxfReaderPolylines, SequenceEndMayBeMissing) {
  ReadEntities("0 POLYLINE\n70 0\n" + Vertex("10 1\n20 2\n") + Vertex("10 3\n20 4\n") +
               "0 POINT\n10 1\n");
  EXPECT_EQ(Count<cad::PolylineShape>(), 1);
  EXPECT_EQ(Count<cad::PointShape>(), 1);
}

TEST_F(DxfReaderPolylines, PolylineWithoutVerticesIsTold) {
  ReadEntities("0 POLYLINE\n70 0\n" + kSequenceEnd + "0 POLYLINE\n70 8\n" + kSequenceEnd +
               "0 LWPOLYLINE\n70 0\n");
  EXPECT_EQ(engine.Entities().size(), 0U);
  EXPECT_THAT(Notes(), ElementsAre("entities whose numbers make no shape are left out (3)"));
}

TEST_F(DxfReaderPolylines, PolylineInSpace) {
  ReadEntities("0 POLYLINE\n66 1\n70 9\n" + Vertex("10 1\n20 2\n30 3\n70 32\n") +
               Vertex("10 4\n20 5\n30 6\n70 32\n") + kSequenceEnd);
  const auto line = Only<cad::PolylineShape>();
  ASSERT_EQ(line.points.size(), 2U);
  ExpectAt(line.points[0], 1, 2, 3);
  ExpectAt(line.points[1], 4, 5, 6);
  EXPECT_THAT(line.bulges, IsEmpty());
  EXPECT_TRUE(line.isClosed);
}

TEST_F(DxfReaderPolylines, SmoothedPolylineIsWithoutItsControlPoints) {
  ReadEntities("0 POLYLINE\n66 1\n70 4\n" + Vertex("10 1\n20 2\n70 16\n") +
               Vertex("10 1\n20 2\n70 8\n") + Vertex("10 3\n20 4\n70 8\n") +
               Vertex("10 3\n20 9\n70 16\n") + kSequenceEnd);
  EXPECT_EQ(Only<cad::PolylineShape>().points.size(), 2U);
}

// ---- Faces ----

class DxfReaderMeshes : public DxfReading {
 protected:
  /// Rows of two vertices, all on one line.
  void ReadMesh(const std::string& flags, int rows, const std::string& counts) {
    std::string lines = "0 POLYLINE\n66 1\n70 " + flags + '\n' + counts;
    for (int row = 0; row < rows; ++row) {
      for (const std::string x : {"0", "5"}) {
        lines += Vertex("10 " + x + "\n20 " + std::to_string(row) + "\n70 64\n");
      }
    }
    ReadEntities(lines + kSequenceEnd);
  }
};

TEST_F(DxfReaderMeshes, MeshBecomesFaces) {
  ReadMesh("16", 3, "71 3\n72 2\n");
  ASSERT_EQ(Count<cad::FaceShape>(), 2);
  const auto face = ShapeOf<cad::FaceShape>(engine.Entities()[1]);
  ASSERT_EQ(face.points.size(), 4U);
  ExpectAt(face.points[0], 0, 1, 0);
  ExpectAt(face.points[1], 5, 1, 0);
  ExpectAt(face.points[2], 5, 2, 0);
  ExpectAt(face.points[3], 0, 2, 0);
}

TEST_F(DxfReaderMeshes, ClosedMeshGoesOnAtItsBeginning) {
  ReadMesh("17", 3, "71 3\n72 2\n");
  ASSERT_EQ(Count<cad::FaceShape>(), 3);
  ExpectAt(ShapeOf<cad::FaceShape>(engine.Entities()[2]).points.at(3), 0, 0, 0);
}

TEST_F(DxfReaderMeshes, MeshClosedInBothDirections) {
  ReadMesh("49", 3, "71 3\n72 2\n");
  EXPECT_EQ(Count<cad::FaceShape>(), 6);
}

TEST_F(DxfReaderMeshes, MeshThatIsLargerThanItsVerticesIsTold) {
  for (const std::string counts :
       {"71 4\n72 2\n", "71 2147483647\n72 2147483647\n", "71 -5\n", ""}) {
    ReadMesh("16", 3, counts);
    EXPECT_EQ(engine.Entities().size(), 0U) << counts;
    EXPECT_THAT(Notes(), ElementsAre("entities whose numbers make no shape are left out (1)"));
  }
}

TEST_F(DxfReaderMeshes, PolyfaceBecomesFaces) {
  ReadEntities("0 POLYLINE\n66 1\n70 64\n71 4\n72 2\n" + Vertex("10 0\n20 0\n30 1\n70 192\n") +
               Vertex("10 5\n20 0\n30 2\n70 192\n") + Vertex("10 5\n20 5\n30 3\n70 192\n") +
               Vertex("10 0\n20 5\n30 4\n70 192\n") + Vertex("70 128\n71 1\n72 -2\n73 3\n") +
               Vertex("70 128\n71 1\n72 2\n73 3\n74 4\n") + kSequenceEnd);
  ASSERT_EQ(Count<cad::FaceShape>(), 2);
  const auto face = ShapeOf<cad::FaceShape>(engine.Entities()[0]);
  ASSERT_EQ(face.points.size(), 3U);
  ExpectAt(face.points[1], 5, 0, 2);
  EXPECT_EQ(ShapeOf<cad::FaceShape>(engine.Entities()[1]).points.size(), 4U);
  EXPECT_THAT(Notes(), IsEmpty());
}

TEST_F(DxfReaderMeshes, FacesOfVerticesThatAreNotThereAreTold) {
  ReadEntities("0 POLYLINE\n66 1\n70 64\n" + Vertex("10 0\n20 0\n70 192\n") +
               Vertex("70 128\n71 1\n72 1\n73 2\n") + Vertex("70 128\n71 1\n72 1\n") +
               kSequenceEnd);
  EXPECT_EQ(engine.Entities().size(), 0U);
  EXPECT_THAT(Notes(), ElementsAre("faces of points that are not there are left out (2)"));
}

// ---- Splines ----

using DxfReaderSplines = DxfReading;

TEST_F(DxfReaderSplines, SplineBecomesPointsOnIt) {
  // Of degree 2: the parabola that touches both legs of the corner.
  ReadEntities(
      "0 SPLINE\n70 8\n71 2\n72 6\n73 3\n40 0\n40 0\n40 0\n40 1\n40 1\n40 1\n"
      "10 0\n20 0\n30 0\n10 1\n20 2\n30 0\n10 2\n20 0\n30 8\n");
  const auto line = Only<cad::PolylineShape>();
  ASSERT_EQ(line.points.size(), 9U);
  ExpectAt(line.points.front(), 0, 0, 0);
  ExpectAt(line.points[4], 1, 1, 2);
  ExpectAt(line.points.back(), 2, 0, 8);
  EXPECT_THAT(Notes(), ElementsAre("splines became lines of points (1)"));
}

TEST_F(DxfReaderSplines, WeightsBendTheSpline) {
  // A quarter of the unit circle.
  ReadEntities(
      "0 SPLINE\n70 12\n71 2\n40 0\n40 0\n40 0\n40 1\n40 1\n40 1\n41 1\n"
      "41 0.7071067811865476\n41 1\n10 1\n20 0\n10 1\n20 1\n10 0\n20 1\n");
  for (const cad::Point& point : Only<cad::PolylineShape>().points) {
    EXPECT_NEAR(std::hypot(point.getX(), point.getY()), 1, 1e-12);
  }
}

TEST_F(DxfReaderSplines, SplineWithoutControlPointsHasItsFitPoints) {
  ReadEntities(
      "0 SPLINE\n70 1\n71 3\n74 3\n11 0\n21 0\n31 1\n11 1\n21 2\n31 2\n11 4\n21 0\n31 3\n");
  const auto line = Only<cad::PolylineShape>();
  ASSERT_EQ(line.points.size(), 3U);
  ExpectAt(line.points[2], 4, 0, 3);
  EXPECT_TRUE(line.isClosed);
}

TEST_F(DxfReaderSplines, SplinesThatMakeNoCurveAreTold) {
  for (const std::string numbers :
       {"71 3\n10 0\n20 0\n10 1\n20 1\n", "71 2000000000\n40 0\n10 0\n20 0\n", "71 -1\n", "",
        "71 1\n40 1\n40 1\n40 0\n40 0\n10 0\n20 0\n10 1\n20 1\n",
        "71 1\n40 0\n40 0\n40 0\n40 0\n10 0\n20 0\n10 1\n20 1\n"}) {
    ReadEntities("0 SPLINE\n" + numbers);
    EXPECT_EQ(engine.Entities().size(), 0U) << numbers;
    EXPECT_THAT(Notes(), ElementsAre("SPLINE is not read (1)"));
  }
}

TEST_F(DxfReaderSplines, WeightsOfZeroMakeNoShape) {
  ReadEntities("0 SPLINE\n71 1\n40 0\n40 0\n40 1\n40 1\n41 0\n41 0\n10 0\n20 0\n10 1\n20 1\n");
  EXPECT_EQ(engine.Entities().size(), 0U);
}

}  // namespace
