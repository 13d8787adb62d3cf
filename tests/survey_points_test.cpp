// Points of a computed job: those measured more than once, those that had coordinates, those that
// get none, and what the settings change.
#include "tests/support/exchange_jb2.h"
#include "tests/support/survey_jobs.h"

using namespace survey_test;
using survey::PointTrouble;
using survey::SetUpMethod;

namespace {

using Survey = SurveyTest;

// ---- Points measured more than once ----

TEST_F(Survey, PointMeasuredTwiceIsAveragedWithItsSpreadTold) {
  CSta& station = Station("S");
  CPun& one = Sight(station, "P", {10, 100, 0});
  CPun& other = Sight(station, "P", {10.02, 100, 0}, 0.01);
  const auto& job = Compute();
  ExpectAt(one, 0, 10.01, -0.005);
  ExpectAt(other, 0, 10.01, -0.005);
  ASSERT_EQ(job.repeated.size(), 1u);
  EXPECT_EQ(job.repeated[0].sights, 2);
  EXPECT_NEAR(job.repeated[0].spread, 0.01, 1e-9);
  EXPECT_NEAR(job.repeated[0].heightSpread, 0.005, 1e-9);
  EXPECT_TRUE(job.repeated[0].isAveraged);
}

TEST_F(Survey, SightsTooFarApartKeepTheirOwnCoordinates) {
  CSta& station = Station("S");
  CPun& one = Sight(station, "P", {10, 100, 0});
  CPun& other = Sight(station, "P", {11, 100, 0});
  const auto& job = Compute();
  ExpectAt(one, 0, 10, 0);
  ExpectAt(other, 0, 11, 0);
  EXPECT_FALSE(job.repeated[0].isAveraged);
  EXPECT_NEAR(job.repeated[0].spread, 0.5, 1e-9);
}

TEST_F(Survey, SightsOfKnownPointsAreResidualsAndNoMeans) {
  Known("S", 0, 0, 0);
  Known("A", 0, 100, 0);
  CSta& station = Station("S");
  CPun& sight = Sight(station, "A", {100.01, 100, 0});
  Sight(station, "A", {100.01, 100, 0});
  EXPECT_TRUE(Compute().repeated.empty());
  ExpectAt(sight, 0, 100.01, 0);
}

// ---- What stays as it is ----

TEST_F(Survey, CoordinatesThatAreThereStay) {
  CSta& station = Station("S");
  station.SetCoord(500, 600, 70);
  CPun& kept = Sight(station, "P", {10, 100, 0});
  kept.SetCoord(510, 600, 70);
  const auto& setUp = Compute().setUps[0];
  EXPECT_EQ(setUp.method, SetUpMethod::kKept);
  EXPECT_EQ(setUp.kept, 1);
  EXPECT_EQ(setUp.placed, 0);
  ExpectAt(station, 500, 600, 70);
  ExpectAt(kept, 510, 600, 70);
}

TEST_F(Survey, PointsThatAreThereOrientTheirStationForTheOthers) {
  CSta& station = Station("S");
  station.SetCoord(500, 600, 70);
  Sight(station, "P", {10, 100, 0}).SetCoord(510, 600, 70);
  CPun& added = Sight(station, "Q", {10, 100, 100});
  Compute();
  ExpectAt(added, 500, 590, 70);
}

TEST_F(Survey, ElevationThatAKeptStationLacksIsFilledIn) {
  Known("A", 500, 700, 55);
  CSta& station = Station("S", 1.5);
  station.SetCoord(500, 600, UndefinedValue);
  Sight(station, "A", {100, 100, 0}, 2);
  CPun& point = Sight(station, "P", {10, 100, 0}, 1.5);
  Compute();
  ExpectAt(station, 500, 600, 55.5);
  ExpectAt(point, 500, 610, 55.5);
}

TEST_F(Survey, StationOnTheMarkOfOneThatIsThereStandsThereToo) {
  Station("S").SetCoord(500, 600, 70);
  Known("A", 500, 700, 70);
  CSta& again = Station("S");
  Sight(again, "A", {100, 100, 0});
  CPun& point = Sight(again, "P", {10, 100, 100});
  Compute();
  ExpectAt(again, 500, 600, 70);
  ExpectAt(point, 510, 600, 70);
}

TEST_F(Survey, AnewForgetsWhatIsThere) {
  settings.isAnew = true;
  Known("S", 0, 0, 0);
  Known("A", 0, 100, 0);
  CSta& station = Station("S");
  station.SetCoord(500, 600, 70);
  Sight(station, "A", {100, 100, 0});
  CPun& point = Sight(station, "P", {10, 100, 100});
  point.SetCoord(1, 1, 1);
  CSta& apart = Station("T");
  apart.SetCoord(7, 8, 9);
  CPun& lost = Sight(apart, "Q", {10, 100, 0});
  lost.SetCoord(7, 18, 9);
  Compute();
  ExpectAt(station, 0, 0, 0);
  ExpectAt(point, 10, 0, 0);
  ExpectNowhere(apart);
  ExpectNowhere(lost);
}

TEST_F(Survey, SecondRunChangesNothing) {
  Known("S", 0, 0, 0);
  Known("A", 0, 100, 0);
  CSta& station = Station("S");
  Sight(station, "A", {100, 100, 0});
  CPun& point = Sight(station, "P", {10, 100, 100});
  Compute();
  const auto& again = Compute();
  EXPECT_EQ(again.setUps[0].kept, 2);
  ExpectAt(point, 10, 0, 0);
}

// ---- Points without coordinates ----

TEST_F(Survey, PointsThatCannotBePlacedAreListedWithTheReason) {
  CSta& station = Station("S");
  Sight(station, "DIST", {UndefinedValue, 100, 0});
  Sight(station, "ZEN", {10, UndefinedValue, 0});
  Sight(station, "DIR", {10, 100, UndefinedValue});
  Sight(station, "P", {10, 100, 0});
  const auto& job = Compute();
  ASSERT_EQ(job.missing.size(), 3u);
  EXPECT_EQ(job.missing[0].trouble, PointTrouble::kNoDistance);
  EXPECT_EQ(job.missing[1].trouble, PointTrouble::kNoAngle);
  EXPECT_EQ(job.missing[2].trouble, PointTrouble::kNoAngle);
  EXPECT_EQ(job.missing[2].point, 2);
  EXPECT_EQ(job.setUps[0].placed, 1);
}

// ---- Settings ----

TEST_F(Survey, CurvatureAndRefractionAreOffUntilAskedFor) {
  CSta& station = Station("S");
  CPun& point = Sight(station, "P", {1000, 100, 0});
  Compute();
  ExpectAt(point, 0, 1000, 0);
  settings.isAnew = true;
  settings.reduction = {true, 0.13};
  Compute();
  ExpectAt(point, 0, 1000, (1 - 0.13) * 1e6 / (2 * 6'371'000.0));
}

TEST_F(Survey, PrismConstantIsAddedOnlyWhenAskedFor) {
  CSta& station = Station("S");
  CPun& point = Sight(station, "P", {10, 100, 0});
  point.SetPrismOffset(0.034);
  Compute();
  ExpectAt(point, 0, 10, 0);
  settings.isAnew = true;
  settings.addPrismOffset = true;
  Compute();
  ExpectAt(point, 0, 10.034, 0);
}

TEST_F(Survey, SettingsOfTheJobAreRead) {
  const CurrentSettings current;
  EXPECT_FALSE(survey::ReadComputationSettings().reduction.isCurved);
  EXPECT_FALSE(survey::ReadComputationSettings().addPrismOffset);
  CIniFile file;
  file.WriteBool("Calcolo", "CurvaturaRifrazione", true);
  file.WriteString("Calcolo", "CoeffRifrazione", "0.2");
  file.WriteBool("Calcolo", "CostantePrisma", true);
  const survey::ComputationSettings read = survey::ReadComputationSettings();
  EXPECT_TRUE(read.reduction.isCurved);
  EXPECT_EQ(read.reduction.refraction, 0.2);
  EXPECT_TRUE(read.addPrismOffset);
}

TEST_F(Survey, ChangeIsBracketedOnce) {
  exchange_test::BatchCounter counter;
  Jobs().GetCmpContext()->SetListener(&counter);
  Sight(Station("S"), "P", {10, 100, 0});
  Compute();
  EXPECT_EQ(counter.begun, 1);
  EXPECT_EQ(counter.ended, 1);
  Jobs().GetCmpContext()->SetListener(nullptr);
}

}  // namespace
