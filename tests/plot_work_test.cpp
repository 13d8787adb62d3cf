// Themes and the drawing on a sheet.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "host/plot/plan_layout.h"
#include "host/plot/work_on_sheet.h"
#include "support/shape_sets.h"

namespace plot {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

// A metre is a millimetre.
Sheet Sheet1To1000(const Box& extent) {
  PlanOptions options;
  options.scale = 1000;
  return LayOut(extent, options);
}

LineWork WorkOf(std::vector<Leg> legs) {
  LineWork work;
  work.name = "work";
  work.legs = std::move(legs);
  work.colours = {0x112233};
  return work;
}

TEST(WorkOnSheet, LegsAreCutAtTheFrame) {
  const Sheet sheet = Sheet1To1000({0, 0, 100, 100});
  const WorkOnSheet result =
      OnSheet(WorkOf({{{50, 50}, {5000, 50}}, {{5000, 0}, {5000, 9}}}), sheet);
  ASSERT_THAT(result.legs, SizeIs(1));
  ASSERT_THAT(result.legs.at(0x112233), SizeIs(1));
  EXPECT_EQ(result.legs.at(0x112233)[0].first, sheet.OnSheet({50, 50}));
  EXPECT_DOUBLE_EQ(result.legs.at(0x112233)[0].second.x, sheet.frame.right);
}

TEST(WorkOnSheet, ManyLegsWithinADotAreOne) {
  const Sheet sheet = Sheet1To1000({0, 0, 100, 100});
  std::vector<Leg> legs;
  for (int i = 0; i < 1000; ++i) legs.push_back({{50, 50}, {50.001, 50.001}});
  legs.push_back({{60, 60}, {60, 60}});
  const WorkOnSheet result = OnSheet(WorkOf(std::move(legs)), sheet);
  EXPECT_THAT(result.legs, IsEmpty());
  EXPECT_THAT(result.dots.at(0x112233), SizeIs(2));
}

TEST(WorkOnSheet, ATextKeepsItsPlaceSizeAndDirection) {
  const Sheet sheet = Sheet1To1000({0, 0, 100, 100});
  LineWork work = WorkOf({});
  work.texts.push_back({{40, 50}, 2, 90, 0, "one\ntwo"});
  const WorkOnSheet result = OnSheet(work, sheet);
  ASSERT_THAT(result.texts, SizeIs(2));
  EXPECT_EQ(result.texts[0].text, "one");
  EXPECT_EQ(result.texts[0].start, sheet.OnSheet({40, 50}));
  EXPECT_DOUBLE_EQ(result.texts[0].size, 2 / kCapitals);
  EXPECT_NEAR(result.texts[0].angle, -1.5707963, 1e-6);
  // It reads upwards, so that its next line is on the right.
  EXPECT_NEAR(result.texts[1].start.x - result.texts[0].start.x, 2 * kLineSpacing, 1e-9);
  EXPECT_NEAR(result.texts[1].start.y, result.texts[0].start.y, 1e-9);
}

TEST(WorkOnSheet, TextsThatCannotBeReadAreCounted) {
  const Sheet sheet = Sheet1To1000({0, 0, 100, 100});
  LineWork work = WorkOf({});
  work.texts.push_back({{40, 50}, 0.1, 0, 0, "small"});
  work.texts.push_back({{40, 50}, 0, 0, 0, "none"});
  work.texts.push_back({{4000, 50}, 0.1, 0, 0, "far"});
  const WorkOnSheet result = OnSheet(work, sheet);
  EXPECT_THAT(result.texts, IsEmpty());
  EXPECT_EQ(result.smallTexts, 2U);
}

TEST(LineWork, AThemeLeavesOutWhatHasNoPlace) {
  shape_sets::ThemeMaker walls("walls", gis::EntityType::kLine);
  walls.Feature({{{0, 0}, {10, 0}, {UndefinedValue, 0}, {20, 0}, {30, 0}}});
  const std::vector<LineWork> themes = ThemesOf(walls.library);
  ASSERT_THAT(themes, SizeIs(1));
  EXPECT_EQ(themes[0].name, "walls");
  EXPECT_EQ(themes[0].count, 1U);
  EXPECT_FALSE(themes[0].arePoints);
  ASSERT_THAT(themes[0].legs, SizeIs(2));
  EXPECT_EQ(themes[0].legs[1].from, (Place{20, 0}));
}

TEST(LineWork, EachPointOfAThemeIsADot) {
  shape_sets::ThemeMaker trees("trees");
  trees.Feature({{{1, 2}}}).Feature({{{3, 4}}}).Feature({});
  const std::vector<LineWork> themes = ThemesOf(trees.library);
  ASSERT_THAT(themes, SizeIs(1));
  EXPECT_TRUE(themes[0].arePoints);
  ASSERT_THAT(themes[0].legs, SizeIs(2));
  EXPECT_EQ(themes[0].legs[1].from, themes[0].legs[1].to);
  EXPECT_EQ(themes[0].legs[1].source, 1U);
}

TEST(LineWork, LayersKeepTheirColoursAndWhatIsHiddenIsSaid) {
  CTcadEng engine{0, nullptr, false};
  engine.Add({1, cad::kByLayer, false, cad::Origin::kUser, cad::LineShape{{0, 0, 0}, {1, 0, 0}}});
  engine.Add({1, 1, false, cad::Origin::kUser, cad::PointShape{{1, 1, 0}}});
  engine.SetDrawingVisible(1, false);
  const std::vector<LineWork> layers = DrawingsOf(engine);
  ASSERT_THAT(layers, SizeIs(1));
  EXPECT_FALSE(layers[0].isVisible);
  EXPECT_EQ(layers[0].count, 2U);
  EXPECT_THAT(layers[0].colours, ElementsAre(RgbOf(7), RgbOf(1)));
}

}  // namespace
}  // namespace plot
