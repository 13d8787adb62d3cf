// The transcript of `kalvio call`: which events come, in which order, with which keys.
#include <array>

#include "tests/run_kalvio.h"

namespace e2e {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

constexpr std::array kFunctions = {
    "FImportImageFile",      "FImportJB2File",          "FImportJB3File",
    "FImportTXTFile",        "FImportCSVFile",          "FImportDXFDWGFile",
    "FExportJB2File",        "FExportJB3File",          "FExportTXTFile",
    "FExportCSVFile",        "FExportDXFDWGFile",       "FExportDATFile",
    "FExportEntInFileShape", "FImportEntFromFileShape", "FExportLandXMLFile",
    "DummyVexa4modExport"};

class Call : public testing::Test {
 protected:
  Outcome Run(std::vector<std::string> words, const std::string& answers = "[]") {
    words.insert(words.begin(), "call");
    words.insert(words.end(), {"--answers", folder.Write("answers.json", answers)});
    return RunKalvio(words, where);
  }
  // The same with the tests' own module in place of the real one.
  Outcome RunAsking(std::vector<std::string> words, const std::string& answers = "[]") {
    where.variables["KALVIO_MODULE"] = AskingModule();
    return Run(std::move(words), answers);
  }

  TemporaryFolder folder;
  Surroundings where{.folder = folder.Path()};
};

TEST_F(Call, Jb2ImportTellsDialogChangesAndValue) {
  const Outcome run = Run({"FImportJB2File"}, ChoosePaths({folder.Write("a.jb2", SmallJb2())}));
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.err, "");
  EXPECT_EQ(run.out,
            R"({"event":"dialog","dialog":"file","title":"JB2 file import","state":{"folder":")" +
                folder.Path() +
                R"(\\","extensions":"jb2","import":true,"initialName":""}})"
                "\n"
                R"({"event":"begin-change"})"
                "\n"
                R"({"event":"end-change"})"
                "\n"
                R"({"event":"returned","value":1})"
                "\n");
}

TEST_F(Call, Jb2ExportWritesTheJobAsItWas) {
  folder.Write("a.jb2", SmallJb2());
  const std::string job = folder.File("job.json");
  ASSERT_EQ(Run({"FImportJB2File", "--save", job}, ChoosePaths({"a.jb2"})).status, 0);
  const Outcome run = Run({"FExportJB2File", "--job", job}, ChoosePaths({"b.jb2"}));
  EXPECT_EQ(run.status, 0);
  EXPECT_THAT(EventNames(run.out), ElementsAre("dialog", "returned"));
  EXPECT_EQ(Events(run.out)[0]["title"], "JB2 file export");
  EXPECT_EQ(Events(run.out)[0]["state"]["import"], false);
  EXPECT_EQ(ReadBytes(folder.File("b.jb2")), SmallJb2());
}

TEST_F(Call, ExportWritesOverAnOlderFile) {
  folder.Write("a.jb2", SmallJb2());
  folder.Write("old.jb2", "something else");
  ASSERT_EQ(Run({"FImportJB2File", "--save", "job.json"}, ChoosePaths({"a.jb2"})).status, 0);
  ASSERT_EQ(Run({"FExportJB2File", "--job", "job.json"}, ChoosePaths({"old.jb2"})).status, 0);
  EXPECT_EQ(ReadBytes(folder.File("old.jb2")), SmallJb2());
}

TEST_F(Call, NothingToExportIsAMessageWithOneButtonThatTakesNoAnswer) {
  const Outcome run = Run({"FExportJB2File"}, ChoosePaths({"a.jb2"}));
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.out,
            R"({"event":"message","caption":"Warning","text":"There are no data to export.",)"
            R"("flags":48,"answer":"OK"})"
            "\n"
            R"({"event":"returned","value":0})"
            "\n");
  EXPECT_THAT(run.err, HasSubstr("1 answer was not needed"));
}

TEST_F(Call, ImageImportGivesItsPath) {
  const Outcome run = Run({"FImportImageFile"}, ChoosePaths({"/pictures/wall.png"}));
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(LastEvent(run.out), R"({"event":"returned","value":1,"path":"/pictures/wall.png"})");
}

TEST_F(Call, CancelledImageImportGivesNoPath) {
  EXPECT_EQ(LastEvent(Run({"FImportImageFile"}).out), R"({"event":"returned","value":0})");
}

TEST_F(Call, FileDialogWithoutAPathTakesFolderNameAndFirstExtension) {
  const Outcome run = Run({"FImportImageFile"}, R"([{"dialog":"file","press":"OK"}])");
  EXPECT_EQ(Events(run.out).back()["path"], folder.Path() + "\\.bmp");
}

TEST_F(Call, FileDialogTakesAnInitialNameAndAFolder) {
  const Outcome run = Run({"FImportImageFile"}, R"([{"dialog":"file","set":{"folder":"/x",
      "initialName":"wall"},"press":"OK"}])");
  EXPECT_EQ(Events(run.out).back()["path"], "/x\\wall.bmp");
}

TEST_F(Call, EveryFunctionIsKnownAndItsLastLineIsReturned) {
  for (const char* function : kFunctions) {
    const Outcome run = Run({function});
    EXPECT_EQ(run.status, 0) << function << ": " << run.err;
    EXPECT_EQ(Events(run.out).back()["event"], "returned") << function;
  }
}

TEST_F(Call, ShapeImportGivesANumberAndTheDummyNothing) {
  EXPECT_EQ(LastEvent(Run({"FImportEntFromFileShape"}).out), R"({"event":"returned","value":1})");
  EXPECT_EQ(LastEvent(RunAsking({"FImportEntFromFileShape"}).out),
            R"({"event":"returned","value":1})");
  where.variables.clear();
  EXPECT_EQ(Run({"DummyVexa4modExport"}).out, "{\"event\":\"returned\",\"value\":null}\n");
}

TEST_F(Call, UnknownFunctionIsBadUsage) {
  const Outcome run = Run({"FImportJB9File"});
  EXPECT_EQ(run.status, 2);
  EXPECT_EQ(run.out, "");
  EXPECT_THAT(run.err, HasSubstr("FImportJB9File"));
}

// A function that exists in some library of the process is none of the module's.
TEST_F(Call, FunctionsOfOtherLibrariesAreBadUsage) {
  EXPECT_EQ(Run({"getpid"}).status, 2);
  EXPECT_EQ(Run({"dlopen"}).status, 2);
}

TEST_F(Call, WindowGetsTheMessageThatTheModuleHasStarted) {
  for (const char* window : {"KalvioFieldStart", "Avvio_TrembaloCrash"}) {
    const Outcome run = Run({"DummyVexa4modExport", "--window", window});
    EXPECT_EQ(Lines(run.out).front(), std::string(R"({"event":"window-message","window":")") +
                                          window + R"(","message":1165,"wparam":1,"lparam":0})");
  }
}

TEST_F(Call, OfTwoWindowsOnlyTheNewerOnesGetsTheMessage) {
  const Outcome run = Run(
      {"DummyVexa4modExport", "--window", "Avvio_TrembaloCrash", "--window", "KalvioFieldStart"});
  EXPECT_THAT(EventNames(run.out), ElementsAre("window-message", "returned"));
  EXPECT_EQ(Events(run.out)[0]["window"], "KalvioFieldStart");
}

TEST_F(Call, OtherWindowsGetNoMessage) {
  EXPECT_THAT(EventNames(Run({"DummyVexa4modExport", "--window", "Editor"}).out),
              ElementsAre("returned"));
  EXPECT_THAT(EventNames(Run({"DummyVexa4modExport"}).out), ElementsAre("returned"));
}

TEST_F(Call, WindowMessagesKeepTheSignOfTheirParameters) {
  const Outcome run = RunAsking({"FImportCSVFile", "--window", "Listener"});
  EXPECT_EQ(
      Lines(run.out).front(),
      R"({"event":"window-message","window":"Listener","message":2000,"wparam":5,"lparam":-6})");
}

TEST_F(Call, WaitIsToldAroundWhatHappensWithin) {
  const Outcome run = RunAsking({"FImportTXTFile"});
  EXPECT_THAT(EventNames(run.out), ElementsAre("wait", "dialog", "wait", "returned"));
  EXPECT_EQ(Lines(run.out)[0], R"({"event":"wait","what":"start"})");
  EXPECT_EQ(Lines(run.out)[2], R"({"event":"wait","what":"end"})");
}

TEST_F(Call, TextsAreUtf8AndWhatIsNoneIsReplaced) {
  const std::string dialog = Lines(RunAsking({"FImportTXTFile"}).out)[1];
  EXPECT_THAT(dialog, HasSubstr("Taccuino però"));
  EXPECT_THAT(dialog, HasSubstr("a\xEF\xBF\xBD"
                                "b"));
}

TEST_F(Call, OptionsReachTheJb3Export) {
  const Outcome run = RunAsking(
      {"FExportJB3File", "--option", "app-name=Field = Pro", "--option", "app-version=9.1"});
  EXPECT_EQ(Events(run.out)[0]["caption"], "Field = Pro");
  EXPECT_EQ(Events(run.out)[0]["text"], "9.1");
}

TEST_F(Call, UnknownOptionKeysAreBadUsage) {
  for (const char* option : {"app-nam=x", "app-name", "=x", ""}) {
    const Outcome run = Run({"DummyVexa4modExport", "--option", option});
    EXPECT_EQ(run.status, 2) << option;
    EXPECT_EQ(run.out, "") << option;
  }
}

TEST_F(Call, NotesAndFileTroubleGoToStandardError) {
  const Outcome run = RunAsking({"FExportDATFile"});
  EXPECT_EQ(run.status, 0);
  EXPECT_THAT(EventNames(run.out), ElementsAre("returned"));
  EXPECT_THAT(Lines(run.err), testing::Contains("kalvio: /folder/file.jb2: note 1"));
  EXPECT_THAT(
      Lines(run.err),
      testing::Contains("kalvio: /folder/other: cannot be created: No space left on device"));
}

TEST_F(Call, FileThatCannotBeOpenedIsToldThoughTheModuleSaysNothing) {
  const Outcome run = Run({"FImportJB2File"}, ChoosePaths({"/missing/a.jb2"}));
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(LastEvent(run.out), R"({"event":"returned","value":0})");
  EXPECT_EQ(run.err, "kalvio: /missing/a.jb2: cannot be opened: No such file or directory\n");
}

TEST_F(Call, ModuleThatCannotBeLoadedIsNamed) {
  where.variables["KALVIO_MODULE"] = folder.Write("no-module.so", "rubbish");
  const Outcome run = Run({"DummyVexa4modExport"});
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.out, "");
  EXPECT_THAT(run.err, HasSubstr("kalvio: " + folder.File("no-module.so") + ": "));
  EXPECT_EQ(Lines(run.err).size(), 1U);
}

TEST_F(Call, FunctionThatTheModuleLacksFails) {
  const Outcome run = RunAsking({"FImportDXFDWGFile"});
  EXPECT_EQ(run.status, 1);
  EXPECT_THAT(run.err, HasSubstr("FImportDXFDWGFile"));
}

TEST_F(Call, EmptyModuleVariableIsNone) {
  where.variables["KALVIO_MODULE"] = "";
  EXPECT_EQ(Run({"DummyVexa4modExport"}).status, 0);
}

TEST_F(Call, TitlesAndMessagesAreInTheChosenLanguage) {
  const Outcome run = Run({"FExportJB2File", "--lang", "it"});
  EXPECT_EQ(Events(run.out)[0]["caption"], "Attenzione");
  EXPECT_EQ(Events(run.out)[0]["text"], "Non ci sono dati da esportare.");
}

TEST_F(Call, FullOrClosedStandardOutputFailsAndSavesNothing) {
  folder.Write("a.jb2", SmallJb2());
  where.output = "/dev/full";
  const Outcome full = Run({"FImportJB2File", "--save", "full.json"}, ChoosePaths({"a.jb2"}));
  EXPECT_EQ(full.status, 1);
  EXPECT_EQ(full.err, "kalvio: standard output cannot be written: No space left on device\n");
  where.output.reset();
  where.closedOutput = true;
  const Outcome closed = Run({"FImportJB2File", "--save", "closed.json"}, ChoosePaths({"a.jb2"}));
  EXPECT_EQ(closed.status, 1);
  EXPECT_THAT(closed.err, HasSubstr("standard output cannot be written"));
  EXPECT_THAT(folder.Names(), ElementsAre("a.jb2", "answers.json"));
}

}  // namespace
}  // namespace e2e
