// Jobs computed as a whole: how set-ups get coordinates and orientation, and points theirs.
#include "tests/support/survey_jobs.h"

using namespace survey_test;
using survey::PointTrouble;
using survey::SetUpMethod;
using survey::SetUpTrouble;

namespace {

using Survey = SurveyTest;

TEST_F(Survey, StationTakesTheCoordinatesOfTheKnownPointOfItsName) {
  Known("S", 1000, 2000, 50);
  Known("N", 1000, 2100, 50);
  CSta& station = Station("S", 1.5);
  Sight(station, "N", {100, 100, 0});
  CPun& point = Sight(station, "P", {10, 100, 100}, 1.5);
  const auto& job = Compute();
  EXPECT_EQ(job.setUps[0].method, SetUpMethod::kKnown);
  ExpectAt(station, 1000, 2000, 50);
  ExpectAt(point, 1010, 2000, 50);
}

TEST_F(Survey, ControlPointsAreKnownPoints) {
  Control("S", 0, 0, 0);
  Control("E", 100, 0, 0);
  CSta& station = Station("S");
  Sight(station, "E", {100, 100, 0});
  CPun& point = Sight(station, "P", {10, 100, 300});
  Compute();
  ExpectAt(point, 0, 10, 0);
}

TEST_F(Survey, OrientationTurnsTheCircleInEachQuadrant) {
  // The zero direction points to azimuth 50, 150, 250 and 350 gon.
  const double east[] = {1, 1, -1, -1};
  const double north[] = {1, -1, -1, 1};
  Known("S", 0, 0, 0);
  for (int i = 0; i < 4; ++i) {
    const std::string target = "K" + std::to_string(i);
    Known(target.c_str(), east[i] * 100, north[i] * 100, 0);
    CSta& station = Station("S");
    Sight(station, target, {std::sqrt(20000.0), 100, 0});
    Sight(station, "P" + std::to_string(i), {10, 100, 50});
  }
  const auto& job = Compute();
  for (int i = 0; i < 4; ++i) {
    EXPECT_NEAR(job.setUps[static_cast<std::size_t>(i)].orientation, 50 + 100 * i, 1e-9);
  }
  ExpectAt(*Jobs().GetPunAt(0, 0, 1), 10, 0, 0);
  ExpectAt(*Jobs().GetPunAt(0, 1, 1), 0, -10, 0);
  ExpectAt(*Jobs().GetPunAt(0, 2, 1), -10, 0, 0);
  ExpectAt(*Jobs().GetPunAt(0, 3, 1), 0, 10, 0);
}

TEST_F(Survey, OrientationIsTheMeanOverTargetsAlikeFarAway) {
  Known("S", 0, 0, 0);
  Known("A", 0, 100, 0);
  Known("B", 100, 0, 0);
  CSta& station = Station("S");
  Sight(station, "A", {100, 100, 399.998});
  Sight(station, "B", {100, 100, 100.004});
  const auto& setUp = Compute().setUps[0];
  EXPECT_NEAR(setUp.orientation, 399.999, 1e-9) << "offers of 0.002 and 399.996";
  EXPECT_NEAR(setUp.orientationSpread, 0.003 * std::sqrt(2), 1e-9);
  EXPECT_NEAR(Residual(setUp, "A")->direction, -0.003, 1e-9);
  EXPECT_NEAR(Residual(setUp, "B")->direction, 0.003, 1e-9);
  EXPECT_NEAR(Residual(setUp, "B")->across, 0.003 / 200 * M_PI * 100, 1e-9);
}

TEST_F(Survey, FarTargetWeighsMoreThanANearOne) {
  Known("S", 0, 0, 0);
  Known("NEAR", 0, 5, 0);
  Known("FAR", 0, 500, 0);
  CSta& station = Station("S");
  Sight(station, "NEAR", {5, 100, 0.02});
  Sight(station, "FAR", {500, 100, 0});
  EXPECT_NEAR(Compute().setUps[0].orientation, 400, 0.0001);
}

TEST_F(Survey, TargetObservedSeveralTimesCountsOnce) {
  Known("S", 0, 0, 0);
  Known("A", 0, 100, 0);
  Known("B", 100, 0, 0);
  CSta& station = Station("S");
  for (int i = 0; i < 5; ++i) Sight(station, "A", {100, 100, 0.002});
  Sight(station, "B", {100, 100, 100});
  EXPECT_NEAR(Compute().setUps[0].orientation, 399.999, 1e-9);
}

TEST_F(Survey, SightWithoutDistanceOrientsToo) {
  Known("S", 0, 0, 0);
  Known("A", 0, 100, 0);
  CSta& station = Station("S");
  Sight(station, "A", {UndefinedValue, 100, 300});
  CPun& point = Sight(station, "P", {10, 100, 300});
  Compute();
  ExpectAt(point, 0, 10, 0);
}

TEST_F(Survey, FaceTwoIsTurnedIntoFaceOne) {
  Known("S", 0, 0, 0);
  Known("A", 0, 100, 30);
  Known("B", 100, 0, -20);
  CSta& station = Station("S");
  for (const auto& [name, place] : {std::pair("A", Place{0, 100, 30}), {"B", Place{100, 0, -20}}}) {
    const Observed seen = Exact({0, 0, 0}, place, 120);
    Sight(station, name, name[0] == 'A' ? FaceTwo(seen) : seen);
  }
  CPun& point = Sight(station, "P", FaceTwo(Exact({0, 0, 0}, {7, -9, 3}, 120)));
  const auto& setUp = Compute().setUps[0];
  EXPECT_NEAR(setUp.orientation, 120, 1e-9);
  for (const auto& it : setUp.residuals) {
    EXPECT_NEAR(it.across, 0, 1e-9);
    EXPECT_NEAR(it.along, 0, 1e-9);
    EXPECT_NEAR(it.height, 0, 1e-9);
  }
  ExpectAt(point, 7, -9, 3);
}

TEST_F(Survey, MeansOfBothFacesLoseTheIndexErrors) {
  Known("S", 0, 0, 0);
  Known("A", 0, 100, 0);
  CSta& station = Station("S");
  // Collimation 0.01 gon: both faces are off, to either side.
  Sight(station, "A", {100, 100, 50.01});
  Sight(station, "A", {100, 300, 249.99});
  EXPECT_NEAR(Compute().setUps[0].orientation, 350, 1e-9);
}

TEST_F(Survey, StationsSightedInTurnGetCoordinates) {
  Known("A", 0, 0, 10);
  Known("N", 0, 200, 10);
  const Place a{0, 0, 10};
  const Place b{100, 50, 12};
  const Place c{180, -20, 9};
  CSta& first = Station("A", 1.6);
  Sight(first, "N", Exact(a, {0, 200, 10}, 33, 1.6));
  Sight(first, "B", Exact(a, b, 33, 1.6));
  CSta& third = Station("C", 1.4);
  Sight(third, "B", Exact(c, b, 222, 1.4));
  CSta& second = Station("B", 1.5);
  Sight(second, "A", Exact(b, a, 111, 1.5));
  Sight(second, "C", Exact(b, c, 111, 1.5));
  CPun& point = Sight(third, "P", Exact(c, {200, 0, 8}, 222, 1.4));
  const auto& job = Compute();
  EXPECT_EQ(job.setUps[2].method, SetUpMethod::kSighted);
  EXPECT_EQ(job.setUps[1].method, SetUpMethod::kSighted);
  ExpectAt(second, 100, 50, 12);
  ExpectAt(third, 180, -20, 9);
  EXPECT_NEAR(job.setUps[1].orientation, 222, 1e-9);
  ExpectAt(point, 200, 0, 8);
}

TEST_F(Survey, MarkSightedFromSeveralStationsIsTheirMean) {
  Known("A", 0, 0, 0);
  Known("B", 100, 0, 0);
  CSta& first = Station("A");
  Sight(first, "B", {100, 100, 100});
  Sight(first, "C", {50.01, 100, 100});
  CSta& second = Station("B");
  Sight(second, "A", {100, 100, 300});
  Sight(second, "C", {50.01, 100, 300});
  CSta& middle = Station("C");
  Sight(middle, "A", {50, 100, 0});
  Compute();
  ExpectAt(middle, 50, 0, 0);
}

TEST_F(Survey, SameMarkOccupiedTwiceIsOnePlace) {
  Known("A", 0, 0, 0);
  Known("N", 0, 100, 0);
  CSta& morning = Station("A");
  Sight(morning, "N", {100, 100, 10});
  CSta& evening = Station("A");
  Sight(evening, "N", {100, 100, 20});
  CPun& point = Sight(evening, "P", {10, 100, 20});
  const auto& job = Compute();
  EXPECT_NEAR(job.setUps[0].orientation, 390, 1e-9);
  EXPECT_NEAR(job.setUps[1].orientation, 380, 1e-9);
  ExpectAt(point, 0, 10, 0);
}

TEST_F(Survey, ElevationOfAMarkKnownInPlanComesFromItsTargets) {
  Known("S", 0, 0);
  Known("A", 0, 100, 55);
  CSta& station = Station("S", 1.5);
  Sight(station, "A", {100, 100, 0}, 2);
  CPun& point = Sight(station, "P", {10, 100, 0}, 1.5);
  Compute();
  ExpectAt(station, 0, 0, 55.5);
  ExpectAt(point, 0, 10, 55.5);
}

TEST_F(Survey, WithoutAnyElevationOnlyThePlanIsComputed) {
  Known("S", 0, 0);
  Known("A", 0, 100);
  CSta& station = Station("S");
  Sight(station, "A", {100, 100, 0});
  CPun& point = Sight(station, "P", {10, 100, 0});
  EXPECT_TRUE(Compute().missing.empty());
  EXPECT_NEAR(point.GetCoordY(), 10, 1e-9);
  EXPECT_FALSE(point.IsValidZ());
}

// ---- Nothing known ----

TEST_F(Survey, WithNothingKnownItBeginsAtTheFirstStation) {
  CSta& station = Station("S", 1.5);
  CPun& point = Sight(station, "P", {10, 100, 100}, 1);
  const auto& job = Compute();
  EXPECT_TRUE(job.isAssumed);
  EXPECT_EQ(job.setUps[0].method, SetUpMethod::kAssumed);
  EXPECT_EQ(job.setUps[0].orientation, 0);
  ExpectAt(station, 0, 0, 0);
  ExpectAt(point, 10, 0, 0.5);
}

TEST_F(Survey, FirstStationIsOneThatSawSomething) {
  Station("EMPTY");
  CSta& station = Station("S");
  Sight(station, "P", {10, 100, 0});
  const auto& job = Compute();
  EXPECT_EQ(job.setUps[0].method, SetUpMethod::kNone);
  EXPECT_EQ(job.setUps[1].method, SetUpMethod::kAssumed);
}

TEST_F(Survey, KnownPointsOfOtherNamesAreNothingKnown) {
  Known("ELSEWHERE", 5, 5, 5);
  Sight(Station("S"), "P", {10, 100, 0});
  EXPECT_TRUE(Compute().isAssumed);
}

TEST_F(Survey, OneKnownTargetIsNotReplacedByAnAssumption) {
  Known("P", 5, 5, 5);
  CSta& station = Station("S");
  CPun& point = Sight(station, "P", {10, 100, 0});
  const auto& job = Compute();
  EXPECT_FALSE(job.isAssumed);
  EXPECT_EQ(job.setUps[0].trouble, SetUpTrouble::kTooFewSights);
  ExpectNowhere(station);
  ExpectNowhere(point);
  EXPECT_EQ(job.missing[0].trouble, PointTrouble::kStation);
}

TEST_F(Survey, StationThatNothingTiesToTheOthersStaysWithoutCoordinates) {
  Sight(Station("S"), "P", {10, 100, 0});
  CSta& apart = Station("T");
  Sight(apart, "Q", {10, 100, 0});
  const auto& job = Compute();
  EXPECT_EQ(job.setUps[1].trouble, SetUpTrouble::kNotTied);
  ExpectNowhere(apart);
}

TEST_F(Survey, KnownStationThatSawNothingKnownHasNoOrientation) {
  Known("S", 1, 2, 3);
  CSta& station = Station("S");
  CPun& point = Sight(station, "P", {10, 100, 0});
  const auto& setUp = Compute().setUps[0];
  EXPECT_EQ(setUp.trouble, SetUpTrouble::kNoOrientation);
  EXPECT_EQ(setUp.missing, 1);
  ExpectAt(station, 1, 2, 3);
  ExpectNowhere(point);
}

TEST_F(Survey, JobsDoNotBorrowEachOthersPoints) {
  Sight(Station("S"), "P", {10, 100, 0});
  Jobs().AddJob(true);
  CSta& other = Station("T", 0, 1);
  Sight(other, "P", {10, 100, 0});
  Compute();
  EXPECT_TRUE(result.jobs[1].isAssumed);
  ExpectAt(other, 0, 0, 0);
}

TEST_F(Survey, JobWithoutStationsIsNothingToCompute) {
  const auto& job = Compute();
  EXPECT_TRUE(job.setUps.empty());
  EXPECT_FALSE(job.isAssumed);
}

TEST_F(Survey, NamesThatAreEmptyTieNothing) {
  Known("S", 0, 0, 0);
  Known("A", 0, 100, 0);
  CSta& station = Station("S");
  Sight(station, "A", {100, 100, 0});
  CPun& one = Sight(station, "", {10, 100, 0});
  CPun& other = Sight(station, "", {10.05, 100, 0});
  CSta& nameless = Station("");
  Sight(nameless, "", {10, 100, 0});
  const auto& job = Compute();
  EXPECT_TRUE(job.repeated.empty());
  ExpectAt(one, 0, 10, 0);
  ExpectAt(other, 0, 10.05, 0);
  ExpectNowhere(nameless);
}

// ---- Blunders ----

TEST_F(Survey, BlunderIsLeftOutWhenThreeOthersAgree) {
  Known("S", 0, 0, 0);
  CSta& station = Station("S");
  const Place targets[] = {{0, 100, 0}, {100, 0, 0}, {0, -100, 0}, {-100, 0, 0}};
  for (int i = 0; i < 4; ++i) {
    const std::string name = "K" + std::to_string(i);
    const Place& at = targets[static_cast<std::size_t>(i)];
    Known(name.c_str(), at.x, at.y, 0);
    Sight(station, name, Exact({0, 0, 0}, at, i == 2 ? 49.9 : 50));
  }
  const auto& setUp = Compute().setUps[0];
  EXPECT_NEAR(setUp.orientation, 50, 1e-9);
  const auto* blunder = Residual(setUp, "K2");
  EXPECT_FALSE(blunder->isUsed);
  EXPECT_TRUE(blunder->directionStandsOut);
  EXPECT_NEAR(blunder->direction, 0.1, 1e-9);
  EXPECT_TRUE(Residual(setUp, "K1")->isUsed);
  EXPECT_FALSE(Residual(setUp, "K1")->StandsOut());
}

TEST_F(Survey, BlunderIsNamedButUsedWhenOnlyTwoOthersAgree) {
  Known("S", 0, 0, 0);
  CSta& station = Station("S");
  const Place targets[] = {{0, 100, 0}, {100, 0, 0}, {0, -100, 0}};
  for (int i = 0; i < 3; ++i) {
    const std::string name = "K" + std::to_string(i);
    const Place& at = targets[static_cast<std::size_t>(i)];
    Known(name.c_str(), at.x, at.y, 0);
    Sight(station, name, Exact({0, 0, 0}, at, i == 2 ? 49.7 : 50));
  }
  const auto& setUp = Compute().setUps[0];
  EXPECT_NEAR(setUp.orientation, 49.9, 1e-9);
  EXPECT_TRUE(Residual(setUp, "K2")->isUsed);
  EXPECT_TRUE(Residual(setUp, "K2")->directionStandsOut);
}

TEST_F(Survey, WrongDistanceAndHeightAreNamedEach) {
  Known("S", 0, 0, 0);
  Known("A", 0, 100, 0);
  CSta& station = Station("S");
  Sight(station, "A", {100.1, 100, 0}, 0.2);
  const auto* it = Residual(Compute().setUps[0], "A");
  EXPECT_FALSE(it->directionStandsOut);
  EXPECT_TRUE(it->alongStandsOut);
  EXPECT_NEAR(it->along, 0.1, 1e-9);
  EXPECT_TRUE(it->heightStandsOut);
  EXPECT_NEAR(it->height, -0.2, 1e-9);
}

TEST_F(Survey, TwoPlacesOfOneKnownNameAreToldAndTheFirstHolds) {
  Known("S", 0, 0, 0);
  Control("S", 0.5, 0, 0);
  Known("A", 0, 100, 0);
  CSta& station = Station("S");
  Sight(station, "A", {100, 100, 0});
  Compute();
  ExpectAt(station, 0, 0, 0);
  ASSERT_EQ(result.clashes.size(), 1u);
  EXPECT_EQ(result.clashes[0].name, "S");
  EXPECT_EQ(result.clashes[0].other.x, 0.5);
}

// ---- Size ----

TEST_F(Survey, ChainOfTenThousandStationsDoesNotRecurse) {
  constexpr int kStations = 10'000;
  for (int i = 0; i < kStations; ++i) {
    CSta& station = Station("S" + std::to_string(i));
    if (i > 0) Sight(station, "S" + std::to_string(i - 1), {10, 100, 200});
    if (i + 1 < kStations) Sight(station, "S" + std::to_string(i + 1), {10, 100, 0});
  }
  const auto& job = Compute();
  EXPECT_EQ(job.setUps.back().method, SetUpMethod::kSighted);
  ExpectAt(*Jobs().GetStaAt(0, kStations - 1), 0, 10.0 * (kStations - 1), 0, 1e-4);
}

TEST_F(Survey, ChainOfTenThousandFreeStationsOverCommonPointsDoesNotRecurse) {
  constexpr int kStations = 10'000;
  const auto name = [](char side, int i) { return side + std::to_string(i); };
  for (int i = 0; i < kStations; ++i) {
    CSta& station = Station("S" + std::to_string(i));
    const Place here{0, 10.0 * i, 0};
    for (const int gate : {i, i + 1}) {
      const double north = 10.0 * gate - 5;
      Sight(station, name('L', gate), Exact(here, {-5, north, 0}));
      Sight(station, name('R', gate), Exact(here, {5, north, 0}));
    }
  }
  const auto& job = Compute();
  EXPECT_EQ(job.setUps.back().method, SetUpMethod::kResected);
  ExpectAt(*Jobs().GetStaAt(0, kStations - 1), 0, 10.0 * (kStations - 1), 0, 1e-2);
}

}  // namespace
