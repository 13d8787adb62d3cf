// Which job `kalvio call` works on, and where it is kept.
#include "tests/run_kalvio.h"

namespace e2e {
namespace {

using nlohmann::json;
using testing::ElementsAre;
using testing::HasSubstr;

class Job : public testing::Test {
 protected:
  Job() { folder.Write("a.jb2", SmallJb2()); }

  Outcome Import(std::vector<std::string> words, const std::string& file = "") {
    const std::string path = file.empty() ? folder.File("a.jb2") : file;
    words.insert(words.begin(), {"call", "FImportJB2File", "--answers",
                                 folder.Write("answers.json", ChoosePaths({path}))});
    return RunKalvio(words, where);
  }
  // Calls a function of the tests' own module.
  Outcome Ask(std::vector<std::string> words) {
    Surroundings asking = where;
    asking.variables["KALVIO_MODULE"] = AskingModule();
    words.insert(words.begin(), "call");
    return RunKalvio(words, asking);
  }
  std::size_t JobCount(const std::string& job) {
    const Outcome run = RunKalvio({"show", job, "--json"}, where);
    EXPECT_EQ(run.status, 0) << run.err;
    const json document = json::parse(run.out, nullptr, false);
    return document.contains("jobs") ? document["jobs"].size() : 0;
  }
  json SettingsOf(const std::string& job) {
    return json::parse(RunKalvio({"show", job, "--json"}, where).out).value("settings", json());
  }
  std::string MakeFolder(const std::string& name) {
    std::filesystem::create_directories(folder.File(name));
    return folder.File(name);
  }

  TemporaryFolder folder;
  Surroundings where{.folder = folder.Path()};
};

TEST_F(Job, WithoutOneTheFolderIsTheCurrentDirectory) {
  const Outcome run = RunKalvio({"call", "FImportJB2File"}, where);
  EXPECT_EQ(Events(run.out)[0]["state"]["folder"], folder.Path() + "\\");
  EXPECT_THAT(folder.Names(), ElementsAre("a.jb2"));
}

TEST_F(Job, FolderIsThePlaceOfFiles) {
  const std::string job = MakeFolder("job");
  for (const std::string& named : {job, job + "/", std::string("job"), std::string("./job")}) {
    const Outcome run = RunKalvio({"call", "FImportJB2File", "--job", named}, where);
    EXPECT_EQ(Events(run.out)[0]["state"]["folder"], job + "\\") << named;
  }
}

TEST_F(Job, FolderOfAJsonJobIsThePlaceOfFiles) {
  MakeFolder("job");
  folder.Write("job/job.json", "{}");
  const Outcome run = RunKalvio({"call", "FImportJB2File", "--job", "job/job.json"}, where);
  EXPECT_EQ(Events(run.out)[0]["state"]["folder"], folder.File("job") + "\\");
}

TEST_F(Job, FolderIsSavedByACallThatReturnsOne) {
  MakeFolder("job");
  EXPECT_EQ(Import({"--job", "job"}).status, 0);
  EXPECT_EQ(JobCount("job"), 1U);
  EXPECT_EQ(Import({"--job", "job"}).status, 0);
  EXPECT_EQ(JobCount("job"), 2U);
}

TEST_F(Job, FolderIsNotSavedByACallThatReturnsNothing) {
  MakeFolder("job");
  EXPECT_EQ(RunKalvio({"call", "FImportJB2File", "--job", "job"}, where).status, 0);
  EXPECT_TRUE(std::filesystem::is_empty(folder.File("job")));
}

TEST_F(Job, FolderKeepsChangedSettingsWhateverTheCallReturns) {
  MakeFolder("job");
  const Outcome run = Ask({"FExportCSVFile", "--job", "job"});
  EXPECT_EQ(LastEvent(run.out), R"({"event":"returned","value":0})");
  EXPECT_EQ(SettingsOf("job")["Section"]["Key"], 7);
}

TEST_F(Job, FolderKeepsChangedSettingsWhenTheJobIsSavedElsewhere) {
  MakeFolder("job");
  EXPECT_EQ(Ask({"FImportCSVFile", "--job", "job", "--save", "other.json"}).status, 0);
  EXPECT_EQ(SettingsOf("job")["Section"]["Key"], 7);
  EXPECT_EQ(JobCount("job"), 0U);
  EXPECT_EQ(JobCount("other.json"), 1U);
}

TEST_F(Job, JsonJobIsNeverWrittenUnlessSaveNamesIt) {
  const std::string job = folder.Write("job.json", "{}");
  EXPECT_EQ(Import({"--job", job}).status, 0);
  EXPECT_EQ(Ask({"FImportCSVFile", "--job", job}).status, 0);
  EXPECT_EQ(ReadBytes(job), "{}");
  EXPECT_EQ(Import({"--job", job, "--save", job}).status, 0);
  EXPECT_EQ(JobCount(job), 1U);
}

TEST_F(Job, SaveWritesAJsonDocument) {
  const std::string file = folder.Write("b.jb2", SmallJb2() + PointWithoutDistance());
  EXPECT_EQ(Import({"--save", "saved.json"}, file).status, 0);
  const json job = json::parse(ReadBytes(folder.File("saved.json")));
  EXPECT_EQ(job["jobs"][0]["name"], "SITE");
  EXPECT_EQ(job["jobs"][0]["operator"], "Rossi");
  const json& station = job["jobs"][0]["stations"][1];
  EXPECT_EQ(station["instrumentHeight"], 1.6);
  EXPECT_EQ(station["points"][0]["desc2"], "WALL");
  EXPECT_EQ(station["points"][0]["slopeDistance"], 23.456);
  EXPECT_TRUE(station["points"][1]["slopeDistance"].is_null());
}

TEST_F(Job, SaveWritesAFolderThatIsMadeWhenItIsMissing) {
  EXPECT_EQ(Import({"--save", "saved"}).status, 0);
  EXPECT_EQ(JobCount("saved"), 1U);
}

TEST_F(Job, SaveLeavesTheJobFolderAsItWas) {
  MakeFolder("job");
  EXPECT_EQ(Import({"--job", "job", "--save", "saved"}).status, 0);
  EXPECT_EQ(JobCount("job"), 0U);
  EXPECT_EQ(JobCount("saved"), 1U);
}

TEST_F(Job, SaveWritesWhateverTheCallReturned) {
  const Outcome run = RunKalvio({"call", "FImportJB2File", "--save", "saved.json"}, where);
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(LastEvent(run.out), R"({"event":"returned","value":0})");
  EXPECT_EQ(JobCount("saved.json"), 0U);
}

TEST_F(Job, BothFormsHoldTheSame) {
  EXPECT_EQ(Import({"--save", "saved"}).status, 0);
  EXPECT_EQ(Import({"--save", "saved.json"}).status, 0);
  EXPECT_EQ(RunKalvio({"show", "saved", "--json"}, where).out,
            RunKalvio({"show", "saved.json", "--json"}, where).out);
  EXPECT_EQ(RunKalvio({"show", "saved.json", "--json"}, where).out,
            ReadBytes(folder.File("saved.json")));
}

TEST_F(Job, MissingOneFailsWithItsName) {
  for (const char* job : {"missing", "missing.json"}) {
    const Outcome run = RunKalvio({"call", "FExportJB2File", "--job", job}, where);
    EXPECT_EQ(run.status, 1) << job;
    EXPECT_EQ(run.out, "") << job;
    EXPECT_THAT(run.err, HasSubstr(std::string("kalvio: ") + job)) << job;
    EXPECT_EQ(Lines(run.err).size(), 1U) << run.err;
  }
}

TEST_F(Job, BrokenJsonFails) {
  folder.Write("job.json", "{\"jobs\": [");
  const Outcome run = RunKalvio({"call", "FExportJB2File", "--job", "job.json"}, where);
  EXPECT_EQ(run.status, 1);
  EXPECT_THAT(run.err, HasSubstr("job.json"));
}

TEST_F(Job, UnknownKeyIsBadUsage) {
  folder.Write("job.json", R"({"jobs": [{"name": "A", "colour": "red"}]})");
  const Outcome run = RunKalvio({"call", "FExportJB2File", "--job", "job.json"}, where);
  EXPECT_EQ(run.status, 2);
  EXPECT_THAT(run.err, HasSubstr("colour"));
}

TEST_F(Job, SaveThatCannotBeWrittenFailsAfterTheTranscript) {
  const Outcome run = Import({"--save", "no/such/folder.json"});
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(LastEvent(run.out), R"({"event":"returned","value":1})");
  EXPECT_THAT(run.err, HasSubstr("no/such/folder.json"));
  EXPECT_EQ(Lines(run.err).size(), 1U) << run.err;
}

TEST_F(Job, FailedImportLeavesTheFolderAlone) {
  MakeFolder("job");
  EXPECT_EQ(Import({"--job", "job"}, "/missing.jb2").status, 0);
  EXPECT_TRUE(std::filesystem::is_empty(folder.File("job")));
}

}  // namespace
}  // namespace e2e
