// Polylines and ellipses as DXF.
#include <algorithm>
#include <cmath>

#include "support/dxf_writing.h"

namespace {

using DxfWriterPolylines = dxf_writer_test::DxfWriting;

std::size_t Count(const std::string& text, const std::string& part) {
  std::size_t count = 0;
  for (std::size_t at = 0; (at = text.find(part, at)) != std::string::npos; at += part.size()) {
    ++count;
  }
  return count;
}

cad::PolylineShape Flat() { return {{{0, 0, 5}, {10, 0, 5}, {10, 10, 5}}, {0, 1, 0}, true}; }
cad::PolylineShape InSpace() { return {{{0, 0, 5}, {10, 0, 6}}, {}, false}; }

TEST_F(DxfWriterPolylines, AFlatOneIn2000) {
  Add(Flat());
  EXPECT_EQ(V2000(),
            "0 LWPOLYLINE\n5 22\n330 11\n100 AcDbEntity\n8 0\n100 AcDbPolyline\n"
            "90 3\n70 1\n38 5.0\n10 0.0\n20 0.0\n10 10.0\n20 0.0\n42 1.0\n10 10.0\n20 10.0\n");
}

TEST_F(DxfWriterPolylines, AFlatOneInR12) {
  Add(Flat(), 1, 3);
  EXPECT_EQ(R12(),
            "0 POLYLINE\n8 0\n62 3\n66 1\n10 0.0\n20 0.0\n30 5.0\n70 1\n"
            "0 VERTEX\n8 0\n62 3\n10 0.0\n20 0.0\n30 5.0\n"
            "0 VERTEX\n8 0\n62 3\n10 10.0\n20 0.0\n30 5.0\n42 1.0\n"
            "0 VERTEX\n8 0\n62 3\n10 10.0\n20 10.0\n30 5.0\n"
            "0 SEQEND\n8 0\n62 3\n");
}

TEST_F(DxfWriterPolylines, OneInSpaceIn2000) {
  Add(InSpace());
  const std::string vertex =
      "330 22\n100 AcDbEntity\n8 0\n100 AcDbVertex\n100 AcDb3dPolylineVertex\n";
  EXPECT_EQ(V2000(),
            "0 POLYLINE\n5 22\n330 11\n100 AcDbEntity\n8 0\n100 AcDb3dPolyline\n"
            "66 1\n10 0.0\n20 0.0\n30 0.0\n70 8\n"
            "0 VERTEX\n5 23\n" +
                vertex +
                "10 0.0\n20 0.0\n30 5.0\n70 32\n"
                "0 VERTEX\n5 24\n" +
                vertex +
                "10 10.0\n20 0.0\n30 6.0\n70 32\n"
                "0 SEQEND\n5 25\n330 22\n100 AcDbEntity\n8 0\n");
}

TEST_F(DxfWriterPolylines, OneInSpaceInR12) {
  cad::PolylineShape closed = InSpace();
  closed.isClosed = true;
  Add(closed);
  EXPECT_EQ(R12(),
            "0 POLYLINE\n8 0\n66 1\n10 0.0\n20 0.0\n30 0.0\n70 9\n"
            "0 VERTEX\n8 0\n10 0.0\n20 0.0\n30 5.0\n70 32\n"
            "0 VERTEX\n8 0\n10 10.0\n20 0.0\n30 6.0\n70 32\n"
            "0 SEQEND\n8 0\n");
}

TEST_F(DxfWriterPolylines, BulgesInSpaceAreNoArcsSoTheElevationsStay) {
  cad::PolylineShape polyline = InSpace();
  polyline.bulges = {1, 0};
  Add(polyline);
  EXPECT_EQ(Count(V2000(), "0 VERTEX\n"), 2U);
  EXPECT_EQ(Count(V2000(), "42 "), 0U);
  EXPECT_EQ(written.straightened, 1U);
}

TEST_F(DxfWriterPolylines, FewerBulgesThanPointsAreStraightBeyond) {
  Add(cad::PolylineShape{{{0, 0, 0}, {1, 0, 0}, {2, 0, 0}}, {-0.5}, false});
  EXPECT_NE(V2000().find("70 0\n38 0.0\n10 0.0\n20 0.0\n42 -0.5\n10 1.0\n20 0.0\n10 2.0\n20 0.0\n"),
            std::string::npos)
      << V2000();
}

TEST_F(DxfWriterPolylines, AWholeEllipseInR12IsClosedAndHasSixtyFourChords) {
  Add(cad::EllipseShape{{100, 200, 3}, {0, 4, 0}, 0.5, 0, 360});
  const std::string text = R12();
  EXPECT_EQ(text.find("0 POLYLINE\n8 0\n66 1\n10 0.0\n20 0.0\n30 3.0\n70 1\n"
                      "0 VERTEX\n8 0\n10 100.0\n20 204.0\n30 3.0\n"),
            0U)
      << text;
  EXPECT_EQ(Count(text, "0 VERTEX\n"), 64U);
  // Where the minor axis ends, a quarter on.
  EXPECT_NE(text.find("10 98.0\n20 200.0\n30 3.0\n"), std::string::npos);
}

TEST_F(DxfWriterPolylines, APartOfAnEllipseInR12IsOpen) {
  Add(cad::EllipseShape{{0, 0, 0}, {4, 0, 0}, 0.5, 270, 90});
  const std::string text = R12();
  EXPECT_EQ(Count(text, "70 0\n"), 1U);
  EXPECT_EQ(Count(text, "0 VERTEX\n"), 65U);
  EXPECT_NE(text.find("70 0\n0 VERTEX\n8 0\n10 0.0\n20 -2.0\n30 0.0\n"), std::string::npos) << text;
  EXPECT_NE(text.find("10 0.0\n20 2.0\n30 0.0\n0 SEQEND\n8 0\n"), std::string::npos) << text;
}

TEST_F(DxfWriterPolylines, LongOnesAreWrittenWhole) {
  cad::PolylineShape polyline;
  for (int i = 0; i < 30'000; ++i) polyline.points.emplace_back(i, 0.5, 7);
  Add(polyline);
  EXPECT_EQ(Count(V2000(), "20 0.5\n"), 30'000U);
  EXPECT_EQ(Count(R12(), "20 0.5\n"), 30'000U);
}

}  // namespace
