// JB3 files and GPS positions through `kalvio`.
#include "tests/run_kalvio.h"

namespace e2e {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

const std::string kSample = KALVIO_SAMPLES "/gps.jb3";

class Jb3 : public testing::Test {
 protected:
  Outcome Run(const std::vector<std::string>& words) { return RunKalvio(words, where); }
  std::string Written(const std::string& name) { return ReadBytes(folder.File(name)); }

  TemporaryFolder folder;
  Surroundings where{.folder = folder.Path()};
};

TEST_F(Jb3, ConvertedToJb3IsTheSameTheSecondTime) {
  EXPECT_EQ(Run({"convert", kSample, "one.jb3"}).status, 0);
  EXPECT_EQ(Run({"convert", "one.jb3", "two.jb3"}).status, 0);
  EXPECT_EQ(Written("one.jb3"), Written("two.jb3"));
  EXPECT_THAT(Written("one.jb3"), AllOf(HasSubstr("<GpsPnt name=\"203\""),
                                        HasSubstr("<KnownPoint name=\"C1\" desc=\"chiodo\" "
                                                  "type=\"ctrl\">")));
}

TEST_F(Jb3, CarriesAJb2Job) {
  folder.Write("a.jb2", SmallJb2());
  EXPECT_EQ(Run({"convert", "a.jb2", "b.jb3"}).status, 0);
  EXPECT_EQ(Run({"convert", "b.jb3", "c.xml"}).status, 0);
  EXPECT_THAT(Written("b.jb3"), HasSubstr("<Job name=\"SITE\" operator=\"Rossi\""));
  EXPECT_THAT(Written("c.xml"), HasSubstr("<SurveyHeader name=\"SITE\""));
}

TEST_F(Jb3, SummaryCountsEveryKind) {
  const Outcome run = Run({"convert", kSample, "b.jb3"});
  EXPECT_THAT(Lines(run.out)[0],
              HasSubstr("1 job, 1 station, 2 points, 1 GPS group, 3 GPS points, 1 group of known "
                        "points, 1 known point, 1 control point"));
}

TEST_F(Jb3, NamesTheProgramInTheFile) {
  Run({"convert", kSample, "b.jb3"});
  EXPECT_THAT(Written("b.jb3"), HasSubstr("<Application name=\"kalvio\" version=\""));
}

TEST_F(Jb3, CallHandsOverNameAndVersion) {
  folder.Write("j.json", R"({"jobs": [{"name": "J"}]})");
  folder.Write("answers.json", ChoosePaths({folder.File("out.jb3")}));
  const Outcome run = Run({"call", "FExportJB3File", "--job", "j.json", "--answers", "answers.json",
                           "--option", "app-name=Field", "--option", "app-version=7"});
  EXPECT_EQ(LastEvent(run.out), R"({"event":"returned","value":1})");
  EXPECT_THAT(Written("out.jb3"), HasSubstr("<Application name=\"Field\" version=\"7\" "));
}

TEST_F(Jb3, FileOfAnotherKindFailsWithThatReason) {
  const std::string file = folder.Write("a.jb3", "<?xml version=\"1.0\"?><html/>");
  const Outcome run = Run({"convert", "a.jb3", "b.xml"});
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.err, "kalvio: a.jb3: this is no JB3 document\n");
}

TEST_F(Jb3, DamageIsToldWithItsLineAndWhatCameBeforeIsRead) {
  const std::string whole = ReadBytes(kSample);
  folder.Write("a.jb3", whole.substr(0, whole.find("<GpsPnt name=\"203\"")) + "<GpsPnt name=");
  const Outcome run = Run({"convert", "a.jb3", "b.jb3"});
  EXPECT_EQ(run.status, 0);
  EXPECT_THAT(run.err, StartsWith("kalvio: a.jb3: line "));
  EXPECT_THAT(run.out, HasSubstr("3 GPS points"));
}

TEST_F(Jb3, MillionNestedElementsAreNoDanger) {
  std::string text = "<?xml version=\"1.0\"?><JB3><Job><Station name=\"S\"/>";
  for (int i = 0; i < 1'000'000; ++i) text += "<Job>";
  folder.Write("a.jb3", text);
  const Outcome run = Run({"convert", "a.jb3", "b.jb3"});
  EXPECT_LT(run.status, 2) << run.err;
  EXPECT_THAT(run.err, HasSubstr("nested too deeply"));
}

TEST_F(Jb3, GpsGroupsGoToLandXmlWithTheirPositions) {
  const Outcome run = Run({"convert", kSample, "g.xml"});
  EXPECT_EQ(run.status, 0);
  EXPECT_THAT(Written("g.xml"),
              HasSubstr("<GPSPosition setupID=\"BASE\" wgsHeight=\"111.872990\" "
                        "wgsLatitude=\"44.647512005\" wgsLongitude=\"10.926105003\">"));
}

TEST_F(Jb3, ReferenceSystemGivesGpsPointsPlaneCoordinates) {
  const Outcome run = Run({"convert", "--crs", "EPSG:32632", kSample, "g.xml"});
  EXPECT_EQ(run.status, 0);
  EXPECT_THAT(run.out, HasSubstr("worked out the plane coordinates of 4 GPS points"));
  EXPECT_THAT(Written("g.xml"),
              HasSubstr("<TargetPoint name=\"201\" desc=\"STRADA\">4945599.115555 652734.826437 "
                        "111.872990</TargetPoint>"));
}

TEST_F(Jb3, ReferenceSystemGivesPlanePointsLatitudeAndLongitude) {
  folder.Write("j.json", R"({"gpsGroups": [{"groupName": "G", "points":
      [{"name": "1", "x": 652734.826437, "y": 4945599.115555, "z": 111.87299}]}]})");
  const Outcome run = Run({"convert", "--job", "j.json", "--crs", "EPSG:32632", "g.xml"});
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_THAT(run.out, HasSubstr("latitude and longitude of 1 GPS points"));
  EXPECT_THAT(Written("g.xml"),
              HasSubstr("wgsLatitude=\"44.647512005\" wgsLongitude=\"10.926105003\""));
}

TEST_F(Jb3, ReferenceSystemThatIsUnknownFailsBeforeAnythingIsRead) {
  for (const char* crs : {"EPSG:999999", "EPSG:4326", "NO:SUCH"}) {
    const Outcome run = Run({"convert", "--crs", crs, kSample, "g.xml"});
    EXPECT_EQ(run.status, 1) << crs;
    EXPECT_THAT(run.err, AllOf(HasSubstr(crs), HasSubstr("no reference system"))) << crs;
    EXPECT_EQ(run.out, "");
  }
}

TEST_F(Jb3, GroupsKeepTheirReferenceSystemInAJobFolder) {
  std::filesystem::create_directory(folder.File("job"));
  EXPECT_EQ(Run({"convert", "--job", "job", "--crs", "EPSG:32632", kSample, "a.jb3"}).status, 0);
  EXPECT_THAT(Run({"show", "job", "--json"}).out, HasSubstr("EPSG:32632"));
  EXPECT_THAT(Run({"convert", "--job", "job", "b.jb3"}).err, Not(HasSubstr("kalvio")));
  EXPECT_EQ(Written("a.jb3"), Written("b.jb3"));
}

}  // namespace
}  // namespace e2e
