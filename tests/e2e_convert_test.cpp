// `kalvio convert`: what it reads and writes, what it tells, and how it fails.
#include <sys/stat.h>

#include <algorithm>

#include "tests/run_kalvio.h"

namespace e2e {
namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

class Convert : public testing::Test {
 protected:
  Convert() { folder.Write("a.jb2", SmallJb2()); }

  Outcome Run(std::vector<std::string> words) {
    words.insert(words.begin(), "convert");
    return RunKalvio(words, where);
  }
  Outcome RunAsking(std::vector<std::string> words) {
    Surroundings asking = where;
    asking.variables["KALVIO_MODULE"] = AskingModule();
    words.insert(words.begin(), "convert");
    return RunKalvio(words, asking);
  }
  // Fails with nothing but one line on standard error, which begins with the file and holds the
  // reason.
  void ExpectFailure(const std::vector<std::string>& words, int status, const std::string& file,
                     const std::string& reason) {
    const Outcome run = Run(words);
    EXPECT_EQ(run.status, status) << run.err;
    EXPECT_EQ(Lines(run.err).size(), 1U) << run.err;
    EXPECT_THAT(run.err, AllOf(StartsWith("kalvio: " + file + ": "), HasSubstr(reason)));
  }
  bool IsThere(const std::string& name) { return std::filesystem::exists(folder.File(name)); }
  void Link(const std::string& target, const std::string& name) {
    std::filesystem::create_symlink(target, folder.File(name));
  }

  TemporaryFolder folder;
  Surroundings where{.folder = folder.Path()};
};

TEST_F(Convert, Jb2ToJb2GivesTheSameBytes) {
  EXPECT_EQ(Run({"a.jb2", "b.jb2"}).status, 0);
  EXPECT_EQ(ReadBytes(folder.File("b.jb2")), SmallJb2());
}

TEST_F(Convert, GivesTheBytesOfTheSameWorkByHand) {
  EXPECT_EQ(Run({"--no-compute", "a.jb2", "out.xml"}).status, 0);
  const std::string converted = ReadBytes(folder.File("out.xml"));
  folder.Write("import.json", ChoosePaths({folder.File("a.jb2")}));
  folder.Write("export.json", R"([{"dialog": "landxml-survey", "press": "Select All"},
      {"dialog": "landxml-survey", "press": "Cancel"},
      {"dialog": "file", "set": {"path": ")" +
                                  folder.File("out.xml") + R"("}, "press": "OK"}])");
  RunKalvio({"call", "FImportJB2File", "--answers", "import.json", "--save", "j.json"}, where);
  RunKalvio({"call", "FExportLandXMLFile", "--job", "j.json", "--answers", "export.json"}, where);
  EXPECT_EQ(ReadBytes(folder.File("out.xml")), converted);
  EXPECT_THAT(converted, HasSubstr("SITE"));
}

TEST_F(Convert, InputsAreReadInTheirOrderIntoOneJob) {
  folder.Write("b.jb2", Jb2WithStations(1));
  EXPECT_EQ(Run({"b.jb2", "a.jb2", "both.jb2"}).status, 0);
  const std::string both = ReadBytes(folder.File("both.jb2"));
  EXPECT_LT(both.find("LONG"), both.find("SITE"));
  EXPECT_NE(both.find("SITE"), std::string::npos);
}

TEST_F(Convert, ExtensionsAreKnownInAnyLetterCase) {
  std::filesystem::rename(folder.File("a.jb2"), folder.File("A.JB2"));
  EXPECT_EQ(Run({"A.JB2", "b.Xml"}).status, 0);
  EXPECT_THAT(ReadBytes(folder.File("b.Xml")), StartsWith("<?xml"));
}

TEST_F(Convert, SummaryTellsEachFileInAlignedLines) {
  folder.Write("one.jb2", Jb2WithStations(1));
  const Outcome run = Run({"--no-compute", "a.jb2", "one.jb2", "out.jb2"});
  EXPECT_EQ(run.err, "");
  EXPECT_THAT(Lines(run.out),
              ElementsAre("read  a.jb2: 1 job, 2 stations, 3 points",
                          "read  one.jb2: 1 job, 1 station, 1 point",
                          StartsWith("wrote out.jb2: 2 jobs, 3 stations, 4 points (")));
}

TEST_F(Convert, SummaryTellsTheSize) {
  EXPECT_THAT(Run({"a.jb2", "b.jb2"}).out,
              HasSubstr("(" + std::to_string(SmallJb2().size()) + " B)"));
  folder.Write("long.jb2", Jb2WithStations(300));
  EXPECT_THAT(Run({"long.jb2", "b.jb2"}).out, HasSubstr(" kB)"));
}

TEST_F(Convert, QuietPrintsNoSummary) {
  const Outcome run = Run({"--quiet", "a.jb2", "b.jb2"});
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.out + run.err, "");
  EXPECT_TRUE(IsThere("b.jb2"));
}

TEST_F(Convert, WhatWasLeftOutIsToldEvenWhenQuiet) {
  folder.Write("a.jb2", SmallJb2() + "no record\n");
  const Outcome run = Run({"--quiet", "a.jb2", "b.jb2"});
  EXPECT_EQ(run.status, 0);
  EXPECT_THAT(run.err, AllOf(StartsWith("kalvio: a.jb2: "), HasSubstr("line 7")));
}

TEST_F(Convert, RemarksOfTheModuleAreCutAfterTen) {
  folder.Write("t.jb2", "x");
  const auto lines = Lines(RunAsking({"t.jb2", "b.xml"}).err);
  ASSERT_GE(lines.size(), 11U);
  EXPECT_EQ(lines[0], "kalvio: t.jb2: Said in a box.");
  EXPECT_EQ(lines[1], "kalvio: t.jb2: note 1");
  EXPECT_EQ(lines[9], "kalvio: t.jb2: note 9");
  EXPECT_EQ(lines[10], "kalvio: t.jb2: and 3 more");
}

TEST_F(Convert, DialogThatItDoesNotKnowIsAnInternalError) {
  folder.Write("t.jb2", "x");
  const Outcome run = RunAsking({"t.jb2", "b.jb2"});
  EXPECT_EQ(run.status, 1);
  EXPECT_THAT(Lines(run.err).back(),
              AllOf(StartsWith("kalvio: b.jb2: internal error"), HasSubstr("\"notebook\"")));
}

TEST_F(Convert, JobThatTheOutputCannotHoldIsTold) {
  folder.Write("job.json", R"({"knownGroups": [{"points": [{"name": "K"}, {"name": "L"}]}]})");
  const Outcome run = Run({"--job", "job.json", "a.jb2", "b.jb2"});
  EXPECT_EQ(run.status, 0);
  EXPECT_THAT(Lines(run.out).back(), Not(HasSubstr("known")));
  EXPECT_THAT(run.err, AllOf(StartsWith("kalvio: b.jb2: "), HasSubstr("2 known points")));
}

TEST_F(Convert, JobFolderIsImportedIntoExportedFromAndSaved) {
  std::filesystem::create_directory(folder.File("job"));
  EXPECT_EQ(Run({"--job", "job", "a.jb2", "one.jb2"}).status, 0);
  const Outcome run = Run({"--no-compute", "--job", "job", "a.jb2", "two.jb2"});
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_THAT(Lines(run.out),
              ElementsAre(HasSubstr("a.jb2: 1 job,"), HasSubstr("two.jb2: 2 jobs,")));
  EXPECT_EQ(ReadBytes(folder.File("two.jb2")), SmallJb2() + SmallJb2());
}

TEST_F(Convert, JsonJobIsNotWritten) {
  const std::string job = R"({"jobs": [{"name": "before"}]})";
  folder.Write("job.json", job);
  EXPECT_EQ(Run({"--job", "job.json", "a.jb2", "b.jb2"}).status, 0);
  EXPECT_EQ(ReadBytes(folder.File("job.json")), job);
  EXPECT_THAT(ReadBytes(folder.File("b.jb2")), AllOf(HasSubstr("before"), HasSubstr("SITE")));
}

TEST_F(Convert, FailedExportLeavesTheJobFolderAsItWas) {
  std::filesystem::create_directory(folder.File("job"));
  EXPECT_EQ(Run({"--job", "job", "a.jb2", "no/such/b.jb2"}).status, 1);
  EXPECT_TRUE(std::filesystem::is_empty(folder.File("job")));
}

TEST_F(Convert, MissingJobFailsWithItsName) {
  ExpectFailure({"--job", "missing.json", "a.jb2", "b.jb2"}, 1, "missing.json", "No such file");
}

TEST_F(Convert, MissingInputFails) {
  ExpectFailure({"missing.jb2", "b.xml"}, 1, "missing.jb2", "No such file or directory");
  EXPECT_FALSE(IsThere("b.xml"));
}

TEST_F(Convert, EmptyInputFails) {
  folder.Write("empty.jb2", "");
  ExpectFailure({"empty.jb2", "b.xml"}, 1, "empty.jb2", "empty");
}

TEST_F(Convert, FolderInPlaceOfAnInputFails) {
  std::filesystem::create_directory(folder.File("folder.jb2"));
  ExpectFailure({"folder.jb2", "b.xml"}, 1, "folder.jb2", "Is a directory");
}

TEST_F(Convert, InputThatCannotBeOpenedFails) {
  Link("loop.jb2", "loop.jb2");
  ExpectFailure({"loop.jb2", "b.xml"}, 1, "loop.jb2", "cannot be opened: ");
}

TEST_F(Convert, InputWithoutARecordFails) {
  folder.Write("rubbish.jb2", std::string("\0\1\2 nothing\nof the kind\n", 24));
  ExpectFailure({"rubbish.jb2", "b.xml"}, 1, "rubbish.jb2", "no JB2 record in it");
  EXPECT_FALSE(IsThere("b.xml"));
}

TEST_F(Convert, FirstInputThatFailsEndsIt) {
  const Outcome run = Run({"a.jb2", "missing.jb2", "a.jb2", "b.xml"});
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(Lines(run.out).size(), 1U);
  EXPECT_FALSE(IsThere("b.xml"));
}

TEST_F(Convert, UnknownExtensionsAreBadUsageThatNamesTheKnown) {
  ExpectFailure({"a.jb2", "b.foo"}, 2, "b.foo", "jb2, jb3, txt, csv, dxf, dwg, shp, xml, dat");
  ExpectFailure({"a", "b.xml"}, 2, "a", "jb2");
  ExpectFailure({"missing.jb2", "a.foo"}, 2, "a.foo", "jb2");
}

TEST_F(Convert, OutputFolderThatIsMissingFails) {
  const Outcome run = Run({"--no-compute", "a.jb2", "no/such/b.xml"});
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.err, "kalvio: no/such/b.xml: cannot be created: No such file or directory\n");
  EXPECT_THAT(Lines(run.out), ElementsAre(StartsWith("read  a.jb2")));
}

TEST_F(Convert, FolderInPlaceOfTheOutputFails) {
  std::filesystem::create_directory(folder.File("b.xml"));
  EXPECT_EQ(Run({"a.jb2", "b.xml"}).err, "kalvio: b.xml: cannot be created: Is a directory\n");
}

TEST_F(Convert, FullDiskFailsInEveryFormat) {
  for (const char* extension : {"jb2", "xml"}) {
    const std::string output = std::string("full.") + extension;
    Link("/dev/full", output);
    const Outcome run = Run({"a.jb2", output});
    EXPECT_EQ(run.status, 1) << output;
    EXPECT_THAT(run.err, AllOf(StartsWith("kalvio: " + output), HasSubstr("No space left")));
    EXPECT_THAT(run.out, Not(HasSubstr("wrote")));
  }
}

TEST_F(Convert, OutputIsWrittenOver) {
  folder.Write("b.jb2", "old");
  EXPECT_EQ(Run({"a.jb2", "b.jb2"}).status, 0);
  EXPECT_EQ(ReadBytes(folder.File("b.jb2")), SmallJb2());
}

TEST_F(Convert, OutputThatIsAnInputIsRefused) {
  Link("a.jb2", "link.jb2");
  for (const std::string& output : {std::string("a.jb2"), std::string("./a.jb2"),
                                    folder.File("a.jb2"), std::string("link.jb2")}) {
    const Outcome run = Run({"a.jb2", output});
    EXPECT_EQ(run.status, 2) << output;
    EXPECT_THAT(run.err, HasSubstr(output));
  }
  EXPECT_EQ(Run({"missing.jb2", "missing.jb2"}).status, 2);
  EXPECT_EQ(ReadBytes(folder.File("a.jb2")), SmallJb2());
}

TEST_F(Convert, NeedsAnInputAndAnOutput) {
  EXPECT_EQ(Run({}).status, 2);
  EXPECT_EQ(Run({"a.jb2"}).status, 2);
  EXPECT_EQ(Run({"--job", "job"}).status, 2);
  EXPECT_EQ(ReadBytes(folder.File("a.jb2")), SmallJb2());
}

TEST_F(Convert, JobStandsForAnInput) {
  folder.Write("job.json", R"({"jobs": [{"name": "before"}]})");
  const Outcome run = Run({"--job", "job.json", "b.jb2"});
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(ReadBytes(folder.File("b.jb2")),
            "L|\x1d"
            "before\x1d\x1d\x1d \x1d\x1d\n");
}

TEST_F(Convert, FullStandardOutputFails) {
  where.output = "/dev/full";
  const Outcome run = Run({"a.jb2", "b.jb2"});
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.err, "kalvio: standard output cannot be written: No space left on device\n");
}

// The first file that is opened must not become standard output.
TEST_F(Convert, ClosedStandardOutputDoesNotReachIntoFiles) {
  where.closedOutput = true;
  EXPECT_EQ(Run({"a.jb2", "b.jb2"}).status, 1);
  EXPECT_EQ(Run({"--quiet", "a.jb2", "c.jb2"}).status, 0);
  EXPECT_EQ(ReadBytes(folder.File("c.jb2")), SmallJb2());
}

TEST_F(Convert, EveryOptionOfItsContractIsTaken) {
  const Outcome run = Run({"--kind",        "ts",
                           "--columns",     "name,-,east,north,elev,time",
                           "--separator",   "tab",
                           "--widths",      "10,12,12",
                           "--header-rows", "2",
                           "--quote-names", "--dwg-version",
                           "r14",           "--dxf-version",
                           "r12",           "--crs",
                           "EPSG:32632",    "--progress",
                           "never",         "a.jb2",
                           "b.jb2"});
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(ReadBytes(folder.File("b.jb2")), SmallJb2());
}

TEST_F(Convert, ValuesThatOptionsCannotHaveAreBadUsage) {
  const std::vector<std::vector<std::string>> wrong = {
      {"--kind", "all"},        {"--columns", "name,height"},
      {"--columns", ""},        {"--columns", "name,name,name,name,name,name,name"},
      {"--separator", ";"},     {"--widths", "10,x"},
      {"--widths", "0"},        {"--widths", "1,2,3,4,5,6,7"},
      {"--header-rows", "-1"},  {"--header-rows", "1.5"},
      {"--dwg-version", "r12"}, {"--dxf-version", "r14"},
      {"--crs", "32632"},       {"--crs", ":1"},
      {"--crs", "EPSG:"},       {"--progress", "maybe"}};
  for (std::vector<std::string> words : wrong) {
    const std::string option = words[0];
    words.insert(words.end(), {"a.jb2", "b.jb2"});
    const Outcome run = Run(words);
    EXPECT_EQ(run.status, 2) << option << " " << words[1];
    EXPECT_THAT(run.err, HasSubstr(option));
  }
  EXPECT_FALSE(IsThere("b.jb2"));
}

TEST_F(Convert, ProgressIsShownWhenAskedForAndCleared) {
  folder.Write("long.jb2", Jb2WithStations(20000));
  const Outcome run = Run({"--progress", "always", "--quiet", "long.jb2", "b.jb2"});
  EXPECT_EQ(run.status, 0);
  EXPECT_THAT(run.err, AllOf(StartsWith("\rlong.jb2: "), HasSubstr(" %"), testing::EndsWith("\r")));
  EXPECT_EQ(run.err.find('\n'), std::string::npos);
  const std::string last = run.err.substr(run.err.rfind('\r', run.err.size() - 2));
  EXPECT_EQ(last.find_first_not_of(" \r"), std::string::npos) << "the line is not cleared";
}

TEST_F(Convert, ProgressIsShownForEveryFormatThatIsWritten) {
  folder.Write("long.jb2", Jb2WithStations(20000));
  for (const char* const output : {"b.jb3", "b.xml", "b.dxf", "b.dwg"}) {
    const Outcome run =
        Run({"--progress", "always", "--quiet", "--no-compute", "long.jb2", output});
    EXPECT_EQ(run.status, 0) << output;
    EXPECT_THAT(run.err, HasSubstr("\r" + std::string(output) + ": ")) << run.err;
  }
}

TEST_F(Convert, ProgressIsNotShownWithoutATerminal) {
  folder.Write("long.jb2", Jb2WithStations(20000));
  EXPECT_EQ(Run({"--quiet", "long.jb2", "b.jb2"}).err, "");
  EXPECT_EQ(Run({"--progress", "never", "--quiet", "long.jb2", "b.jb2"}).err, "");
}

TEST_F(Convert, NumbersDoNotFollowTheLocale) {
  where.variables["LC_NUMERIC"] =
      "it_IT.UTF-8";  // where it is missing, this is the usual run again
  EXPECT_EQ(Run({"a.jb2", "b.jb2"}).status, 0);
  EXPECT_EQ(ReadBytes(folder.File("b.jb2")), SmallJb2());
}

TEST_F(Convert, TheSampleGoesThroughWhole) {
  const Outcome run = Run({KALVIO_SAMPLES "/wall.jb2", "wall.xml"});
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_THAT(Lines(run.out)[0], HasSubstr("1 job, 3 stations, 40 points"));
}

}  // namespace
}  // namespace e2e
