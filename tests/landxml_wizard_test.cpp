// The pages on which one chooses what goes into a LandXML file.
#include "ui/landxml_wizard.h"

#include <string>

#include "host/document/host_document.h"
#include "tests/support/exchange_views.h"

using namespace exchange_test;
using Names = std::vector<std::string>;

namespace {

const std::string kSurvey = "landxml-survey";
const std::string kTriangulation = "landxml-triangulation";
const std::string kRoads = "landxml-roads";

DialogState Rows(std::initializer_list<std::pair<const char*, bool>> rows) {
  DialogState list = DialogState::array();
  for (const auto& [name, checked] : rows) list.push_back({{"name", name}, {"checked", checked}});
  return list;
}

// ---- One list ----

class CheckListTest : public testing::Test {
 protected:
  ui::CheckList list{"jobs", {"A", "B", "C"}};
};

TEST_F(CheckListTest, HasNothingCheckedAtFirst) {
  EXPECT_EQ(list.Key(), "jobs");
  EXPECT_EQ(list.State(), Rows({{"A", false}, {"B", false}, {"C", false}}));
  EXPECT_TRUE(list.Checked().empty());
}

TEST_F(CheckListTest, ReplacesItsMarksByThePositionsGiven) {
  EXPECT_EQ(list.Set({0, 1}), DialogSet::kDone);
  EXPECT_EQ(list.Set({2, 1}), DialogSet::kDone);
  EXPECT_EQ(list.State(), Rows({{"A", false}, {"B", true}, {"C", true}}));
  EXPECT_EQ(list.Checked(), (std::vector<int>{1, 2}));
}

TEST_F(CheckListTest, ClearsItsMarksForAnEmptyListOfPositions) {
  list.CheckAll(true);
  EXPECT_EQ(list.Set(DialogState::array()), DialogSet::kDone);
  EXPECT_TRUE(list.Checked().empty());
}

TEST_F(CheckListTest, ChecksAllAndNone) {
  list.CheckAll(true);
  EXPECT_EQ(list.Checked(), (std::vector<int>{0, 1, 2}));
  list.CheckAll(false);
  EXPECT_TRUE(list.Checked().empty());
}

TEST_F(CheckListTest, MayBeEmpty) {
  ui::CheckList empty("roads", {});
  EXPECT_EQ(empty.State(), DialogState::array());
  EXPECT_EQ(empty.Set(DialogState::array()), DialogSet::kDone);
  EXPECT_EQ(empty.Set({0}), DialogSet::kWrongValue);
}

struct WrongPositions {
  const char* name;
  const char* json;
};
void PrintTo(const WrongPositions& with, std::ostream* out) { *out << with.name; }

class CheckListRefusal : public CheckListTest,
                         public testing::WithParamInterface<WrongPositions> {};

TEST_P(CheckListRefusal, LeavesTheMarksAsTheyWere) {
  ASSERT_EQ(list.Set({1}), DialogSet::kDone);
  EXPECT_EQ(list.Set(DialogState::parse(GetParam().json)), DialogSet::kWrongValue);
  EXPECT_EQ(list.Checked(), (std::vector<int>{1}));
}

INSTANTIATE_TEST_SUITE_P(
    Of, CheckListRefusal,
    testing::Values(WrongPositions{"ANegativePosition", "[-1]"},
                    WrongPositions{"APositionPastTheEnd", "[3]"},
                    WrongPositions{"AGoodAndAWrongPosition", "[0, 3]"},
                    WrongPositions{"APositionBeyondInt", "[4294967296]"},
                    WrongPositions{"ANegativePositionBeyondInt", "[-4294967296]"},
                    WrongPositions{"TheLargestNumber", "[18446744073709551615]"},
                    WrongPositions{"AFraction", "[0.5]"},
                    WrongPositions{"ATextPosition", "[\"0\"]"}, WrongPositions{"AFlag", "[true]"},
                    WrongPositions{"ANullPosition", "[null]"},
                    WrongPositions{"AListInTheList", "[[0]]"}, WrongPositions{"ANumber", "0"},
                    WrongPositions{"AText", "\"0\""}, WrongPositions{"Null", "null"},
                    WrongPositions{"AnObject", "{\"0\": 0}"}),
    [](const auto& which) { return std::string(which.param.name); });

// ---- The pages ----

class LandXmlWizard : public testing::Test {
 protected:
  LandXmlWizard() {
    for (const char* name : {"J1", "J2"}) document.GetLibCmp()->AddJob(true)->SetNome(name);
    CGrpGps* const group = document.GetLibGps()->AddGrp(true);
    group->SetNomeGrp("group name");
    group->SetNome("base name");
    document.GetLibPnt()->AddGrp(true)->SetLabels("K1", "a", "b", "c");
  }

  void Run() {
    CWnd parent(&views);
    wizard().Run(&parent);
  }
  /// Built with the first use, so that a test may fill the document before.
  ui::LandXmlWizard& wizard() {
    if (!built_) built_.emplace(document);
    return *built_;
  }

  HostDocument document;
  ScriptedViews views;

 private:
  std::optional<ui::LandXmlWizard> built_;
};

TEST_F(LandXmlWizard, ShowsItsThreePagesInTheirOrder) {
  views.Then(Press(">>"));
  views.Then(Press(">>"));
  views.Then(Press("Cancel"));
  Run();
  EXPECT_EQ(views.DialogNames(), (Names{kSurvey, kTriangulation, kRoads}));
  ASSERT_EQ(views.dialogs.size(), 3u);
  EXPECT_EQ(views.dialogs[0].title, "Survey");
  EXPECT_EQ(views.dialogs[1].title, "Triangulation");
  EXPECT_EQ(views.dialogs[2].title, "Road Projects");
}

TEST_F(LandXmlWizard, ListsWhatTheDocumentHoldsWithNothingChecked) {
  Run();
  ASSERT_EQ(views.dialogs.size(), 1u);
  const DialogState expected = {{"jobs", Rows({{"J1", false}, {"J2", false}})},
                                {"gpsGroups", Rows({{"group name", false}})},
                                {"pointGroups", Rows({{"K1", false}})}};
  EXPECT_EQ(views.dialogs[0].state, expected);
}

TEST_F(LandXmlWizard, HasEmptyListsForAnEmptyDocument) {
  HostDocument empty;
  CWnd parent(&views);
  views.Then(Press(">>"));
  views.Then(Press(">>"));
  ui::LandXmlWizard(empty).Run(&parent);
  ASSERT_EQ(views.dialogs.size(), 3u);
  const DialogState none = DialogState::array();
  EXPECT_EQ(views.dialogs[0].state,
            (DialogState{{"jobs", none}, {"gpsGroups", none}, {"pointGroups", none}}));
  EXPECT_EQ(views.dialogs[1].state, (DialogState{{"surfaces", none}}));
  EXPECT_EQ(views.dialogs[2].state, (DialogState{{"roads", none}}));
}

TEST_F(LandXmlWizard, HasTheSameFiveButtonsOnEachPage) {
  std::vector<std::vector<std::string_view>> buttons;
  for (const char* button : {">>", ">>", "Cancel"}) {
    views.Then([&buttons, button](Dialog& dialog) {
      buttons.push_back(dialog.Buttons());
      return Press(button)(dialog);
    });
  }
  Run();
  const std::vector<std::string_view> expected = {"<<", ">>", "Cancel", "Select All",
                                                  "Deselect All"};
  EXPECT_EQ(buttons, std::vector(3, expected));
}

TEST_F(LandXmlWizard, ClosesItsPagesWithTheCodesOfTheirButtons) {
  views.Then([](Dialog& page) {
    EXPECT_EQ(page.Press("<<"), 100);
    EXPECT_EQ(page.Press(">>"), 101);
    EXPECT_EQ(page.Press("Cancel"), 2);
    EXPECT_EQ(page.Press("Select All"), std::nullopt);
    EXPECT_EQ(page.Press("Deselect All"), std::nullopt);
    return 2;
  });
  Run();
  EXPECT_FALSE(views.HasAnswersLeft());
}

TEST_F(LandXmlWizard, GoesBackAndForth) {
  for (const char* button : {">>", "<<", ">>", ">>", "<<", "Cancel"}) views.Then(Press(button));
  Run();
  EXPECT_EQ(views.DialogNames(),
            (Names{kSurvey, kTriangulation, kSurvey, kTriangulation, kRoads, kTriangulation}));
}

TEST_F(LandXmlWizard, StaysOnItsFirstPageWhenItGoesBack) {
  for (const char* button : {"<<", "<<", ">>", "Cancel"}) views.Then(Press(button));
  Run();
  EXPECT_EQ(views.DialogNames(), (Names{kSurvey, kSurvey, kSurvey, kTriangulation}));
}

TEST_F(LandXmlWizard, StaysOnItsLastPageWhenItGoesForward) {
  for (const char* button : {">>", ">>", ">>", ">>", "<<", "Cancel"}) views.Then(Press(button));
  Run();
  EXPECT_EQ(views.DialogNames(),
            (Names{kSurvey, kTriangulation, kRoads, kRoads, kRoads, kTriangulation}));
}

TEST_F(LandXmlWizard, ShowsThePageAgainForAnyOtherCode) {
  views.Then(Press(">>"));
  for (const int code : {1, 0, -1, 99, 102, 3}) views.Then(CloseWith(code));
  views.Then(CloseWith(2));
  Run();
  Names expected(8, kTriangulation);
  expected[0] = kSurvey;
  EXPECT_EQ(views.DialogNames(), expected);
}

TEST_F(LandXmlWizard, EndsOnCancelOfItsFirstPage) {
  Run();
  EXPECT_EQ(views.DialogNames(), Names{kSurvey});
}

TEST_F(LandXmlWizard, EndsAtOnceWithoutViews) {
  CWnd nobody(nullptr);
  wizard().Run(&nobody);
  EXPECT_TRUE(wizard().Selection().tsJobs.empty());
}

// ---- Marks ----

TEST_F(LandXmlWizard, ChecksAllListsOfAPageWithSelectAll) {
  views.Then([](Dialog& page) {
    page.Press("Select All");
    EXPECT_EQ(page.State()["jobs"], Rows({{"J1", true}, {"J2", true}}));
    EXPECT_EQ(page.State()["gpsGroups"], Rows({{"group name", true}}));
    EXPECT_EQ(page.State()["pointGroups"], Rows({{"K1", true}}));
    return 2;
  });
  Run();
  EXPECT_EQ(wizard().Selection().tsJobs.size(), 2u);
  EXPECT_EQ(wizard().Selection().gpsGroups.size(), 1u);
  EXPECT_EQ(wizard().Selection().pointGroups.size(), 1u);
}

TEST_F(LandXmlWizard, ClearsAllListsOfAPageWithDeselectAll) {
  views.Then([](Dialog& page) {
    page.Press("Select All");
    page.Press("Deselect All");
    EXPECT_EQ(page.State()["jobs"], Rows({{"J1", false}, {"J2", false}}));
    EXPECT_EQ(page.State()["gpsGroups"], Rows({{"group name", false}}));
    EXPECT_EQ(page.State()["pointGroups"], Rows({{"K1", false}}));
    return 2;
  });
  Run();
  EXPECT_FALSE(views.HasAnswersLeft());
}

TEST_F(LandXmlWizard, ClearsOnlyThePageThatIsShown) {
  views.Then(SetAndPress("jobs", {1}, ">>"));
  views.Then([](Dialog& page) {
    page.Press("Deselect All");
    return 2;
  });
  Run();
  EXPECT_EQ(wizard().Selection().tsJobs.size(), 1u);
}

TEST_F(LandXmlWizard, KeepsTheMarksOfAPageThatIsShownAgain) {
  views.Then(SetAndPress("jobs", {1}, ">>"));
  views.Then(Press("<<"));
  views.Then(CloseWith(77));
  Run();
  ASSERT_EQ(views.dialogs.size(), 4u);
  EXPECT_EQ(views.dialogs[2].state["jobs"], Rows({{"J1", false}, {"J2", true}}));
  EXPECT_EQ(views.dialogs[3].state["jobs"], Rows({{"J1", false}, {"J2", true}}));
}

TEST_F(LandXmlWizard, KeepsTheMarksOfAPageThatEndsIt) {
  views.Then(SetAndPress("pointGroups", {0}, "Cancel"));
  Run();
  EXPECT_EQ(wizard().Selection().pointGroups,
            std::vector<const CGrpPnt*>{document.GetLibPnt()->GetGrpAt(0)});
}

TEST_F(LandXmlWizard, RefusesWrongPositionsAndKeepsTheMarks) {
  views.Then([](Dialog& page) {
    EXPECT_EQ(page.Set("jobs", {0}), DialogSet::kDone);
    EXPECT_EQ(page.Set("jobs", {2}), DialogSet::kWrongValue);
    EXPECT_EQ(page.Set("jobs", {-1}), DialogSet::kWrongValue);
    EXPECT_EQ(page.Set("jobs", "J2"), DialogSet::kWrongValue);
    EXPECT_EQ(page.State()["jobs"], Rows({{"J1", true}, {"J2", false}}));
    return 2;
  });
  Run();
  EXPECT_FALSE(views.HasAnswersLeft());
}

TEST_F(LandXmlWizard, KnowsNoKeysButThoseOfThePage) {
  views.Then([](Dialog& page) {
    for (const char* key : {"roads", "surfaces", "job", "Jobs", "", "path"}) {
      EXPECT_EQ(page.Set(key, DialogState::array()), DialogSet::kUnknownKey) << key;
    }
    return Press(">>")(page);
  });
  views.Then([](Dialog& page) {
    EXPECT_EQ(page.Set("jobs", DialogState::array()), DialogSet::kUnknownKey);
    EXPECT_EQ(page.Set("surfaces", DialogState::array()), DialogSet::kDone);
    return Press(">>")(page);
  });
  views.Then([](Dialog& page) {
    EXPECT_EQ(page.Set("surfaces", DialogState::array()), DialogSet::kUnknownKey);
    EXPECT_EQ(page.Set("roads", DialogState::array()), DialogSet::kDone);
    return 2;
  });
  Run();
  EXPECT_FALSE(views.HasAnswersLeft());
}

// ---- The selection ----

TEST_F(LandXmlWizard, SelectsTheCheckedItemsInTheOrderOfTheLists) {
  views.Then([](Dialog& page) {
    EXPECT_EQ(page.Set("jobs", {1, 0}), DialogSet::kDone);
    EXPECT_EQ(page.Set("gpsGroups", {0}), DialogSet::kDone);
    return 2;
  });
  Run();
  const landxml::LandXmlSelection selection = wizard().Selection();
  CLibCmp& jobs = *document.GetLibCmp();
  EXPECT_EQ(selection.tsJobs, (std::vector<const CJob*>{jobs.GetJobAt(0), jobs.GetJobAt(1)}));
  EXPECT_EQ(selection.gpsGroups, std::vector<const CGrpGps*>{document.GetLibGps()->GetGrpAt(0)});
  EXPECT_TRUE(selection.pointGroups.empty());
  EXPECT_TRUE(selection.roads.empty());
  EXPECT_TRUE(selection.surfaces.empty());
}

TEST_F(LandXmlWizard, SelectsFromTheLibrariesOfTheDocumentAndLeavesThePathEmpty) {
  Run();
  const landxml::LandXmlSelection selection = wizard().Selection();
  EXPECT_EQ(selection.tsLibrary, document.GetLibCmp());
  EXPECT_EQ(selection.gpsLibrary, document.GetLibGps());
  EXPECT_EQ(selection.pointLibrary, document.GetLibPnt());
  EXPECT_TRUE(selection.path.IsEmpty());
}

}  // namespace
