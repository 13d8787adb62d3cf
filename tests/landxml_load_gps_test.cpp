// GPS positions of LandXML files as GPS groups.
#include <numbers>
#include <ostream>

#include "tests/support/landxml_load.h"

using namespace landxml_test;
using std::numbers::pi;
using tdk::WString;

namespace {

std::string Survey(const std::string& parts) {
  return "<Survey><SurveyHeader name=\"G\"/>" + parts + "</Survey>";
}
std::string Position(const std::string& name, const std::string& more = "") {
  return "<GPSPosition wgsLatitude=\"45\" wgsLongitude=\"9\" wgsHeight=\"150.5\"><TargetPoint "
         "name=\"" +
         name + "\" desc=\"corner\">10 20 30</TargetPoint>" + more + "</GPSPosition>";
}
const std::string kBase =
    "<GPSSetup id=\"B\" antennaHeight=\"1.5\" stationName=\"BASE\">"
    "<GPSPosition wgsLatitude=\"-30\" wgsLongitude=\"-60\" wgsHeight=\"99\">"
    "<TargetPoint>1 2 3</TargetPoint></GPSPosition></GPSSetup>";

class LandXmlLoadGps : public LandXmlLoad {
 protected:
  CGrpGps& Group() { return *Gps().GetGrpAt(0); }
  CPunGps& Rover(int i = 0) { return *Gps().GetPunAt(0, i); }
};

TEST_F(LandXmlLoadGps, SurveyIsAGroupWithItsBase) {
  Load(Survey(kBase + Position("1")));
  ASSERT_EQ(Gps().GetGrpArSize(), 1);
  EXPECT_EQ(Group().GetNomeGrp(), WString("G"));
  EXPECT_EQ(Group().GetNome(), WString("BASE"));
  EXPECT_EQ(Group().GetBaseAltAnt(), 1.5);
  EXPECT_NEAR(Group().GetStoredBase().lat, -pi / 6, 1e-12);
  EXPECT_NEAR(Group().GetStoredBase().lon, -pi / 3, 1e-12);
  EXPECT_EQ(Group().GetStoredBase().height, 99);
  ExpectAt(Group(), 2, 1, 3);
  EXPECT_EQ(Jobs().GetJobArSize(), 0);
  EXPECT_TRUE(remarks.empty()) << remarks[0];
}

TEST_F(LandXmlLoadGps, PositionsAreItsPoints) {
  Load(Survey(kBase + Position("1") + Position("2")));
  ASSERT_EQ(Gps().GetPunArSize(0), 2);
  EXPECT_EQ(Rover().GetNome(), WString("1"));
  EXPECT_EQ(Rover().GetCode(), WString("corner"));
  EXPECT_NEAR(Rover().GetStoredPlace().lat, pi / 4, 1e-12);
  EXPECT_NEAR(Rover().GetStoredPlace().lon, pi / 20, 1e-12);
  EXPECT_EQ(Rover().GetStoredPlace().height, 150.5);
  ExpectAt(Rover(), 20, 10, 30);
  EXPECT_EQ(Rover(1).GetNome(), WString("2"));
}

TEST_F(LandXmlLoadGps, PositionsInASetUpAreItsPointsButTheFirst) {
  Load(Survey("<GPSSetup id=\"B\" stationName=\"BASE\">" + Position("base") + Position("1") +
              Position("2") + "</GPSSetup>"));
  ASSERT_EQ(Gps().GetPunArSize(0), 2);
  EXPECT_EQ(Rover().GetNome(), WString("1"));
  EXPECT_NEAR(Group().GetStoredBase().lat, pi / 4, 1e-12);
}

TEST_F(LandXmlLoadGps, PositionsNeedNoBase) {
  Load(Survey(Position("1")));
  ASSERT_EQ(Gps().GetPunArSize(0), 1);
  EXPECT_FALSE(IsDefined(Group().GetStoredBase().lat));
}

TEST_F(LandXmlLoadGps, WhatIsNotThereIsUndefined) {
  Load(Survey("<GPSPosition/>"));
  ASSERT_EQ(Gps().GetPunArSize(0), 1);
  EXPECT_FALSE(IsDefined(Rover().GetStoredPlace().lat));
  EXPECT_FALSE(IsDefined(Rover().GetStoredPlace().height));
  EXPECT_FALSE(IsDefined(Rover().GetCoordX()));
  EXPECT_EQ(Rover().GetPosCov_xx(), UndefinedFloat);
  EXPECT_EQ(Rover().GetQua(), 0);
}

TEST_F(LandXmlLoadGps, SurveyOfBothKindsIsAJobAndAGroup) {
  Load(Survey("<InstrumentSetup id=\"s\"/>" + kBase + Position("1")));
  EXPECT_EQ(Jobs().GetStaArSize(0), 1);
  EXPECT_EQ(Gps().GetPunArSize(0), 1);
}

struct Quality {
  const char* word;
  int quality;
};
void PrintTo(const Quality& it, std::ostream* out) { *out << it.word; }

class LandXmlLoadQuality : public LandXmlLoadGps, public testing::WithParamInterface<Quality> {};

TEST_P(LandXmlLoadQuality, HasItsWord) {
  Load(Survey(Position("1", std::string("<GPSQCInfoLevel1 GPSSolnType=\"") + GetParam().word +
                                "\" nbrSatellites=\"7\"/>")));
  EXPECT_EQ(Rover().GetQua(), GetParam().quality);
  EXPECT_EQ(Rover().GetNuGpsUsed(), 7);
}

INSTANTIATE_TEST_SUITE_P(Each, LandXmlLoadQuality,
                         testing::Values(Quality{"Code", 2}, Quality{"Float", 3},
                                         Quality{"Fixed", 4}, Quality{"Unknown", 0}),
                         [](const auto& it) { return std::string(it.param.word); });

TEST_F(LandXmlLoadGps, PositionHasItsCovariancesAndSatellites) {
  Load(Survey(Position("1",
                       "<GPSQCInfoLevel2 GPSSolnType=\"Fixed\" covarianceXX=\"1.5\" "
                       "covarianceXY=\"-2.5\" covarianceXZ=\"3.5\" covarianceYY=\"4.5\" "
                       "covarianceYZ=\"5.5\" covarianceZZ=\"6.5\" nbrSatellites=\"12\"/>")));
  EXPECT_EQ(Rover().GetPosCov_xx(), 1.5F);
  EXPECT_EQ(Rover().GetPosCov_xy(), -2.5F);
  EXPECT_EQ(Rover().GetPosCov_xz(), 3.5F);
  EXPECT_EQ(Rover().GetPosCov_yy(), 4.5F);
  EXPECT_EQ(Rover().GetPosCov_yz(), 5.5F);
  EXPECT_EQ(Rover().GetPosCov_zz(), 6.5F);
  EXPECT_EQ(Rover().GetNuGpsUsed() + Rover().GetNuGloUsed(), 12);
}

TEST_F(LandXmlLoadGps, AbsurdCountsAndCovariancesDoNoHarm) {
  Load(Survey(Position("1",
                       "<GPSQCInfoLevel2 covarianceXX=\"1e300\" covarianceYY=\"NaN\" "
                       "nbrSatellites=\"-1e300\"/>") +
              Position("2", "<GPSQCInfoLevel2 nbrSatellites=\"1e300\"/>")));
  ASSERT_EQ(Gps().GetPunArSize(0), 2);
  EXPECT_EQ(Rover().GetPosCov_xx(), UndefinedFloat);
  EXPECT_EQ(Rover().GetPosCov_yy(), UndefinedFloat);
  EXPECT_EQ(Rover().GetNuGpsUsed(), 0);
  EXPECT_EQ(Rover(1).GetNuGpsUsed(), 255);
}

TEST_F(LandXmlLoadGps, AbsurdPlacesAreUndefined) {
  Load(Survey("<GPSPosition wgsLatitude=\"1e300\" wgsLongitude=\"INF\" wgsHeight=\"1e999\"/>"));
  EXPECT_FALSE(IsDefined(Rover().GetStoredPlace().lat));
  EXPECT_FALSE(IsDefined(Rover().GetStoredPlace().lon));
  EXPECT_FALSE(IsDefined(Rover().GetStoredPlace().height));
}

}  // namespace
