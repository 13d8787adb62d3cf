// What jobs, stations and points of the total-station survey hold, and what is derived from it.
#include <cmath>
#include <limits>
#include <numbers>
#include <type_traits>

#include "support/two_jobs.h"

namespace {

using TotalStationValues = TwoJobs;

TEST_F(TotalStationValues, KeepsTheFourTextsOfAJob) {
  first->SetNome("wall");
  first->SetOper("Rossi");
  first->SetStrum("TS-1");
  first->SetData("1/2/2024");
  EXPECT_EQ(first->GetNome(), tdk::WString("wall"));
  EXPECT_EQ(first->GetOper(), tdk::WString("Rossi"));
  EXPECT_EQ(first->GetStrum(), tdk::WString("TS-1"));
  EXPECT_EQ(first->GetData(), tdk::WString("1/2/2024"));
}

TEST_F(TotalStationValues, SetsTheFourTextsOfAJobInOneCall) {
  first->SetLabels("wall", "Rossi", "TS-1", "1/2/2024");
  EXPECT_EQ(first->GetNome(), tdk::WString("wall"));
  EXPECT_EQ(first->GetOper(), tdk::WString("Rossi"));
  EXPECT_EQ(first->GetStrum(), tdk::WString("TS-1"));
  EXPECT_EQ(first->GetData(), tdk::WString("1/2/2024"));
}

TEST_F(TotalStationValues, KeepsTheValuesOfAStation) {
  a->SetIden("set-up 7");
  a->SetAltStr(1.532);
  a->SetTemper(-3.5);
  a->SetPressi(1013);
  EXPECT_EQ(a->GetIden(), tdk::WString("set-up 7"));
  EXPECT_EQ(a->GetAltStr(), 1.532);
  EXPECT_EQ(a->GetTemper(), -3.5);
  EXPECT_EQ(a->GetPressi(), 1013);
}

TEST_F(TotalStationValues, AddsEmptyObjects) {
  EXPECT_TRUE(first->GetNome().IsEmpty());
  EXPECT_TRUE(first->GetData().IsEmpty());
  EXPECT_TRUE(a->GetNome().IsEmpty());
  EXPECT_TRUE(a->GetIden().IsEmpty());
  EXPECT_TRUE(firstPoint->GetNome().IsEmpty());
  EXPECT_FALSE(IsDefined(a->GetCoordX()));
  EXPECT_FALSE(IsDefined(firstPoint->GetDato0()));
  EXPECT_EQ(firstPoint->GetDateTime(), 0U);
}

TEST_F(TotalStationValues, StoresAnObservationInOneCall) {
  firstPoint->SetDtIntAng(12.345, 99.5, 399.9999, 1'700'000'000'123);
  EXPECT_EQ(firstPoint->GetDato0(), 12.345);
  EXPECT_EQ(firstPoint->GetDato1(), 99.5);
  EXPECT_EQ(firstPoint->GetDato2(), 399.9999);
  EXPECT_EQ(firstPoint->GetDateTime(), 1'700'000'000'123U);
}

TEST_F(TotalStationValues, KeepsATimeStampOf64Bits) {
  constexpr std::uint64_t kLatest = std::numeric_limits<std::uint64_t>::max();
  firstPoint->SetDtIntAng(1, 2, 3, kLatest);
  EXPECT_EQ(firstPoint->GetDateTime(), kLatest);
}

TEST_F(TotalStationValues, KeepsTheValuesOfAPoint) {
  firstPoint->SetAltPri(1.8);
  firstPoint->SetPrismType(4'000'000'000U);
  firstPoint->SetPrismOffset(-0.034);
  EXPECT_EQ(firstPoint->GetAltPri(), 1.8);
  EXPECT_EQ(firstPoint->GetPrismType(), 4'000'000'000U);
  EXPECT_EQ(firstPoint->GetPrismOffset(), -0.034);
}

TEST_F(TotalStationValues, DerivesHeightDifferenceAndHorizontalDistance) {
  firstPoint->SetDtIntAng(100, 200 / 3.0, 0, 0);  // 60 degrees from the zenith
  EXPECT_NEAR(firstPoint->GetDfQu(), 50, 1e-9);
  EXPECT_NEAR(firstPoint->GetDiOr(), 100 * std::sqrt(3) / 2, 1e-9);
}

TEST_F(TotalStationValues, DerivesNothingFromAnObservationWithoutDistance) {
  firstPoint->SetDtIntAng(UndefinedValue, 80, 0, 0);
  EXPECT_EQ(firstPoint->GetDfQu(), UndefinedValue);
  EXPECT_EQ(firstPoint->GetDiOr(), UndefinedValue);
  firstPoint->SetDtIntAng(10, UndefinedValue, 0, 0);
  EXPECT_EQ(firstPoint->GetDfQu(), UndefinedValue);
  EXPECT_EQ(firstPoint->GetDiOr(), UndefinedValue);
}

TEST_F(TotalStationValues, HasOneTextForCodeAndSecondDescription) {
  firstPoint->SetCode("wall");
  EXPECT_EQ(firstPoint->GetSecScri(), tdk::WString("wall"));
  firstPoint->SetSecScri("fence");
  EXPECT_EQ(firstPoint->GetCode(), tdk::WString("fence"));
  firstPoint->SetNomCoord("1", "tree", 0, 0, 0);
  EXPECT_EQ(firstPoint->GetCode(), tdk::WString("tree"));
}

TEST_F(TotalStationValues, KeepsNameAndThirdDescriptionApart) {
  firstPoint->SetNome("101");
  firstPoint->SetSecScri("wall");
  firstPoint->SetTerScri("corner");
  EXPECT_EQ(firstPoint->GetNome(), tdk::WString("101"));
  EXPECT_EQ(firstPoint->GetTerScri(), tdk::WString("corner"));
}

TEST_F(TotalStationValues, SetsNameAndDescriptionThroughTheBase) {
  CEgn& base = *firstPoint;
  base.SetNome("101");
  base.SetSecScri("wall");
  EXPECT_EQ(firstPoint->GetNome(), tdk::WString("101"));
  EXPECT_EQ(firstPoint->GetCode(), tdk::WString("wall"));
}

TEST_F(TotalStationValues, KeepsCoordinatesAndTheirValidity) {
  a->SetCoord(1, 2, UndefinedValue);
  EXPECT_EQ(a->GetCoordX(), 1);
  EXPECT_EQ(a->GetCoordY(), 2);
  EXPECT_EQ(a->GetCoordZ(), UndefinedValue);
  a->CalcolaValiditaXYZ();
  EXPECT_TRUE(a->IsValidX());
  EXPECT_TRUE(a->IsValidY());
  EXPECT_FALSE(a->IsValidZ());
}

TEST_F(TotalStationValues, TakesACoordinateFromTheLimitOnForUndefined) {
  a->SetCoord(std::nextafter(8.5e199, 0), 8.5e199, 1e300);
  a->CalcolaValiditaXYZ();
  EXPECT_TRUE(a->IsValidX());
  EXPECT_FALSE(a->IsValidY());
  EXPECT_FALSE(a->IsValidZ());
}

TEST_F(TotalStationValues, TakesWhatIsNoFiniteNumberForUndefined) {
  constexpr double kInfinity = std::numeric_limits<double>::infinity();
  EXPECT_FALSE(IsDefined(std::numeric_limits<double>::quiet_NaN()));
  EXPECT_FALSE(IsDefined(kInfinity));
  EXPECT_FALSE(IsDefined(-kInfinity));
  EXPECT_TRUE(IsDefined(std::numeric_limits<double>::lowest()));
}

TEST_F(TotalStationValues, KeepsTheFlagsOfAPointApart) {
  firstPoint->SetCode3D(true);
  EXPECT_TRUE(firstPoint->IsCode3D());
  EXPECT_FALSE(firstPoint->IsCodedNP());
  firstPoint->SetCodedNP(true);
  firstPoint->SetCode3D(false);
  EXPECT_FALSE(firstPoint->IsCode3D());
  EXPECT_TRUE(firstPoint->IsCodedNP());
}

TEST_F(TotalStationValues, ReachesTheOtherOverriddenOperationsThroughTheBase) {
  CEgn& base = *firstPoint;
  base.SetCodeEgn(77);
  base.DoSetCoord(1, 2, 3);
  base.IsModifying(true);
  EXPECT_EQ(firstPoint->GetCodeEgn(), 77U);
  EXPECT_EQ(firstPoint->GetCoordZ(), 3);
  EXPECT_TRUE(firstPoint->IsBeingModified());
  EXPECT_EQ(base.GetUserType(), firstPoint->GetUserType());
  EXPECT_EQ(base.GetCloudCreatorDevId(), firstPoint->GetCloudCreatorDevId());
}

TEST_F(TotalStationValues, BuildsAPointThatIsInNoLibrary) {
  CPun point(nullptr, true, a, library.GetCmpContext());
  point.SetNome("101");
  EXPECT_EQ(point.GetSta(), a);
  EXPECT_EQ(library.GetPunArSize(0, 0), 2);
}

TEST_F(TotalStationValues, DerivesTheObservationFromCoordinates) {
  a->SetCoord(1000, 2000, 50);
  a->SetAltStr(1.5);
  CCalcDsOr how;
  firstPoint->SetCoordEtCalcMisure(true, 1030, 2040, 51.5, how, 99, 0, 0);
  EXPECT_EQ(firstPoint->GetCoordX(), 1030);
  EXPECT_NEAR(firstPoint->GetDato0(), 50, 1e-9);
  EXPECT_NEAR(firstPoint->GetDato1(), 100, 1e-9);
  EXPECT_NEAR(firstPoint->GetDato2(), std::atan2(30, 40) * 200 / std::numbers::pi, 1e-9);
  EXPECT_EQ(firstPoint->GetDateTime(), 99U);
}

TEST_F(TotalStationValues, DerivesNoObservationFromAStationWithoutCoordinates) {
  CCalcDsOr how;
  firstPoint->SetCoordEtCalcMisure(true, 1, 2, 3, how, 0, 0, 0);
  EXPECT_EQ(firstPoint->GetCoordY(), 2);
  EXPECT_FALSE(IsDefined(firstPoint->GetDato0()));
}

TEST_F(TotalStationValues, DerivesCoordinatesFromTheObservation) {
  a->SetCoord(1000, 2000, 50);
  a->SetAltStr(1.5);
  firstPoint->SetDtIntAng(100, 100, 50, 0);
  firstPoint->SetAltPri(2);
  CCalcDsOr how{.orientation = 50};
  firstPoint->CalcolaCoordAssolute(true, how);
  EXPECT_NEAR(firstPoint->GetCoordX(), 1100, 1e-9);
  EXPECT_NEAR(firstPoint->GetCoordY(), 2000, 1e-9);
  EXPECT_NEAR(firstPoint->GetCoordZ(), 49.5, 1e-9);
}

TEST_F(TotalStationValues, DerivesNoCoordinatesWithoutADistance) {
  a->SetCoord(1000, 2000, 50);
  firstPoint->SetDtIntAng(UndefinedValue, 100, 50, 0);
  CCalcDsOr how;
  firstPoint->CalcolaCoordAssolute(true, how);
  EXPECT_FALSE(IsDefined(firstPoint->GetCoordX()));
}

TEST(TotalStationTypes, StandInTheGivenOrder) {
  EXPECT_TRUE((std::is_base_of_v<CEgn, CSta>));
  EXPECT_TRUE((std::is_base_of_v<CEgn, CPun>));
  EXPECT_TRUE((std::is_base_of_v<tdk::CSourceEvent, CLibCmpChangeContext>));
  EXPECT_TRUE(std::has_virtual_destructor_v<CPun>);
}

}  // namespace
