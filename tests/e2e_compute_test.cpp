// kalvio compute, and what kalvio convert does of it.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "run_kalvio.h"
#include "tests/support/survey_files.h"
#include "tests/support/temporary_folder.h"

using testing::AllOf;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

namespace e2e {
namespace {

// Station 100 at (500, 500, 50) with K to the north; a point 10 m to the east, one without
// distance.
std::string Observations() {
  return Jb2Text(
      "L|¦SITE¦Conti¦TS¦ ¦05-03-2026¦\n"
      "S|¦100¦first¦1.500¦18.5¦1013¦ ¦ ¦ ¦ ¦\n"
      "P|¦K¦REF¦1.500¦10.0000¦100.0000¦100.000¦\n"
      "P|¦1¦MURO¦1.500¦110.0000¦100.0000¦10.000¦\n"
      "P|¦2¦CAMP¦1.500¦210.0000¦100.0000¦0.000¦\n");
}

class Compute : public testing::Test {
 protected:
  Compute() {
    folder.Write("field.jb2", Observations());
    folder.Write("known.csv", "100;500;500;50;STN\nK;500;600;50;REF\n");
  }
  Outcome Run(std::vector<std::string> words) {
    words.insert(words.begin(), "compute");
    return RunKalvio(words, where);
  }
  Outcome Convert(std::vector<std::string> words) {
    words.insert(words.begin(), "convert");
    return RunKalvio(words, where);
  }
  std::string Bytes(const std::string& name) { return ReadBytes(folder.File(name)); }

  TemporaryFolder folder;
  Surroundings where{.folder = folder.Path()};
};

TEST_F(Compute, ReportsStationsResidualsAndWhatHasNoCoordinates) {
  const Outcome run = Run({"field.jb2", "known.csv"});
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(run.err, "");
  EXPECT_THAT(run.out, HasSubstr("Job SITE\n"));
  EXPECT_THAT(run.out,
              testing::ContainsRegex("100 +known point +500.000 +500.000 +50.000 +390.0000"));
  EXPECT_THAT(run.out, testing::ContainsRegex("100 +K +0.0000 +0.0 +0.0 +0.0\n"));
  EXPECT_THAT(run.out, HasSubstr("station 100, no distance: 2\n"));
  EXPECT_THAT(run.out, HasSubstr("worked out the coordinates of 1 station, 2 points\n"));
}

TEST_F(Compute, JsonReportHoldsTheSame) {
  const Outcome run = Run({"field.jb2", "known.csv", "--json"});
  const auto report = nlohmann::json::parse(run.out);
  const auto& station = report["jobs"][0]["stations"][0];
  EXPECT_EQ(station["method"], "known");
  EXPECT_EQ(station["trouble"], nullptr);
  EXPECT_NEAR(station["orientation"].get<double>(), 390, 1e-9);
  EXPECT_EQ(station["residuals"][0]["target"], "K");
  EXPECT_EQ(station["residuals"][0]["used"], true);
  EXPECT_EQ(report["jobs"][0]["missing"][0]["name"], "2");
  EXPECT_EQ(report["jobs"][0]["missing"][0]["reason"], "no-distance");
}

TEST_F(Compute, ReportFileIsTextOrJsonByItsName) {
  EXPECT_EQ(Run({"field.jb2", "known.csv", "--report", "r.txt"}).status, 0);
  EXPECT_THAT(Bytes("r.txt"), StartsWith("Job SITE\n"));
  const Outcome run = Run({"field.jb2", "known.csv", "--report", "r.json"});
  EXPECT_THAT(run.out, StartsWith("Job SITE\n"));
  EXPECT_EQ(nlohmann::json::parse(Bytes("r.json"))["jobs"][0]["name"], "SITE");
}

TEST_F(Compute, ReportThatCannotBeWrittenFails) {
  const Outcome run = Run({"field.jb2", "--report", "no/such/r.txt"});
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.err, "kalvio: no/such/r.txt: cannot be created: No such file or directory\n");
}

TEST_F(Compute, ReportInPlaceOfAnInputIsRefused) {
  const Outcome run = Run({"field.jb2", "--report", "./field.jb2"});
  EXPECT_EQ(run.status, 2);
  EXPECT_EQ(run.err, "kalvio: ./field.jb2: it is an input and the output\n");
  EXPECT_EQ(Bytes("field.jb2"), Observations());
}

TEST_F(Compute, SaysThatThereIsNothingToWorkOut) {
  EXPECT_EQ(Run({"known.csv"}).out,
            "There is nothing to work out: no total-station job and no GPS group.\n");
}

TEST_F(Compute, JobFolderKeepsTheCoordinates) {
  Convert({"--no-compute", "--job", "job", "field.jb2", "out.jb2"});
  std::filesystem::create_directory(folder.File("job"));
  Convert({"--no-compute", "--job", "job", "field.jb2", "out.jb2"});
  EXPECT_EQ(Run({"job", "known.csv"}).status, 0);
  const auto job = nlohmann::json::parse(RunKalvio({"show", "job", "--json"}, where).out);
  const auto& station = job["jobs"][0]["stations"][0];
  EXPECT_EQ(station["x"], 500);
  EXPECT_NEAR(station["points"][1]["x"].get<double>(), 510, 1e-9);
  EXPECT_THAT(Run({"job"}).out, HasSubstr("as it was"));
}

TEST_F(Compute, JsonJobIsWrittenOnlyWhereSaveSays) {
  Convert({"--no-compute", "field.jb2", "out.jb2"});
  folder.Write("j.json", R"({"jobs": [{"name": "J", "stations": [{"name": "S", "points": [
      {"name": "P", "slopeDistance": 10, "zenith": 100, "horizontal": 0}]}]}]})");
  const std::string before = Bytes("j.json");
  EXPECT_EQ(Run({"j.json"}).status, 0);
  EXPECT_EQ(Bytes("j.json"), before);
  EXPECT_EQ(Run({"j.json", "--save", "k.json"}).status, 0);
  const auto saved = nlohmann::json::parse(Bytes("k.json"));
  EXPECT_NEAR(saved["jobs"][0]["stations"][0]["points"][0]["y"].get<double>(), 10, 1e-9);
}

TEST_F(Compute, AgainTakesKnownPointsThatCameLater) {
  std::filesystem::create_directory(folder.File("job"));
  Convert({"--job", "job", "field.jb2", "out.jb2"});
  EXPECT_THAT(Run({"job", "known.csv"}).out, HasSubstr("as it was"));
  EXPECT_THAT(Run({"job", "--again"}).out, HasSubstr("known point"));
}

TEST_F(Compute, BlundersAreNamedWithStationTargetAndFigure) {
  folder.Write("known.csv", "100;500;500;50;STN\nK;500;600.2;50.1;REF\n");
  const std::string report = Run({"field.jb2", "known.csv"}).out;
  EXPECT_THAT(report, HasSubstr("station 100: the distance to K is -200 mm off\n"));
  EXPECT_THAT(report, HasSubstr("station 100: the height of K is -100 mm off\n"));
  EXPECT_THAT(Convert({"field.jb2", "known.csv", "out.jb3"}).err,
              HasSubstr("kalvio: coordinates: station 100: the distance to K is -200 mm off\n"));
}

TEST_F(Compute, RefractionMustBeANumber) {
  const Outcome run = Run({"field.jb2", "--refraction", "much"});
  EXPECT_EQ(run.status, 2);
  EXPECT_THAT(run.err, HasSubstr("--refraction"));
}

TEST_F(Compute, RefractionAndPrismConstantChangeTheCoordinates) {
  folder.Write("j.json", R"({"jobs": [{"name": "J", "stations": [{"name": "S", "points": [
      {"name": "P", "slopeDistance": 1000, "zenith": 100, "horizontal": 0,
       "prismOffset": 0.5}]}]}]})");
  EXPECT_EQ(
      Run({"j.json", "--refraction", "0.13", "--add-prism-constant", "--save", "k.json"}).status,
      0);
  const auto saved = nlohmann::json::parse(Bytes("k.json"));
  const auto& point = saved["jobs"][0]["stations"][0]["points"][0];
  EXPECT_NEAR(point["y"].get<double>(), 1000.5, 1e-9);
  EXPECT_NEAR(point["z"].get<double>(), 0.0683, 0.0001);
}

TEST_F(Compute, MissingFileFails) {
  const Outcome run = Run({"nowhere"});
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.err, "kalvio: nowhere: there is no such job or file\n");
}

TEST_F(Compute, HelpShowsExamples) {
  EXPECT_THAT(RunKalvio({"compute", "--help"}, where).out,
              AllOf(HasSubstr("--report FILE"), HasSubstr("kalvio compute rilievo.jb2 known.csv")));
}

TEST_F(Compute, ConvertComputesAfterImporting) {
  const Outcome run = Convert({"field.jb2", "known.csv", "plan.csv"});
  EXPECT_EQ(run.status, 0);
  EXPECT_THAT(run.out, HasSubstr("worked out the coordinates of 1 station, 2 points\n"
                                 "1 point has no coordinates\n"));
  EXPECT_THAT(Bytes("plan.csv"), HasSubstr("1;510.000;500.000;50.000;MURO;;\n"));
}

TEST_F(Compute, ConvertSaysThatNothingIsKnown) {
  EXPECT_THAT(Convert({"field.jb2", "plan.csv"}).out,
              HasSubstr("nothing is known of job SITE: station 100 stands at (0, 0, 0) with "
                        "orientation 0\n"));
}

TEST_F(Compute, ConvertLeavesPointsAsTheyAreWhenTold) {
  const Outcome run = Convert({"--no-compute", "field.jb2", "known.csv", "out.jb3"});
  EXPECT_THAT(run.out, Not(HasSubstr("worked out")));
  EXPECT_THAT(Bytes("out.jb3"), Not(HasSubstr("510.000")));
}

TEST_F(Compute, ConvertKeepsTheCoordinatesOfAJb3File) {
  Convert({"field.jb2", "known.csv", "one.jb3"});
  EXPECT_THAT(Convert({"one.jb3", "two.jb3"}).out, Not(HasSubstr("worked out")));
  EXPECT_EQ(Bytes("two.jb3"), Bytes("one.jb3"));
}

TEST_F(Compute, CallNeverComputes) {
  folder.Write("import.json", R"([{"dialog": "file", "set": {"path": ")" +
                                  folder.File("field.jb2") + R"("}, "press": "OK"}])");
  RunKalvio({"call", "FImportJB2File", "--answers", "import.json", "--save", "j.json"}, where);
  const auto saved = nlohmann::json::parse(Bytes("j.json"));
  EXPECT_FALSE(saved["jobs"][0]["stations"][0].contains("x") &&
               !saved["jobs"][0]["stations"][0]["x"].is_null());
}

TEST_F(Compute, GpsPointsWithoutPlaneCoordinatesAreListedWithTheReason) {
  folder.Write("j.json", R"({"gpsGroups": [{"groupName": "G", "points": [
      {"name": "A", "lat": 0.78, "long": 0.19, "elev": 100}, {"name": "B", "x": 1, "y": 2, "z": 3}]}]})");
  const std::string report = Run({"j.json"}).out;
  EXPECT_THAT(report, HasSubstr("GPS group G: 1 of 2 points have plane coordinates\n"));
  EXPECT_THAT(report, HasSubstr("1 point, its group has no reference system (--crs): A\n"));
  EXPECT_THAT(Run({"j.json", "--crs", "EPSG:32632"}).out,
              HasSubstr("GPS group G: 2 of 2 points have plane coordinates\n"));
}

}  // namespace
}  // namespace e2e
