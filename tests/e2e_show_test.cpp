// `kalvio show`, `kalvio formats` and `kalvio plot`.
#include "tests/run_kalvio.h"

namespace e2e {
namespace {

using nlohmann::json;
using testing::AllOf;
using testing::Contains;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

class Show : public testing::Test {
 protected:
  Outcome Run(std::vector<std::string> words) {
    words.insert(words.begin(), "show");
    return RunKalvio(words, where);
  }

  TemporaryFolder folder;
  Surroundings where{.folder = folder.Path()};
};

TEST_F(Show, FileIsShownAsAlignedTables) {
  folder.Write("a.jb2", SmallJb2() + PointWithoutDistance());
  const Outcome run = Run({"a.jb2"});
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.err, "");
  EXPECT_EQ(run.out,
            "Job SITE: surveyor Rossi, instrument TS 5, date 01-02-2026\n"
            "  station  identification  instrument height  points\n"
            "  S1       nail                        1.500       2\n"
            "  S2       peg                         1.600       2\n"
            "In all: 1 job, 2 stations, 4 points\n"
            "Extents in metres, stations included\n"
            "  coordinate     from  to  undefined\n"
            "  x (east)          –   –          6\n"
            "  y (north)         –   –          6\n"
            "  z (elevation)     –   –          6\n"
            "1 point without distance\n");
}

TEST_F(Show, GroupsControlPointsAndExtentsAreShown) {
  folder.Write("job.json", R"({
    "gpsGroups": [{"groupName": "Base A", "name": "B1", "date": "01-02-2026",
                   "points": [{"name": "G1", "x": -5.25, "y": 7}, {"name": "G2"}]}],
    "knownGroups": [{"labels": ["Corners", "", "", ""], "points": [{"name": "K", "x": 1000, "y": 2000, "z": 30}]}],
    "controlPoints": [{"name": "C", "z": -1.5}]})");
  const Outcome run = Run({"job.json"});
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(run.out,
            "GPS groups\n"
            "  group   base  date        points\n"
            "  Base A  B1    01-02-2026       2\n"
            "Known points\n"
            "  group    points\n"
            "  Corners       1\n"
            "In all: 1 GPS group, 2 GPS points, 1 group of known points, 1 known point, "
            "1 control point\n"
            "Extents in metres, stations included\n"
            "  coordinate       from        to  undefined\n"
            "  x (east)       -5.250  1000.000          3\n"
            "  y (north)       7.000  2000.000          3\n"
            "  z (elevation)  -1.500    30.000          3\n");
}

TEST_F(Show, LongListsAreCutUnlessAllIsWanted) {
  folder.Write("long.jb2", Jb2WithStations(30));
  const std::string cut = Run({"long.jb2"}).out;
  EXPECT_THAT(Lines(cut), Contains("  … and 10 more stations (--all shows them)"));
  EXPECT_THAT(cut, AllOf(HasSubstr("S20 "), Not(HasSubstr("S21 "))));
  const std::string all = Run({"long.jb2", "--all"}).out;
  EXPECT_THAT(all, AllOf(HasSubstr("S30 "), Not(HasSubstr("…"))));
}

TEST_F(Show, OneMoreIsSingular) {
  folder.Write("long.jb2", Jb2WithStations(21));
  EXPECT_THAT(Lines(Run({"long.jb2"}).out), Contains("  … and 1 more station (--all shows it)"));
}

TEST_F(Show, ColumnsAreAlignedByWhatIsSeen) {
  folder.Write("job.json", R"({"jobs": [{"name": "J", "stations": [
      {"name": "però", "iden": "x"}, {"name": "東京", "iden": "x"}, {"name": "abcd", "iden": "x"}]}]})");
  const std::string shown = Run({"job.json"}).out;
  EXPECT_THAT(shown, HasSubstr("  però     x "));
  EXPECT_THAT(shown, HasSubstr("  東京     x "));
  EXPECT_THAT(shown, HasSubstr("  abcd     x "));
}

TEST_F(Show, ControlCharactersCannotSteerTheTerminal) {
  folder.Write("a.jb2", Jb2Line('L', {"A\x1b[2JB", "C\tD", "", " ", ""}));
  const std::string shown = Run({"a.jb2"}).out;
  EXPECT_THAT(shown, AllOf(HasSubstr("A [2JB"), HasSubstr("C D"), Not(HasSubstr("\x1b"))));
}

TEST_F(Show, JsonIsTheJobAndReadsBack) {
  folder.Write("a.jb2", SmallJb2());
  const Outcome run = Run({"a.jb2", "--json"});
  EXPECT_EQ(run.status, 0);
  const json job = json::parse(run.out);
  EXPECT_EQ(job["jobs"][0]["stations"][1]["points"][0]["slopeDistance"], 23.456);
  folder.Write("job.json", run.out);
  EXPECT_EQ(Run({"job.json", "--json"}).out, run.out);
}

TEST_F(Show, FolderIsAJob) {
  std::filesystem::create_directory(folder.File("job.jb2"));
  folder.Write("a.jb2", SmallJb2());
  folder.Write("answers.json", ChoosePaths({folder.File("a.jb2")}));
  ASSERT_EQ(
      RunKalvio({"call", "FImportJB2File", "--job", "job.jb2", "--answers", "answers.json"}, where)
          .status,
      0);
  const std::string before = ReadBytes(folder.File("job.jb2/job.kalvio"));
  EXPECT_THAT(Run({"job.jb2"}).out, HasSubstr(std::string(kSmallInWords)));
  EXPECT_EQ(ReadBytes(folder.File("job.jb2/job.kalvio")), before);
}

TEST_F(Show, EmptyJobHoldsNothing) {
  EXPECT_EQ(Run({"."}).out, "In all: nothing\n");
  folder.Write("job.json", "{}");
  EXPECT_EQ(Run({"job.json"}).out, "In all: nothing\n");
}

TEST_F(Show, WhatIsNotThereFailsWithItsName) {
  for (const char* name : {"missing", "missing.jb2", "missing.json", "missing.foo"}) {
    const Outcome run = Run({name});
    EXPECT_EQ(run.status, 1) << name;
    EXPECT_EQ(run.out, "") << name;
    EXPECT_THAT(run.err, StartsWith(std::string("kalvio: ") + name + ": ")) << name;
    EXPECT_EQ(Lines(run.err).size(), 1U) << run.err;
  }
}

TEST_F(Show, FilesThatAreNoJobFail) {
  folder.Write("a.foo", "x");
  folder.Write("a.xml", "<x/>");
  folder.Write("a.jb2", "x\n");
  folder.Write("a.json", "[");
  EXPECT_EQ(Run({"a.foo"}).status, 2);
  EXPECT_EQ(Run({"a.xml"}).status, 1);
  EXPECT_EQ(Run({"a.jb2"}).status, 1);
  EXPECT_EQ(Run({"a.json"}).status, 1);
}

TEST_F(Show, UnknownKeyOfAJobIsBadUsage) {
  folder.Write("job.json", R"({"colour": 1})");
  EXPECT_EQ(Run({"job.json"}).status, 2);
}

TEST_F(Show, TakesOneJob) {
  EXPECT_EQ(Run({}).status, 2);
  EXPECT_EQ(Run({".", "."}).status, 2);
}

TEST_F(Show, FullStandardOutputFails) {
  folder.Write("long.jb2", Jb2WithStations(5000));
  where.output = "/dev/full";
  for (const auto& words :
       {std::vector<std::string>{"long.jb2"}, std::vector<std::string>{"long.jb2", "--json"}}) {
    const Outcome run = Run(words);
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.err, "kalvio: standard output cannot be written: No space left on device\n");
  }
}

TEST_F(Show, SpeaksItalian) {
  folder.Write("a.jb2", SmallJb2());
  const std::string shown = Run({"a.jb2", "--lang", "it"}).out;
  EXPECT_THAT(shown, HasSubstr("1 lavoro, 2 stazioni, 3 punti"));
  EXPECT_THAT(shown, Not(HasSubstr("station ")));
}

TEST(Formats, TableTellsWhatCanBeDone) {
  const Outcome run = RunKalvio({"formats"});
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.err, "");
  EXPECT_EQ(run.out,
            "format   extension  import  export\n"
            "JB2      jb2        yes     yes\n"
            "JB3      jb3        yes     yes\n"
            "TXT      txt        yes     yes\n"
            "CSV      csv        yes     yes\n"
            "DXF      dxf        yes     yes\n"
            "DWG      dwg        yes     yes\n"
            "Shape    shp        yes     yes\n"
            "LandXML  xml        yes     yes\n"
            "DAT      dat        –       yes\n");
}

TEST(Formats, TakesNoWords) { EXPECT_EQ(RunKalvio({"formats", "all"}).status, 2); }

}  // namespace
}  // namespace e2e
