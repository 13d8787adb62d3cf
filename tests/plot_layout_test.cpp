// The sheet of a plan: size, scale, grid, scale bar; clipping; roads on it.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "host/plot/nice_numbers.h"
#include "host/plot/plan_layout.h"
#include "host/plot/plan_scene.h"

namespace plot {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

constexpr double kPi = 3.14159265358979323846;

TEST(Layout, SheetLiesAsThePlanIsShownLarger) {
  const Sheet wide = LayOut({0, 0, 200, 50}, {});
  EXPECT_EQ(wide.width, 297);
  EXPECT_EQ(wide.height, 210);
  const Sheet high = LayOut({0, 0, 50, 200}, {});
  EXPECT_EQ(high.width, 210);
  EXPECT_EQ(high.height, 297);
}

TEST(Layout, EverythingFitsAtTheLargestUsualScale) {
  for (double size = 0.5; size < 1e6; size *= 1.7) {
    const Box extent = {1000, 2000, 1000 + size, 2000 + size * 0.6};
    const Sheet sheet = LayOut(extent, {});
    EXPECT_TRUE(sheet.frame.Holds(sheet.OnSheet({extent.left, extent.low}))) << size;
    EXPECT_TRUE(sheet.frame.Holds(sheet.OnSheet({extent.right, extent.high}))) << size;
    EXPECT_EQ(ScaleAtLeast(sheet.scale), sheet.scale) << size;
    EXPECT_GT(sheet.MillimetresOf(size), sheet.frame.Width() / 3) << size;
  }
}

TEST(Layout, OnePointHasAScaleToo) {
  Box extent;
  extent.Add({500000, 5000000});
  const Sheet sheet = LayOut(extent, {});
  EXPECT_EQ(sheet.scale, 100);
  EXPECT_EQ(sheet.OnSheet({500000, 5000000}), sheet.frame.Middle());
}

TEST(Layout, NorthIsUp) {
  const Sheet sheet = LayOut({0, 0, 100, 100}, {});
  EXPECT_LT(sheet.OnSheet({50, 80}).y, sheet.OnSheet({50, 20}).y);
  EXPECT_GT(sheet.OnSheet({80, 50}).x, sheet.OnSheet({20, 50}).x);
}

TEST(Layout, OptionsChooseSizeAndScale) {
  PlanOptions options;
  options.width = 841;
  options.height = 594;
  options.scale = 250;
  const Sheet sheet = LayOut({0, 0, 10, 10}, options);
  EXPECT_EQ(sheet.width, 841);
  EXPECT_EQ(sheet.height, 594);
  EXPECT_EQ(sheet.scale, 250);
  EXPECT_EQ(sheet.MillimetresOf(10), 40);
}

TEST(Layout, PictureIsTwoThousandPixelsWideHoweverItLies) {
  PlanOptions options;
  options.kind = PictureKind::kPng;
  for (const Box& extent : {Box{0, 0, 200, 50}, Box{0, 0, 50, 200}}) {
    const Sheet sheet = LayOut(extent, options);
    EXPECT_NEAR(sheet.width * kPixelsPerMillimetre, 2000, 1e-9);
    EXPECT_NEAR(sheet.pixel * kPixelsPerMillimetre, 1, 1e-12);
  }
}

TEST(Grid, LinesAreRoundAndWithinTheFrame) {
  const Sheet sheet = LayOut({570000, 180000, 570300, 180200}, {});
  const Grid grid = GridOf(sheet);
  EXPECT_EQ(NiceAtLeast(grid.step), grid.step);
  EXPECT_GE(grid.eastings.size(), 3U);
  EXPECT_LE(grid.eastings.size(), 10U);
  const Box shown = sheet.Shown();
  for (const double east : grid.eastings) {
    EXPECT_EQ(std::remainder(east, grid.step), 0);
    EXPECT_TRUE(east >= shown.left && east <= shown.right);
  }
}

TEST(Grid, IsLeftOutWhereCoordinatesAreNotToldApart) {
  const Grid grid = GridOf(LayOut({1e30, 1e30, 1e30, 1e30}, {}));
  EXPECT_THAT(grid.eastings, IsEmpty());
}

TEST(ScaleBar, IsRoundAndWellSeen) {
  for (const double scale : {100.0, 1250.0, 7500.0, 20000.0}) {
    PlanOptions options;
    options.scale = scale;
    const Sheet sheet = LayOut({0, 0, 1, 1}, options);
    const double length = ScaleBarLength(sheet);
    EXPECT_EQ(NiceAtMost(length), length);
    EXPECT_GE(sheet.MillimetresOf(length), 20);
    EXPECT_LE(sheet.MillimetresOf(length), 60.001);
  }
}

TEST(Chainages, LabelsAreEveryFourthOrFifthMark) {
  for (double scale = 1; scale < 1e6; scale = ScaleAtLeast(scale * 1.01)) {
    PlanOptions options;
    options.scale = scale;
    const ChainageSteps steps = ChainageStepsOf(LayOut({0, 0, 1, 1}, options));
    const double marks = steps.labels / steps.marks;
    EXPECT_TRUE(std::abs(marks - 4) < 1e-9 || std::abs(marks - 5) < 1e-9) << scale;
  }
}

TEST(Clip, LegIsCutAtTheBox) {
  const Box box = {0, 0, 10, 10};
  Place a = {-5, 5};
  Place b = {15, 5};
  EXPECT_TRUE(ClipLeg(box, a, b));
  EXPECT_EQ(a, (Place{0, 5}));
  EXPECT_EQ(b, (Place{10, 5}));
  Place c = {-5, 20};
  Place d = {15, 11};
  EXPECT_FALSE(ClipLeg(box, c, d));
  Place e = {0, 0};
  Place f = {std::numeric_limits<double>::infinity(), 0};
  EXPECT_FALSE(ClipLeg(box, e, f));
}

TEST(Clip, LineFallsIntoItsPartsWithin) {
  const Polyline line = {{1, 1}, {1, 20}, {5, 20}, {5, 1}, {9, 1}};
  const auto parts = ClipLine({0, 0, 10, 10}, line, 0);
  ASSERT_THAT(parts, SizeIs(2));
  EXPECT_THAT(parts[0], ElementsAre(Place{1, 1}, Place{1, 10}));
  EXPECT_THAT(parts[1], ElementsAre(Place{5, 10}, Place{5, 1}, Place{9, 1}));
}

TEST(Clip, CrowdedVerticesAreThinnedOutButTheEndsStay) {
  Polyline line;
  for (int i = 0; i <= 1000; ++i) line.push_back({i * 0.001, 0});
  const auto parts = ClipLine({-1, -1, 2, 1}, line, 0.1);
  ASSERT_THAT(parts, SizeIs(1));
  EXPECT_LE(parts[0].size(), 12U);
  EXPECT_EQ(parts[0].front(), line.front());
  EXPECT_EQ(parts[0].back(), line.back());
}

class Roads : public testing::Test {
 protected:
  // A straight of 100 m to the east, then a quarter of a circle to the left.
  void AddRoad() {
    CRoad& road = *document.GetLibRoad()->AddRoad(false);
    road.SetName("main");
    road.AddElement(
        std::make_unique<CLinePlaniElem>(0, tdk::geom::PNT_2D(0, 0), tdk::geom::PNT_2D(100, 0)));
    road.AddElement(std::make_unique<CArcPlaniElem>(100, tdk::geom::PNT_2D(100, 0),
                                                    tdk::geom::VECTOR_2D(1, 0), 50, kPi / 2, true));
  }
  const CRoad& Road() { return *document.GetLibRoad()->GetRoadAt(0); }

  HostDocument document;
};

TEST_F(Roads, ChordsStayWithinTheErrorOfTheCurve) {
  AddRoad();
  for (const double error : {0.5, 0.01, 0.0001}) {
    const auto axis = AxisOf(Road(), error);
    ASSERT_THAT(axis, SizeIs(1));
    const Place middle = {100, 50};
    for (std::size_t i = 2; i < axis[0].size(); ++i) {
      const Place chord = Between(axis[0][i - 1], axis[0][i], 0.5);
      EXPECT_LE(std::abs(Distance(chord, middle) - 50), error);
    }
    EXPECT_NEAR(axis[0].back().x, 150, 1e-9);
    EXPECT_NEAR(axis[0].back().y, 50, 1e-9);
  }
}

TEST_F(Roads, StraightIsOneLeg) {
  AddRoad();
  const auto axis = AxisOf(Road(), 0.01);
  EXPECT_EQ(axis[0][0], (Place{0, 0}));
  EXPECT_EQ(axis[0][1], (Place{100, 0}));
}

TEST_F(Roads, RoundChainagesAreMarkedOnce) {
  AddRoad();
  const auto marks = ChainageMarks(Road(), 50);
  ASSERT_THAT(marks, SizeIs(4));  // 0, 50, 100, 150
  EXPECT_EQ(marks[2].chainage, 100);
  EXPECT_NEAR(marks[2].place.x, 100, 1e-9);
  EXPECT_NEAR(marks[3].direction, 1, 1e-9);  // 50 m along a radius of 50 m
  EXPECT_THAT(ChainageMarks(Road(), 1e-9), IsEmpty());
}

// A damaged file may hold it; it must not take for ever.
TEST_F(Roads, ClothoidThatWindsWithoutEndIsDrawnRoughly) {
  CRoad& road = *document.GetLibRoad()->AddRoad(false);
  road.AddElement(std::make_unique<CClotPlaniElem>(
      0, tdk::geom::PNT_2D(0, 0), tdk::geom::VECTOR_2D(1, 0), 1e6, 0.001, true, true));
  const auto axis = AxisOf(Road(), 1e-6);
  ASSERT_THAT(axis, SizeIs(1));
  EXPECT_LT(axis[0].size(), 100U);
  EXPECT_THAT(ChainageMarks(Road(), 100), IsEmpty());
}

TEST_F(Roads, EmptyOnesAreNotDrawn) {
  AddRoad();
  document.GetLibRoad()->GetRoadAt(0)->MarkEmpty(true);
  EXPECT_THAT(AxisOf(Road(), 0.01), IsEmpty());
  EXPECT_TRUE(ContentOf(document, true).IsEmpty());
}

TEST_F(Roads, HaveTicksAndLabelsOnTheSheet) {
  AddRoad();
  const PlanContent content = ContentOf(document, true);
  const Scene scene = SceneOf(content, {}, [](std::string_view text, TextKind kind) {
    return 0.6 * TextSize(kind) * static_cast<double>(text.size());
  });
  ASSERT_THAT(scene.roads, SizeIs(1));
  EXPECT_GT(scene.roads[0].ticks.size(), 5U);
  std::vector<std::string> texts;
  for (const Label& label : scene.labels) texts.push_back(label.text);
  EXPECT_THAT(texts, testing::IsSupersetOf({"main", "0+000", "0+100"}));
}

TEST(Content, PointsWithoutAPlaceAreCounted) {
  HostDocument document;
  document.GetLibPnt()->AddGrp(false);
  document.GetLibPnt()->AddPtn(0, false)->SetNomCoord("A", "", 1, 2, UndefinedValue);
  document.GetLibPnt()->AddPtn(0, false)->SetNomCoord("B", "", UndefinedValue, 2, 3);
  document.GetLibGps()->AddGrp(false);  // without a base
  const PlanContent content = ContentOf(document, true);
  EXPECT_THAT(content.marks, SizeIs(1));
  EXPECT_EQ(content.withoutPlace, 1U);
}

}  // namespace
}  // namespace plot
