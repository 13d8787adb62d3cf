// Lines of equal elevation on a triangulation, and a terrain model as lines on the sheet.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "host/plot/contour_lines.h"
#include "host/plot/terrain_lines.h"

namespace plot {
namespace {

using testing::IsEmpty;
using testing::SizeIs;

// A square pyramid of 10 m, its top 4 m above its foot.
void AddPyramid(CTris& triangulation) {
  triangulation.AddTriVrt({0, 0, 0});
  triangulation.AddTriVrt({10, 0, 0});
  triangulation.AddTriVrt({10, 10, 0});
  triangulation.AddTriVrt({0, 10, 0});
  triangulation.AddTriVrt({5, 5, 4});
  triangulation.AddTri(0, 1, 4);
  triangulation.AddTri(1, 2, 4);
  triangulation.AddTri(2, 3, 4);
  triangulation.AddTri(3, 0, 4);
}

// A slope over `columns` squares of 1 m, one row of them: elevation = easting.
void AddSlope(int columns, CTris& triangulation) {
  for (int x = 0; x <= columns; ++x) {
    triangulation.AddTriVrt(tdk::geom::PNT_3D(x, 0, x));
    triangulation.AddTriVrt(tdk::geom::PNT_3D(x, 1, x));
  }
  for (int x = 0; x < columns; ++x) {
    triangulation.AddTri(2 * x, 2 * x + 2, 2 * x + 3);
    triangulation.AddTri(2 * x, 2 * x + 3, 2 * x + 1);
  }
}

TEST(ContourLines, GoRoundAPyramid) {
  CTris triangulation;
  AddPyramid(triangulation);
  const auto lines = ContourLines(triangulation, 1);
  ASSERT_THAT(lines, SizeIs(4));  // 1, 2, 3 m and the top
  for (int i = 1; i < 4; ++i) {
    const ContourLine& line = lines[static_cast<std::size_t>(i - 1)];
    EXPECT_EQ(line.elevation, i);
    EXPECT_EQ(line.line.front(), line.line.back());
    EXPECT_NEAR(LengthOf(line.line), 4 * 10 * (4 - i) / 4.0, 1e-9);
  }
  EXPECT_NEAR(LengthOf(lines[3].line), 0, 1e-9);
}

TEST(ContourLines, OpenLinesAreWholeAndEveryFifthIsMarked) {
  CTris triangulation;
  AddSlope(12, triangulation);
  const auto lines = ContourLines(triangulation, 2);
  ASSERT_THAT(lines, SizeIs(6));  // 2 to 12 m: at 0 m nothing lies below
  for (const ContourLine& line : lines) {
    EXPECT_NEAR(LengthOf(line.line), 1, 1e-9);
    EXPECT_EQ(line.isFifth, line.elevation == 10);
    for (const Place& place : line.line) EXPECT_NEAR(place.x, line.elevation, 1e-9);
  }
}

TEST(ContourLines, BetweenVerticesAreInterpolated) {
  CTris triangulation;
  triangulation.AddTriVrt({0, 0, 0});
  triangulation.AddTriVrt({10, 0, 10});
  triangulation.AddTriVrt({0, 10, 10});
  triangulation.AddTri(0, 1, 2);
  const auto lines = ContourLines(triangulation, 4);
  ASSERT_THAT(lines, SizeIs(2));
  EXPECT_NEAR(LengthOf(lines[0].line), std::hypot(4, 4), 1e-9);
}

TEST(ContourLines, FlatOrIncompleteTrianglesHaveNone) {
  CTris flat;
  flat.AddTriVrt({0, 0, 5});
  flat.AddTriVrt({10, 0, 5});
  flat.AddTriVrt({0, 10, 5});
  flat.AddTri(0, 1, 2);
  EXPECT_THAT(ContourLines(flat, 1), IsEmpty());
  CTris incomplete;
  incomplete.AddTriVrt({0, 0, 0});
  incomplete.AddTriVrt({10, 0, 10});
  incomplete.AddTriVrt({0, 10, UndefinedValue});
  incomplete.AddTri(0, 1, 2);
  EXPECT_THAT(ContourLines(incomplete, 1), IsEmpty());
  EXPECT_THAT(ContourLines(CTris(), 1), IsEmpty());
}

// Three triangles on one side: no triangulation, but nothing must go wrong.
TEST(ContourLines, DamagedTriangulationIsSurvived) {
  CTris triangulation;
  triangulation.AddTriVrt({0, 0, 0});
  triangulation.AddTriVrt({10, 0, 10});
  triangulation.AddTriVrt({0, 10, 0});
  triangulation.AddTriVrt({0, -10, 0});
  triangulation.AddTriVrt({5, -10, 0});
  for (const int third : {2, 3, 4}) triangulation.AddTri(0, 1, third);
  triangulation.AddTri(0, 1, 1);
  double length = 0;
  for (const ContourLine& line : ContourLines(triangulation, 5)) length += LengthOf(line.line);
  EXPECT_GT(length, 0);
}

Sheet SheetOf(double scale) {
  PlanOptions options;
  options.scale = scale;
  return LayOut({0, 0, 10, 10}, options);
}

TEST(TerrainLines, EachSideIsDrawnOnce) {
  CDtmPrj model;
  AddPyramid(model.GetTris());
  const TerrainLines lines = TerrainLinesOf(model, SheetOf(100), 1);
  EXPECT_THAT(lines.sides, SizeIs(8));
  EXPECT_THAT(lines.outline, SizeIs(4));  // it has no contour of its own
  EXPECT_FALSE(lines.isTooFine);
  EXPECT_GE(lines.contours.size(), 3U);
}

TEST(TerrainLines, ContoursOfTheModelAreItsOutline) {
  CDtmPrj model;
  AddPyramid(model.GetTris());
  CCnt& contour = model.GetOuterCnts().AddCnt();
  for (const auto& [x, y] : {std::pair{0, 0}, {10, 0}, {10, 10}, {0, 10}}) {
    contour.AddVrt(tdk::geom::PNT_3D(x, y, 0));
  }
  model.GetVncs().AddVnc({{0, 0, 0}, {10, 10, 0}});
  const TerrainLines lines = TerrainLinesOf(model, SheetOf(100), 0);
  ASSERT_THAT(lines.outline, SizeIs(1));
  EXPECT_NEAR(LengthOf(lines.outline.front()), 400, 1e-9);
  EXPECT_THAT(lines.breaklines, SizeIs(1));
  EXPECT_THAT(lines.contours, IsEmpty());
}

TEST(TerrainLines, EndAtTheFrame) {
  CDtmPrj model;
  AddPyramid(model.GetTris());
  const Sheet sheet = SheetOf(10);
  const TerrainLines lines = TerrainLinesOf(model, sheet, 1);
  for (const auto& [from, to] : lines.sides) {
    EXPECT_TRUE(sheet.frame.Grown(1e-9).Holds(from));
    EXPECT_TRUE(sheet.frame.Grown(1e-9).Holds(to));
  }
}

TEST(TerrainLines, TrianglesTooSmallToBeSeenAreNot) {
  CDtmPrj model;
  AddPyramid(model.GetTris());
  const TerrainLines lines = TerrainLinesOf(model, SheetOf(50000), 1);
  EXPECT_TRUE(lines.isTooFine);
  EXPECT_THAT(lines.sides, IsEmpty());
}

}  // namespace
}  // namespace plot
