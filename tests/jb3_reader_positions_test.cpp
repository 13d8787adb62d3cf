// The JB3 reader: which group GPS points go to, and the dates, times, precision and satellites of a
// point.
#include <cmath>

#include "tests/support/jb3_documents.h"

using namespace exchange_test;
using tdk::WString;

namespace {

class Jb3ReaderPositions : public Jb3Test {
 protected:
  /// Day, month and year of a point with this date.
  std::vector<int> DateOf(const std::string& text) {
    const CPunGps& point = ReadGpsPoint("date=\"" + text + "\"");
    return {point.GetDay(), point.GetMonth(), point.GetYear()};
  }
  unsigned long TimeOf(const std::string& text) {
    return ReadGpsPoint("time=\"" + text + "\"").GetTod();
  }
  using Parts = std::vector<int>;
};

// ---- Groups ----

TEST_F(Jb3ReaderPositions, EveryGroupHasItsOwnPoints) {
  Read(
      "<Job name=\"GPS\"><GpsBase name=\"A\"><GpsPnts><GpsPnt name=\"1\"/><GpsPnt name=\"2\"/>"
      "</GpsPnts></GpsBase><GpsBase name=\"B\"><GpsPnts><GpsPnt name=\"3\"/></GpsPnts></GpsBase>"
      "</Job><Job name=\"GPS\"><GpsBase name=\"C\"/></Job>");
  ASSERT_EQ(Gps().GetGrpArSize(), 3);
  EXPECT_EQ(Gps().GetPunArSize(0), 2);
  EXPECT_EQ(Gps().GetPunArSize(1), 1);
  EXPECT_EQ(Gps().GetPunAt(1, 0)->GetNome(), WString("3"));
  EXPECT_EQ(Gps().GetPunArSize(2), 0);
}

TEST_F(Jb3ReaderPositions, GroupsAreAppendedToThoseThatAreThere) {
  Gps().AddGrp(true)->SetNomeGrp("before");
  Gps().AddPun(0, true);
  Read("<Job><GpsBase name=\"A\"><GpsPnts><GpsPnt name=\"1\"/></GpsPnts></GpsBase></Job>");
  ASSERT_EQ(Gps().GetGrpArSize(), 2);
  EXPECT_EQ(Gps().GetGrpAt(0)->GetNomeGrp(), WString("before"));
  EXPECT_EQ(Gps().GetPunArSize(0), 1);
  EXPECT_EQ(Gps().GetPunArSize(1), 1);
}

TEST_F(Jb3ReaderPositions, GroupOfTheSameNameIsNotLookedUp) {
  Gps().AddGrp(true)->SetNomeGrp("A");
  Read("<Job><GpsBase name=\"A\"/></Job>");
  EXPECT_EQ(Gps().GetGrpArSize(), 2);
}

TEST_F(Jb3ReaderPositions, ListHoldsNoPointsOfAnotherName) {
  Read("<Job><GpsBase><GpsPnts><Pnt/><gpspnt/><GpsPnt name=\"1\"/></GpsPnts></GpsBase></Job>");
  EXPECT_EQ(Gps().GetPunArSize(0), 1);
}

TEST_F(Jb3ReaderPositions, StartDateOfAGroupIsKeptAsItIs) {
  Read("<Job><GpsBase start_date=\"some day\" end_date=\"02-03-2016\"/></Job>");
  EXPECT_EQ(Gps().GetGrpAt(0)->GetData(), WString("some day"));
}

TEST_F(Jb3ReaderPositions, AntennaHeightOfABaseStandsWithoutItsPosition) {
  Read("<Job><GpsBase><GeoCoords antenna_height=\"1.5\"/></GpsBase></Job>");
  EXPECT_EQ(Gps().GetGrpAt(0)->GetBaseAltAnt(), 1.5);
  double x = 0, y = 0, z = 0;
  Gps().GetGrpAt(0)->GetGeocCeFaMis(x, y, z);
  EXPECT_EQ(x, UndefinedValue);
}

TEST_F(Jb3ReaderPositions, SecondPositionReplacesTheWholeFirst) {
  const CPunGps& point =
      ReadGpsPoint("", "<GeoCoords cfx=\"1\" cfy=\"2\" cfz=\"3\"/><GeoCoords cfx=\"4\"/>");
  double x = 0, y = 0, z = 0;
  point.GetGeocCeFaMis(x, y, z);
  EXPECT_EQ(x, 4);
  EXPECT_EQ(y, UndefinedValue);
  EXPECT_EQ(z, UndefinedValue);
}

// ---- The counter that GPS and known-point groups share ----

TEST_F(Jb3ReaderPositions, PointsAfterKnownPointsAreLostWhenThatGroupIsNotThere) {
  Read(
      "<KnownPoints><KnownPoint type=\"generic\"/></KnownPoints>"
      "<Job><GpsBase name=\"A\"><GpsPnts><GpsPnt name=\"1\"/></GpsPnts></GpsBase></Job>");
  EXPECT_EQ(Gps().GetGrpArSize(), 1);
  EXPECT_EQ(Gps().GetPunArSize(0), 0);
}

TEST_F(Jb3ReaderPositions, AttributesOfAGroupAfterKnownPointsAreStillItsOwn) {
  for (int i = 0; i < 3; ++i) Gps().AddGrp(true);
  Read(
      "<KnownPoints><KnownPoint type=\"generic\"/></KnownPoints>"
      "<Job><GpsBase name=\"A\"><GeoCoords antenna_height=\"2\"/></GpsBase></Job>");
  EXPECT_EQ(Gps().GetGrpAt(3)->GetNomeGrp(), WString("A"));
  EXPECT_EQ(Gps().GetGrpAt(3)->GetBaseAltAnt(), 2);
}

TEST_F(Jb3ReaderPositions, ControlRecordsDoNotMoveTheCounter) {
  Read(
      "<KnownPoints><KnownPoint type=\"ctrl\"/><KnownPoint type=\"other\"/></KnownPoints>"
      "<Job><GpsBase><GpsPnts><GpsPnt name=\"1\"/></GpsPnts></GpsBase></Job>");
  EXPECT_EQ(Gps().GetPunArSize(0), 1);
}

TEST_F(Jb3ReaderPositions, SecondGroupAfterKnownPointsCountsOn) {
  Read(
      "<KnownPoints><KnownPoint type=\"generic\"/></KnownPoints><Job><GpsBase name=\"A\"/>"
      "<GpsBase name=\"B\"/><GpsBase name=\"C\"><GpsPnts><GpsPnt/></GpsPnts></GpsBase></Job>");
  EXPECT_EQ(Gps().GetPunArSize(2), 0) << "the third one counts as group 3";
  Read(
      "<KnownPoints><KnownPoint type=\"ctrl\"/></KnownPoints>"
      "<Job><GpsBase name=\"D\"><GpsPnts><GpsPnt/></GpsPnts></GpsBase></Job>");
  EXPECT_EQ(Gps().GetPunArSize(3), 1) << "every file counts anew";
}

// ---- Dates and times ----

TEST_F(Jb3ReaderPositions, ThirdPartOfADateEndsWhereItsNumberEnds) {
  EXPECT_EQ(DateOf("1-2-2016-4"), (Parts{1, 2, 2016}));
}

TEST_F(Jb3ReaderPositions, PartsOfADateThatAreNoNumbersAreZero) {
  EXPECT_EQ(DateOf("5-May-2016"), (Parts{5, 0, 2016}));
}

TEST_F(Jb3ReaderPositions, YearOfTwoDigitsIsKept) {
  EXPECT_EQ(DateOf("1-2-16"), (Parts{1, 2, 16}));
}

TEST_F(Jb3ReaderPositions, PartsOfADateBeyondTheirTypesAreCutToThem) {
  EXPECT_EQ(DateOf("300-13-2016"), (Parts{300 - 256, 13, 2016}));
  EXPECT_EQ(DateOf("31-300-99999"), (Parts{31, 300 - 256, 32000}));
}

TEST_F(Jb3ReaderPositions, TimeWithoutMinutesAfterItsDividerIsTheHour) {
  EXPECT_EQ(TimeOf("7:"), 7u * 3'600'000);
}

TEST_F(Jb3ReaderPositions, PartsOfATimeAreNotHeldToTheClock) {
  EXPECT_EQ(TimeOf("25:61:61"), ((25u * 60 + 61) * 60 + 61) * 1000);
}

TEST_F(Jb3ReaderPositions, SecondsEndWhereTheirNumberEnds) {
  EXPECT_EQ(TimeOf("7:5:9:3"), ((7u * 60 + 5) * 60 + 9) * 1000);
}

TEST_F(Jb3ReaderPositions, PartsOfATimeThatAreNoNumbersAreZero) {
  EXPECT_EQ(TimeOf("x:5:y"), 5u * 60'000);
}

TEST_F(Jb3ReaderPositions, PointAfterNumbersThatNoTypeHoldsIsReadToo) {
  Read(
      "<Job><GpsBase><GpsPnts><GpsPnt date=\"99999999999999999999-1-1\" "
      "time=\"99999999999999999999:99999999999999999999:99999999999999999999\">"
      "<GpsSat no_gps=\"99999999999999999999\" no_glonass=\"-99999999999999999999\"/></GpsPnt>"
      "<GpsPnt name=\"2\" time=\"2147483647:00:00\"/><GpsPnt "
      "name=\"3\"/></GpsPnts></GpsBase></Job>");
  ASSERT_EQ(Gps().GetPunArSize(0), 3);
  EXPECT_EQ(Gps().GetPunAt(0, 2)->GetNome(), WString("3"));
}

// ---- Precision and satellites ----

TEST_F(Jb3ReaderPositions, PrecisionThatIsNotThereStaysUndefined) {
  const CPunGps& point = ReadGpsPoint("", "<GpsStat gdop=\"2\" qyz=\"3\"/>");
  EXPECT_FALSE(IsDefined(point.GetPdop()));
  EXPECT_EQ(point.GetGdop(), 2);
  EXPECT_FALSE(IsDefined(point.GetHposRms()));
  EXPECT_FALSE(IsDefined(point.GetVposRms()));
  EXPECT_FALSE(IsDefined(static_cast<double>(point.GetPosCov_yy())));
  EXPECT_EQ(point.GetPosCov_yz(), 3.0F);
}

TEST_F(Jb3ReaderPositions, BlankCovarianceIsZero) {
  const CPunGps& point = ReadGpsPoint("", "<GpsStat qxx=\" \"/>");
  EXPECT_EQ(point.GetPosCov_xx(), 0.0F);
}

TEST_F(Jb3ReaderPositions, CovarianceIsRoundedToSinglePrecision) {
  const CPunGps& point = ReadGpsPoint("", "<GpsStat qxx=\"0.123456789\"/>");
  EXPECT_EQ(point.GetPosCov_xx(), 0.123456789F);
}

TEST_F(Jb3ReaderPositions, CovarianceBeyondSinglePrecisionIsUndefined) {
  const CPunGps& point = ReadGpsPoint("", "<GpsStat qxx=\"1e60\"/>");
  EXPECT_FALSE(std::isfinite(point.GetPosCov_xx()));
}

TEST_F(Jb3ReaderPositions, CountsThatAreNoNumbersAreZero) {
  const CPunGps& point = ReadGpsPoint("", "<GpsSat no_gps=\"many\" no_glonass=\"\"/>");
  EXPECT_EQ(point.GetNuGpsUsed(), 0);
  EXPECT_EQ(point.GetNuGloUsed(), 0);
}

TEST_F(Jb3ReaderPositions, CountsAreWholeNumbers) {
  const CPunGps& point = ReadGpsPoint("", "<GpsSat no_gps=\"9.9\" no_glonass=\"5 or 6\"/>");
  EXPECT_EQ(point.GetNuGpsUsed(), 9);
  EXPECT_EQ(point.GetNuGloUsed(), 5);
}

TEST_F(Jb3ReaderPositions, GalileoSatellitesAreNotCounted) {
  const CPunGps& point =
      ReadGpsPoint("", "<GpsSat no_gps=\"7\" no_glonass=\"4\" no_galileo=\"12\"/>");
  EXPECT_EQ(point.GetNuGpsUsed(), 7);
  EXPECT_EQ(point.GetNuGloUsed(), 4);
}

TEST_F(Jb3ReaderPositions, EmptySolutionLeavesTheQuality) {
  EXPECT_EQ(ReadGpsPoint("solution=\"\"").GetQua(), CPunGps().GetQua());
}

}  // namespace
