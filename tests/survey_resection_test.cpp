// Set-ups at unknown places, from points that they sighted.
#include "host/survey/resection.h"

#include <random>

#include "host/survey/agreed_mean.h"
#include "host/survey/orientation.h"
#include "tests/support/random.h"
#include "tests/support/survey_jobs.h"

using namespace survey_test;
using survey::Resection;
using survey::ResectionTrouble;
using survey::TargetSight;

namespace {

constexpr double kTurn = 77;  // gon
const Place kMark{650'012.5, 4'950'034.25, 80};

/// What a set-up at kMark, its zero direction at azimuth kTurn, sights at such an offset from it.
TargetSight SightOf(double east, double north, bool withDistance = true) {
  TargetSight sight;
  sight.place = {kMark.x + east, kMark.y + north, kMark.z};
  sight.direction = FullCircle(Azimuth(kMark, sight.place) - kTurn);
  if (withDistance) sight.distance = std::hypot(east, north);
  return sight;
}

void ExpectMark(const Resection& resection, double tolerance = 1e-5) {
  ASSERT_EQ(resection.trouble, ResectionTrouble::kNone);
  EXPECT_NEAR(resection.mark.x, kMark.x, tolerance);
  EXPECT_NEAR(resection.mark.y, kMark.y, tolerance);
  EXPECT_NEAR(survey::Wrapped(resection.orientation - kTurn, 400), 0, tolerance);
}

TEST(Resection, TwoPointsWithDistancesAreEnough) {
  const TargetSight sights[] = {SightOf(40, 30), SightOf(-25, 60)};
  const Resection resection = survey::Resect(sights);
  ExpectMark(resection);
  EXPECT_NEAR(resection.markSigma, 0, 1e-6)
      << "there is one equation more than unknowns, and it fits";
}

TEST(Resection, ThreeDirectionsAreEnough) {
  const TargetSight sights[] = {SightOf(100, 20, false), SightOf(-30, 120, false),
                                SightOf(-50, -90, false)};
  ExpectMark(survey::Resect(sights));
}

TEST(Resection, DirectionsAndDistancesGoTogether) {
  const TargetSight sights[] = {SightOf(100, 20, false), SightOf(-30, 120),
                                SightOf(-50, -90, false), SightOf(5, -70)};
  ExpectMark(survey::Resect(sights));
}

TEST(Resection, MarkAmongThePointsOnALineIsFound) {
  const TargetSight sights[] = {SightOf(100, 0), SightOf(-60, 0)};
  ExpectMark(survey::Resect(sights));
}

TEST(Resection, NeedsTwoDistancesOrThreeDirections) {
  const TargetSight one[] = {SightOf(40, 30)};
  EXPECT_EQ(survey::Resect(one).trouble, ResectionTrouble::kTooFewSights);
  const TargetSight two[] = {SightOf(40, 30), SightOf(-25, 60, false)};
  EXPECT_EQ(survey::Resect(two).trouble, ResectionTrouble::kTooFewSights);
  EXPECT_EQ(survey::Resect({}).trouble, ResectionTrouble::kTooFewSights);
}

TEST(Resection, DirectionsFromTheCircleThroughThePointsDetermineNothing) {
  // All four on a circle of radius 50 around a point 50 m north of the mark.
  const TargetSight sights[] = {SightOf(50, 50, false), SightOf(0, 100, false),
                                SightOf(-50, 50, false)};
  EXPECT_EQ(survey::Resect(sights).trouble, ResectionTrouble::kUndetermined);
}

TEST(Resection, PointsAtOnePlaceDetermineNothing) {
  const TargetSight sights[] = {SightOf(50, 50), SightOf(50, 50)};
  EXPECT_EQ(survey::Resect(sights).trouble, ResectionTrouble::kUndetermined);
}

TEST(Resection, BlunderIsLeftOutWhenThreeOthersAgree) {
  std::vector<TargetSight> sights = {SightOf(40, 30), SightOf(-25, 60), SightOf(-50, -90),
                                     SightOf(70, -10), SightOf(10, 90)};
  sights[2].place.x += 1;
  const Resection resection = survey::Resect(sights);
  ExpectMark(resection);
  EXPECT_EQ(resection.isUsed, (std::vector<bool>{true, true, false, true, true}));
}

TEST(Resection, BlunderOfADirectionAloneIsLeftOut) {
  std::vector<TargetSight> sights = {SightOf(40, 30, false), SightOf(-25, 60, false),
                                     SightOf(-50, -90, false), SightOf(70, -10, false),
                                     SightOf(10, 90, false)};
  sights[1].direction += 1;
  const Resection resection = survey::Resect(sights);
  ExpectMark(resection);
  EXPECT_FALSE(resection.isUsed[1]);
}

TEST(Resection, ErrorIsAsLargeAsItSays) {
  Random random;
  std::normal_distribution<double> unit;
  std::mt19937_64 engine(random.Bits());
  double sum = 0;
  double squares = 0;
  constexpr int kRuns = 2000;
  for (int run = 0; run < kRuns; ++run) {
    std::vector<TargetSight> sights;
    for (int i = 0; i < 6; ++i) {
      const double azimuth = (i + random.Real(0, 0.8)) * M_PI / 3;
      const double reach = random.Real(20, 150);
      TargetSight sight = SightOf(reach * std::sin(azimuth), reach * std::cos(azimuth));
      sight.direction += unit(engine) * sight.SigmaAcross(reach) / reach * survey::kGonPerRadian;
      sight.distance += unit(engine) * sight.SigmaAlong();
      sights.push_back(sight);
    }
    const Resection resection = survey::Resect(sights);
    ASSERT_EQ(resection.trouble, ResectionTrouble::kNone);
    const double error = survey::PlaneDistance(resection.mark, kMark);
    squares += error * error;
    sum += resection.markSigma * resection.markSigma;
  }
  EXPECT_NEAR(std::sqrt(squares / sum), 1, 0.1) << "true error by the error told";
}

TEST(Resection, EachPlaceAroundThePointsIsFound) {
  Random random;
  for (int run = 0; run < 500; ++run) {
    std::vector<TargetSight> sights;
    const int count = random.Whole(2, 8);
    for (int i = 0; i < count; ++i) {
      sights.push_back(SightOf(random.Real(-500, 500), random.Real(-500, 500)));
    }
    ExpectMark(survey::Resect(sights), 1e-4);
    if (HasFailure()) return;
  }
}

// ---- The mean of those that agree ----

TEST(AgreedMean, OfAnglesDoesNotDependOnWhereTheCircleStarts) {
  for (const double start : {0.0, 100.0, 399.999, 250.0}) {
    const survey::Measured values[] = {
        {start - 0.001, 0.001}, {start + 0.001, 0.001}, {start + 400.003, 0.001}};
    const double mean = survey::MeanOfAgreeing(values, 400).value;
    EXPECT_NEAR(survey::Wrapped(mean - start, 400), 0.001, 1e-9);
    EXPECT_TRUE(mean >= 0 && mean < 400);
  }
}

TEST(AgreedMean, TwoBlundersAmongFiveAreLeftOut) {
  const survey::Measured values[] = {{150, 1}, {1, 1}, {0, 1}, {-120, 1}, {2, 1}};
  const survey::AgreedMean mean = survey::MeanOfAgreeing(values);
  EXPECT_NEAR(mean.value, 1, 1e-12);
  EXPECT_NEAR(mean.spread, 1, 1e-12);
  EXPECT_EQ(mean.isUsed, (std::vector<bool>{false, true, true, false, true}));
}

TEST(AgreedMean, BlundersThatAgreeAmongThemselvesDoNotWinAgainstMore) {
  const survey::Measured values[] = {{50, 1}, {50, 1}, {50, 1}, {0, 1}, {0, 1}, {0, 1}, {0, 1}};
  EXPECT_NEAR(survey::MeanOfAgreeing(values).value, 0, 1e-12);
}

TEST(AgreedMean, OfOneIsItself) {
  const survey::Measured values[] = {{5, 2}};
  EXPECT_EQ(survey::MeanOfAgreeing(values).value, 5);
  EXPECT_EQ(survey::MeanOfAgreeing(values).spread, 0);
}

TEST(AgreedMean, OfThousandsFindsTheMajority) {
  std::vector<survey::Measured> values;
  for (int i = 0; i < 3000; ++i) values.push_back({i % 3 == 0 ? 1000.0 + i : 7.0, 1});
  EXPECT_NEAR(survey::MeanOfAgreeing(values).value, 7, 1e-9);
}

// ---- In a job ----

using Survey = SurveyTest;

TEST_F(Survey, StationAtAnUnknownPlaceIsResected) {
  Known("A", 100, 0, 10);
  Known("B", 0, 100, 12);
  const Place mark{20, 30, 5};
  CSta& station = Station("FREE", 1.5);
  Sight(station, "A", Exact(mark, {100, 0, 10}, 250, 1.5));
  Sight(station, "B", Exact(mark, {0, 100, 12}, 250, 1.5));
  CPun& point = Sight(station, "P", Exact(mark, {25, 25, 4}, 250, 1.5));
  const auto& job = Compute();
  EXPECT_EQ(job.setUps[0].method, survey::SetUpMethod::kResected);
  ExpectAt(station, 20, 30, 5, 1e-6);
  ExpectAt(point, 25, 25, 4, 1e-6);
}

TEST_F(Survey, ResectedStationServesTheNextOnes) {
  Known("A", 100, 0, 0);
  Known("B", 0, 100, 0);
  const Place free{20, 30, 0};
  const Place next{60, 60, 0};
  CSta& second = Station("NEXT");
  Sight(second, "FREE", Exact(next, free, 10));
  CPun& point = Sight(second, "P", Exact(next, {70, 80, 0}, 10));
  CSta& first = Station("FREE");
  Sight(first, "A", Exact(free, {100, 0, 0}, 250));
  Sight(first, "B", Exact(free, {0, 100, 0}, 250));
  Sight(first, "NEXT", Exact(free, next, 250));
  Compute();
  ExpectAt(second, 60, 60, 0, 1e-6);
  ExpectAt(point, 70, 80, 0, 1e-6);
}

TEST_F(Survey, BlunderOfAResectionIsNamedAndLeftOut) {
  const Place mark{20, 30, 5};
  const Place places[] = {{100, 0, 5}, {0, 100, 5}, {-80, 10, 5}, {10, -70, 5}};
  CSta& station = Station("FREE");
  for (int i = 0; i < 4; ++i) {
    const std::string name = "K" + std::to_string(i);
    const Place& at = places[i];
    Known(name.c_str(), at.x + (i == 3 ? 0.5 : 0), at.y, at.z);
    Sight(station, name, Exact(mark, at, 250));
  }
  const auto& setUp = Compute().setUps[0];
  ExpectAt(station, 20, 30, 5, 1e-6);
  EXPECT_FALSE(Residual(setUp, "K3")->isUsed);
  EXPECT_TRUE(Residual(setUp, "K3")->StandsOut());
}

// ---- Noise ----

TEST_F(Survey, OrientationErrorsMatchTheNoise) {
  Random random;
  std::normal_distribution<double> noise(0, 0.001);  // gon
  std::mt19937_64 engine(random.Bits());
  constexpr int kStations = 1000;
  constexpr int kTargets = 5;
  Known("S", 0, 0, 0);
  for (int k = 0; k < kTargets; ++k) {
    const double azimuth = 2 * M_PI * k / kTargets;
    Known(("K" + std::to_string(k)).c_str(), 500 * std::sin(azimuth), 500 * std::cos(azimuth), 0);
  }
  for (int i = 0; i < kStations; ++i) {
    CSta& station = Station("S");
    for (int k = 0; k < kTargets; ++k) {
      Sight(station, "K" + std::to_string(k),
            {500, 100, FullCircle(400.0 / kTargets * k - kTurn + noise(engine))});
    }
  }
  double errors = 0;
  double spreads = 0;
  for (const auto& setUp : Compute().setUps) {
    const double error = survey::Wrapped(setUp.orientation - kTurn, 400);
    errors += error * error;
    spreads += setUp.orientationSpread * setUp.orientationSpread;
  }
  EXPECT_NEAR(std::sqrt(errors / kStations), 0.001 / std::sqrt(kTargets), 0.00005);
  EXPECT_NEAR(std::sqrt(spreads / kStations), 0.001, 0.00005);
}

// A ring of stations that each sights the next two, from two known marks.
TEST_F(Survey, NetErrorsStayWithinWhatTheNoiseMakes) {
  Random random;
  std::mt19937_64 engine(random.Bits());
  std::normal_distribution<double> direction(0, 0.001);
  std::normal_distribution<double> distance(0, 0.002);
  constexpr int kStations = 12;
  std::vector<Place> truth;
  for (int i = 0; i < kStations; ++i) {
    const double azimuth = 2 * M_PI * i / kStations;
    truth.push_back({200 * std::sin(azimuth), 200 * std::cos(azimuth), 3.0 * i});
  }
  Known("S0", truth[0].x, truth[0].y, truth[0].z);
  Known("S6", truth[6].x, truth[6].y, truth[6].z);
  for (int i = 0; i < kStations; ++i) {
    CSta& station = Station("S" + std::to_string(i), 1.5);
    for (const int step : {1, 2, 6, 10, 11}) {
      const int to = (i + step) % kStations;
      Observed seen = Exact(truth[static_cast<std::size_t>(i)], truth[static_cast<std::size_t>(to)],
                            13.0 * i, 1.5);
      seen.slope += distance(engine);
      seen.direction = FullCircle(seen.direction + direction(engine));
      Sight(station, "S" + std::to_string(to), seen);
    }
  }
  double largest = 0;
  for (const auto& setUp : Compute().setUps) {
    ASSERT_NE(setUp.method, survey::SetUpMethod::kNone);
    largest = std::max(
        largest, survey::PlaneDistance(setUp.mark, truth[static_cast<std::size_t>(setUp.station)]));
    for (const auto& it : setUp.residuals) EXPECT_LT(std::abs(it.across), 0.06);
  }
  // A few steps of 0.001 gon at 100 m and 2 mm each.
  EXPECT_LT(largest, 0.03);
  EXPECT_GT(largest, 0.0001);
}

TEST_F(Survey, SpreadOfRepeatedPointsMatchesTheNoise) {
  Random random;
  std::mt19937_64 engine(random.Bits());
  std::normal_distribution<double> noise(0, 0.003);
  CSta& station = Station("S");
  constexpr int kPoints = 1000;
  for (int i = 0; i < kPoints; ++i) {
    for (int twice = 0; twice < 2; ++twice) {
      Sight(station, "P" + std::to_string(i), {100 + noise(engine), 100, 0.1 * i});
    }
  }
  double squares = 0;
  for (const auto& it : Compute().repeated) squares += it.spread * it.spread;
  // Half the difference of two: the noise divided by the root of two.
  EXPECT_NEAR(std::sqrt(squares / kPoints), 0.003 / std::sqrt(2), 0.0002);
}

TEST_F(Survey, AbsurdFiguresAreNoCrash) {
  Random random;
  const double absurd[] = {0, -1, 1e-300, 1e150, -1e150, UndefinedValue, 200, 400, 1e9, 100};
  const auto any = [&] { return absurd[random.Whole<std::size_t>(0, std::size(absurd) - 1)]; };
  for (int run = 0; run < 300; ++run) {
    for (int i = 0; i < 4; ++i) {
      const std::string name = "N" + std::to_string(random.Whole(0, 5));
      if (random.OneIn(2)) Known(name.c_str(), any(), any(), any());
      CSta& station = Station("N" + std::to_string(random.Whole(0, 5)), any());
      for (int k = 0; k < 4; ++k) {
        Sight(station, "N" + std::to_string(random.Whole(0, 5)), {any(), any(), any()}, any());
      }
    }
    Compute();
  }
  SUCCEED();
}

}  // namespace
