// The pages on which one chooses the terrain models and roads that go into a LandXML file.
#include <string>

#include "host/document/host_document.h"
#include "tests/support/exchange_views.h"
#include "ui/landxml_wizard.h"

using namespace exchange_test;

namespace {

class LandXmlWizardLists : public testing::Test {
 protected:
  LandXmlWizardLists() {
    for (const char* name : {"Hill", "Valley", "Hill"}) {
      document.GetLibDtm()->AddPrj(true)->SetName(name);
    }
    for (const char* name : {"Via Roma", "Via Po"}) {
      document.GetLibRoad()->AddRoad(true)->SetName(name);
    }
  }

  landxml::LandXmlSelection RunWizard() {
    CWnd parent(&views);
    ui::LandXmlWizard wizard(document);
    wizard.Run(&parent);
    EXPECT_FALSE(views.HasAnswersLeft());
    return wizard.Selection();
  }
  const CDtmPrj* Model(int i) { return document.GetLibDtm()->GetPrjAt(i); }
  const CRoad* Road(int i) { return document.GetLibRoad()->GetRoadAt(i); }

  HostDocument document;
  ScriptedViews views;
};

DialogState Row(const char* name, bool checked) { return {{"name", name}, {"checked", checked}}; }

TEST_F(LandXmlWizardLists, ShowSurfacesAndRoadsWithNothingChecked) {
  views.Then(Press(">>"));
  views.Then(Press(">>"));
  views.Then(Press("Cancel"));
  const landxml::LandXmlSelection selection = RunWizard();
  ASSERT_EQ(views.DialogNames(),
            (std::vector<std::string>{"landxml-survey", "landxml-triangulation", "landxml-roads"}));
  const DialogState surfaces = {
      {"surfaces",
       DialogState::array({Row("Hill", false), Row("Valley", false), Row("Hill", false)})}};
  EXPECT_EQ(views.dialogs[1].state, surfaces);
  const DialogState roads = {
      {"roads", DialogState::array({Row("Via Roma", false), Row("Via Po", false)})}};
  EXPECT_EQ(views.dialogs[2].state, roads);
  EXPECT_TRUE(selection.surfaces.empty());
  EXPECT_TRUE(selection.roads.empty());
}

TEST_F(LandXmlWizardLists, SelectTheCheckedItemsInTheirOrder) {
  views.Then(Press(">>"));
  views.Then(SetAndPress("surfaces", {2, 0}, ">>"));
  views.Then(SetAndPress("roads", {1, 0}, "Cancel"));
  const landxml::LandXmlSelection selection = RunWizard();
  EXPECT_EQ(selection.surfaces, (std::vector<const CDtmPrj*>{Model(0), Model(2)}));
  EXPECT_EQ(selection.roads, (std::vector<const CRoad*>{Road(0), Road(1)}));
  EXPECT_TRUE(selection.tsJobs.empty());
}

TEST_F(LandXmlWizardLists, SelectNothingButWhatIsChecked) {
  views.Then(Press(">>"));
  views.Then(SetAndPress("surfaces", {1}, ">>"));
  views.Then(SetAndPress("roads", {1}, "Cancel"));
  const landxml::LandXmlSelection selection = RunWizard();
  EXPECT_EQ(selection.surfaces, std::vector<const CDtmPrj*>{Model(1)});
  EXPECT_EQ(selection.roads, std::vector<const CRoad*>{Road(1)});
}

TEST_F(LandXmlWizardLists, AreCheckedEachByItsOwnPage) {
  const auto checkAll = [](const char* button) {
    return [button](Dialog& page) {
      EXPECT_EQ(page.Press("Select All"), std::nullopt);
      return Press(button)(page);
    };
  };
  views.Then(Press(">>"));
  views.Then(checkAll(">>"));
  views.Then(Press("Cancel"));
  const landxml::LandXmlSelection selection = RunWizard();
  EXPECT_EQ(selection.surfaces, (std::vector<const CDtmPrj*>{Model(0), Model(1), Model(2)}));
  EXPECT_TRUE(selection.roads.empty());
}

TEST_F(LandXmlWizardLists, KeepTheirMarksWhenTheirPageIsShownAgain) {
  views.Then(Press(">>"));
  views.Then(SetAndPress("surfaces", {1}, ">>"));
  views.Then(SetAndPress("roads", {1}, "<<"));
  views.Then(Press(">>"));
  views.Then(Press("Cancel"));
  RunWizard();
  ASSERT_EQ(views.dialogs.size(), 5u);
  EXPECT_EQ(views.dialogs[3].state["surfaces"][1], Row("Valley", true));
  EXPECT_EQ(views.dialogs[4].state["roads"][1], Row("Via Po", true));
}

TEST_F(LandXmlWizardLists, RefusePositionsPastTheirEnd) {
  views.Then(Press(">>"));
  views.Then([](Dialog& page) {
    EXPECT_EQ(page.Set("surfaces", {3}), DialogSet::kWrongValue);
    return Press(">>")(page);
  });
  views.Then([](Dialog& page) {
    EXPECT_EQ(page.Set("roads", {2}), DialogSet::kWrongValue);
    return Press("Cancel")(page);
  });
  const landxml::LandXmlSelection selection = RunWizard();
  EXPECT_TRUE(selection.surfaces.empty());
  EXPECT_TRUE(selection.roads.empty());
}

}  // namespace
