// The LandXML wizard as `kalvio call` shows and answers it.
#include "tests/run_kalvio.h"

namespace e2e {
namespace {

using nlohmann::ordered_json;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

constexpr std::string_view kJob = R"({
  "jobs": [
    {"name": "North", "stations": [{"name": "N1", "points": [
       {"name": "1", "slopeDistance": 10, "zenith": 100, "horizontal": 0}]}]},
    {"name": "South", "stations": [{"name": "S1", "points": [
       {"name": "2", "slopeDistance": 20, "zenith": 100, "horizontal": 0}]}]}],
  "gpsGroups": [{"groupName": "Base A"}],
  "knownGroups": [{"labels": ["Corners", "", "", ""], "points": [
     {"name": "K1", "x": 100, "y": 200, "z": 30}]}]})";

class LandXmlWizard : public testing::Test {
 protected:
  LandXmlWizard() { folder.Write("job.json", kJob); }

  Outcome Run(const std::string& answers) {
    folder.Write("answers.json", answers);
    return RunKalvio(
        {"call", "FExportLandXMLFile", "--job", "job.json", "--answers", "answers.json"}, where);
  }
  std::string Written() { return ReadBytes(folder.File("out.xml")); }

  TemporaryFolder folder;
  Surroundings where{.folder = folder.Path()};
};

constexpr std::string_view kSave =
    R"({"dialog": "file", "set": {"path": "out.xml"}, "press": "OK"}])";

TEST_F(LandXmlWizard, FirstPageListsWhatTheJobHoldsWithNothingChecked) {
  const Outcome run = Run("[]");
  EXPECT_EQ(Lines(run.out)[0],
            R"({"event":"dialog","dialog":"landxml-survey","title":"Survey","state":{)"
            R"("jobs":[{"name":"North","checked":false},{"name":"South","checked":false}],)"
            R"("gpsGroups":[{"name":"Base A","checked":false}],)"
            R"("pointGroups":[{"name":"Corners","checked":false}]}})");
}

TEST_F(LandXmlWizard, PagesFollowEachOther) {
  const Outcome run = Run(R"([
    {"dialog": "landxml-survey", "press": ">>"},
    {"dialog": "landxml-triangulation", "press": ">>"},
    {"dialog": "landxml-roads", "press": "Cancel"}])");
  ASSERT_EQ(run.status, 0) << run.err;
  EXPECT_THAT(EventNames(run.out), ElementsAre("dialog", "dialog", "dialog", "dialog", "returned"));
  const auto events = Events(run.out);
  EXPECT_EQ(events[1]["state"], ordered_json::parse(R"({"surfaces":[]})"));
  EXPECT_EQ(events[2]["state"], ordered_json::parse(R"({"roads":[]})"));
  EXPECT_EQ(events[3]["dialog"], "file");
  EXPECT_EQ(events[3]["state"]["extensions"], "xml");
  EXPECT_EQ(events[4]["value"], 1);
}

TEST_F(LandXmlWizard, OnlyCheckedItemsAreWritten) {
  const Outcome run = Run(std::string(R"([
    {"dialog": "landxml-survey", "set": {"jobs": [1], "pointGroups": [0]}, "press": "Cancel"},)") +
                          std::string(kSave));
  ASSERT_EQ(run.status, 0) << run.err;
  EXPECT_THAT(Written(), HasSubstr("South"));
  EXPECT_THAT(Written(), HasSubstr("Corners"));
  EXPECT_THAT(Written(), Not(HasSubstr("North")));
}

TEST_F(LandXmlWizard, PageShownAgainKeepsItsMarks) {
  const Outcome run = Run(R"([
    {"dialog": "landxml-survey", "set": {"jobs": [0]}, "press": ">>"},
    {"dialog": "landxml-triangulation", "press": "<<"}])");
  EXPECT_EQ(Events(run.out)[2]["dialog"], "landxml-survey");
  EXPECT_EQ(Events(run.out)[2]["state"]["jobs"][0]["checked"], true);
  EXPECT_EQ(Events(run.out)[2]["state"]["jobs"][1]["checked"], false);
}

TEST_F(LandXmlWizard, SetTakesThePlaceOfEarlierMarks) {
  const Outcome run = Run(R"([
    {"dialog": "landxml-survey", "set": {"jobs": [0, 1]}, "press": "<<"},
    {"dialog": "landxml-survey", "set": {"jobs": [1]}, "press": "<<"}])");
  EXPECT_EQ(Events(run.out)[1]["state"]["jobs"][0]["checked"], true);
  EXPECT_EQ(Events(run.out)[2]["state"]["jobs"][0]["checked"], false);
  EXPECT_EQ(Events(run.out)[2]["state"]["jobs"][1]["checked"], true);
}

TEST_F(LandXmlWizard, ButtonsCheckAndUncheckAllAndLeaveThePageOpen) {
  const Outcome run = Run(R"([
    {"dialog": "landxml-survey", "press": "Select All"},
    {"dialog": "landxml-survey", "press": "Deselect All"}])");
  EXPECT_EQ(Events(run.out)[1]["state"]["gpsGroups"][0]["checked"], true);
  EXPECT_EQ(Events(run.out)[2]["state"]["gpsGroups"][0]["checked"], false);
}

TEST_F(LandXmlWizard, PositionThatIsNoneIsBadUsage) {
  const Outcome run = Run(R"([{"dialog": "landxml-survey", "set": {"jobs": [2]}, "press": ">>"}])");
  EXPECT_EQ(run.status, 2);
  EXPECT_THAT(run.err, HasSubstr("[2]"));
}

TEST_F(LandXmlWizard, WithoutAnswersItIsLeftAndNothingIsWritten) {
  const Outcome run = Run("[]");
  EXPECT_EQ(run.status, 0);
  EXPECT_THAT(EventNames(run.out), ElementsAre("dialog", "dialog", "returned"));
  EXPECT_FALSE(std::filesystem::exists(folder.File("out.xml")));
}

}  // namespace
}  // namespace e2e
