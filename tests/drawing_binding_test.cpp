// Which drawing of another engine stands for one of the document's, and that all is as before when
// the binding ends.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "formats/cad/drawing_binding.h"
#include "host/document/host_document.h"
#include "services/translate.h"

using cad::CompatibleDrawing;
using cad::DrawingBinding;

namespace {

// ---- Finding a compatible drawing ----

struct State {
  bool visible = true;
  bool locked = false;
  bool byLayer = true;
  unsigned color = 3;
};

class CompatibleDrawings : public testing::Test {
 protected:
  CompatibleDrawings() { SetLanguage("en"); }
  ~CompatibleDrawings() override { SetLanguage("en"); }

  static int Add(CTcadEng& engine, const char* name, const State& state) {
    const int id = engine.AddDrawing(0, name, state.visible, state.locked, false);
    engine.SetDrawingColor(id, state.byLayer, state.color);
    return id;
  }
  std::string Found(const char* name, const State& state = {}) {
    found_ = CompatibleDrawing(source, Add(source, name, state), target);
    return target.GetDrawingName(found_).ToUtf8();
  }

  CTcadEng source{0, nullptr, false};
  CTcadEng target{0, nullptr, true};
  int found_ = 0;
};

TEST_F(CompatibleDrawings, NoDrawingIsNone) { EXPECT_EQ(CompatibleDrawing(source, 0, target), 0); }

TEST_F(CompatibleDrawings, FirstIsMadeUnderTheWordAlone) { EXPECT_EQ(Found("WALLS"), "CAD"); }

TEST_F(CompatibleDrawings, NewOneHasStateAndColourOfTheSource) {
  Found("WALLS", {.visible = false, .locked = true, .byLayer = false, .color = 5});
  EXPECT_FALSE(target.IsDrawingVisible(found_));
  EXPECT_TRUE(target.IsDrawingLocked(found_));
  bool byLayer = true;
  unsigned color = 0;
  target.GetDrawingColor(found_, byLayer, color);
  EXPECT_FALSE(byLayer);
  EXPECT_EQ(color, 5U);
}

TEST_F(CompatibleDrawings, OneThatIsTheSameIsUsed) {
  const int there = Add(target, "CAD", {});
  EXPECT_EQ(Found("WALLS"), "CAD");
  EXPECT_EQ(found_, there);
  EXPECT_EQ(target.GetNoDrawings(), 2);
}

TEST_F(CompatibleDrawings, OneOfAnotherColourIsPassedOverForTheSourcesName) {
  Add(target, "CAD", {.color = 1});
  EXPECT_EQ(Found("WALLS"), "CAD_WALLS");
}

TEST_F(CompatibleDrawings, EachPartOfTheStateCounts) {
  for (const State& other :
       {State{.visible = false}, State{.locked = true}, State{.byLayer = false}}) {
    CTcadEng engine(0, nullptr, true);
    Add(engine, "CAD", other);
    const int id = CompatibleDrawing(source, Add(source, "W", {}), engine);
    EXPECT_EQ(engine.GetDrawingName(id), "CAD_W");
  }
}

TEST_F(CompatibleDrawings, ThenNumbersFollowFromTwoOn) {
  Add(target, "CAD", {.color = 1});
  Add(target, "CAD_WALLS", {.color = 1});
  EXPECT_EQ(Found("WALLS"), "CAD_WALLS2");
  EXPECT_EQ(Found("walls", {.color = 3}), "CAD_WALLS2");
  CTcadEng other(0, nullptr, false);
  const int id = CompatibleDrawing(other, Add(other, "WALLS", {.color = 6}), target);
  EXPECT_EQ(target.GetDrawingName(id), "CAD_WALLS3");
}

TEST_F(CompatibleDrawings, TheSameOneFurtherOnIsUsed) {
  Add(target, "CAD", {.color = 1});
  Add(target, "CAD_WALLS", {.color = 1});
  const int there = Add(target, "CAD_WALLS2", {});
  Found("WALLS");
  EXPECT_EQ(found_, there);
}

TEST_F(CompatibleDrawings, TheWordIsInTheUsersLanguage) {
  SetLanguage("it");
  EXPECT_EQ(Found("WALLS"), Xlate("CAD").ToUtf8());
}

// ---- Binding a document ----

class Binding : public testing::Test {
 protected:
  Binding() {
    SetLanguage("en");
    for (const char* const name : {"RED", "BLUE"}) {
      own().AddDrawing(0, name, true, false, false);
    }
    own().SetDrawingColor(kRed, true, 1);
    own().SetDrawingColor(kBlue, true, 5);
  }
  CTcadEng& own() { return *document.GetCadEngine(); }

  static constexpr int kRed = 2;
  static constexpr int kBlue = 3;
  HostDocument document;
  CTcadEng engine{0, nullptr, true};
};

TEST_F(Binding, EveryLibraryAndObjectIsBoundAndGivenBack) {
  std::vector<TargetDrawingHolder*> holders = {document.GetLibCmp(), document.GetLibGps(),
                                               document.GetCts(),    document.GetLibPnt(),
                                               document.GetLibGis(), document.GetLibProfile()};
  holders.push_back(document.GetLibCmp()->AddJob(false));
  holders.push_back(document.GetLibGps()->AddGrp(false));
  holders.push_back(document.GetLibPnt()->AddGrp(false));
  holders.push_back(document.GetLibRoad()->AddRoad(false));
  for (std::size_t i = 0; i < holders.size(); ++i) {
    holders[i]->SetTargetDrawing(i % 2 == 0 ? kRed : kBlue);
  }
  {
    const DrawingBinding binding(document, engine);
    const int red = engine.GetDrawingFromName(0, "CAD");
    const int blue = engine.GetDrawingFromName(0, "CAD_BLUE");
    ASSERT_NE(red, 0);
    ASSERT_NE(blue, 0);
    for (std::size_t i = 0; i < holders.size(); ++i) {
      EXPECT_EQ(holders[i]->GetTargetDrawing(), i % 2 == 0 ? red : blue) << i;
    }
  }
  for (std::size_t i = 0; i < holders.size(); ++i) {
    EXPECT_EQ(holders[i]->GetTargetDrawing(), i % 2 == 0 ? kRed : kBlue) << i;
  }
}

TEST_F(Binding, WhatIsBoundToNoDrawingStaysSo) {
  const DrawingBinding binding(document, engine);
  EXPECT_EQ(document.GetLibCmp()->GetTargetDrawing(), 0);
  EXPECT_EQ(engine.GetNoDrawings(), 1);
}

TEST_F(Binding, ADrawingNamedCadWithAnotherColourMakesOneOfTheSourcesName) {
  const int there = engine.AddDrawing(0, "CAD", true, false, false);
  engine.SetDrawingColor(there, true, 30);
  document.GetLibCmp()->SetTargetDrawing(kRed);
  const DrawingBinding binding(document, engine);
  EXPECT_EQ(engine.GetDrawingName(document.GetLibCmp()->GetTargetDrawing()), "CAD_RED");
}

}  // namespace
