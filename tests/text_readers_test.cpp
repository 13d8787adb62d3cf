// Points read from text and CSV files.
#include "model/geodesy.h"
#include "tests/support/add_policies.h"
#include "tests/support/exchange_jb2.h"
#include "tests/support/text_files.h"

using namespace exchange_test;
using tdk::WString;

namespace {

using TextImport = TextTest;
using TextFixedReader = TextTest;

const ShownMessage kFolded = {"Info", "Some invalid characters were removed or replaced .", 48};

// ---- Delimited ----

TEST_F(TextImport, ReadsKnownPointsIntoAGroupNamedAfterTheFile) {
  ReadDelimited("P1;1.5;2.5;3.5;wall\nP2;1;2;3;tree\n");
  EXPECT_EQ(KnownPoints(), (Lines{"P1|1.5|2.5|3.5|wall", "P2|1|2|3|tree"}));
  WString first, second, third, fourth;
  Known().GetGrpAt(0)->GetLabels(first, second, third, fourth);
  EXPECT_EQ(first, WString("points.txt"));
  EXPECT_TRUE(second.IsEmpty() && third.IsEmpty() && fourth.IsEmpty());
  EXPECT_TRUE(views.messages.empty() && views.notes.empty());
}

TEST_F(TextImport, SkipsHeaderRowsAndLeavesAnEmptyGroupForThemAlone) {
  settings.headerRows = 2;
  ReadDelimited("name;east\nunits;metres\n");
  EXPECT_EQ(Known().GetGrpArSize(), 1);
  EXPECT_EQ(KnownPoints(), Lines{});
}

TEST_F(TextImport, SkipsLinesOfTwoCharactersOrFewer) {
  ReadDelimited("\na\n\nè\nab\nP;1;2;3\nb");
  EXPECT_EQ(KnownPoints(), (Lines{"ab|0|0|0|", "P|1|2|3|"}));
}

TEST_F(TextImport, CollapsesEmptyColumns) {
  settings.separator = u',';
  settings.fieldCode = {text::kName, text::kDescr, 7, 7, 7, 7};
  ReadDelimited("a,,b\n,,c,,,d\n");
  EXPECT_EQ(KnownPoints(), (Lines{"a|0|0|0|b", "c|0|0|0|d"}));
}

TEST_F(TextImport, TakesARunOfBlanksForOneSeparator) {
  settings.separator = u' ';
  settings.fieldCode = {text::kName, text::kEast, text::kNorth, 7, 7, 7};
  ReadDelimited("P1    10.0   20.0\n");
  EXPECT_EQ(KnownPoints(), (Lines{"P1|10|20|0|"}));
}

TEST_F(TextImport, KeepsAQuotedSeparatorInItsColumn) {
  settings.fieldCode = {text::kName, text::kEast, 7, 7, 7, 7};
  ReadDelimited("\"A;B\";7\n");
  EXPECT_EQ(KnownPoints(), (Lines{"\"A;B\"|7|0|0|"}));
}

TEST_F(TextImport, TakesQuotesOffNamesWhenAskedTo) {
  settings.quoteNames = true;
  settings.fieldCode = {text::kName, text::kDescr, text::kEast, 7, 7, 7};
  ReadDelimited("\"A;B\";x \"C\" y;7\n\"\"D;E\"\";\"F;8\n");
  EXPECT_EQ(KnownPoints()[0], "A;B|7|0|0|C");
}

TEST_F(TextImport, EndsAQuoteWithoutPartnerAtTheEndOfTheLine) {
  settings.fieldCode = {text::kName, text::kEast, 7, 7, 7, 7};
  ReadDelimited("\"A;1;2\nB;5\n");
  EXPECT_EQ(KnownPoints(), (Lines{"\"A;1;2|0|0|0|", "B|5|0|0|"}));
}

TEST_F(TextImport, FoldsAccentedLettersAndTellsOnce) {
  settings.fieldCode = {text::kName, text::kDescr, 7, 7, 7, 7};
  ReadDelimited("Città;ÄÅÉÖÜàáâäåèéêëìíîïòóôöùúûüÿ\nPerò;x\n");
  EXPECT_EQ(KnownPoints(), (Lines{"Citta|0|0|0|AAEOUaaaaaeeeeiiiioooouuuuy", "Pero|0|0|0|x"}));
  EXPECT_EQ(views.messages, std::vector{kFolded});
}

TEST_F(TextImport, DropsOtherCharactersAndTellsOnce) {
  settings.fieldCode = {text::kName, text::kDescr, 7, 7, 7, 7};
  ReadDelimited(
      "aãõÇñ€b;c\td\x01"
      "e\n");
  EXPECT_EQ(KnownPoints(), (Lines{"ab|0|0|0|cde"}));
  EXPECT_EQ(views.messages, std::vector{kFolded});
}

TEST_F(TextImport, ReadsBytesThatAreNoUtf8AsTheCodePage) {
  settings.fieldCode = {text::kName, text::kDescr, 7, 7, 7, 7};
  ReadDelimited("Citt\xE0;per\xF2 \xE8\n");
  EXPECT_EQ(KnownPoints(), (Lines{"Citta|0|0|0|pero e"}));
}

TEST_F(TextImport, SkipsAByteOrderMark) {
  ReadDelimited("\xEF\xBB\xBFP;1;2;3\n");
  EXPECT_EQ(KnownPoints(), (Lines{"P|1|2|3|"}));
  EXPECT_TRUE(views.messages.empty());
}

TEST_F(TextImport, ReadsTheLastLineWithoutALineEndAndCrLf) {
  ReadDelimited("P;1;2;3;x\r\nQ;4;5;6;y");
  EXPECT_EQ(KnownPoints(), (Lines{"P|1|2|3|x", "Q|4|5|6|y"}));
}

TEST_F(TextImport, TakesALineOfMoreThan254CharactersForTwo) {
  settings.fieldCode = {text::kName, 7, 7, 7, 7, 7};
  ReadDelimited(std::string(254, 'a') + "bcd\n");
  EXPECT_EQ(KnownPoints(), (Lines{std::string(254, 'a') + "|0|0|0|", "bcd|0|0|0|"}));
}

TEST_F(TextImport, CountsCharactersAndNotBytesInALine) {
  settings.fieldCode = {text::kName, 7, 7, 7, 7, 7};
  std::string line;
  for (int i = 0; i < 254; ++i) line += "è";
  ReadDelimited(line + "abc\n");
  EXPECT_EQ(KnownPoints(), (Lines{std::string(254, 'e') + "|0|0|0|", "abc|0|0|0|"}));
}

TEST_F(TextImport, ReadsTextInANumbersPlaceAsZeroAndTellsWhere) {
  ReadDelimited("P;1;2;3\nQ;east;2;3\n");
  EXPECT_EQ(KnownPoints()[1], "Q|0|2|3|");
  ASSERT_EQ(views.notes.size(), 1u);
  EXPECT_EQ(views.notes[0].line, 2u);
  EXPECT_NE(views.notes[0].text.ToUtf8().find("column 2 of line 2: \"east\""), std::string::npos);
}

TEST_F(TextImport, TakesDatesAndTimesForNothing) {
  settings.fieldCode = {text::kName, text::kDate, text::kTime, text::kNothing, text::kEast, 7};
  ReadDelimited("P;01-02-2016;10:11:12;x;5\n");
  EXPECT_EQ(KnownPoints(), (Lines{"P|5|0|0|"}));
}

TEST_F(TextImport, LeavesColumnsBeyondTheSixthOut) {
  ReadDelimited("P;1;2;3;x;y;z;" + std::string(100, ';') + "9\n");
  EXPECT_EQ(KnownPoints(), (Lines{"P|1|2|3|x"}));
}

TEST_F(TextImport, ReadsControlPoints) {
  settings.kind = text::kControlPoints;
  ReadDelimited("C;1;2;3;x\n");
  ASSERT_EQ(Jobs().GetOriArSize(), 1);
  EXPECT_EQ(Jobs().GetOriAt(0)->GetNome(), WString("C"));
  EXPECT_EQ(Jobs().GetOriAt(0)->GetCoordY(), 2);
}

TEST_F(TextImport, DerivesTheObservationOfATotalStationPoint) {
  settings.kind = text::kTotalStation;
  Jobs().AddJob(true);
  CSta& station = *Jobs().AddSta(0, true);
  station.SetCoord(0, 0, 0);
  Jobs().SetCurrSta(&station);
  ReadDelimited("P;0;10;0;wall\n");
  ASSERT_EQ(Jobs().GetPunArSize(0, 0), 1);
  const CPun& point = *Jobs().GetPunAt(0, 0, 0);
  EXPECT_EQ(point.GetCode(), WString("wall"));
  EXPECT_EQ(point.GetAltPri(), 0);
  EXPECT_EQ(point.GetCoordY(), 10);
  EXPECT_NEAR(point.GetDato0(), 10, 1e-9);
  EXPECT_NEAR(point.GetDato1(), 100, 1e-9);
  EXPECT_NEAR(point.GetDato2(), 0, 1e-9);
}

TEST_F(TextImport, SkipsLinesWithoutACurrentStationOrGroupAndTellsHowMany) {
  for (const int kind : {text::kTotalStation, text::kGpsGroups}) {
    settings.kind = kind;
    views.notes.clear();
    ReadDelimited("P;1;2;3\nQ;1;2;3\n");
    ASSERT_EQ(views.notes.size(), 1u);
    EXPECT_NE(views.notes[0].text.ToUtf8().find("no point: 2"), std::string::npos);
    EXPECT_TRUE(views.messages.empty());
  }
}

// Plane metres are millionths of a radian; nothing lies beyond a million of them.
class FlatEarth : public IGeodesy, public ICoordTransform {
 public:
  FlatEarth() { SetCurrent(this); }
  ~FlatEarth() override { SetCurrent(nullptr); }
  bool ToGeographic(const Geocentric&, Geographic&) override { return false; }
  bool ToGeocentric(const Geographic&, Geocentric&) override { return false; }
  const ICoordTransform* TransformOf(const WString&) override { return this; }
  bool ToGeographic(const PlanePosition& plane, Geographic& place) const override {
    place = {plane.north / 1e6, plane.east / 1e6, plane.elev + 50};
    return plane.east < 1e6;
  }
  bool ToPlane(const Geographic&, PlanePosition&) const override { return false; }
};

TEST_F(TextImport, ConvertsGpsPointsThroughTheirGroupAndSkipsThoseThatItCannot) {
  const FlatEarth earth;
  settings.kind = text::kGpsGroups;
  CGrpGps& group = *Gps().AddGrp(true);
  group.SetCrs("X:1");
  Gps().SetCurrGrp(&group);
  ReadDelimited("P;100;200;3;wall\nQ;2000000;1;1\n");
  ASSERT_EQ(Gps().GetPunArSize(0), 1);
  const CPunGps& point = *Gps().GetPunAt(0, 0);
  EXPECT_EQ(point.GetCode(), WString("wall"));
  EXPECT_EQ(point.GetCoordX(), 100);
  EXPECT_EQ(point.GetLat(), 200 / 1e6);
  EXPECT_EQ(point.GetLong(), 100 / 1e6);
  EXPECT_EQ(point.GetElev(), 53);
  EXPECT_EQ(point.GetAltAnt(), 0);
  EXPECT_EQ(views.notes.size(), 1u);
}

TEST_F(TextImport, SkipsGpsPointsOfAGroupWithoutAReferenceSystem) {
  settings.kind = text::kGpsGroups;
  Gps().SetCurrGrp(Gps().AddGrp(true));
  ReadDelimited("P;100;200;3\n");
  EXPECT_EQ(Gps().GetPunArSize(0), 0);
}

TEST_F(TextImport, SkipsPointsThatTheHostRefuses) {
  RefuseKinds points({AddedKind::kKnownPoint});
  Known().SetAddPolicy(&points);
  ReadDelimited("P;1;2;3\n");
  EXPECT_EQ(KnownPoints(), Lines{});
  EXPECT_EQ(views.notes.size(), 1u);
}

TEST_F(TextImport, TellsTheHostOfOneBatchOfChanges) {
  BatchCounter batches;
  Jobs().GetCmpContext()->SetListener(&batches);
  ReadDelimited("P;1;2;3\nQ;1;2;3\n");
  EXPECT_EQ(batches.begun, 1);
  EXPECT_EQ(batches.ended, 1);
}

TEST_F(TextImport, ChangesNothingForAFileThatIsNotThere) {
  text::ReadDelimited(&parent, libraries, settings);
  EXPECT_EQ(Known().GetGrpArSize(), 0);
  EXPECT_TRUE(views.messages.empty());
}

TEST_F(TextImport, KeepsWhatFollowsANul) {
  settings.fieldCode = {text::kName, text::kDescr, 7, 7, 7, 7};
  ReadDelimited(std::string("a\0b;c\n", 6));
  EXPECT_EQ(KnownPoints(), (Lines{"ab|0|0|0|c"}));
}

TEST_F(TextImport, ReadsBackWhatWasWritten) {
  AddKnown("P1", 1.5, 2.25, 3.125, "wall");
  AddKnown("P2", -1, 0.001, 1e6, "tree");
  const Lines before = KnownPoints();
  ReadDelimited(Delimited());
  EXPECT_EQ(KnownPoints(), before);
}

// ---- Fixed widths ----

TEST_F(TextFixedReader, CutsColumnsByTheirWidths) {
  settings.fieldLength = {4, 12, 12, 12, 6, 1};
  ReadFixedLength("P1         1.500       2.500       3.500wall  \nP2         1\n");
  EXPECT_EQ(KnownPoints(), (Lines{"P1|1.5|2.5|3.5|wall", "P2|1|0|0|"}));
}

TEST_F(TextFixedReader, MakesAPointOfAnEmptyLineToo) {
  settings.fieldLength = {4, 12, 12, 12, 6, 1};
  ReadFixedLength("\nP\n");
  EXPECT_EQ(KnownPoints(), (Lines{"|0|0|0|", "P|0|0|0|"}));
}

TEST_F(TextFixedReader, EndsALineAtItsFirstNul) {
  settings.fieldLength = {4, 12, 12, 12, 6, 1};
  ReadFixedLength(std::string("P1\0abc\n", 7));
  EXPECT_EQ(KnownPoints(), (Lines{"P1|0|0|0|"}));
}

TEST_F(TextFixedReader, CutsAfterFoldingAndDropping) {
  settings.fieldCode = {text::kName, text::kDescr, 7, 7, 7, 7};
  settings.fieldLength = {3, 3, 1, 1, 1, 1};
  ReadFixedLength("à\tbcdef\n");
  EXPECT_EQ(KnownPoints(), (Lines{"abc|0|0|0|def"}));
  EXPECT_EQ(views.messages, std::vector{kFolded});
}

TEST_F(TextFixedReader, LeavesQuotesInNames) {
  settings.quoteNames = true;
  settings.fieldLength = {5, 12, 12, 12, 6, 1};
  ReadFixedLength("\"A\"\n");
  EXPECT_EQ(KnownPoints()[0], "\"A\"|0|0|0|");
}

TEST_F(TextFixedReader, ReadsBackWhatWasWritten) {
  settings.fieldLength = {12, 14, 14, 14, 12, 12};
  AddKnown("P1", 1.5, 2.25, 3.125, "wall");
  AddKnown("P2", -1, 0.001, 1e6, "tree");
  const Lines before = KnownPoints();
  ReadFixedLength(FixedLength());
  EXPECT_EQ(KnownPoints(), before);
}

}  // namespace
