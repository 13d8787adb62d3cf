// Text and CSV files through `kalvio`.
#include "tests/run_kalvio.h"

namespace e2e {
namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;

const std::string kGps = KALVIO_SAMPLES "/gps.jb3";

class Text : public testing::Test {
 protected:
  Text() { folder.Write("p.csv", "P1;500000.123;4900000.456;100.5;MURO\nP2;1;2;3;\"a;b\"\n"); }
  Outcome Run(std::vector<std::string> words) {
    words.insert(words.begin(), "convert");
    return RunKalvio(words, where);
  }
  std::string Written(const std::string& name) { return ReadBytes(folder.File(name)); }

  TemporaryFolder folder;
  Surroundings where{.folder = folder.Path()};
};

TEST_F(Text, CsvIsReadAndWrittenWithTheUsualColumns) {
  const Outcome run = Run({"--quote-names", "p.csv", "o.csv"});
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(Written("o.csv"),
            "\"P1\";500000.123;4900000.456;100.500;\"MURO\";;\n"
            "\"P2\";1.000;2.000;3.000;\"\"a;b\"\";;\n");
}

TEST_F(Text, ColumnsSeparatorAndHeaderRowsAreChosen) {
  folder.Write("q.txt", "head\nA\tx\t2.5\t1.5\n");
  const Outcome run = Run({"--columns", "name,-,north,east", "--separator", "tab", "--header-rows",
                           "1", "q.txt", "o.txt"});
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(Written("o.txt"), "\nA\t\t2.500\t1.500\t\t\t\n");
}

TEST_F(Text, FixedWidthsComeBackAsTheyWere) {
  EXPECT_EQ(Run({"--widths", "10,12,13,12,8", "p.csv", "f.txt"}).status, 0);
  EXPECT_EQ(Run({"--widths", "10,12,13,12,8", "f.txt", "back.csv"}).status, 0);
  EXPECT_EQ(Run({"p.csv", "o.csv"}).status, 0);
  EXPECT_EQ(Written("back.csv"), Written("o.csv"));
}

TEST_F(Text, WidthsThatCannotBeAreRefusedInTheModulesWords) {
  const Outcome run = Run({"--widths", "10,8", "p.csv", "f.txt"});
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.err, "kalvio: f.txt: Numeric data must be at least 12 long!\n");
}

TEST_F(Text, EveryKindIsWritten) {
  const auto written = [&](const char* kind, const char* output) {
    const Outcome run = Run({"--quiet", "--kind", kind, "--crs", "EPSG:32632", kGps, output});
    EXPECT_EQ(run.status, 0) << run.err;
    return Written(output);
  };
  EXPECT_EQ(written("known", "k.csv"), "K7;652512.010;4945655.870;111.020;;;\n");
  EXPECT_EQ(written("control", "c.csv"), "C1;652480.340;4945600.120;112.400;chiodo;;\n");
  EXPECT_THAT(written("gps", "g.csv"), StartsWith("201;652734.826;4945599.116;111.873;STRADA;;\n"));
  EXPECT_THAT(written("gps", "g.txt"), StartsWith("201,652734.826,4945599.116,111.873,STRADA\n"));
  EXPECT_THAT(written("ts", "t.csv"), StartsWith("101;"));
  EXPECT_THAT(written("ts", "t.txt"), StartsWith("101,"));
}

TEST_F(Text, FirstKindWithPointsIsWritten) {
  EXPECT_THAT(Run({"--crs", "EPSG:32632", kGps, "o.csv"}).out, HasSubstr("2 points"));
  EXPECT_THAT(Run({"p.csv", "o.csv"}).out, HasSubstr("2 known points"));
}

TEST_F(Text, KindsAreRead) {
  EXPECT_THAT(Run({"--kind", "control", "p.csv", "o.csv"}).out, HasSubstr("2 control points"));
  const Outcome run = Run({"--kind", "ts", "p.csv", "o.csv"});
  EXPECT_EQ(run.status, 1);
  EXPECT_THAT(run.err, HasSubstr("No station created on which to import the data."));
}

TEST_F(Text, TotalStationPointsGoToTheCurrentStationOfAJob) {
  folder.Write("j.json", R"({"jobs": [{"name": "J", "stations": [{"name": "S", "x": 0, "y": 0,
      "z": 0}]}], "current": {"station": [0, 0]}})");
  folder.Write("t.csv", "P;0;10;0;x\n");
  const Outcome run = Run({"--job", "j.json", "--kind", "ts", "t.csv", "o.jb2"});
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_THAT(Written("o.jb2"), HasSubstr("100.0000\x1d"
                                          "10.000"));
}

TEST_F(Text, GpsPointsGoToTheCurrentGroupThroughTheReferenceSystem) {
  folder.Write("j.json", R"({"gpsGroups": [{"groupName": "G"}], "current": {"gpsGroup": 0}})");
  folder.Write("t.csv", "P;652734.826;4945599.116;111.873;x\n");
  const Outcome run =
      Run({"--job", "j.json", "--kind", "gps", "--crs", "EPSG:32632", "t.csv", "o.xml"});
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_THAT(Written("o.xml"), HasSubstr("wgsLatitude=\"44.647512"));
}

TEST_F(Text, FoldedCharactersAreTold) {
  folder.Write("f.csv", "Citt\xC3\xA0;1;2;3\n");
  const Outcome run = Run({"f.csv", "o.csv"});
  EXPECT_EQ(run.status, 0);
  EXPECT_THAT(Lines(run.err),
              ElementsAre("kalvio: f.csv: Some invalid characters were removed or replaced .",
                          "kalvio: f.csv: accented letters that became plain ones: 1; the first "
                          "is on line 1"));
  EXPECT_THAT(Written("o.csv"), StartsWith("Citta;"));
}

TEST_F(Text, NumberThatIsNoneIsToldWithItsLineAndColumn) {
  folder.Write("f.csv", "P;1;2;3\nQ;1;north;3\n");
  EXPECT_THAT(Run({"f.csv", "o.csv"}).err,
              AllOf(StartsWith("kalvio: f.csv: "), HasSubstr("column 3 of line 2: \"north\"")));
}

TEST_F(Text, FileWithoutAnyPointFails) {
  folder.Write("f.csv", "name;east\n");
  const Outcome run = Run({"--header-rows", "1", "f.csv", "o.csv"});
  EXPECT_EQ(run.status, 1);
  EXPECT_THAT(run.err, HasSubstr("nothing was imported"));
}

TEST_F(Text, JobWithoutPointsIsNotWritten) {
  folder.Write("j.json", "{}");
  const Outcome run = Run({"--job", "j.json", "o.csv"});
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.err, "kalvio: o.csv: the job holds no points\n");
}

TEST_F(Text, OlderFileIsWrittenOver) {
  folder.Write("o.csv", "old");
  EXPECT_EQ(Run({"p.csv", "o.csv"}).status, 0);
  EXPECT_THAT(Written("o.csv"), StartsWith("P1;"));
}

TEST_F(Text, OutputThatCannotBeWrittenFailsWithTheReason) {
  const Outcome run = Run({"p.csv", "no/such/o.csv"});
  EXPECT_EQ(run.status, 1);
  EXPECT_THAT(run.err, AllOf(StartsWith("kalvio: no/such/o.csv: "), HasSubstr("No such file")));
}

TEST_F(Text, HugeLinesAndColumnsAreNoDanger) {
  folder.Write("f.csv", "P" + std::string(3'000'000, ';') + "\n" + std::string(3'000'000, 'x'));
  EXPECT_LT(Run({"f.csv", "o.csv"}).status, 2);
}

TEST_F(Text, ShowPreviewsTheFirstPoints) {
  std::string lines;
  for (int i = 0; i < 12; ++i) lines += "P" + std::to_string(i) + ";1;2;3;c\n";
  folder.Write("f.csv", lines);
  const Outcome run = RunKalvio({"show", "f.csv"}, where);
  EXPECT_EQ(run.status, 0);
  const auto rows = Lines(run.out);
  ASSERT_GT(rows.size(), 12U);
  EXPECT_EQ(rows[0], "Points as they are read");
  EXPECT_EQ(rows[1], "name  east   north  elev   descr");
  EXPECT_EQ(rows[2], "P0    1.000  2.000  3.000  c");
  EXPECT_EQ(rows[12], "and 2 more");
}

TEST_F(Text, CallDrivesTheDialogs) {
  folder.Write("j.json", R"({"knownGroups": [{"labels": ["G","","",""],
      "points": [{"name": "K", "x": 1, "y": 2, "z": 3}]}]})");
  folder.Write("a.json", R"([{"dialog": "text-main", "set": {"file": "out"}, "press": "OK"},
      {"dialog": "delimited-fields", "set": {"fields": [0,2,1,3,4,7]}, "press": "OK"}])");
  const Outcome run =
      RunKalvio({"call", "FExportCSVFile", "--job", "j.json", "--answers", "a.json"}, where);
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(LastEvent(run.out), R"({"event":"returned","value":1})");
  EXPECT_EQ(Written("out.csv"), "K;1.000;2.000;3.000;;;\n");
}

}  // namespace
}  // namespace e2e
