#include "model/polar.h"

#include <gtest/gtest.h>

#include <cmath>

#include "model/total_station.h"
#include "support/random.h"

namespace {

const Instrument kInstrument = {{1000, 2000, 50}, 1.5};

void ExpectPlace(const Place& place, double x, double y, double z) {
  EXPECT_NEAR(place.x, x, 1e-9);
  EXPECT_NEAR(place.y, y, 1e-9);
  EXPECT_NEAR(place.z, z, 1e-9);
}

bool IsUndefined(const Observation& observation) {
  return !IsDefined(observation.slopeDistance) && !IsDefined(observation.zenith) &&
         !IsDefined(observation.horizontal);
}

TEST(Polar, MultipliesTheSlopeDistanceByCosineAndSine) {
  EXPECT_NEAR(HeightDifference(10, 100), 0, 1e-12);
  EXPECT_NEAR(HorizontalDistance(10, 100), 10, 1e-12);
  EXPECT_NEAR(HeightDifference(10, 50), 10 / std::sqrt(2), 1e-12);
  EXPECT_NEAR(HorizontalDistance(10, 50), 10 / std::sqrt(2), 1e-12);
  EXPECT_NEAR(HeightDifference(10, 200), -10, 1e-12);
}

TEST(Polar, HasNoHeightDifferenceNorDistanceWhenAPartIsUndefined) {
  for (const auto derive : {HeightDifference, HorizontalDistance}) {
    EXPECT_EQ(derive(UndefinedValue, 100), UndefinedValue);
    EXPECT_EQ(derive(10, UndefinedValue), UndefinedValue);
  }
}

TEST(Polar, CountsDirectionsClockwiseFromNorth) {
  ExpectPlace(Locate(kInstrument, {10, 100, 0}, 1.5, 0), 1000, 2010, 50);
  ExpectPlace(Locate(kInstrument, {10, 100, 100}, 1.5, 0), 1010, 2000, 50);
  ExpectPlace(Locate(kInstrument, {10, 100, 200}, 1.5, 0), 1000, 1990, 50);
  ExpectPlace(Locate(kInstrument, {10, 100, 300}, 1.5, 0), 990, 2000, 50);
}

TEST(Polar, TurnsDirectionsByTheOrientation) {
  ExpectPlace(Locate(kInstrument, {10, 100, 30}, 1.5, 70), 1010, 2000, 50);
  ExpectPlace(Locate(kInstrument, {10, 100, 350}, 1.5, 150), 1010, 2000, 50);
}

TEST(Polar, AddsTheInstrumentHeightAndTakesThePrismHeightAway) {
  EXPECT_NEAR(Locate(kInstrument, {10, 100, 0}, 0, 0).z, 51.5, 1e-9);
  EXPECT_NEAR(Locate(kInstrument, {10, 100, 0}, 2, 0).z, 49.5, 1e-9);
  EXPECT_NEAR(Locate(kInstrument, {10, 0, 0}, 2, 0).z, 59.5, 1e-9);
}

TEST(Polar, LocatesNothingWhenAPartOfTheObservationIsUndefined) {
  EXPECT_FALSE(IsDefined(Locate(kInstrument, {UndefinedValue, 100, 0}, 0, 0).x));
  EXPECT_FALSE(IsDefined(Locate(kInstrument, {10, UndefinedValue, 0}, 0, 0).y));
  EXPECT_FALSE(IsDefined(Locate(kInstrument, {10, 100, UndefinedValue}, 0, 0).z));
}

TEST(Polar, LocatesNothingFromAMarkWithoutPlaneCoordinates) {
  const Observation observation = {10, 100, 0};
  EXPECT_FALSE(IsDefined(Locate({{UndefinedValue, 0, 0}, 0}, observation, 0, 0).y));
  EXPECT_FALSE(IsDefined(Locate({{0, UndefinedValue, 0}, 0}, observation, 0, 0).x));
}

TEST(Polar, LocatesAPlaceWithoutElevationFromAMarkWithoutOne) {
  const Place place = Locate({{1000, 2000, UndefinedValue}, 1.5}, {10, 100, 0}, 0, 0);
  EXPECT_NEAR(place.y, 2010, 1e-9);
  EXPECT_EQ(place.z, UndefinedValue);
}

TEST(Polar, ObservesNothingWhenACoordinateIsUndefined) {
  EXPECT_TRUE(IsUndefined(Observe(kInstrument, {UndefinedValue, 1, 1}, 0, 0)));
  EXPECT_TRUE(IsUndefined(Observe(kInstrument, {1, UndefinedValue, 1}, 0, 0)));
  EXPECT_TRUE(IsUndefined(Observe(kInstrument, {1, 1, UndefinedValue}, 0, 0)));
  EXPECT_TRUE(IsUndefined(Observe({{1, 1, UndefinedValue}, 0}, {2, 2, 2}, 0, 0)));
  EXPECT_TRUE(IsUndefined(Observe({{UndefinedValue, 1, 1}, 0}, {2, 2, 2}, 0, 0)));
}

TEST(Polar, ObservesNothingWhereTheInstrumentItselfIs) {
  EXPECT_TRUE(IsUndefined(Observe(kInstrument, {1000, 2000, 51.5}, 0, 0)));
  EXPECT_TRUE(IsUndefined(Observe(kInstrument, {1000, 2000, 50}, 1.5, 0)));
}

TEST(Polar, ObservesAPrismRightAboveAndBelow) {
  EXPECT_NEAR(Observe(kInstrument, {1000, 2000, 61.5}, 0, 0).zenith, 0, 1e-9);
  EXPECT_NEAR(Observe(kInstrument, {1000, 2000, 61.5}, 0, 0).slopeDistance, 10, 1e-9);
  EXPECT_NEAR(Observe(kInstrument, {1000, 2000, 41.5}, 0, 0).zenith, 200, 1e-9);
}

TEST(Polar, ObservesWhatWasLocated) {
  Random random;
  for (int i = 0; i < 100'000; ++i) {
    const Observation wanted = {random.Real(0.5, 2000), random.Real(1, 199), random.Real(0, 400)};
    const double prismHeight = random.Real(0, 3);
    const double orientation = random.Real(-500, 500);
    const Place place = Locate(kInstrument, wanted, prismHeight, orientation);
    const Observation found = Observe(kInstrument, place, prismHeight, orientation);
    ASSERT_NEAR(found.slopeDistance, wanted.slopeDistance, 1e-7);
    ASSERT_NEAR(found.zenith, wanted.zenith, 1e-6);
    const double turn = std::remainder(found.horizontal - wanted.horizontal, 400);
    ASSERT_NEAR(turn * std::sin(wanted.zenith * 0.0157), 0, 1e-6);
  }
}

TEST(Polar, KeepsDirectionsAndZenithAnglesWithinTheirRange) {
  Random random;
  for (int i = 0; i < 100'000; ++i) {
    const Place target = {1000 + random.Real(-9, 9), 2000 + random.Real(-9, 9),
                          50 + random.Real(-9, 9)};
    const Observation found = Observe(kInstrument, target, 0, random.Real(-1000, 1000));
    ASSERT_TRUE(found.horizontal >= 0 && found.horizontal <= 400) << found.horizontal;
    ASSERT_TRUE(found.zenith >= 0 && found.zenith <= 200) << found.zenith;
  }
}

TEST(Polar, TakesMarkAndHeightFromAStation) {
  CLibCmp library;
  library.AddJob(true);
  CSta& station = *library.AddSta(0, true);
  station.SetCoord(1, 2, 3);
  station.SetAltStr(1.6);
  const Instrument instrument = InstrumentOf(station);
  ExpectPlace(instrument.mark, 1, 2, 3);
  EXPECT_EQ(instrument.height, 1.6);
}

// By hand: at 1 km, (1 - 0.13) * 1000 * 1000 / (2 * 6371000) m.
TEST(Polar, LevelSightRisesAboveTheEarth) {
  const Ray ray = RayOf(1000, 100, {true, 0.13});
  EXPECT_NEAR(ray.up, 0.068278, 1e-6);
  EXPECT_NEAR(ray.across, 1000, 1e-9);
}

// By hand: 1000 m across and up, less (1 - 0.065) * 1000 * 1000 / 6371000 m.
TEST(Polar, PlumbLinesDrawTogetherDownwards) {
  const Ray ray = RayOf(1000 * std::sqrt(2), 50, {true, 0.13});
  EXPECT_NEAR(ray.across, 1000 - 0.146759, 1e-6);
  EXPECT_NEAR(RayOf(1000 * std::sqrt(2), 150, {true, 0.13}).across, 1000 + 0.146759, 1e-6);
}

TEST(Polar, CurvatureIsTheSameInBothFaces) {
  const Reduction reduction{true, 0.13};
  const Place one = Locate(kInstrument, {800, 70, 30}, 1.2, 15, reduction);
  const Place two = Locate(kInstrument, {800, 330, 230}, 1.2, 15, reduction);
  ExpectPlace(two, one.x, one.y, one.z);
}

TEST(Polar, ObservesWhatItLocatesOverACurvedEarth) {
  Random random;
  for (int i = 0; i < 1000; ++i) {
    const Reduction reduction{true, random.Real(-1, 1)};
    const Observation seen{random.Real(1, 5000), random.Real(5, 195), random.Real(0, 400)};
    const Place place = Locate(kInstrument, seen, 1.3, 77, reduction);
    const Observation back = Observe(kInstrument, place, 1.3, 77, reduction);
    ASSERT_NEAR(back.slopeDistance, seen.slopeDistance, 1e-6);
    ASSERT_NEAR(back.zenith, seen.zenith, 1e-8);
    ASSERT_NEAR(std::remainder(back.horizontal - seen.horizontal, 400), 0, 1e-7);
  }
}

TEST(Polar, AzimuthOfEachQuadrant) {
  EXPECT_NEAR(Azimuth({0, 0, 0}, {1, 1, 0}), 50, 1e-12);
  EXPECT_NEAR(Azimuth({0, 0, 0}, {1, -1, 0}), 150, 1e-12);
  EXPECT_NEAR(Azimuth({0, 0, 0}, {-1, -1, 0}), 250, 1e-12);
  EXPECT_NEAR(Azimuth({0, 0, 0}, {-1, 1, 0}), 350, 1e-12);
}

}  // namespace
