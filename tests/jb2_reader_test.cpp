// What the JB2 reader makes of each record.
#include <string>

#include "tests/support/exchange_jb2.h"

using namespace exchange_test;
using namespace std::string_literals;

namespace {

class Jb2Reader : public Jb2Test {};

TEST_F(Jb2Reader, StoresTheLabelsOfAJobAndLeavesItsFourthFieldOut) {
  EXPECT_TRUE(Read(Line('L', {"Gelsi", "N. Ferri", "TS 5", "unused", "14-04-2026"})));
  ASSERT_EQ(library.GetJobArSize(), 1);
  EXPECT_EQ(Job(0).GetNome(), "Gelsi");
  EXPECT_EQ(Job(0).GetOper(), "N. Ferri");
  EXPECT_EQ(Job(0).GetStrum(), "TS 5");
  EXPECT_EQ(Job(0).GetData(), "14-04-2026");
  EXPECT_EQ(library.GetStaArSize(0), 0);
}

TEST_F(Jb2Reader, StoresTheFiveValuesOfAStation) {
  Read(JobNamed("J") + Line('S', {"S1", "nail", "1.582", "14.5", "988"}));
  ASSERT_EQ(library.GetStaArSize(0), 1);
  EXPECT_EQ(Station(0, 0).GetNome(), "S1");
  EXPECT_EQ(Station(0, 0).GetIden(), "nail");
  EXPECT_EQ(Station(0, 0).GetAltStr(), 1.582);
  EXPECT_EQ(Station(0, 0).GetTemper(), 14.5);
  EXPECT_EQ(Station(0, 0).GetPressi(), 988);
}

TEST_F(Jb2Reader, IgnoresWhatFollowsThePressureOfAStation) {
  Read(Line('S', {"S1", "nail", "1.582", "14.5", "988", "7", "8", "9", "10", "11"}));
  EXPECT_EQ(Outline(), "(S1[])");
  EXPECT_EQ(Station(0, 0).GetIden(), "nail");
  EXPECT_EQ(Station(0, 0).GetAltStr(), 1.582);
  EXPECT_EQ(Station(0, 0).GetTemper(), 14.5);
  EXPECT_EQ(Station(0, 0).GetPressi(), 988);
  EXPECT_FALSE(IsDefined(Station(0, 0).GetCoordX()));
}

TEST_F(Jb2Reader, StoresThePolarObservationOfAPoint) {
  Read(JobNamed("J") + StationNamed("S") +
       Line('P', {"101", "MURO", "1.500", "56.8778", "100.8288", "24.333"}));
  ASSERT_EQ(library.GetPunArSize(0, 0), 1);
  EXPECT_EQ(Point(0, 0, 0).GetNome(), "101");
  EXPECT_EQ(Point(0, 0, 0).GetCode(), "MURO");
  EXPECT_EQ(Point(0, 0, 0).GetAltPri(), 1.5);
  EXPECT_EQ(Point(0, 0, 0).GetDato2(), 56.8778);
  EXPECT_EQ(Point(0, 0, 0).GetDato1(), 100.8288);
  EXPECT_EQ(Point(0, 0, 0).GetDato0(), 24.333);
}

TEST_F(Jb2Reader, GivesPointsNoTimeStamp) {
  Read(PointNamed("P1") + Line('R', {"R1", "", "1.5", "10", "1", "2"}));
  ASSERT_EQ(library.GetPunArSize(0, 0), 2);
  EXPECT_EQ(Point(0, 0, 0).GetDateTime(), 0u);
  EXPECT_EQ(Point(0, 0, 1).GetDateTime(), 0u);
}

TEST_F(Jb2Reader, LeavesThePointsWithoutCoordinates) {
  Read(PointNamed("P1"));
  EXPECT_FALSE(IsDefined(Point(0, 0, 0).GetCoordX()));
  EXPECT_FALSE(IsDefined(Point(0, 0, 0).GetCoordY()));
  EXPECT_FALSE(IsDefined(Point(0, 0, 0).GetCoordZ()));
}

// ---- Distances of polar records ----

class Jb2ZeroDistance : public Jb2Test, public testing::WithParamInterface<NamedText> {};

TEST_P(Jb2ZeroDistance, OfAPolarRecordIsNoDistance) {
  Read(Line('P', {"1", "C", "1.500", "10.0000", "99.0000", GetParam().text}));
  ASSERT_EQ(library.GetPunArSize(0, 0), 1);
  EXPECT_EQ(Point(0, 0, 0).GetDato0(), kNoDistance);
  EXPECT_EQ(Point(0, 0, 0).GetDato1(), 99);
  EXPECT_EQ(Point(0, 0, 0).GetDato2(), 10);
}

INSTANTIATE_TEST_SUITE_P(Written, Jb2ZeroDistance,
                         testing::Values(NamedText{"WithThreeDecimals", "0.000"},
                                         NamedText{"WithAMinusSign", "-0.000"},
                                         NamedText{"AsADigit", "0"},
                                         NamedText{"WithAComma", "0,000"}, NamedText{"Empty", ""},
                                         NamedText{"Blank", "   "}, NamedText{"AsAWord", "abc"},
                                         NamedText{"AsNan", "nan"}, NamedText{"AsInf", "inf"},
                                         NamedText{"AsASignAlone", "-"}),
                         NameOf<NamedText>);

TEST_F(Jb2Reader, TakesAMissingDistanceOfAPolarRecordForNoDistance) {
  Read(Line('P', {"1", "C", "1.500", "10.0000", "99.0000"}));
  EXPECT_EQ(Point(0, 0, 0).GetDato0(), kNoDistance);
}

TEST_F(Jb2Reader, KeepsASmallOrNegativeDistanceOfAPolarRecord) {
  Read(Line('P', {"1", "", "0", "0", "0", "0.001"}) + Line('P', {"2", "", "0", "0", "0", "-1.5"}));
  EXPECT_EQ(Point(0, 0, 0).GetDato0(), 0.001);
  EXPECT_EQ(Point(0, 0, 1).GetDato0(), -1.5);
}

TEST_F(Jb2Reader, ReplacesOnlyTheDistanceWhenAllNumbersOfAPolarRecordAreZero) {
  Read(Line('P', {"1", "C", "0.000", "0.0000", "0.0000", "0.000"}));
  EXPECT_EQ(Point(0, 0, 0).GetAltPri(), 0);
  EXPECT_EQ(Point(0, 0, 0).GetDato1(), 0);
  EXPECT_EQ(Point(0, 0, 0).GetDato2(), 0);
}

// ---- Reduced records ----

struct Reduced {
  const char* name;
  const char* heightDifference;
  const char* horizontalDistance;
  double zenith;  // gon
  double slopeDistance;
};
void PrintTo(const Reduced& with, std::ostream* out) { *out << with.name; }

class Jb2ReducedRecord : public Jb2Test, public testing::WithParamInterface<Reduced> {};

TEST_P(Jb2ReducedRecord, BecomesAPolarObservation) {
  const Reduced& with = GetParam();
  Read(Line('R',
            {"204", "ASF", "1.500", "273.0785", with.heightDifference, with.horizontalDistance}));
  ASSERT_EQ(library.GetPunArSize(0, 0), 1);
  EXPECT_EQ(Point(0, 0, 0).GetNome(), "204");
  EXPECT_EQ(Point(0, 0, 0).GetCode(), "ASF");
  EXPECT_EQ(Point(0, 0, 0).GetAltPri(), 1.5);
  EXPECT_EQ(Point(0, 0, 0).GetDato2(), 273.0785);
  EXPECT_NEAR(Point(0, 0, 0).GetDato1(), with.zenith, 1e-9);
  EXPECT_NEAR(Point(0, 0, 0).GetDato0(), with.slopeDistance, 1e-12);
}

// The factor that turns radians into gon is the format's own, a little less than 200 divided by pi.
// Angles of the triangle 3, 4, 5: arctan(4/3) is 59.0334470525 gon, arctan(3/4) is 40.9665529345
// gon.
INSTANTIATE_TEST_SUITE_P(
    InEachQuadrant, Jb2ReducedRecord,
    testing::Values(Reduced{"Up", "3.000", "4.000", 59.03344705246514, 5},
                    Reduced{"Steeply", "4.000", "3.000", 40.96655293447757, 5},
                    Reduced{"Down", "-3.000", "4.000", 140.96655294753486, 5},
                    Reduced{"UpWithANegativeDistance", "3.000", "-4.000", 140.96655294753486, 5},
                    Reduced{"DownWithANegativeDistance", "-3.000", "-4.000", 59.03344705246514, 5},
                    Reduced{"Diagonal", "1", "1", 49.99999999347136, 1.4142135623730951},
                    Reduced{"DiagonallyDown", "-1", "1", 150.00000000652864, 1.4142135623730951}),
    NameOf<Reduced>);

INSTANTIATE_TEST_SUITE_P(
    WithAZero, Jb2ReducedRecord,
    testing::Values(Reduced{"Level", "0.000", "12.885", 100, 12.885},
                    Reduced{"LevelWithAMinusSign", "-0.000", "12.885", 100, 12.885},
                    Reduced{"LevelBackwards", "0.000", "-12.885", 100, 12.885},
                    Reduced{"StraightUp", "2.500", "0.000", 0, 2.5},
                    Reduced{"StraightDown", "-2.500", "0.000", 0, 2.5},
                    Reduced{"Nowhere", "0.000", "0.000", 100, 0},
                    Reduced{"EmptyFields", "", "", 100, 0}, Reduced{"NoNumbers", "x", "y", 100, 0},
                    Reduced{"NoHeightDifference", "", "7.5", 100, 7.5}),
    NameOf<Reduced>);

TEST_F(Jb2Reader, GivesALevelReducedRecordExactlyAHundredGon) {
  Read(Line('R', {"1", "", "0", "0", "0", "3.7"}));
  EXPECT_EQ(Point(0, 0, 0).GetDato1(), 100.0);
}

TEST_F(Jb2Reader, LeavesAZeroDistanceOfAReducedRecordAtZero) {
  Read(Line('R', {"1", "", "1.500", "10.0000", "0.000", "0.000"}));
  EXPECT_EQ(Point(0, 0, 0).GetDato0(), 0.0);
  EXPECT_EQ(Point(0, 0, 0).GetDato1(), 100.0);
}

TEST_F(Jb2Reader, GivesAFallingReducedRecordMoreThanAHundredGon) {
  Read(Line('R', {"1", "", "1.500", "10.0000", "-0.001", "50.000"}));
  EXPECT_GT(Point(0, 0, 0).GetDato1(), 100.0);
  EXPECT_LT(Point(0, 0, 0).GetDato1(), 100.01);
}

TEST_F(Jb2Reader, UsesTheFactorOfTwoHundredByPiOnTheArctangent) {
  Read(Line('R', {"1", "", "0", "0", "2", "2"}));
  EXPECT_EQ(Point(0, 0, 0).GetDato1(), 0.78539816339744828 * 63.66197722844561);
}

}  // namespace
