#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <sstream>

#include "support/program.h"
#include "support/survey_files.h"

using Json = nlohmann::json;

namespace {

std::vector<Json> Events(const std::string& transcript) {
  std::istringstream lines(transcript);
  std::vector<Json> events;
  for (std::string line; std::getline(lines, line);) events.push_back(Json::parse(line));
  return events;
}

std::vector<std::string> Names(const std::vector<Json>& events) {
  std::vector<std::string> names;
  for (const Json& event : events) names.push_back(event["event"]);
  return names;
}

Json FileAnswer(const std::string& path) {
  return {{"dialog", "file"}, {"set", {{"path", path}}}, {"press", "OK"}};
}

class CallProgram : public testing::Test {
 protected:
  // Runs `kalvio call FUNCTION` with answers.
  ProgramRun Call(const std::string& function, const Json& answers,
                  std::vector<std::string> more = {}) {
    folder.Write("answers.json", answers.dump());
    std::vector<std::string> words = {"call", function, "--answers", "answers.json"};
    words.insert(words.end(), more.begin(), more.end());
    return RunProgram(folder, words);
  }
  Json SavedJob() { return Json::parse(ReadBytes(folder.File("saved.json"))); }

  TemporaryFolder folder;
};

TEST_F(CallProgram, PrintsTheWholeImportAndSavesTheJob) {
  folder.Write("a.jb2", SmallJob());
  const ProgramRun run = Call("FImportJB2File", Json::array({FileAnswer(folder.File("a.jb2"))}),
                              {"--save", "saved.json"});
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(run.err, "");
  const auto events = Events(run.out);
  EXPECT_EQ(Names(events),
            (std::vector<std::string>{"dialog", "begin-change", "end-change", "returned"}));
  EXPECT_EQ(events[0]["title"], "JB2 file import");
  EXPECT_EQ(events[0]["state"]["extensions"], "jb2");
  EXPECT_EQ(events[0]["state"]["import"], true);
  EXPECT_EQ(events.back()["value"], 1);
  const Json points = SavedJob()["jobs"][0]["stations"][0]["points"];
  EXPECT_EQ(points.size(), 2U);
  EXPECT_EQ(points[1]["desc2"], "CIGLIO");
  EXPECT_EQ(points[1]["slopeDistance"], 18.204);
  EXPECT_TRUE(points[1]["x"].is_null());
}

TEST_F(CallProgram, TellsThatThereIsNothingToExport) {
  const ProgramRun run = Call("FExportJB2File", Json::array());
  const auto events = Events(run.out);
  ASSERT_EQ(Names(events), (std::vector<std::string>{"message", "returned"}));
  EXPECT_EQ(events[0]["caption"], "Warning");
  EXPECT_EQ(events[0]["text"], "There are no data to export.");
  EXPECT_EQ(events[0]["flags"], 48);
  EXPECT_EQ(events[0]["answer"], "OK");
  EXPECT_EQ(events[1]["value"], 0);
}

TEST_F(CallProgram, CancelsWhenNoAnswersAreLeft) {
  const ProgramRun run = Call("FImportJB2File", Json::array());
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(Events(run.out).back()["value"], 0);
}

TEST_F(CallProgram, HandsBackThePathOfAnImage) {
  const ProgramRun run = Call("FImportImageFile", Json::array({FileAnswer("/pictures/a.png")}));
  const Json returned = Events(run.out).back();
  EXPECT_EQ(returned["value"], 1);
  EXPECT_EQ(returned["path"], "/pictures/a.png");
}

TEST_F(CallProgram, EndsWithStatusThreeAtAnUnexpectedDialog) {
  const ProgramRun run =
      Call("FImportJB2File", Json::parse(R"([{"dialog": "text-main", "press": "OK"}])"));
  EXPECT_EQ(run.status, 3);
  EXPECT_NE(run.err.find("file"), std::string::npos);
  EXPECT_NE(run.err.find("text-main"), std::string::npos);
}

TEST_F(CallProgram, RefusesWhatItDoesNotKnow) {
  EXPECT_EQ(Call("FImportNothing", Json::array()).status, 2);
  EXPECT_EQ(Call("printf", Json::array()).status, 2);
  EXPECT_EQ(Call("FImportJB2File", Json::parse(R"([{"dialog": "file", "prass": "OK"}])")).status,
            2);
  const ProgramRun unknown =
      Call("FImportJB2File",
           Json::parse(R"([{"dialog": "file", "set": {"colour": 1}, "press": "OK"}])"));
  EXPECT_EQ(unknown.status, 2);
  EXPECT_NE(unknown.err.find("colour"), std::string::npos);
  EXPECT_EQ(RunProgram(folder, {"call", "FImportJB2File", "--answers", "missing.json"}).status, 2);
}

TEST_F(CallProgram, NamesAnUnknownKeyOfTheJob) {
  folder.Write("job.json", R"({"jobs": [{"name": "A", "colour": 1}]})");
  const ProgramRun run = Call("FExportJB2File", Json::array(), {"--job", "job.json"});
  EXPECT_EQ(run.status, 2);
  EXPECT_NE(run.err.find("colour"), std::string::npos);
  EXPECT_NE(run.err.find("job.json"), std::string::npos);
}

TEST_F(CallProgram, TellsTheFirstWindowThatTheModuleHasStarted) {
  const ProgramRun run = Call("DummyVexa4modExport", Json::array(),
                              {"--window", "Avvio_TrembaloCrash", "--window", "KalvioFieldStart"});
  const auto events = Events(run.out);
  ASSERT_EQ(Names(events), (std::vector<std::string>{"window-message", "returned"}));
  EXPECT_EQ(events[0]["window"], "KalvioFieldStart");
  EXPECT_EQ(events[0]["message"], 1165);
  EXPECT_EQ(events[0]["wparam"], 1);
  EXPECT_EQ(events[0]["lparam"], 0);
}

TEST_F(CallProgram, SavesAJobFolderWhenTheCallReturnsOne) {
  folder.Write("a.jb2", SmallJob());
  std::filesystem::create_directory(folder.File("job"));
  Call("FImportJB2File", Json::array({FileAnswer(folder.File("a.jb2"))}), {"--job", "job"});
  const ProgramRun shown = RunProgram(folder, {"show", "job", "--json"});
  EXPECT_EQ(Json::parse(shown.out)["jobs"][0]["name"], "WALL");
}

TEST_F(CallProgram, NeverWritesAJsonJobThatSaveDoesNotName) {
  folder.Write("a.jb2", SmallJob());
  folder.Write("job.json", "{}");
  Call("FImportJB2File", Json::array({FileAnswer(folder.File("a.jb2"))}), {"--job", "job.json"});
  EXPECT_EQ(ReadBytes(folder.File("job.json")), "{}");
}

TEST_F(CallProgram, KeepsTheMarksOfTheLandXmlWizardAndWritesWhatIsChecked) {
  folder.Write("job.json", R"({"jobs": [{"name": "A"}, {"name": "B"}]})");
  const Json answers = Json::parse(R"([
    {"dialog": "landxml-survey", "set": {"jobs": [1]}, "press": ">>"},
    {"dialog": "landxml-triangulation", "press": "<<"},
    {"dialog": "landxml-survey", "press": "Cancel"},
    {"dialog": "file", "set": {"path": "out.xml"}, "press": "OK"}])");
  const ProgramRun run = Call("FExportLandXMLFile", answers, {"--job", "job.json"});
  const auto events = Events(run.out);
  EXPECT_EQ(events[2]["state"]["jobs"][0]["checked"], false);
  EXPECT_EQ(events[2]["state"]["jobs"][1]["checked"], true);
  const std::string xml = ReadBytes(folder.File("out.xml"));
  EXPECT_EQ(xml.find("<Survey desc=\"A\">"), std::string::npos);
  EXPECT_NE(xml.find("<Survey desc=\"B\">"), std::string::npos);
}

}  // namespace
