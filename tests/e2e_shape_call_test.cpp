// The module's Shape functions with scripted answers.
#include <filesystem>

#include "tests/run_kalvio.h"

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

namespace e2e {
namespace {

constexpr const char* kJob = R"({"gis": {"themes": [
  {"name": "trees", "type": "point", "dimension": 3,
   "fields": [{"name": "NAME", "type": "text", "width": 20, "decimals": 0},
              {"name": "KIND", "type": "text", "width": 20, "decimals": 0}],
   "features": [{"parts": [[[1, 2, 3]]], "values": ["T1", "oak"]},
                {"parts": [[[4, 5, 6]]], "values": ["T2", "elm"]}]},
  {"name": "walls", "type": "line", "dimension": 2,
   "fields": [{"name": "ID", "type": "integer", "width": 5, "decimals": 0}],
   "features": [{"parts": [[[0, 0, null], [10, 0, null]]], "values": [1]}]}]}})";

class ShapeCalls : public testing::Test {
 protected:
  ShapeCalls() { folder.Write("job.json", kJob); }
  Outcome Call(const std::string& function, const std::string& answers,
               std::vector<std::string> words = {}) {
    words.insert(words.begin(), {"call", function});
    words.insert(words.end(), {"--answers", folder.Write("answers.json", answers)});
    return RunKalvio(words, where);
  }
  Outcome Export(const std::string& answers) {
    return Call("FExportEntInFileShape", answers, {"--job", "job.json"});
  }
  Outcome Import(const std::string& answers, std::vector<std::string> words = {}) {
    return Call("FImportEntFromFileShape", answers, std::move(words));
  }
  void ExportAll() {
    const Outcome run =
        Export(R"([{"dialog":"shape-export","set":{"themes":[0,1]},"press":"OK"}])");
    ASSERT_THAT(EventNames(run.out), ElementsAre("dialog", "returned")) << run.out << run.err;
  }
  static nlohmann::ordered_json Event(const Outcome& run, std::size_t index) {
    return Events(run.out).at(index);
  }
  bool IsThere(const std::string& name) { return std::filesystem::exists(folder.File(name)); }

  TemporaryFolder folder;
  Surroundings where{.folder = folder.Path()};
};

TEST_F(ShapeCalls, ExportShowsItsThemes) {
  const Outcome run = Export("[]");
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(Event(run, 0)["title"], "Export to Shape file");
  EXPECT_EQ(Event(run, 0)["state"].dump(),
            R"({"themes":[{"name":"trees","checked":false},{"name":"walls","checked":false}],)"
            R"("coordinateType":0,"folder":")" +
                folder.Path() + R"(","maxChars":250})");
  EXPECT_THAT(LastEvent(run.out), HasSubstr("\"value\":0"));
  EXPECT_FALSE(IsThere("trees.shp"));
}

TEST_F(ShapeCalls, ExportWritesTheThemesThatAreChecked) {
  const Outcome run = Export(R"([{"dialog":"shape-export","set":{"themes":[1]},"press":"OK"}])");
  EXPECT_THAT(LastEvent(run.out), HasSubstr("\"value\":1"));
  EXPECT_TRUE(IsThere("walls.shp"));
  EXPECT_TRUE(IsThere("walls.dbf"));
  EXPECT_FALSE(IsThere("trees.shp"));
}

TEST_F(ShapeCalls, ExportRefusesNineAndTwoHundredAndFiftyOneCharacters) {
  const Outcome run = Export(
      R"([{"dialog":"shape-export","set":{"themes":[0],"maxChars":9},"press":"OK"},
          {"dialog":"shape-export","set":{"maxChars":251},"press":"OK"},
          {"dialog":"shape-export","set":{"maxChars":10},"press":"OK"}])");
  EXPECT_THAT(EventNames(run.out),
              ElementsAre("dialog", "message", "dialog", "message", "dialog", "returned"));
  EXPECT_EQ(Event(run, 1)["text"], "Enter an integer between 10 and 250.");
  EXPECT_TRUE(IsThere("trees.shp"));
  EXPECT_THAT(
      LastEvent(Export(R"([{"dialog":"shape-export","set":{"maxChars":250},"press":"OK"}])").out),
      HasSubstr("\"value\":1"));
}

TEST_F(ShapeCalls, ExportIntoAFolderThatIsNotThereTellsBothFilesShapeFirst) {
  const Outcome run =
      Export(R"([{"dialog":"shape-export","set":{"themes":[0],"folder":"/none"},"press":"OK"}])");
  EXPECT_THAT(EventNames(run.out), ElementsAre("dialog", "message", "message", "returned"));
  EXPECT_EQ(
      Event(run, 1)["text"],
      "Impossible to write the file \"/none\\trees.shp\"!\nCheck if the path is valid and not "
      "proteced");
  EXPECT_THAT(Event(run, 2)["text"], HasSubstr("/none\\trees.dbf"));
  EXPECT_EQ(Event(run, 2)["flags"], 48);
  EXPECT_THAT(LastEvent(run.out), HasSubstr("\"value\":1"));
}

TEST_F(ShapeCalls, ExportAsksBeforeItReplacesAFile) {
  ExportAll();
  folder.Write("trees.shp", "old");
  const std::string question =
      "The Shape file " + folder.Path() + "\\trees.shp already exists!\r\nOverwrite it?";
  nlohmann::ordered_json answers = {
      {{"dialog", "shape-export"}, {"set", {{"themes", {0}}}}, {"press", "OK"}},
      {{"message", question}, {"press", "No"}}};
  const Outcome no = Export(answers.dump());
  EXPECT_THAT(EventNames(no.out), ElementsAre("dialog", "message", "returned")) << no.out;
  EXPECT_EQ(Event(no, 1)["text"], question);
  EXPECT_EQ(Event(no, 1)["flags"], 52);
  EXPECT_EQ(Event(no, 1)["caption"], "Warning");
  EXPECT_EQ(ReadBytes(folder.File("trees.shp")), "old");
  answers[1]["press"] = "Yes";
  Export(answers.dump());
  EXPECT_THAT(ReadBytes(folder.File("trees.shp")), Not("old"));
}

TEST_F(ShapeCalls, ImportThatIsCancelledReturnsTrueAndImportsNothing) {
  ExportAll();
  const Outcome run = Import("[]", {"--save", "out.json"});
  EXPECT_THAT(EventNames(run.out), ElementsAre("dialog", "returned"));
  EXPECT_THAT(LastEvent(run.out), HasSubstr("\"value\":1"));
  EXPECT_THAT(ReadBytes(folder.File("out.json")), Not(HasSubstr("trees")));
}

TEST_F(ShapeCalls, ImportShowsTheFilesOfTheFolder) {
  ExportAll();
  const Outcome run = Import("[]");
  EXPECT_EQ(Event(run, 0)["title"], "Import of Shape file");
  EXPECT_EQ(Event(run, 0)["state"].dump(),
            R"({"folder":")" + folder.Path() +
                R"(\\","files":["trees","walls"],"file":null,"createPoints":false,"nameField":0,)"
                R"("codeField":0,"fields":[],"pointOptionsVisible":false,)"
                R"("associationVisible":false,"associationEnabled":false})");
}

TEST_F(ShapeCalls, ImportWithoutAFileKeepsTheDialogOpen) {
  ExportAll();
  const Outcome run = Import(R"([{"dialog":"shape-import","press":"OK"},
                                 {"dialog":"shape-import","set":{"file":"trees"},"press":"OK"}])");
  EXPECT_THAT(EventNames(run.out),
              ElementsAre("dialog", "message", "dialog", "wait", "wait", "message", "returned"));
  EXPECT_EQ(Event(run, 1)["text"], "Select a file to be imported before continuing.");
  EXPECT_EQ(Event(run, 3)["what"], "start");
  EXPECT_EQ(Event(run, 4)["what"], "end");
  EXPECT_EQ(Event(run, 5)["caption"], "Shape file");
  EXPECT_EQ(Event(run, 5)["text"], "File imported successfully");
  EXPECT_EQ(Event(run, 5)["flags"], 64);
}

TEST_F(ShapeCalls, ImportCreatesPointsOfTheFieldsChosen) {
  ExportAll();
  const Outcome run = Import(
      R"([{"dialog":"shape-import","press":"OK",
           "set":{"file":"trees","createPoints":true,"nameField":1,"codeField":2}}])",
      {"--save", "out.json"});
  EXPECT_THAT(LastEvent(run.out), HasSubstr("\"value\":1"));
  EXPECT_THAT(
      ReadBytes(folder.File("out.json")),
      AllOf(HasSubstr(R"("labels": ["trees")"),
            HasSubstr(R"({"name": "T1", "desc2": "oak", "desc3": "", "x": 1, "y": 2, "z": 3})"),
            HasSubstr(R"({"name": "T2", "desc2": "elm")")));
}

TEST_F(ShapeCalls, ImportOfPointsOnEmptyEntriesNamesThemByThemselves) {
  ExportAll();
  Import(R"([{"dialog":"shape-import","set":{"file":"trees","createPoints":true},"press":"OK"}])",
         {"--save", "out.json"});
  const std::string job = ReadBytes(folder.File("out.json"));
  EXPECT_THAT(job,
              AllOf(HasSubstr(R"("x": 1, "y": 2, "z": 3)"), Not(HasSubstr(R"("name": "T1")"))));
}

TEST_F(ShapeCalls, ImportOfAFileWithoutItsTableReportsWhatTheHostSays) {
  ExportAll();
  folder.Write("trees.dbf", "no table");
  const Outcome run = Import(R"([{"dialog":"shape-import","set":{"file":"trees"},"press":"OK"}])");
  EXPECT_THAT(EventNames(run.out), ElementsAre("dialog", "wait", "wait", "message", "returned"));
  EXPECT_EQ(Event(run, 3)["text"], "Unable to read file!\r\nThe file contains inconsistent data");
}

TEST_F(ShapeCalls, ImportOfWhatIsNoShapeFileSaysSoAtOnce) {
  folder.Write("bad.shp", "no shapes");
  const Outcome run =
      Import(R"([{"dialog":"shape-import","set":{"file":"bad"},"press":"Cancel"}])");
  EXPECT_THAT(EventNames(run.out), ElementsAre("dialog", "message", "returned"));
  EXPECT_EQ(Event(run, 1)["text"],
            "Impossible to read data!\r\nThe type of entity contained are invalid");
}

TEST_F(ShapeCalls, ImportOfAThemeThatIsThereIsRefused) {
  ExportAll();
  const Outcome run = Import(R"([{"dialog":"shape-import","set":{"file":"trees"},"press":"OK"}])",
                             {"--job", "job.json"});
  EXPECT_THAT(run.out,
              HasSubstr("Impossibile leggere i dati!\\r\\nTheme already present in the GIS data."));
}

TEST_F(ShapeCalls, ImportFromAnotherFolder) {
  std::filesystem::create_directory(folder.File("more"));
  ExportAll();
  std::filesystem::rename(folder.File("walls.shp"), folder.File("more/walls.shp"));
  std::filesystem::rename(folder.File("walls.shx"), folder.File("more/walls.shx"));
  std::filesystem::rename(folder.File("walls.dbf"), folder.File("more/walls.dbf"));
  const Outcome run = Import(R"([{"dialog":"shape-import","press":"Change"},
                                 {"dialog":"job-folder","set":{"folder":")" +
                             folder.File("more") + R"("},"press":"OK"},
                                 {"dialog":"shape-import","set":{"file":"walls"},"press":"OK"}])");
  EXPECT_THAT(EventNames(run.out),
              ElementsAre("dialog", "dialog", "dialog", "wait", "wait", "message", "returned"));
  EXPECT_THAT(run.out, HasSubstr("File imported successfully"));
}

}  // namespace
}  // namespace e2e
