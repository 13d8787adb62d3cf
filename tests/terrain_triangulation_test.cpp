// Terrain models from points: triangles, contours, breaklines, the limit of their sides.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "host/terrain/triangulation.h"
#include "tests/support/random.h"

using tdk::geom::PNT_3D;

namespace {

terrain::Findings Triangulate(terrain::Source source, CDtmPrj& model) {
  terrain::ITriangulator* const triangulator = terrain::Triangulator();
  EXPECT_NE(triangulator, nullptr);
  return triangulator == nullptr ? terrain::Findings{}
                                 : triangulator->Triangulate(std::move(source), model);
}

// The corners of a square of 10 m, counter-clockwise, and its middle.
std::vector<PNT_3D> Square() { return {{0, 0, 1}, {10, 0, 2}, {10, 10, 3}, {0, 10, 4}, {5, 5, 9}}; }

// Points a metre apart, `columns` times `rows`.
std::vector<PNT_3D> Grid(int columns, int rows) {
  std::vector<PNT_3D> points;
  for (int y = 0; y < rows; ++y) {
    for (int x = 0; x < columns; ++x) points.emplace_back(x, y, x + y);
  }
  return points;
}

double Cross(const PNT_3D& a, const PNT_3D& b, const PNT_3D& c) {
  return (b.getX() - a.getX()) * (c.getY() - a.getY()) -
         (c.getX() - a.getX()) * (b.getY() - a.getY());
}

const PNT_3D& Corner(const CTris& triangulation, int triangle, int k) {
  return triangulation.GetTriVrtAt(triangulation.GetTriAt(triangle).GetVerIndex(k));
}

double AreaOf(const CTris& triangulation) {
  double area = 0;
  for (int i = 0; i < triangulation.GetNoTris(); ++i) {
    area += Cross(Corner(triangulation, i, 0), Corner(triangulation, i, 1),
                  Corner(triangulation, i, 2)) /
            2;
  }
  return area;
}

double AreaOf(const CCnt& contour) {
  double area = 0;
  for (int i = 1; i + 1 < contour.GetNoVrts(); ++i) {
    area += Cross(contour.GetVrt(0), contour.GetVrt(i), contour.GetVrt(i + 1)) / 2;
  }
  return area;
}

bool IsAt(const PNT_3D& point, double x, double y, double z) {
  return point.getX() == x && point.getY() == y && point.getZ() == z;
}

// Whether a side of a triangle joins the two vertices.
bool HasSide(const CTris& triangulation, int from, int to) {
  for (int i = 0; i < triangulation.GetNoTris(); ++i) {
    const CTri& triangle = triangulation.GetTriAt(i);
    for (int k = 0; k < 3; ++k) {
      const int a = triangle.GetVerIndex(k);
      const int b = triangle.GetVerIndex((k + 1) % 3);
      if ((a == from && b == to) || (a == to && b == from)) return true;
    }
  }
  return false;
}

}  // namespace

TEST(Triangulation, KeepsThePointsInTheirOrder) {
  CDtmPrj model;
  const terrain::Findings findings = Triangulate({Square(), {}, 0}, model);
  const CTris& triangulation = model.GetTris();
  ASSERT_EQ(triangulation.GetNoTriVrts(), 5);
  for (int i = 0; i < 5; ++i) {
    const PNT_3D expected = Square()[static_cast<std::size_t>(i)];
    EXPECT_TRUE(
        IsAt(triangulation.GetTriVrtAt(i), expected.getX(), expected.getY(), expected.getZ()));
  }
  EXPECT_EQ(triangulation.GetNoTris(), 4);
  EXPECT_DOUBLE_EQ(AreaOf(triangulation), 100);
  EXPECT_EQ(findings.samePlace, 0U);
}

TEST(Triangulation, TrianglesTurnCounterClockwise) {
  CDtmPrj model;
  Triangulate({Grid(7, 5), {}, 0}, model);
  for (int i = 0; i < model.GetTris().GetNoTris(); ++i) {
    EXPECT_GT(Cross(Corner(model.GetTris(), i, 0), Corner(model.GetTris(), i, 1),
                    Corner(model.GetTris(), i, 2)),
              0);
  }
  EXPECT_EQ(model.GetTris().GetNoTris(), 2 * 6 * 4);
}

TEST(Triangulation, OuterContourIsClosedAndCounterClockwise) {
  CDtmPrj model;
  Triangulate({Square(), {}, 0}, model);
  ASSERT_EQ(model.GetOuterCnts().GetNoCnts(), 1);
  EXPECT_EQ(model.GetIslandCnts().GetNoCnts(), 0);
  const CCnt& contour = model.GetOuterCnts().GetCntAt(0);
  ASSERT_EQ(contour.GetNoVrts(), 5);
  EXPECT_TRUE(IsAt(contour.GetVrt(4), contour.GetVrt(0).getX(), contour.GetVrt(0).getY(),
                   contour.GetVrt(0).getZ()));
  EXPECT_DOUBLE_EQ(AreaOf(contour), 100);
}

TEST(Triangulation, OfPointsInOnePlaceTheFirstHolds) {
  std::vector<PNT_3D> points = Square();
  points.emplace_back(5, 5, 100);
  points.emplace_back(0, 0, 100);
  CDtmPrj model;
  EXPECT_EQ(Triangulate({points, {}, 0}, model).samePlace, 2U);
  ASSERT_EQ(model.GetTris().GetNoTriVrts(), 5);
  EXPECT_TRUE(IsAt(model.GetTris().GetTriVrtAt(4), 5, 5, 9));
  EXPECT_TRUE(IsAt(model.GetTris().GetTriVrtAt(0), 0, 0, 1));
}

TEST(Triangulation, FewerThanThreePointsOrAllInOneLineMakeNoTriangle) {
  for (const std::vector<PNT_3D>& points : {std::vector<PNT_3D>{},
                                            {{1, 1, 1}},
                                            {{0, 0, 0}, {1, 1, 1}},
                                            {{0, 0, 0}, {1, 1, 0}, {2, 2, 0}}}) {
    CDtmPrj model;
    Triangulate({points, {}, 0}, model);
    EXPECT_EQ(model.GetTris().GetNoTris(), 0);
    EXPECT_EQ(model.GetTris().GetNoTriVrts(), static_cast<int>(points.size()));
    EXPECT_EQ(model.GetOuterCnts().GetNoCnts(), 0);
  }
}

// A flat quadrangle whose short diagonal the plain triangulation takes.
TEST(Triangulation, BreaklineIsASideOfTriangles) {
  const std::vector<PNT_3D> points = {{0, 0, 1}, {10, -2, 2}, {20, 0, 3}, {10, 2, 4}};
  CDtmPrj plain;
  Triangulate({points, {}, 0}, plain);
  EXPECT_TRUE(HasSide(plain.GetTris(), 1, 3));
  CDtmPrj constrained;
  Triangulate({points, {{0, 2}}, 0}, constrained);
  EXPECT_TRUE(HasSide(constrained.GetTris(), 0, 2));
  ASSERT_EQ(constrained.GetVncs().GetNoVncs(), 1);
  EXPECT_TRUE(IsAt(constrained.GetVncs().GetVncAt(0).GetCoords().getStart(), 0, 0, 1));
  EXPECT_TRUE(IsAt(constrained.GetVncs().GetVncAt(0).GetCoords().getEnd(), 20, 0, 3));
}

TEST(Triangulation, CrossingBreaklinesMeetAtTheMeanOfTheirElevations) {
  const std::vector<PNT_3D> points = {{0, 0, 0}, {10, 0, 0}, {10, 10, 10}, {0, 10, 20}};
  CDtmPrj model;
  const terrain::Findings findings = Triangulate({points, {{0, 2}, {1, 3}}, 0}, model);
  EXPECT_EQ(findings.crossings, 1U);
  ASSERT_EQ(model.GetTris().GetNoTriVrts(), 5);
  // One line is at 5 in the middle, the other at 10.
  const PNT_3D& crossing = model.GetTris().GetTriVrtAt(4);
  EXPECT_NEAR(crossing.getX(), 5, 1e-9);
  EXPECT_NEAR(crossing.getY(), 5, 1e-9);
  EXPECT_NEAR(crossing.getZ(), 7.5, 1e-9);
  EXPECT_EQ(model.GetVncs().GetNoVncs(), 2);
}

TEST(Triangulation, BreaklineThroughAPointIsNoCrossing) {
  CDtmPrj model;
  const terrain::Findings findings = Triangulate({Square(), {{0, 2}}, 0}, model);
  EXPECT_EQ(findings.crossings, 0U);
  EXPECT_TRUE(HasSide(model.GetTris(), 0, 4));
  EXPECT_TRUE(HasSide(model.GetTris(), 4, 2));
  EXPECT_EQ(model.GetVncs().GetNoVncs(), 1);
}

TEST(Triangulation, BreaklineBetweenPointsInOnePlaceIsNone) {
  std::vector<PNT_3D> points = Square();
  points.emplace_back(0, 0, 7);
  CDtmPrj model;
  Triangulate({points, {{0, 5}, {5, 2}}, 0}, model);
  ASSERT_EQ(model.GetVncs().GetNoVncs(), 1);
  // The first point of the place gives the elevation.
  EXPECT_TRUE(IsAt(model.GetVncs().GetVncAt(0).GetCoords().getStart(), 0, 0, 1));
}

TEST(Triangulation, TrianglesWithALongSideAreLeftOutAndCounted) {
  std::vector<PNT_3D> points = Grid(3, 3);
  points.emplace_back(50, 1, 0);
  CDtmPrj model;
  const terrain::Findings findings = Triangulate({points, {}, 1.5}, model);
  EXPECT_EQ(model.GetTris().GetNoTris(), 8);
  EXPECT_EQ(findings.longTriangles, 2U);
  EXPECT_EQ(model.GetTris().GetNoTriVrts(), 10);  // a vertex of no triangle stays
  ASSERT_EQ(model.GetOuterCnts().GetNoCnts(), 1);
  EXPECT_DOUBLE_EQ(AreaOf(model.GetOuterCnts().GetCntAt(0)), 4);
}

TEST(Triangulation, LimitOfExactlyTheLongestSideLeavesNothingOut) {
  CDtmPrj model;
  EXPECT_EQ(Triangulate({{{0, 0, 0}, {3, 0, 0}, {0, 4, 0}}, {}, 5}, model).longTriangles, 0U);
  EXPECT_EQ(model.GetTris().GetNoTris(), 1);
}

// A grid of 5 by 5 without its middle: the hole is a square whose diagonals are longer than the
// limit.
TEST(Triangulation, HoleIsAClockwiseIsland) {
  std::vector<PNT_3D> points = Grid(5, 5);
  points.erase(points.begin() + 12);
  CDtmPrj model;
  Triangulate({points, {}, 1.5}, model);
  ASSERT_EQ(model.GetOuterCnts().GetNoCnts(), 1);
  ASSERT_EQ(model.GetIslandCnts().GetNoCnts(), 1);
  EXPECT_DOUBLE_EQ(AreaOf(model.GetOuterCnts().GetCntAt(0)), 16);
  EXPECT_LT(AreaOf(model.GetIslandCnts().GetCntAt(0)), 0);
  EXPECT_DOUBLE_EQ(AreaOf(model.GetTris()), 16 + AreaOf(model.GetIslandCnts().GetCntAt(0)));
}

TEST(Triangulation, PartsThatTouchInOnePointHaveContoursOfTheirOwn) {
  // Two triangles with a common corner at (0, 0), and nothing between them within the limit.
  const std::vector<PNT_3D> points = {{0, 0, 0}, {4, 1, 0}, {4, -1, 0}, {-4, 1, 0}, {-4, -1, 0}};
  CDtmPrj model;
  Triangulate({points, {}, 5}, model);
  EXPECT_EQ(model.GetTris().GetNoTris(), 2);
  ASSERT_EQ(model.GetOuterCnts().GetNoCnts(), 2);
  for (int i = 0; i < 2; ++i) {
    EXPECT_EQ(model.GetOuterCnts().GetCntAt(i).GetNoVrts(), 4);
    EXPECT_DOUBLE_EQ(AreaOf(model.GetOuterCnts().GetCntAt(i)), 4);
  }
}

// Whatever the points: the triangles cover what the contours enclose, and no point lies inside the
// circle of a triangle.
TEST(Triangulation, RandomPointsAreDelaunayAndCovered) {
  Random random;
  std::vector<PNT_3D> points;
  for (int i = 0; i < 200; ++i) {
    points.emplace_back(5e6 + random.Real(0, 1000), 5e6 + random.Real(0, 1000),
                        random.Real(0, 1000));
  }
  CDtmPrj model;
  Triangulate({points, {}, 0}, model);
  const CTris& triangulation = model.GetTris();
  EXPECT_NEAR(AreaOf(triangulation), AreaOf(model.GetOuterCnts().GetCntAt(0)), 1e-3);
  for (int i = 0; i < triangulation.GetNoTris(); ++i) {
    for (int v = 0; v < triangulation.GetNoTriVrts(); ++v) {
      const PNT_3D& p = triangulation.GetTriVrtAt(v);
      long double m[3][3];
      for (int k = 0; k < 3; ++k) {
        const PNT_3D& c = Corner(triangulation, i, k);
        m[k][0] = static_cast<long double>(c.getX()) - p.getX();
        m[k][1] = static_cast<long double>(c.getY()) - p.getY();
        m[k][2] = m[k][0] * m[k][0] + m[k][1] * m[k][1];
      }
      const long double inside = m[0][0] * (m[1][1] * m[2][2] - m[1][2] * m[2][1]) -
                                 m[0][1] * (m[1][0] * m[2][2] - m[1][2] * m[2][0]) +
                                 m[0][2] * (m[1][0] * m[2][1] - m[1][1] * m[2][0]);
      ASSERT_LE(inside, 1e-2L) << "triangle " << i << ", vertex " << v;
    }
  }
}
