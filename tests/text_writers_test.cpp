// Points written to text and CSV files, byte for byte.
#include "tests/support/text_files.h"

using namespace exchange_test;
using tdk::WString;

namespace {

using TextDelimited = TextTest;
using TextFixed = TextTest;

constexpr std::uint64_t kMoment = 1'456'790'399'999;  // 29-02-2016 23:59:59

// ---- Delimited ----

TEST_F(TextDelimited, WritesALineForEachPointWithASeparatorAfterEachColumn) {
  AddKnown("P1", 1.5, 2.25, 3.1254, "wall");
  AddKnown("P2", -1, 0, 1e6);
  EXPECT_EQ(Delimited(),
            "P1;1.500;2.250;3.125;wall;;\n"
            "P2;-1.000;0.000;1000000.000;;;\n");
}

TEST_F(TextDelimited, WritesEmptyLinesForHeaderRows) {
  settings.headerRows = 2;
  AddKnown("P", 1, 2, 3);
  EXPECT_EQ(Delimited(), "\n\nP;1.000;2.000;3.000;;;\n");
}

TEST_F(TextDelimited, WritesSixSeparatorsForSixEmptyColumns) {
  settings.fieldCode.fill(text::kNothing);
  AddKnown("P", 1, 2, 3);
  EXPECT_EQ(Delimited(), ";;;;;;\n");
}

TEST_F(TextDelimited, QuotesATextThatHoldsTheSeparator) {
  AddKnown("A;B", 1, 2, 3, "C,D");
  EXPECT_EQ(Delimited(), "\"A;B\";1.000;2.000;3.000;C,D;;\n");
}

TEST_F(TextDelimited, QuotesATextThatHoldsTheSeparatorTwiceWhenNamesAreQuoted) {
  settings.quoteNames = true;
  AddKnown("A;B", 1, 2, 3, "C");
  EXPECT_EQ(Delimited(), "\"\"A;B\"\";1.000;2.000;3.000;\"C\";;\n");
}

TEST_F(TextDelimited, WritesUtf8) {
  AddKnown("Città €", 1, 2, 3);
  EXPECT_EQ(Delimited(), "Città €;1.000;2.000;3.000;;;\n");
}

TEST_F(TextDelimited, WritesUndefinedCoordinatesInFullAndTells) {
  settings.fieldCode = {text::kName,    text::kElev,    text::kNothing,
                        text::kNothing, text::kNothing, text::kNothing};
  AddKnown("P", 1, 2, UndefinedValue);
  EXPECT_EQ(Delimited().size(), std::string("P;").size() + 201 + 4 + std::string(";;;;;\n").size());
  ASSERT_EQ(views.notes.size(), 1u);
}

TEST_F(TextDelimited, WritesOneGroupOrAll) {
  AddKnown("A", 1, 2, 3);
  Known().AddGrp(true);
  Known().AddPtn(1, true)->SetNome("B");
  settings.fieldCode = {text::kName, 7, 7, 7, 7, 7};
  EXPECT_EQ(Delimited(), "A;;;;;;\nB;;;;;;\n");
  settings.jobIndex = 0;
  settings.unitIndex = 1;
  EXPECT_EQ(Delimited(), "B;;;;;;\n");
}

TEST_F(TextDelimited, WritesEveryControlPointOnceAndStops) {
  settings.kind = text::kControlPoints;
  settings.fieldCode = {text::kName, text::kDate, text::kTime, 7, 7, 7};
  Jobs().AddOri(true)->SetNome("C1");
  Jobs().AddOri(true)->SetNome("C2");
  EXPECT_EQ(Delimited(), "C1;;;;;;\nC2;;;;;;\n");
}

TEST_F(TextDelimited, WalksOverJobsWithoutStations) {
  settings.kind = text::kTotalStation;
  settings.fieldCode = {text::kName, 7, 7, 7, 7, 7};
  for (int job = 0; job < 3; ++job) Jobs().AddJob(true);
  for (const int job : {0, 2}) {
    for (int station = 0; station < 2; ++station) {
      Jobs().AddSta(job, true);
      Jobs()
          .AddPun(job, station, true)
          ->SetNome(
              WString(std::string{static_cast<char>('a' + job), static_cast<char>('0' + station)}));
    }
  }
  EXPECT_EQ(Delimited(), "a0;;;;;;\na1;;;;;;\nc0;;;;;;\nc1;;;;;;\n");
  settings.jobIndex = 2;
  settings.unitIndex = 0;
  EXPECT_EQ(Delimited(), "c0;;;;;;\n");
}

TEST_F(TextDelimited, WritesDateAndTimeOfTotalStationPointsThatHaveOne) {
  settings.kind = text::kTotalStation;
  settings.fieldCode = {text::kDate, text::kTime, 7, 7, 7, 7};
  Jobs().AddJob(true);
  Jobs().AddSta(0, true);
  Jobs().AddPun(0, 0, true)->SetDtIntAng(1, 2, 3, kMoment);
  Jobs().AddPun(0, 0, true);
  EXPECT_EQ(Delimited(), "29-02-2016;23:59:59;;;;;\n;;;;;;\n");
}

TEST_F(TextDelimited, WritesDateAndTimeOfGpsPointsCutToSeconds) {
  settings.kind = text::kGpsGroups;
  settings.fieldCode = {text::kDate, text::kTime, 7, 7, 7, 7};
  Gps().AddGrp(true);
  CPunGps& point = *Gps().AddPun(0, true);
  point.SetDay(1);
  point.SetMonth(2);
  point.SetYear(2016);
  point.SetTod(25'509'999);
  Gps().AddPun(0, true);
  EXPECT_EQ(Delimited(), "01-02-2016;07:05:09;;;;;\n;;;;;;\n");
}

TEST_F(TextDelimited, LeavesAnOlderFileAndSaysNothingWhenItCannotBeWritten) {
  settings.filePath = WString(folder.Path("no/such/points.txt"));
  AddKnown("P", 1, 2, 3);
  text::WriteDelimited(&parent, libraries, settings);
  EXPECT_FALSE(std::filesystem::exists(settings.filePath.ToUtf8()));
  EXPECT_TRUE(views.messages.empty());
}

// ---- Fixed widths ----

TEST_F(TextFixed, PadsTextsOnTheRightAndNumbersOnTheLeft) {
  settings.fieldLength = {6, 12, 12, 13, 5, 2};
  AddKnown("P1", 1.5, 22.25, -3.125, "wall");
  EXPECT_EQ(FixedLength(), "P1           1.500      22.250       -3.125wall   \n");
  EXPECT_TRUE(views.messages.empty());
}

TEST_F(TextFixed, WritesLinesOfBlanksForSixEmptyColumns) {
  settings.fieldCode.fill(text::kNothing);
  settings.fieldLength = {1, 2, 3, 4, 5, 6};
  AddKnown("P", 1, 2, 3);
  EXPECT_EQ(FixedLength(), std::string(21, ' ') + "\n");
}

TEST_F(TextFixed, RaisesANarrowCoordinateAndWarnsOnce) {
  settings.fieldCode = {text::kNorth, text::kEast, 7, 7, 7, 7};
  settings.fieldLength = {8, 8, 1, 1, 1, 1};
  for (int i = 0; i < 10; ++i) AddKnown("P", 1, 2, 3);
  EXPECT_EQ(FixedLength().substr(0, 29), "       2.000       1.000    \n");
  EXPECT_EQ(settings.fieldLength[0], 12);
  EXPECT_EQ(
      views.messages,
      (std::vector<ShownMessage>{{"Warning", "The lengths of some fields were increased", 48}}));
}

TEST_F(TextFixed, RaisesNamesAndDescriptionsToTheLongestInCharacters) {
  settings.fieldCode = {text::kName, text::kDescr, 7, 7, 7, 7};
  settings.fieldLength = {2, 2, 1, 1, 1, 1};
  AddKnown("però", 1, 2, 3, "a");
  AddKnown("b", 1, 2, 3, "long");
  EXPECT_EQ(FixedLength(), "peròa       \nb   long    \n");
}

TEST_F(TextFixed, WritesALongNumberWhole) {
  settings.fieldCode = {text::kEast, text::kName, 7, 7, 7, 7};
  settings.fieldLength = {12, 1, 1, 1, 1, 1};
  AddKnown("P", 123456789012345.0, 2, 3);
  EXPECT_EQ(FixedLength(), "123456789012345.000P    \n");
}

TEST_F(TextFixed, AddsNoQuotesAndWritesHeaderRows) {
  settings.fieldCode = {text::kName, 7, 7, 7, 7, 7};
  settings.fieldLength = {5, 1, 1, 1, 1, 1};
  settings.quoteNames = true;
  settings.headerRows = 1;
  AddKnown("A;B", 1, 2, 3);
  EXPECT_EQ(FixedLength(), "\nA;B       \n");
}

TEST_F(TextFixed, KeepsRaisedWidthsOutOfTheStoredLayout) {
  settings.fieldLength.fill(1);
  AddKnown("long name", 1, 2, 3);
  FixedLength();
  EXPECT_EQ(text::LoadBasicLayout().lengths[0], 12);
}

// ---- Full exports ----

class TextFull : public TextTest {
 protected:
  TextFull() {
    layout.fields.fill(text::kFullNothing);
    layout.decimals.fill(3);
    layout.separator = 2;
  }
  void Fields(std::initializer_list<int> codes) {
    std::copy(codes.begin(), codes.end(), layout.fields.begin());
  }
  std::string GpsText() {
    text::WriteFullGps(libraries, layout, settings.filePath);
    return ReadFile(settings.filePath.ToUtf8());
  }
  std::string TotalStationText() {
    text::WriteFullTotalStation(libraries, layout, settings.filePath);
    return ReadFile(settings.filePath.ToUtf8());
  }
  CPunGps& AddGpsPoint() {
    if (Gps().GetGrpArSize() == 0) Gps().AddGrp(true);
    return *Gps().AddPun(0, true);
  }
  CPun& AddPoint() {
    Jobs().AddJob(true);
    Jobs().AddSta(0, true);
    return *Jobs().AddPun(0, 0, true);
  }

  text::FullLayout layout;
};

TEST_F(TextFull, WritesEveryFieldOfAGpsPoint) {
  CPunGps& point = AddGpsPoint();
  point.SetNomCoord("P", "wall", 10, 20, 30);
  point.SetTerScri("rain");
  point.SetLat(0.5);
  point.SetLong(0.25);
  point.SetElev(111.5);
  point.SetAltAnt(2);
  point.SetQua(4);
  point.SetHposRms(0.011);
  point.SetVposRms(0.022);
  point.SetDay(1);
  point.SetMonth(2);
  point.SetYear(2016);
  point.SetTod(25'509'500);
  layout.angleFormat = 3;
  Fields({0, 1, 2, 3, 4, 5, 9, 13, 14, 15, 16, 17, 18, 19, 20});
  EXPECT_EQ(GpsText(),
            "P;wall;rain;28.648;14.324;111.500;2.000;Fixed;20.000;10.000;30.000;0.011;0.022;"
            "01-02-2016;25509.500\n");
}

TEST_F(TextFull, WritesEveryFieldOfATotalStationPoint) {
  CPun& point = AddPoint();
  point.SetNomCoord("P", "wall", 10, 20, 30);
  point.SetTerScri("rain");
  point.SetAltPri(1.5);
  point.SetPrismOffset(0.034);
  point.SetDtIntAng(10, 50, 100, kMoment);
  Jobs().GetStaAt(0, 0)->SetCoord(100, 200, 50);
  Jobs().GetStaAt(0, 0)->SetAltStr(1.5);
  layout.angleFormat = 4;
  Fields({0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17});
  EXPECT_EQ(TotalStationText(),
            "P;wall;rain;100.000;50.000;10.000;7.071;7.071;1.500;20.000;10.000;30.000;"
            "200.000;107.071;57.071;29-02-2016;29/02/2016;23-59-59\n");
  layout.fields.fill(text::kFullNothing);
  Fields({18, 19, 20});
  EXPECT_EQ(TotalStationText(), "23:59:59;86399.000;0.034\n");
}

TEST_F(TextFull, WritesASeparatorOnlyBeforeAColumnThatHoldsSomething) {
  AddPoint().SetNome("P");
  Fields({0, 21, 0, 21, 21, 0});
  EXPECT_EQ(TotalStationText(), "P;P;P\n");
}

TEST_F(TextFull, QuotesTextsOnlyWhenAskedTo) {
  CPun& point = AddPoint();
  point.SetNomCoord("A;B", "c", 1, 2, 3);
  Fields({0, 1, 2, 9});
  EXPECT_EQ(TotalStationText(), "A;B;c;;2.000\n");
  layout.quoteNames = true;
  EXPECT_EQ(TotalStationText(), "\"A;B\";\"c\";\"\";2.000\n");
}

TEST_F(TextFull, HasFourSeparatorsAndDecimalsForEachColumn) {
  AddPoint().SetCoord(1.23456, 2.34567, 3);
  Fields({9, 10});
  layout.decimals[0] = 0;
  layout.decimals[1] = 4;
  const char expected[] = {' ', ',', ';', '\t'};
  for (int i = 0; i < 4; ++i) {
    layout.separator = i;
    EXPECT_EQ(TotalStationText(), std::string("2") + expected[i] + "1.2346\n") << i;
  }
}

TEST_F(TextFull, WritesAnglesInSixFormats) {
  AddGpsPoint().SetLat((12 + 5 / 60.0 + 30 / 3600.0) / 180 * 3.14159265358979323846);
  Fields({3});
  layout.decimals[0] = 4;
  const char* const expected[] = {"12°05'30.0000", "12 05 30.0000", "12.0530",
                                  "12.0917",       "13.4352",       "12.0550"};
  for (int i = 0; i < 6; ++i) {
    layout.angleFormat = i;
    EXPECT_EQ(GpsText(), std::string(expected[i]) + "\n") << i;
  }
}

TEST_F(TextFull, WritesTheQualityAsItsWord) {
  CPunGps& point = AddGpsPoint();
  Fields({13});
  const char* const words[] = {"Comp.", "No Sol.", "Autonomus", "Code", "Float", "Fixed", ""};
  for (int quality = -1; quality <= 5; ++quality) {
    point.SetQua(quality);
    EXPECT_EQ(GpsText(), std::string(words[quality + 1]) + "\n") << quality;
  }
}

TEST_F(TextFull, LeavesMissingDatesAndTimesEmpty) {
  AddGpsPoint();
  AddPoint();
  Fields({19, 20, 0});
  EXPECT_EQ(GpsText(), ";;\n");
  Fields({15, 16, 17, 18, 19});
  EXPECT_EQ(TotalStationText(), ";;;;\n");
}

TEST_F(TextFull, RemembersTheNameOfTheFile) {
  GpsText();
  EXPECT_EQ(CIniFile().ReadString("PERSIST", "ULTIMO_ASC", ""), settings.filePath);
}

}  // namespace
