// The JB3 writer: GPS groups and points.
#include "tests/support/jb3_documents.h"

using namespace exchange_test;
using tdk::WString;

namespace {

class Jb3GpsWriter : public Jb3Test {
 protected:
  CPunGps& AddAt(int day, int month, int year, unsigned long time) {
    CPunGps& point = AddGpsPoint();
    point.SetDay(static_cast<std::uint8_t>(day));
    point.SetMonth(static_cast<std::uint8_t>(month));
    point.SetYear(static_cast<std::uint16_t>(year));
    point.SetTod(time);
    return point;
  }
  /// Start date and time, end date and time of the group.
  std::vector<std::string> Span() {
    return {WrittenValue("GpsBase", "start_date"), WrittenValue("GpsBase", "start_time"),
            WrittenValue("GpsBase", "end_date"), WrittenValue("GpsBase", "end_time")};
  }
  /// A point whose six covariances are all `value`, as text.
  std::string CovarianceText(float value) {
    CPunGps& point = AddGpsPoint();
    point.SetPdop(1);
    for (const auto set :
         {&CPunGps::SetPosCov_xx, &CPunGps::SetPosCov_xy, &CPunGps::SetPosCov_xz,
          &CPunGps::SetPosCov_yy, &CPunGps::SetPosCov_yz, &CPunGps::SetPosCov_zz}) {
      (point.*set)(value);
    }
    EXPECT_EQ(WrittenValue("GpsStat", "qzz"), WrittenValue("GpsStat", "qxx"));
    return WrittenValue("GpsStat", "qxx");
  }

  using Texts = std::vector<std::string>;
};

constexpr unsigned long kMinute = 60'000;
constexpr unsigned long kHour = 60 * kMinute;

// ---- The span of a group ----

TEST_F(Jb3GpsWriter, WritesTheSpanOfItsPoints) {
  AddAt(2, 3, 2016, 10 * kHour);
  AddAt(1, 3, 2016, 11 * kHour);
  AddAt(3, 2, 2016, 9 * kHour + 5 * kMinute);
  EXPECT_EQ(Span(), (Texts{"03-02-2016", "09:05", "02-03-2016", "11:00"}));
}

TEST_F(Jb3GpsWriter, WritesAnEmptySpanWhenNoPointHasATime) {
  AddAt(1, 3, 2016, 0);
  AddAt(0, 3, 2016, kHour);
  AddAt(1, 0, 2016, kHour);
  AddAt(1, 3, 0, kHour);
  EXPECT_EQ(Span(), (Texts{"", "", "", ""}));
}

TEST_F(Jb3GpsWriter, TakesTheSmallestClockTimeForTheStartOfANight) {
  AddAt(1, 3, 2016, 23 * kHour + 50 * kMinute);
  AddAt(2, 3, 2016, 10 * kMinute);
  EXPECT_EQ(Span(), (Texts{"01-03-2016", "00:10", "02-03-2016", "23:50"}));
}

TEST_F(Jb3GpsWriter, RoundsTheTimesOfASpanToMinutes) {
  AddAt(1, 3, 2016, 86'399'999);
  EXPECT_EQ(Span()[3], "24:00");
}

TEST_F(Jb3GpsWriter, LeavesCodedPointsOutOfTheSpan) {
  AddAt(1, 3, 2016, kHour).SetCodedNP(true);
  AddAt(2, 3, 2016, 2 * kHour);
  EXPECT_EQ(Span(), (Texts{"02-03-2016", "02:00", "02-03-2016", "02:00"}));
}

// ---- Groups ----

TEST_F(Jb3GpsWriter, WritesEveryReceiverButTypeOneAsL2) {
  CGrpGps& group = *Gps().AddGrp(true);
  for (const int type : {0, 2, 255}) {
    group.SetTipoRicevitore(static_cast<std::uint8_t>(type));
    EXPECT_EQ(WrittenValue("GpsBase", "type"), "L2") << type;
  }
  group.SetTipoRicevitore(1);
  EXPECT_EQ(WrittenValue("GpsBase", "type"), "L1");
}

TEST_F(Jb3GpsWriter, WritesABaseAsBasWhichIsReadAsSurveyTypeTwo) {
  Gps().AddGrp(true)->SetTipoRilievo(1);
  EXPECT_EQ(WrittenValue("GpsBase", "correction"), "BAS");
  HostDocument again;
  jb3::Jb3Reader(&parent, again, WString(folder.Path("out.jb3"))).Read();
  EXPECT_EQ(again.GetLibGps()->GetGrpAt(0)->GetTipoRilievo(), 2);
}

TEST_F(Jb3GpsWriter, WritesEverySurveyButTypeOneAsRtk) {
  Gps().AddGrp(true)->SetTipoRilievo(0);
  EXPECT_EQ(WrittenValue("GpsBase", "correction"), "RTK");
}

TEST_F(Jb3GpsWriter, LeavesGeocentricCoordinatesOutUnlessAllFourAreDefined) {
  CPunGps& point = AddGpsPoint();
  point.SetGeocCeFaMis(1, 2, 3);
  EXPECT_EQ(WrittenValue("GeoCoords", "antenna_height"), "0.000");
  point.SetAltAnt(UndefinedValue);
  EXPECT_FALSE(IsWritten("GeoCoords"));
  point.SetAltAnt(2);
  point.SetGeocCeFaMis(1, 2, UndefinedValue);
  EXPECT_FALSE(IsWritten("GeoCoords"));
}

TEST_F(Jb3GpsWriter, WritesAGroupWithoutPoints) {
  Gps().AddGrp(true);
  EXPECT_TRUE(IsWritten("            <GpsPnts />\n        </GpsBase>\n"));
}

// ---- Points ----

TEST_F(Jb3GpsWriter, WritesADateOnlyWhenNoPartOfItIsZero) {
  AddAt(5, 3, 2016, 0);
  EXPECT_EQ(WrittenValue("GpsPnt", "date"), "05-03-2016");
  EXPECT_EQ(WrittenValue("GpsPnt", "time"), "(none)");
  Gps().GetPunAt(0, 0)->SetDay(0);
  EXPECT_EQ(WrittenValue("GpsPnt", "date"), "(none)");
}

TEST_F(Jb3GpsWriter, CutsTimesToWholeSeconds) {
  AddAt(5, 3, 2016, 25'509'999);
  EXPECT_EQ(WrittenValue("GpsPnt", "time"), "07:05:09");
}

struct Quality {
  int quality;
  const char* word;
};

class Jb3WrittenQuality : public Jb3Test, public testing::WithParamInterface<Quality> {};

TEST_P(Jb3WrittenQuality, HasItsWord) {
  AddGpsPoint().SetQua(GetParam().quality);
  EXPECT_EQ(WrittenValue("GpsPnt", "solution"), GetParam().word);
}

INSTANTIATE_TEST_SUITE_P(Each, Jb3WrittenQuality,
                         testing::Values(Quality{-2, "(none)"}, Quality{-1, "calc"},
                                         Quality{0, "autonomous"}, Quality{1, "autonomous"},
                                         Quality{2, "code"}, Quality{3, "float"},
                                         Quality{4, "fixed"}, Quality{5, "(none)"}));

TEST_F(Jb3GpsWriter, WritesQualityZeroSoThatItIsReadAsOne) {
  AddGpsPoint().SetQua(0);
  Written();
  HostDocument again;
  jb3::Jb3Reader(&parent, again, WString(folder.Path("out.jb3"))).Read();
  EXPECT_EQ(again.GetLibGps()->GetPunAt(0, 0)->GetQua(), 1);
}

// ---- Precision ----

// Covariances always have a text, if only a blank: vertical precision alone is enough.
TEST_F(Jb3GpsWriter, WritesPrecisionWhenAnyOfItIsThere) {
  CPunGps& point = AddGpsPoint();
  EXPECT_FALSE(IsWritten("GpsStat"));
  for (const auto set :
       {&CPunGps::SetPdop, &CPunGps::SetGdop, &CPunGps::SetHposRms, &CPunGps::SetVposRms}) {
    (point.*set)(1.5);
    EXPECT_TRUE(IsWritten("GpsStat"));
    (point.*set)(UndefinedValue);
  }
}

TEST_F(Jb3GpsWriter, LeavesOutPrecisionThatIsUndefinedAndWritesAllCovariances) {
  CPunGps& point = AddGpsPoint();
  point.SetGdop(2.5);
  point.SetPosCov_xx(0.5F);
  EXPECT_TRUE(
      IsWritten("<GpsStat gdop=\"2.500\" qxx=\"0.50000000\" qxy=\" \" qxz=\" \" qyy=\" \" "
                "qyz=\" \" qzz=\" \" />"));
}

TEST_F(Jb3GpsWriter, LeavesCovariancesOutWithoutAnyPrecision) {
  AddGpsPoint().SetPosCov_xx(0.5F);
  EXPECT_FALSE(IsWritten("GpsStat"));
}

struct CovarianceCase {
  float value;
  const char* text;
};

class Jb3Covariance : public Jb3GpsWriter, public testing::WithParamInterface<CovarianceCase> {};

TEST_P(Jb3Covariance, IsWrittenWithAsManyDecimalsAsItNeeds) {
  EXPECT_EQ(CovarianceText(GetParam().value), GetParam().text) << GetParam().value;
}

INSTANTIATE_TEST_SUITE_P(
    Each, Jb3Covariance,
    testing::Values(CovarianceCase{0, "0"}, CovarianceCase{0.5F, "0.50000000"},
                    CovarianceCase{-0.5F, "-0.50000000"}, CovarianceCase{1e-12F, "0.0000000001"},
                    CovarianceCase{-1e-12F, "-0.0000000001"}, CovarianceCase{2e-5F, "0.00002000"},
                    CovarianceCase{2e-6F, "0.000002000"}, CovarianceCase{2e-7F, "0.0000002000"},
                    CovarianceCase{2e-8F, "0.0000000200"}, CovarianceCase{-2e-6F, "-0.000002000"},
                    CovarianceCase{0.1F, "0.10000000"}, CovarianceCase{UndefinedFloat, " "}));

TEST_F(Jb3GpsWriter, WritesTheCountsOfSatellites) {
  CPunGps& point = AddGpsPoint();
  point.SetNuGpsUsed(255);
  EXPECT_TRUE(IsWritten("<GpsSat no_gps=\"255\" no_glonass=\"0\" no_galileo=\"0\" />"));
}

}  // namespace
