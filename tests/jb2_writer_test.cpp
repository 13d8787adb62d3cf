// The JB2 writer, byte for byte.
#include "formats/jb2/jb2_writer.h"

#include <filesystem>
#include <string>

#include "tests/support/exchange_jb2.h"
#include "tests/support/exchange_numbers.h"

using namespace exchange_test;

namespace {

class Jb2Writer : public testing::Test {
 protected:
  void Write(const std::string& path) { jb2::Jb2Writer(&library).Write(tdk::WString(path)); }
  /// The bytes of a file written from the library.
  std::string Written() {
    Write(folder.Path("out.jb2"));
    return ReadFile(folder.Path("out.jb2"));
  }

  CSta& AddStation(int job, const char* name) {
    CSta* const station = library.AddSta(job, true);
    station->SetNome(name);
    return *station;
  }
  CPun& AddPoint(CSta& station, const char* name) {
    CPun* const point = library.AddPun(&station, true);
    point->SetNome(name);
    return *point;
  }

  TempFolder folder;
  CLibCmp library;
};

TEST_F(Jb2Writer, WritesJobsStationsAndPointsInTheirOrder) {
  library.AddJob(true)->SetLabels("WALL-01", "N. Ferri", "TS 5", "14-04-2026");
  CSta& first = AddStation(0, "S1");
  first.SetIden("nail");
  first.SetAltStr(1.5824);
  first.SetTemper(14.55);
  first.SetPressi(987.6);
  CPun& point = AddPoint(first, "101");
  point.SetCode("MURO");
  point.SetAltPri(1.5);
  point.SetDtIntAng(24.33349, 100.82876, 56.87784, 1234567890123);
  AddPoint(first, "102").SetDtIntAng(0.001, 0, 399.99996, 0);
  AddStation(0, "S2").SetTemper(-3.25);
  library.AddJob(true)->SetNome("EMPTY");
  EXPECT_EQ(Written(),
            "L|\x1dWALL-01\x1dN. Ferri\x1dTS 5\x1d \x1d"
            "14-04-2026\x1d\n"
            "S|\x1dS1\x1dnail\x1d"
            "1.582\x1d"
            "14.6\x1d"
            "988\x1d \x1d \x1d \x1d \x1d\n"
            "P|\x1d"
            "101\x1dMURO\x1d"
            "1.500\x1d"
            "56.8778\x1d"
            "100.8288\x1d"
            "24.333\x1d\n"
            "P|\x1d"
            "102\x1d\x1d"
            "0.000\x1d"
            "400.0000\x1d"
            "0.0000\x1d"
            "0.001\x1d\n"
            "S|\x1dS2\x1d\x1d"
            "0.000\x1d"
            "-3.2\x1d"
            "0\x1d \x1d \x1d \x1d \x1d\n"
            "L|\x1d"
            "EMPTY\x1d\x1d\x1d \x1d\x1d\n");
}

TEST_F(Jb2Writer, WritesAJobWithoutStationsAsItsLineAlone) {
  library.AddJob(true)->SetLabels("a", "b", "c", "d");
  EXPECT_EQ(Written(), Line('L', {"a", "b", "c", " ", "d"}));
}

TEST_F(Jb2Writer, WritesAStationWithoutPointsAsItsLineAlone) {
  library.AddJob(true);
  AddStation(0, "S");
  EXPECT_EQ(Written(), Line('L', {"", "", "", " ", ""}) +
                           Line('S', {"S", "", "0.000", "0.0", "0", " ", " ", " ", " "}));
}

TEST_F(Jb2Writer, WritesAnEmptyFileForAnEmptyLibrary) { EXPECT_EQ(Written(), ""); }

TEST_F(Jb2Writer, WritesPolarRecordsOnly) {
  CSta& station = (library.AddJob(true), AddStation(0, "S"));
  AddPoint(station, "LEVEL").SetDtIntAng(12.5, 100, 0, 0);
  const std::string text = Written();
  EXPECT_NE(text.find("\nP|"), std::string::npos);
  EXPECT_EQ(text.find("\nR|"), std::string::npos);
}

TEST_F(Jb2Writer, WritesNoCoordinates) {
  CSta& station = (library.AddJob(true), AddStation(0, "S"));
  station.SetCoord(1000.25, 2000.5, 30.75);
  AddPoint(station, "P").SetCoord(1001.25, 2001.5, 31.75);
  const std::string text = Written();
  for (const char* coordinate : {"1000", "2000", "30.7", "1001", "2001", "31.7"}) {
    EXPECT_EQ(text.find(coordinate), std::string::npos) << coordinate;
  }
}

TEST_F(Jb2Writer, WritesNoDistanceInFullWithThreeDecimals) {
  CSta& station = (library.AddJob(true), AddStation(0, "S"));
  AddPoint(station, "C").SetDtIntAng(kNoDistance, 99.5, 10.25, 0);
  const std::string digits = Fixed(kNoDistance, 3);
  ASSERT_EQ(digits.size(), 205u);
  EXPECT_EQ(digits.find('.'), 201u);
  const std::string text = Written();
  EXPECT_EQ(text.substr(text.find("P|")),
            Line('P', {"C", "", "0.000", "10.2500", "99.5000", digits}));
}

TEST_F(Jb2Writer, WritesANumberThatRoundsToZeroWithoutAMinusSign) {
  CSta& station = (library.AddJob(true), AddStation(0, "S"));
  station.SetTemper(-0.04);
  AddPoint(station, "P").SetDtIntAng(-0.0004, -0.00004, -0.0, 0);
  EXPECT_EQ(Written(), Line('L', {"", "", "", " ", ""}) +
                           Line('S', {"S", "", "0.000", "0.0", "0", " ", " ", " ", " "}) +
                           Line('P', {"P", "", "0.000", "0.0000", "0.0000", "0.000"}));
}

TEST_F(Jb2Writer, WritesNegativeAndLargeNumbersAsTheyAre) {
  CSta& station = (library.AddJob(true), AddStation(0, "S"));
  station.SetAltStr(-1.25);
  station.SetPressi(101325.4);
  AddPoint(station, "P").SetDtIntAng(1234567.8912, 250.5, -12.5, 0);
  const std::string text = Written();
  EXPECT_NE(text.find(Line('S', {"S", "", "-1.250", "0.0", "101325", " ", " ", " ", " "})),
            std::string::npos);
  EXPECT_NE(text.find(Line('P', {"P", "", "0.000", "-12.5000", "250.5000", "1234567.891"})),
            std::string::npos);
}

// ---- Texts ----

TEST_F(Jb2Writer, WritesTextsInTheCodePage) {
  library.AddJob(true)->SetLabels("Niccolò", "€ “x”", "àèìù", "°ÿ");
  EXPECT_EQ(Written(),
            Line('L', {"Niccol\xf2", "\x80 \x93x\x94", "\xe0\xe8\xec\xf9", " ", "\xb0\xff"}));
}

TEST_F(Jb2Writer, NarrowsWhatTheCodePageLacksToAQuestionMark) {
  library.AddJob(true)->SetLabels("中x文", "Ω", "a😀b", "");
  EXPECT_EQ(Written(), Line('L', {"?x?", "?", "a?b", " ", ""}));
}

TEST_F(Jb2Writer, EscapesNothing) {
  library.AddJob(true)->SetLabels(
      "a\x1d"
      "b",
      "c\nd", " e ", "%s|");
  EXPECT_EQ(Written(),
            "L|\x1d"
            "a\x1d"
            "b\x1d"
            "c\nd\x1d e \x1d \x1d%s|\x1d\n");
}

// ---- Where the file goes ----

TEST_F(Jb2Writer, ReplacesAnOlderFile) {
  WriteFile(folder.Path("out.jb2"), std::string(5000, 'x'));
  library.AddJob(true)->SetNome("J");
  EXPECT_EQ(Written(), Line('L', {"J", "", "", " ", ""}));
}

TEST_F(Jb2Writer, LeavesNothingBesideTheFile) {
  library.AddJob(true);
  Written();
  int files = 0;
  for (const auto& entry : std::filesystem::directory_iterator(folder.Path())) {
    files += entry.exists() ? 1 : 0;
  }
  EXPECT_EQ(files, 1);
}

TEST_F(Jb2Writer, WritesNothingWhenTheFileCannotBeCreated) {
  library.AddJob(true);
  Write(folder.Path("no-such-folder/out.jb2"));
  Write("");
  EXPECT_TRUE(folder.IsEmpty());
}

TEST_F(Jb2Writer, LeavesAFolderOfTheSameNameAlone) {
  library.AddJob(true);
  std::filesystem::create_directory(folder.Path("out.jb2"));
  Write(folder.Path("out.jb2"));
  EXPECT_TRUE(std::filesystem::is_directory(folder.Path("out.jb2")));
}

TEST_F(Jb2Writer, TakesAPathThatBeginsWithABackslashAsItIs) {
  library.AddJob(true);
  std::string path = folder.Path("out.jb2");
  for (char& c : path) c = c == '/' ? '\\' : c;
  Write(path);
  EXPECT_TRUE(std::filesystem::exists(folder.Path("out.jb2")));
}

TEST_F(Jb2Writer, TakesAPathWithAColonAsItIs) {
  library.AddJob(true);
  const WorkingFolder here(folder.Path());
  Write("a:b.jb2");
  EXPECT_TRUE(std::filesystem::exists(folder.Path("a:b.jb2")));
}

TEST_F(Jb2Writer, PutsARelativePathIntoTheFolderOfTheRunningProgram) {
  library.AddJob(true)->SetNome("J");
  const std::string name = "relative-" + std::to_string(::getpid()) + ".jb2";
  const WorkingFolder here(folder.Path());
  Write(name);
  EXPECT_EQ(ReadFile(ProgramFolder() + name), Line('L', {"J", "", "", " ", ""}));
  EXPECT_TRUE(folder.IsEmpty());
  std::filesystem::remove(ProgramFolder() + name);
}

TEST_F(Jb2Writer, PutsARelativePathWithAFolderBelowThatOfTheRunningProgram) {
  library.AddJob(true);
  const std::string name = "relative-" + std::to_string(::getpid());
  std::filesystem::create_directory(ProgramFolder() + name);
  Write(name + "\\out.jb2");
  EXPECT_TRUE(std::filesystem::exists(ProgramFolder() + name + "/out.jb2"));
  std::filesystem::remove_all(ProgramFolder() + name);
}

}  // namespace
