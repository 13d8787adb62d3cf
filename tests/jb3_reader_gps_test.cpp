// The JB3 reader: GPS groups, GPS points, known points and control records.
#include "tests/support/add_policies.h"
#include "tests/support/jb3_documents.h"

using namespace exchange_test;
using tdk::WString;

namespace {

using Jb3GpsReader = Jb3Test;
using Jb3KnownReader = Jb3Test;

// ---- Groups ----

TEST_F(Jb3GpsReader, ReadsAGroup) {
  Read(
      "<Job name=\"GPS\"><GpsBase name=\"B\" desc=\"roof\" type=\"L1\" start_date=\"01-02-2016\" "
      "start_time=\"07:05\" end_date=\"x\" end_time=\"y\" correction=\"RTK\">"
      "<GeoCoords cfx=\"1\" cfy=\"2\" cfz=\"3\" antenna_height=\"1.8\"/>"
      "<PlaniCoords north=\"4\" east=\"5\" elevation=\"6\"/></GpsBase></Job>");
  const CGrpGps& group = *Gps().GetGrpAt(0);
  EXPECT_EQ(group.GetNomeGrp(), WString("B"));
  EXPECT_EQ(group.GetNome(), WString("B"));
  EXPECT_EQ(group.GetSecScri(), WString("roof"));
  EXPECT_EQ(group.GetData(), WString("01-02-2016"));
  EXPECT_EQ(group.GetTipoRicevitore(), 1);
  EXPECT_EQ(group.GetTipoRilievo(), 2);
  EXPECT_EQ(group.GetBaseAltAnt(), 1.8);
  double x = 0, y = 0, z = 0;
  group.GetGeocCeFaMis(x, y, z);
  EXPECT_EQ(x + 10 * y + 100 * z, 321);
  EXPECT_EQ(group.GetCoordX(), 5);
  EXPECT_EQ(group.GetCoordY(), 4);
  EXPECT_EQ(group.GetCoordZ(), 6);
}

TEST_F(Jb3GpsReader, TakesEveryReceiverButL1ForOneOfTwoFrequencies) {
  Read("<Job><GpsBase type=\"L2\"/><GpsBase type=\"l1\"/><GpsBase type=\"\"/></Job>");
  for (int i = 0; i < 3; ++i) EXPECT_EQ(Gps().GetGrpAt(i)->GetTipoRicevitore(), 2) << i;
}

TEST_F(Jb3GpsReader, ReadsACorrectionOfBasAsSurveyTypeTwo) {
  Read("<Job><GpsBase correction=\"BAS\"/><GpsBase correction=\"1\"/></Job>");
  EXPECT_EQ(Gps().GetGrpAt(0)->GetTipoRilievo(), 2);
  EXPECT_EQ(Gps().GetGrpAt(1)->GetTipoRilievo(), 2);
}

TEST_F(Jb3GpsReader, HandsMissingGeocentricCoordinatesOverAsUndefined) {
  Read("<Job><GpsBase><GeoCoords cfy=\"2\"/></GpsBase></Job>");
  double x = 0, y = 0, z = 0;
  Gps().GetGrpAt(0)->GetGeocCeFaMis(x, y, z);
  EXPECT_EQ(x, UndefinedValue);
  EXPECT_EQ(y, 2);
  EXPECT_EQ(z, UndefinedValue);
}

TEST_F(Jb3GpsReader, SkipsAGroupThatTheHostRefuses) {
  RefuseKinds groups({AddedKind::kGpsGroup});
  Gps().SetAddPolicy(&groups);
  Read("<Job><GpsBase><GpsPnts><GpsPnt/></GpsPnts></GpsBase></Job>");
  EXPECT_EQ(Gps().GetGrpArSize(), 0);
}

TEST_F(Jb3GpsReader, SkipsTheRestOfAListAtTheFirstPointThatTheHostRefuses) {
  RefuseAfter two(2);
  Gps().SetAddPolicy(&two);
  Read(
      "<Job><GpsBase><GpsPnts><GpsPnt/><GpsPnt/><GpsPnt/></GpsPnts>"
      "<GeoCoords antenna_height=\"2\"/></GpsBase></Job>");
  EXPECT_EQ(Gps().GetPunArSize(0), 1);
  EXPECT_EQ(Gps().GetGrpAt(0)->GetBaseAltAnt(), 2);
}

// ---- Points ----

TEST_F(Jb3GpsReader, ReadsAPoint) {
  const CPunGps& point = ReadGpsPoint(
      "name=\"1\" desc=\"wall\" date=\"31-12-2016\" time=\"23:59:58\" solution=\"fixed\"",
      "<GeoCoords cfx=\"1\" cfy=\"2\" cfz=\"3\" antenna_height=\"1.8\"/>"
      "<GpsStat pdop=\"1\" gdop=\"2\" hrms=\"3\" vrms=\"4\" qxx=\"1e-12\" qxy=\"0.5\" qxz=\"3\" "
      "qyy=\"4\" qyz=\"5\" qzz=\"6\"/>"
      "<GpsSat no_gps=\"9\" no_glonass=\"5\" no_galileo=\"7\"/>"
      "<PlaniCoords north=\"4\" east=\"5\" elevation=\"6\"/>");
  EXPECT_EQ(point.GetNome(), WString("1"));
  EXPECT_EQ(point.GetCode(), WString("wall"));
  EXPECT_EQ(point.GetDay(), 31);
  EXPECT_EQ(point.GetMonth(), 12);
  EXPECT_EQ(point.GetYear(), 2016);
  EXPECT_EQ(point.GetTod(), 86'398'000u);
  EXPECT_EQ(point.GetQua(), 4);
  EXPECT_EQ(point.GetAltAnt(), 1.8);
  double x = 0, y = 0, z = 0;
  point.GetGeocCeFaMis(x, y, z);
  EXPECT_EQ(x + 10 * y + 100 * z, 321);
  EXPECT_EQ(point.GetPdop(), 1);
  EXPECT_EQ(point.GetGdop(), 2);
  EXPECT_EQ(point.GetHposRms(), 3);
  EXPECT_EQ(point.GetVposRms(), 4);
  EXPECT_EQ(point.GetPosCov_xx(), 1e-12F);
  EXPECT_EQ(point.GetPosCov_xy(), 0.5F);
  EXPECT_EQ(point.GetPosCov_xz(), 3);
  EXPECT_EQ(point.GetPosCov_yy(), 4);
  EXPECT_EQ(point.GetPosCov_yz(), 5);
  EXPECT_EQ(point.GetPosCov_zz(), 6);
  EXPECT_EQ(point.GetNuGpsUsed(), 9);
  EXPECT_EQ(point.GetNuGloUsed(), 5);
  EXPECT_EQ(point.GetCoordX(), 5);
  EXPECT_EQ(point.GetCoordY(), 4);
}

TEST_F(Jb3GpsReader, ReadsDatesWithoutLeadingZeros) {
  const CPunGps& point = ReadGpsPoint("date=\"1-2-2016\"");
  EXPECT_EQ(point.GetDay(), 1);
  EXPECT_EQ(point.GetMonth(), 2);
  EXPECT_EQ(point.GetYear(), 2016);
}

TEST_F(Jb3GpsReader, SetsNothingForADateWithoutTwoDividers) {
  for (const char* date : {"", "2016", "1-2", "-1-2016", "1--2016", "01/02/2016"}) {
    const CPunGps& point = ReadGpsPoint(std::string("date=\"") + date + "\"");
    EXPECT_EQ(point.GetDay() + point.GetMonth() + point.GetYear(), 0) << date;
  }
}

TEST_F(Jb3GpsReader, ReadsTimes) {
  EXPECT_EQ(ReadGpsPoint("time=\"7:5\"").GetTod(), 25'500'000u);
  EXPECT_EQ(ReadGpsPoint("time=\"7:5:9\"").GetTod(), 25'509'000u);
  EXPECT_EQ(ReadGpsPoint("time=\"07:05:09.9\"").GetTod(), 25'509'000u);
  EXPECT_EQ(ReadGpsPoint("time=\"00:00:01\"").GetTod(), 1'000u);
  EXPECT_EQ(ReadGpsPoint("time=\"7::9\"").GetTod(), 25'200'000u) << "the rest is the minutes";
}

TEST_F(Jb3GpsReader, SetsNothingForATimeWithoutADivider) {
  for (const char* time : {"07", "", ":5", ":"}) {
    EXPECT_EQ(ReadGpsPoint(std::string("time=\"") + time + "\"").GetTod(), 0u) << time;
  }
}

struct SolutionWord {
  const char* word;
  int quality;
};

class Jb3Solution : public Jb3Test, public testing::WithParamInterface<SolutionWord> {};

TEST_P(Jb3Solution, IsReadFromItsWord) {
  EXPECT_EQ(ReadGpsPoint("solution=\"" + std::string(GetParam().word) + "\"").GetQua(),
            GetParam().quality);
}

INSTANTIATE_TEST_SUITE_P(Each, Jb3Solution,
                         testing::Values(SolutionWord{"calc", -1}, SolutionWord{"no sol", 0},
                                         SolutionWord{"autonomous", 1}, SolutionWord{"code", 2},
                                         SolutionWord{"float", 3}, SolutionWord{"fixed", 4}));

TEST_F(Jb3GpsReader, LeavesTheQualityForAnyOtherWord) {
  EXPECT_EQ(ReadGpsPoint("solution=\"float\" solution2=\"x\"").GetQua(), 3);
  EXPECT_EQ(ReadGpsPoint("solution=\"Fixed\"").GetQua(), CPunGps().GetQua());
}

TEST_F(Jb3GpsReader, KeepsNumbersBeyondTheirTypesAsTheTypesHoldThem) {
  const CPunGps& point =
      ReadGpsPoint("date=\"32-13-70000\"", "<GpsSat no_gps=\"300\" no_glonass=\"-1\"/>");
  EXPECT_EQ(point.GetNuGpsUsed(), 300 - 256);
  EXPECT_EQ(point.GetNuGloUsed(), 255);
  EXPECT_EQ(point.GetMonth(), 13);
  EXPECT_EQ(point.GetYear(), 32000) << "a short number ends there";
}

// ---- Known points ----

TEST_F(Jb3KnownReader, ReadsGenericPointsIntoOneNewGroup) {
  Read(
      "<KnownPoints><KnownPoint name=\"1\" desc=\"D\" type=\"generic\">"
      "<PlaniCoords north=\"2\" east=\"1\" elevation=\"3\"/></KnownPoint>"
      "<KnownPoint name=\"2\" type=\"generic\"/></KnownPoints>");
  ASSERT_EQ(Known().GetGrpArSize(), 1);
  WString first, second, third, fourth;
  Known().GetGrpAt(0)->GetLabels(first, second, third, fourth);
  EXPECT_EQ(first, WString("Grp01"));
  EXPECT_TRUE(second.IsEmpty() && third.IsEmpty() && fourth.IsEmpty());
  ASSERT_EQ(Known().GetPtnArSize(0), 2);
  EXPECT_EQ(Known().GetPtnAt(0, 0)->GetNome(), WString("1"));
  EXPECT_EQ(Known().GetPtnAt(0, 0)->GetSecScri(), WString("D"));
  EXPECT_EQ(Known().GetPtnAt(0, 0)->GetCoordX(), 1);
  EXPECT_FALSE(IsDefined(Known().GetPtnAt(0, 1)->GetCoordX()));
}

TEST_F(Jb3KnownReader, MakesAGroupForEachElement) {
  const std::string element = "<KnownPoints><KnownPoint type=\"generic\"/></KnownPoints>";
  Read(element + element);
  ASSERT_EQ(Known().GetGrpArSize(), 2);
  EXPECT_EQ(Known().GetGrpAt(1)->GetNome(), WString("Grp02"));
  EXPECT_EQ(Known().GetPtnArSize(1), 1);
}

TEST_F(Jb3KnownReader, NumbersItsGroupAfterThoseThatAreThere) {
  for (int i = 0; i < 11; ++i) Known().AddGrp(true);
  Read("<KnownPoints><KnownPoint type=\"generic\"/></KnownPoints>");
  EXPECT_EQ(Known().GetGrpAt(11)->GetNome(), WString("Grp12"));
}

TEST_F(Jb3KnownReader, MakesNoGroupForControlRecordsOnly) {
  Read(
      "<KnownPoints><KnownPoint name=\"C\" desc=\"D\" type=\"ctrl\">"
      "<PlaniCoords north=\"2\" east=\"1\" elevation=\"3\"/></KnownPoint></KnownPoints>");
  EXPECT_EQ(Known().GetGrpArSize(), 0);
  ASSERT_EQ(Jobs().GetOriArSize(), 1);
  EXPECT_EQ(Jobs().GetOriAt(0)->GetNome(), WString("C"));
  EXPECT_EQ(Jobs().GetOriAt(0)->GetSecScri(), WString("D"));
  EXPECT_EQ(Jobs().GetOriAt(0)->GetCoordY(), 2);
}

TEST_F(Jb3KnownReader, SkipsPointsOfAnotherTypeOrNone) {
  Read(
      "<KnownPoints><KnownPoint name=\"1\" type=\"other\"/><KnownPoint name=\"2\"/>"
      "<KnownPoint name=\"3\" type=\"Generic\"/></KnownPoints>");
  EXPECT_EQ(Known().GetGrpArSize() + Jobs().GetOriArSize(), 0);
}

TEST_F(Jb3KnownReader, DoesNotLookAtTheNamesOfThePoints) {
  Read("<KnownPoints><Anything name=\"1\" type=\"generic\"/></KnownPoints>");
  EXPECT_EQ(Known().GetPtnArSize(0), 1);
}

TEST_F(Jb3KnownReader, TakesTheLastCoordinatesOfAPoint) {
  Read(
      "<KnownPoints><KnownPoint type=\"ctrl\"><PlaniCoords north=\"1\" east=\"1\" elevation=\"1\"/>"
      "<PlaniCoords north=\"2\" east=\"2\" elevation=\"2\"/></KnownPoint>"
      "<KnownPoint type=\"ctrl\"/></KnownPoints>");
  EXPECT_EQ(Jobs().GetOriAt(0)->GetCoordX(), 2);
  EXPECT_FALSE(IsDefined(Jobs().GetOriAt(1)->GetCoordX()));
}

TEST_F(Jb3KnownReader, EndsAnElementAtTheFirstAddThatTheHostRefuses) {
  const std::string points =
      "<KnownPoints><KnownPoint name=\"1\" type=\"generic\"/>"
      "<KnownPoint name=\"2\" type=\"generic\"/><KnownPoint name=\"3\" "
      "type=\"ctrl\"/></KnownPoints>";
  RefuseAfter two(2);  // the group and a point
  Known().SetAddPolicy(&two);
  Read(points);
  EXPECT_EQ(Known().GetPtnArSize(0), 1);
  EXPECT_EQ(Jobs().GetOriArSize(), 0);
  RefuseKinds groups({AddedKind::kKnownGroup});
  Known().SetAddPolicy(&groups);
  Read(points);
  EXPECT_EQ(Jobs().GetOriArSize(), 0);
  Known().SetAddPolicy(nullptr);
  RefuseKinds records({AddedKind::kControlRecord});
  Jobs().SetAddPolicy(&records);
  Read("<KnownPoints><KnownPoint type=\"ctrl\"/><KnownPoint type=\"generic\"/></KnownPoints>");
  EXPECT_EQ(Known().GetGrpArSize(), 1);
}

TEST_F(Jb3KnownReader, SharesItsGroupCounterWithGpsGroups) {
  for (int i = 0; i < 3; ++i) Gps().AddGrp(true);
  Read(
      "<KnownPoints><KnownPoint type=\"generic\"/></KnownPoints>"
      "<Job><GpsBase name=\"B\"><GpsPnts><GpsPnt name=\"1\"/></GpsPnts></GpsBase></Job>");
  EXPECT_EQ(Gps().GetGrpArSize(), 4);
  EXPECT_EQ(Gps().GetPunArSize(3), 0);
  EXPECT_EQ(Gps().GetPunArSize(1), 1) << "one after the known-point group";
}

}  // namespace
