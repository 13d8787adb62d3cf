// Cadastral data on the command line, and the DAT files that come of them.
#include <filesystem>

#include "tests/run_kalvio.h"

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

namespace e2e {
namespace {

constexpr const char* kExample = KALVIO_TEST_DATA "/cadastral/libretto.json";
constexpr const char* kExampleDat = KALVIO_TEST_DATA "/cadastral/libretto.dat";

class DatFiles : public testing::Test {
 protected:
  Outcome Run(const std::vector<std::string>& words) { return RunKalvio(words, where); }
  Outcome Call(const std::string& answers, std::vector<std::string> words = {}) {
    words.insert(words.begin(), {"call", "FExportDATFile"});
    words.insert(words.end(), {"--answers", folder.Write("answers.json", answers)});
    return Run(words);
  }
  std::string Bytes(const std::string& name) { return ReadBytes(folder.File(name)); }
  bool IsThere(const std::string& name) { return std::filesystem::exists(folder.File(name)); }
  // A job of the test's own folder with everything that a DAT file needs.
  void MakeJob() {
    std::filesystem::create_directory(folder.File("job"));
    const Outcome run = Run({"cadastral", "job",
                             "--set",     "year=2025",
                             "--set",     "protocol=12",
                             "--set",     "date=20112025",
                             "--set",     "municipality=H223",
                             "--set",     "sheet=17",
                             "--set",     "parcels=64, 65",
                             "--set",     "technician=Rossi Mario",
                             "--set",     "qualification=geometra",
                             "--set",     "province=Modena",
                             "--set",     "version=10.00-G",
                             "--set",     "actType=FR"});
    ASSERT_EQ(run.status, 0) << run.err;
  }

  TemporaryFolder folder;
  Surroundings where{.folder = folder.Path()};
};

// ---- kalvio convert ----

TEST_F(DatFiles, ConvertWritesTheExampleByteForByte) {
  const Outcome run = Run({"convert", "--job", kExample, "a.dat"});
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(Bytes("a.dat"), ReadBytes(kExampleDat));
  EXPECT_THAT(run.err, HasSubstr("a.dat: named but not surveyed: 103, PF01/0170/H223"));
  EXPECT_THAT(run.out, HasSubstr("a.dat: 1 job, 1 station, 2 points, 1 GPS group, 1 GPS point"));
}

TEST_F(DatFiles, ConvertTakesTheCadastralDataFromTheJobAndTheSurveyFromFiles) {
  MakeJob();
  folder.Write("rilievo.jb2", SmallJb2());
  folder.Write("known.csv", "K1;10;20;5;MARK\n");
  const Outcome run = Run({"convert", "--job", "job", "rilievo.jb2", "known.csv", "libretto.dat"});
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_THAT(Bytes("libretto.dat"),
              AllOf(StartsWith("0|20112025|12|H223|0170|64,65|ROSSI MARIO|GEOMETRA|MODENA|\r\n"
                               "9|0|10|20|0|10.00-G|FR||\r\n1|S1|"),
                    HasSubstr("\r\n1|S2|")));
  EXPECT_THAT(run.err,
              HasSubstr("left out, for such a file cannot hold it: 1 group of known points"));
}

TEST_F(DatFiles, ConvertNamesWhatIsMissingAndLeavesTheOldFile) {
  folder.Write("rilievo.jb2", SmallJb2());
  folder.Write("a.dat", "old");
  const Outcome run = Run({"convert", "rilievo.jb2", "a.dat"});
  EXPECT_EQ(run.status, 1);
  EXPECT_THAT(
      Lines(run.err),
      ElementsAre("kalvio: a.dat: missing in the cadastral data: date, municipality, sheet, "
                  "technician, qualification, province, version, actType, parcels"));
  EXPECT_EQ(Bytes("a.dat"), "old");
  EXPECT_EQ(Run({"convert", "rilievo.jb2", "b.dat"}).status, 1);
  EXPECT_FALSE(IsThere("b.dat"));
}

TEST_F(DatFiles, ConvertTellsWhyTheFileCannotBeWritten) {
  const Outcome run = Run({"convert", "--job", kExample, "none/a.dat"});
  EXPECT_EQ(run.status, 1);
  EXPECT_THAT(run.err, AllOf(StartsWith("kalvio: none/a.dat: "), HasSubstr("No such file")));
}

TEST_F(DatFiles, ConvertReadsNone) {
  const Outcome run = Run({"convert", kExampleDat, "a.jb2"});
  EXPECT_EQ(run.status, 1);
  EXPECT_THAT(run.err, HasSubstr("DAT files cannot be read"));
}

// ---- kalvio call ----

TEST_F(DatFiles, CallTellsTheDialogWithItsName) {
  const Outcome run = Call("[]", {"--job", kExample, "--lang", "it"});
  EXPECT_EQ(run.status, 0);
  EXPECT_THAT(EventNames(run.out), ElementsAre("dialog", "returned"));
  const auto dialog = Events(run.out)[0];
  EXPECT_EQ(dialog["title"], "Esporta file Pregeo");
  EXPECT_EQ(dialog["state"]["extensions"], "dat");
  EXPECT_EQ(dialog["state"]["import"], false);
  EXPECT_EQ(dialog["state"]["initialName"], "2512");
  EXPECT_THAT(LastEvent(run.out), HasSubstr("\"value\":0"));
}

TEST_F(DatFiles, CallWritesTheFile) {
  folder.Write("job.json", ReadBytes(kExample));
  const Outcome run = Call(R"([{"dialog":"file","press":"OK"}])", {"--job", "job.json"});
  EXPECT_THAT(LastEvent(run.out), HasSubstr("\"value\":1"));
  EXPECT_EQ(Bytes("2512.dat"), ReadBytes(kExampleDat));
  EXPECT_THAT(run.err, HasSubstr("named but not surveyed"));
}

TEST_F(DatFiles, CallShowsWhatIsMissingAndReturnsOneAllTheSame) {
  const Outcome run = Call(ChoosePaths({"a.dat"}));
  EXPECT_THAT(EventNames(run.out), ElementsAre("dialog", "message", "returned"));
  EXPECT_THAT(run.out, HasSubstr("missing in the cadastral data: date"));
  EXPECT_THAT(LastEvent(run.out), HasSubstr("\"value\":1"));
  EXPECT_FALSE(IsThere("a.dat"));
}

// ---- kalvio cadastral ----

TEST_F(DatFiles, CadastralShowsWhatThereIsAndWhatIsMissing) {
  const Outcome run = Run({"cadastral", kExample});
  EXPECT_EQ(run.status, 0);
  EXPECT_THAT(run.out,
              AllOf(HasSubstr("  year           2025\n"), HasSubstr("  parcels        64, 65\n"),
                    HasSubstr("  contours       RC: 101, 103\n"),
                    HasSubstr("PF01/0170/H223  4952426.214  1632365.522"),
                    HasSubstr("Nothing that a DAT file needs is missing.\n")));
  const Outcome empty = Run({"cadastral", "."});
  EXPECT_EQ(empty.status, 0);
  EXPECT_THAT(empty.out, AllOf(StartsWith("no cadastral data\n"),
                               HasSubstr("  missing in the cadastral data: date, ")));
  EXPECT_THAT(folder.Names(), IsEmpty());
}

TEST_F(DatFiles, CadastralSetsValuesInAJobFolder) {
  MakeJob();
  EXPECT_EQ(
      Run({"cadastral", "job", "--set", "elevation=51.5", "--set", "linearPrecision=7"}).status, 0);
  const std::string json = Run({"show", "job", "--json"}).out;
  EXPECT_THAT(json, AllOf(HasSubstr(R"("elevation": 51.5)"), HasSubstr(R"("linearPrecision": 7)"),
                          HasSubstr(R"("parcels": ["64", "65"])"), HasSubstr(R"("year": "2025")")));
}

TEST_F(DatFiles, CadastralPutsListsInPlaceOfThoseThatWereThere) {
  MakeJob();
  EXPECT_EQ(Run({"cadastral", "job", "--set", "parcels=1", "--set", "parcels=2,3", "--set",
                 "contours=RC,a,b", "--set", "contours=PV,c", "--set", "traverses=a,b,c", "--set",
                 "fiducials=PF1,1.5,2,11,roof, north side", "--set", "fiducials=PF2,3,4,5"})
                .status,
            0);
  std::string json = Run({"show", "job", "--json"}).out;
  EXPECT_THAT(json,
              AllOf(HasSubstr(R"("parcels": ["1", "2", "3"])"), HasSubstr(R"(["a", "b", "c"])"),
                    HasSubstr(R"({"type": "RC", "points": ["a", "b"]})"),
                    HasSubstr(R"({"type": "PV", "points": ["c"]})"),
                    HasSubstr(R"("description": "roof, north side"})"),
                    HasSubstr(R"({"name": "PF2", "north": 3, "east": 4, "reliability": 5)")));
  EXPECT_EQ(Run({"cadastral", "job", "--set", "contours=", "--set", "fiducials="}).status, 0);
  json = Run({"show", "job", "--json"}).out;
  EXPECT_THAT(json, AllOf(HasSubstr(R"("contours": [])"), HasSubstr(R"("fiducials": [])"),
                          HasSubstr(R"(["1", "2", "3"])")));
}

TEST_F(DatFiles, CadastralWritesAJsonJobOnlyWhereItIsTold) {
  folder.Write("job.json", "{}");
  const Outcome run = Run({"cadastral", "job.json", "--set", "year=2025"});
  EXPECT_EQ(run.status, 2);
  EXPECT_THAT(run.err, HasSubstr("--save says where to"));
  EXPECT_EQ(Run({"cadastral", "job.json", "--set", "year=2025", "--save", "out.json"}).status, 0);
  EXPECT_EQ(Bytes("job.json"), "{}");
  EXPECT_THAT(Bytes("out.json"), HasSubstr(R"("year": "2025")"));
}

TEST_F(DatFiles, CadastralRefusesWhatItDoesNotKnow) {
  MakeJob();
  const auto complaint = [&](const std::string& setting) {
    const Outcome run = Run({"cadastral", "job", "--set", setting});
    EXPECT_EQ(run.status, 2) << setting;
    return run.err;
  };
  EXPECT_THAT(complaint("yaer=2025"), AllOf(HasSubstr("the cadastral data have no \"yaer\""),
                                            HasSubstr("did you mean \"year\"?")));
  EXPECT_THAT(complaint("year"), HasSubstr("--set takes KEY=VALUE, not \"year\""));
  EXPECT_THAT(complaint("elevation=high"),
              HasSubstr("--set elevation: expected a number, not \"high\""));
  EXPECT_THAT(complaint("elevation=1,5"), HasSubstr("expected a number"));
  EXPECT_THAT(complaint("linearPrecision=1.5"), HasSubstr("expected a whole number"));
  EXPECT_THAT(complaint("linearPrecision=99999999999"), HasSubstr("expected a whole number"));
  EXPECT_THAT(complaint("fiducials=PF1,2"),
              HasSubstr("expected NAME,NORTH,EAST,RELIABILITY,DESCRIPTION"));
  EXPECT_EQ(Run({"cadastral", "none"}).status, 1);
  EXPECT_EQ(Run({"cadastral"}).status, 2);
  EXPECT_EQ(Run({"cadastral", "job", "more"}).status, 2);
}

TEST_F(DatFiles, ShowTellsOfCadastralData) {
  EXPECT_THAT(Run({"show", kExample}).out,
              AllOf(HasSubstr("Cadastral data\n"), Not(HasSubstr("DAT file"))));
  EXPECT_THAT(Run({"show", "."}).out, Not(HasSubstr("adastral")));
}

TEST_F(DatFiles, FiducialPointsAreInADrawing) {
  EXPECT_EQ(Run({"convert", "--job", kExample, "a.dxf"}).status, 0);
  EXPECT_THAT(Bytes("a.dxf"), AllOf(HasSubstr("PF01/0170/H223"), HasSubstr("CADASTRE_POINTS")));
}

}  // namespace
}  // namespace e2e
