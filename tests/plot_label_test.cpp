// Labels of plans: the grid of what is taken, and where names find a place.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "host/document/host_document.h"
#include "host/plot/plan_scene.h"

namespace plot {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

constexpr double kPi = 3.14159265358979323846;
constexpr Box kArea = {0, 0, 100, 50};

double FakeWidth(std::string_view text, TextKind kind) {
  return 0.6 * TextSize(kind) * static_cast<double>(text.size());
}
const TextWidth kWidth = FakeWidth;

TEST(LabelGrid, PlaceIsTakenOnce) {
  LabelGrid grid(kArea);
  EXPECT_TRUE(grid.Take({{50, 20}, 10, 2}));
  EXPECT_FALSE(grid.Take({{50, 20}, 10, 2}));
  EXPECT_FALSE(grid.IsFree({{58, 21}, 10, 2}));
  EXPECT_TRUE(grid.Take({{61, 20}, 10, 2}));
  EXPECT_TRUE(grid.Take({{50, 23}, 10, 2}));
}

TEST(LabelGrid, NothingReachesBeyondTheArea) {
  LabelGrid grid(kArea);
  EXPECT_FALSE(grid.IsFree({{2, 20}, 10, 2}));
  EXPECT_FALSE(grid.IsFree({{50, 49.5}, 10, 2}));
  EXPECT_TRUE(grid.IsFree({{50, 48.9}, 10, 2}));
  grid.Occupy({{-50, -50}, 1000, 1});  // what lies outside takes nothing
  EXPECT_TRUE(grid.IsFree({{50, 25}, 99, 49}));
}

TEST(LabelGrid, AskewRectangleTakesWhatItCoversOnly) {
  LabelGrid grid(kArea);
  grid.Occupy({{50, 25}, 40, 1, kPi / 4});
  EXPECT_FALSE(grid.IsFree({{60, 35}, 1, 1}));
  EXPECT_TRUE(grid.IsFree({{60, 15}, 5, 5}));
  EXPECT_FALSE(grid.IsFree({{50, 25}, 40, 1, -kPi / 4}));
}

TEST(LabelGrid, LineIsTakenWithoutGaps) {
  LabelGrid grid(kArea);
  grid.OccupyLine({{0, 0}, {100, 50}, {100, 400}});
  for (double x = 1; x < 99; x += 0.7) EXPECT_FALSE(grid.IsFree({{x, x / 2}, 0.5, 0.5})) << x;
  EXPECT_TRUE(grid.IsFree({{50, 30}, 2, 2}));
}

class Labels : public testing::Test {
 protected:
  CPunPnt& AddKnown(const char* name, double x, double y, const char* code = "") {
    CLibPnt& library = *document.GetLibPnt();
    if (library.GetGrpArSize() == 0) library.AddGrp(false);
    CPunPnt& point = *library.AddPtn(0, false);
    point.SetNomCoord(name, code, x, y, 0);
    return point;
  }
  Scene Draw() { return SceneOf(content = ContentOf(document, true), options, kWidth); }
  static std::vector<std::string> Texts(const Scene& scene) {
    std::vector<std::string> texts;
    for (const Label& label : scene.labels) texts.push_back(label.text);
    return texts;
  }
  static bool Overlap(const LabelBox& a, const LabelBox& b) {
    constexpr double kTouch = 1e-9;
    return std::abs(a.middle.x - b.middle.x) < (a.width + b.width) / 2 - kTouch &&
           std::abs(a.middle.y - b.middle.y) < (a.height + b.height) / 2 - kTouch;
  }

  HostDocument document;
  PlanContent content;
  PlanOptions options;
};

TEST_F(Labels, NameStandsAtTheUpperRightAndTheCodeBelowIt) {
  AddKnown("A", 0, 0, "TREE");
  const Scene scene = Draw();
  EXPECT_THAT(Texts(scene), ElementsAre("A", "TREE"));
  const Place point = scene.symbols.symbols.front().place;
  EXPECT_GT(scene.labels[0].start.x, point.x);
  EXPECT_LT(scene.labels[0].start.y, point.y);
  EXPECT_GT(scene.labels[1].start.y, scene.labels[0].start.y);
  EXPECT_EQ(scene.labels[1].start.x, scene.labels[0].start.x);
}

TEST_F(Labels, NamesAndCodesCanBeLeftOut) {
  AddKnown("A", 0, 0, "TREE");
  options.names = false;
  EXPECT_THAT(Texts(Draw()), ElementsAre("TREE"));
  options.codes = false;
  EXPECT_THAT(Texts(Draw()), IsEmpty());
}

TEST_F(Labels, NeverLieOnEachOther) {
  for (int i = 0; i < 400; ++i) {
    AddKnown("a rather long name", (i % 20) * 3.0 + i * 0.01, (i / 20) * 2.0, "code");
  }
  const Scene scene = Draw();
  EXPECT_GT(scene.labels.size(), 10U);
  EXPECT_LT(scene.labels.size(), 800U);
  for (std::size_t i = 0; i < scene.labels.size(); ++i) {
    for (std::size_t k = 0; k < i; ++k) {
      EXPECT_FALSE(Overlap(scene.labels[i].box, scene.labels[k].box)) << i << " and " << k;
    }
    for (const Symbol& symbol : scene.symbols.symbols) {
      const double side = 2 * HalfSizeOf(symbol);
      EXPECT_FALSE(Overlap(scene.labels[i].box, {symbol.place, side, side}));
    }
  }
}

TEST_F(Labels, StationsComeBeforeMeasuredPoints) {
  CLibCmp& surveys = *document.GetLibCmp();
  surveys.AddJob(false);
  CSta& station = *surveys.AddSta(0, false);
  station.SetNomCoord("STATION", "", 0, 0, 0);
  for (int i = 0; i < 200; ++i) {
    surveys.AddPun(0, 0, false)->SetNomCoord("p", "", 0.01 * (i % 15 - 7), 0.01 * (i / 15 - 7), 0);
  }
  surveys.AddPun(0, 0, false)->SetNomCoord("far", "", 100, 60, 0);
  EXPECT_THAT(Texts(Draw()), testing::Contains("STATION"));
}

TEST_F(Labels, ManyKnownPointsDoNotStandOut) {
  for (int i = 0; i < 200; ++i) AddKnown("A", i % 20, i / 20);
  EXPECT_EQ(ContentOf(document, true).marks.front().kind, MarkKind::kKnown);
  AddKnown("B", 0, 0);
  EXPECT_EQ(ContentOf(document, true).marks.front().kind, MarkKind::kManyKnown);
}

TEST_F(Labels, NameOfOnePlaceIsWrittenOnce) {
  AddKnown("A", 0, 0);
  AddKnown("A", 0.0001, 0);
  AddKnown("A", 50, 30);
  EXPECT_THAT(Texts(Draw()), ElementsAre("A", "A"));
}

TEST_F(Labels, TextsAreMadeDrawable) {
  EXPECT_EQ(DrawableText(" a\tb\n"), "a b");
  EXPECT_EQ(DrawableText("caf\xE9"), "caf\uFFFD");
  std::string cut(60, 'x');
  cut += "…";
  EXPECT_EQ(DrawableText(std::string(100, 'x')), cut);
  EXPECT_EQ(DrawableText("\x01\x02"), "");
}

TEST_F(Labels, MarksInOnePixelAreDrawnOnce) {
  for (int i = 0; i < 1000; ++i) AddKnown("A", 0, 0);
  AddKnown("B", 100, 100);
  const Scene scene = Draw();
  EXPECT_THAT(scene.symbols.symbols, SizeIs(2));
  EXPECT_EQ(scene.symbols.beyondSheet, 0U);
}

TEST_F(Labels, CrowdsBecomeDots) {
  for (int i = 0; i < 10000; ++i) AddKnown("A", i % 100, i / 100);
  AddKnown("B", 200, 200);
  const Scene scene = Draw();
  const auto& symbols = scene.symbols.symbols;
  const auto whole = std::count_if(symbols.begin(), symbols.end(),
                                   [](const Symbol& symbol) { return symbol.IsWhole(); });
  EXPECT_GE(whole, 1);  // the one that stands alone, and some at the crowd's edge
  EXPECT_LT(whole, 1000);
  EXPECT_THAT(scene.symbols.dots[static_cast<std::size_t>(MarkKind::kManyKnown)],
              testing::Not(IsEmpty()));
}

}  // namespace
}  // namespace plot
