// The JB3 writer: GPS groups with all their children, spans, dates, precision and covariances.
#include <limits>

#include "tests/support/jb3_documents.h"

using namespace exchange_test;

namespace {

constexpr unsigned long kMinute = 60'000;
constexpr unsigned long kHour = 60 * kMinute;

class Jb3WriterPositions : public Jb3Test {
 protected:
  CPunGps& AddAt(int group, int day, int month, int year, unsigned long time) {
    while (Gps().GetGrpArSize() <= group) Gps().AddGrp(true);
    CPunGps& point = *Gps().AddPun(group, true);
    point.SetDay(static_cast<std::uint8_t>(day));
    point.SetMonth(static_cast<std::uint8_t>(month));
    point.SetYear(static_cast<std::uint16_t>(year));
    point.SetTod(time);
    return point;
  }
  /// "date time date time" of the first group.
  std::string Span() {
    return WrittenValue("GpsBase", "start_date") + ' ' + WrittenValue("GpsBase", "start_time") +
           ' ' + WrittenValue("GpsBase", "end_date") + ' ' + WrittenValue("GpsBase", "end_time");
  }
};

TEST_F(Jb3WriterPositions, GroupAndPointHaveAllTheirChildrenInOrder) {
  CGrpGps& group = *Gps().AddGrp(true);
  group.SetNome("B");
  group.SetTipoRilievo(2);
  group.SetGeocCeFaMis(1, 2, 3);
  group.SetBaseAltAnt(1.8);
  group.SetCoord(4, 5, 6);
  CPunGps& point = AddAt(0, 5, 3, 2016, 7 * kHour + 5 * kMinute + 9'999);
  point.SetNome("P");
  point.SetSecScri("D");
  point.SetQua(3);
  point.SetGeocCeFaMis(-7, 8, 9);
  point.SetAltAnt(2.0004);
  point.SetPdop(1.1);
  point.SetGdop(1.2);
  point.SetHposRms(0.013);
  point.SetVposRms(0);
  point.SetPosCov_xx(0.5F);
  point.SetPosCov_xy(-2e-6F);
  point.SetPosCov_xz(2e-7F);
  point.SetPosCov_yy(0.25F);
  point.SetPosCov_yz(0);
  point.SetPosCov_zz(-1e-12F);
  point.SetNuGpsUsed(9);
  point.SetNuGloUsed(12);
  point.SetCoord(10, 20, 30);
  Gps().AddGrp(true)->SetNome("C");
  Jobs().AddJob(true)->SetNome("J");
  const std::string text = Written();
  EXPECT_EQ(
      text.substr(text.find("    <Job ")),
      "    <Job name=\"J\" />\n"
      "    <Job name=\"GPS\">\n"
      "        <GpsBase name=\"B\" type=\"L2\" start_date=\"05-03-2016\" start_time=\"07:05\" "
      "end_date=\"05-03-2016\" end_time=\"07:05\" correction=\"RTK\">\n"
      "            <GeoCoords cfx=\"1.000\" cfy=\"2.000\" cfz=\"3.000\" antenna_height=\"1.800\" "
      "/>\n"
      "            <PlaniCoords north=\"5.000\" east=\"4.000\" elevation=\"6.000\" />\n"
      "            <GpsPnts>\n"
      "                <GpsPnt name=\"P\" desc=\"D\" date=\"05-03-2016\" time=\"07:05:09\" "
      "solution=\"float\">\n"
      "                    <GeoCoords cfx=\"-7.000\" cfy=\"8.000\" cfz=\"9.000\" "
      "antenna_height=\"2.000\" />\n"
      "                    <GpsStat pdop=\"1.100\" gdop=\"1.200\" hrms=\"0.013\" vrms=\"0.000\" "
      "qxx=\"0.50000000\" qxy=\"-0.000002000\" qxz=\"0.0000002000\" qyy=\"0.25000000\" qyz=\"0\" "
      "qzz=\"-0.0000000001\" />\n"
      "                    <GpsSat no_gps=\"9\" no_glonass=\"12\" no_galileo=\"0\" />\n"
      "                    <PlaniCoords north=\"20.000\" east=\"10.000\" elevation=\"30.000\" />\n"
      "                </GpsPnt>\n"
      "            </GpsPnts>\n"
      "        </GpsBase>\n"
      "        <GpsBase name=\"C\" type=\"L2\" start_date=\"\" start_time=\"\" end_date=\"\" "
      "end_time=\"\" correction=\"RTK\">\n"
      "            <GpsPnts />\n"
      "        </GpsBase>\n"
      "    </Job>\n"
      "</JB3>\n");
}

TEST_F(Jb3WriterPositions, NoGroupMeansNoGpsJob) {
  Jobs().AddJob(true);
  EXPECT_FALSE(IsWritten("name=\"GPS\""));
}

TEST_F(Jb3WriterPositions, DateOfTheGroupItselfIsNotWritten) {
  Gps().AddGrp(true)->SetData("01-02-2016");
  EXPECT_FALSE(IsWritten("2016"));
}

TEST_F(Jb3WriterPositions, PositionOfABaseIsLeftOutUnlessAllFourAreDefined) {
  CGrpGps& group = *Gps().AddGrp(true);
  group.SetBaseAltAnt(1.8);
  EXPECT_FALSE(IsWritten("GeoCoords"));
  group.SetGeocCeFaMis(1, 2, 3);
  group.SetBaseAltAnt(UndefinedValue);
  EXPECT_FALSE(IsWritten("GeoCoords"));
}

// ---- The span of a group ----

TEST_F(Jb3WriterPositions, SpanComparesYearsBeforeMonthsBeforeDays) {
  AddAt(0, 31, 1, 2016, kHour);
  AddAt(0, 1, 2, 2016, kHour);
  AddAt(0, 15, 12, 2015, kHour);
  EXPECT_EQ(Span(), "15-12-2015 01:00 01-02-2016 01:00");
}

TEST_F(Jb3WriterPositions, SpanIsThatOfTheGroupsOwnPoints) {
  AddAt(0, 2, 2, 2016, kHour);
  AddAt(1, 1, 1, 2015, kMinute);
  AddAt(1, 3, 3, 2017, 2 * kHour);
  EXPECT_EQ(Span(), "02-02-2016 01:00 02-02-2016 01:00");
}

TEST_F(Jb3WriterPositions, PointWithoutATimeDoesNotWidenTheSpan) {
  AddAt(0, 2, 2, 2016, kHour);
  AddAt(0, 1, 1, 2015, 0);
  AddAt(0, 0, 1, 2015, kMinute);
  EXPECT_EQ(Span(), "02-02-2016 01:00 02-02-2016 01:00");
}

TEST_F(Jb3WriterPositions, GroupOfCodedPointsHasNoSpanButItsPoints) {
  AddAt(0, 2, 2, 2016, kHour).SetCodedNP(true);
  EXPECT_EQ(Span(), "   ");
  EXPECT_EQ(WrittenValue("GpsPnt", "date"), "02-02-2016");
}

TEST_F(Jb3WriterPositions, SpanIsRoundedToTheNearestMinute) {
  AddAt(0, 2, 2, 2016, kHour + 29'999);
  AddAt(0, 2, 2, 2016, 2 * kHour + 30'001);
  EXPECT_EQ(Span(), "02-02-2016 01:00 02-02-2016 02:01");
}

TEST_F(Jb3WriterPositions, SpanBeginsBefore2101AndEndsAfter1899) {
  CPunGps& point = AddAt(0, 5, 1, 2101, kHour);
  EXPECT_EQ(Span(), "31-12-2100 01:00 05-01-2101 01:00");
  point.SetYear(1850);
  EXPECT_EQ(Span(), "05-01-1850 01:00 01-01-1900 01:00");
}

TEST_F(Jb3WriterPositions, SpanBeginsWithinADay) {
  AddAt(0, 2, 2, 2016, 25 * kHour);
  EXPECT_EQ(Span(), "02-02-2016 24:00 02-02-2016 25:00");
}

// ---- Dates and times of points ----

TEST_F(Jb3WriterPositions, PartsOfADateAreFilledWithZeros) {
  AddAt(0, 5, 3, 16, 0);
  EXPECT_EQ(WrittenValue("GpsPnt", "date"), "05-03-0016");
}

TEST_F(Jb3WriterPositions, DateWithoutAMonthOrYearIsLeftOut) {
  CPunGps& point = AddAt(0, 5, 0, 2016, 0);
  EXPECT_EQ(WrittenValue("GpsPnt", "date"), "(none)");
  point.SetMonth(3);
  point.SetYear(0);
  EXPECT_EQ(WrittenValue("GpsPnt", "date"), "(none)");
}

TEST_F(Jb3WriterPositions, LargestDateIsWrittenWhole) {
  AddAt(0, 255, 255, 65535, 0);
  EXPECT_EQ(WrittenValue("GpsPnt", "date"), "255-255-65535");
}

TEST_F(Jb3WriterPositions, TimeBelowASecondIsStillATime) {
  AddAt(0, 0, 0, 0, 999);
  EXPECT_EQ(WrittenValue("GpsPnt", "time"), "00:00:00");
}

TEST_F(Jb3WriterPositions, TimeBeyondADayCountsOn) {
  AddAt(0, 0, 0, 0, 25 * kHour + kMinute + 1000);
  EXPECT_EQ(WrittenValue("GpsPnt", "time"), "25:01:01");
}

// ---- Precision ----

TEST_F(Jb3WriterPositions, VerticalPrecisionAloneIsWritten) {
  AddGpsPoint().SetVposRms(0.0186);
  EXPECT_TRUE(
      IsWritten("<GpsStat vrms=\"0.019\" qxx=\" \" qxy=\" \" qxz=\" \" qyy=\" \" qyz=\" \" "
                "qzz=\" \" />"));
}

TEST_F(Jb3WriterPositions, PrecisionOfZeroIsWritten) {
  AddGpsPoint().SetHposRms(0);
  EXPECT_EQ(WrittenValue("GpsStat", "hrms"), "0.000");
}

TEST_F(Jb3WriterPositions, PrecisionAtTheUndefinedLimitIsNotThere) {
  AddGpsPoint().SetPdop(UndefinedValueLimit);
  EXPECT_FALSE(IsWritten("GpsStat"));
}

struct CovarianceOf {
  const char* name;
  float value;
  const char* text;
};
void PrintTo(const CovarianceOf& with, std::ostream* out) { *out << with.name; }

class Jb3CovarianceText : public Jb3WriterPositions,
                          public testing::WithParamInterface<CovarianceOf> {};

// The value is widened from single precision first: 1e-5F lies a little below 0.00001.
TEST_P(Jb3CovarianceText, HasTheDecimalsOfItsSize) {
  CPunGps& point = AddGpsPoint();
  point.SetPdop(1);
  point.SetPosCov_xy(GetParam().value);
  EXPECT_EQ(WrittenValue("GpsStat", "qxy"), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(
    Each, Jb3CovarianceText,
    testing::Values(CovarianceOf{"AboveOne", 123.456F, "123.45600128"},
                    CovarianceOf{"JustAboveTheFirstLimit", 1.1e-5F, "0.00001100"},
                    CovarianceOf{"RoundedToEightDecimals", 1.2345678e-5F, "0.00001235"},
                    CovarianceOf{"OnTheFirstLimit", 1e-5F, "0.000010000"},
                    CovarianceOf{"OnTheFirstLimitBelowZero", -1e-5F, "-0.000010000"},
                    CovarianceOf{"BelowTheFirstLimit", 9e-6F, "0.000009000"},
                    CovarianceOf{"OnTheSecondLimit", 1e-6F, "0.0000010000"},
                    CovarianceOf{"OnTheThirdLimit", 1e-7F, "0.0000001000"},
                    CovarianceOf{"BelowTheThirdLimit", 9e-8F, "0.0000000900"},
                    CovarianceOf{"RoundedUpToTheLastDecimal", 6e-11F, "0.0000000001"},
                    CovarianceOf{"TooSmall", 4e-11F, "0.0000000001"},
                    CovarianceOf{"TooSmallBelowZero", -4e-11F, "-0.0000000001"},
                    CovarianceOf{"Smallest", std::numeric_limits<float>::denorm_min(),
                                 "0.0000000001"},
                    CovarianceOf{"ZeroWithASign", -0.0F, "0"},
                    CovarianceOf{"NoNumber", std::numeric_limits<float>::quiet_NaN(), " "}),
    [](const auto& each) { return std::string(each.param.name); });

}  // namespace
