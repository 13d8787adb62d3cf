#include "model/total_station.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <numbers>
#include <type_traits>

#include "support/add_policies.h"

namespace {

// Two jobs; the first has stations A and B, the second C; A has two points.
struct TotalStation : testing::Test {
  TotalStation() {
    first = library.AddJob(true);
    second = library.AddJob(true);
    a = library.AddSta(0, true);
    b = library.AddSta(0, true);
    c = library.AddSta(1, true);
    firstPoint = library.AddPun(0, 0, true);
    secondPoint = library.AddPun(0, 0, true);
  }

  CLibCmp library;
  CJob* first;
  CJob* second;
  CSta* a;
  CSta* b;
  CSta* c;
  CPun* firstPoint;
  CPun* secondPoint;
  int job = -7;
  int sta = -8;
};

TEST(TotalStationAtFirst, IsEmpty) {
  CLibCmp library;
  EXPECT_EQ(library.GetJobArSize(), 0);
  EXPECT_EQ(library.GetOriArSize(), 0);
  EXPECT_EQ(library.GetCurrSta(), nullptr);
  EXPECT_NE(library.GetCmpContext(), nullptr);
}

TEST_F(TotalStation, CountsJobsStationsAndPoints) {
  EXPECT_EQ(library.GetJobArSize(), 2);
  EXPECT_EQ(library.GetStaArSize(0), 2);
  EXPECT_EQ(library.GetStaArSize(1), 1);
  EXPECT_EQ(library.GetPunArSize(0, 0), 2);
  EXPECT_EQ(library.GetPunArSize(0, 1), 0);
}

TEST_F(TotalStation, FindsObjectsInTheOrderOfAddition) {
  EXPECT_EQ(library.GetJobAt(0), first);
  EXPECT_EQ(library.GetJobAt(1), second);
  EXPECT_EQ(library.GetStaAt(0, 0), a);
  EXPECT_EQ(library.GetStaAt(0, 1), b);
  EXPECT_EQ(library.GetStaAt(1, 0), c);
  EXPECT_EQ(library.GetPunAt(0, 0, 0), firstPoint);
  EXPECT_EQ(library.GetPunAt(0, 0, 1), secondPoint);
}

TEST_F(TotalStation, GrowsByOnePointThatIsTheLast) {
  CPun* const added = library.AddPun(0, 0, true);
  EXPECT_EQ(library.GetPunArSize(0, 0), 3);
  EXPECT_EQ(library.GetPunAt(0, 0, 2), added);
  EXPECT_EQ(library.GetPunArSize(0, 1), 0);
}

TEST_F(TotalStation, AddsAPointToAGivenStation) {
  CPun* const added = library.AddPun(c, true);
  EXPECT_EQ(library.GetPunArSize(1, 0), 1);
  EXPECT_EQ(library.GetPunAt(1, 0, 0), added);
  EXPECT_EQ(added->GetSta(), c);
}

TEST_F(TotalStation, GivesAnAddedChildTheIndexOfTheCountBefore) {
  for (int index = 2; index < 50; ++index) {
    CSta* const added = library.AddSta(0, true);
    EXPECT_EQ(library.GetStaAt(0, index), added);
    EXPECT_TRUE(library.GetIndiciDiSta(added, job, sta));
    EXPECT_EQ(sta, index);
  }
}

TEST_F(TotalStation, AddsWhetherTheViewsAreToldOrNot) {
  EXPECT_NE(library.AddJob(false), nullptr);
  EXPECT_NE(library.AddSta(2, false), nullptr);
  EXPECT_NE(library.AddPun(2, 0, false), nullptr);
  EXPECT_EQ(library.GetPunArSize(2, 0), 1);
}

TEST_F(TotalStation, FindsTheIndicesOfAStation) {
  EXPECT_TRUE(library.GetIndiciDiSta(b, job, sta));
  EXPECT_EQ(job, 0);
  EXPECT_EQ(sta, 1);
  EXPECT_TRUE(library.GetIndiciDiSta(c, job, sta));
  EXPECT_EQ(job, 1);
  EXPECT_EQ(sta, 0);
}

TEST_F(TotalStation, FindsTheIndexOfAJob) {
  EXPECT_TRUE(library.GetIndiciDiJob(first, job));
  EXPECT_EQ(job, 0);
  EXPECT_TRUE(library.GetIndiciDiJob(second, job));
  EXPECT_EQ(job, 1);
}

TEST_F(TotalStation, LeavesTheIndicesUntouchedForAStationOfAnotherLibrary) {
  CLibCmp other;
  other.AddJob(true);
  EXPECT_FALSE(library.GetIndiciDiSta(other.AddSta(0, true), job, sta));
  EXPECT_FALSE(other.GetIndiciDiSta(b, job, sta));
  EXPECT_EQ(job, -7);
  EXPECT_EQ(sta, -8);
}

TEST_F(TotalStation, LeavesTheIndicesUntouchedForAStationOfNoLibrary) {
  const CSta foreign(0, 0);
  EXPECT_FALSE(library.GetIndiciDiSta(&foreign, job, sta));
  EXPECT_FALSE(library.GetIndiciDiSta(nullptr, job, sta));
  EXPECT_EQ(job, -7);
  EXPECT_EQ(sta, -8);
}

TEST_F(TotalStation, LeavesTheIndexUntouchedForAForeignJob) {
  CLibCmp other;
  EXPECT_FALSE(library.GetIndiciDiJob(other.AddJob(true), job));
  EXPECT_FALSE(library.GetIndiciDiJob(nullptr, job));
  EXPECT_EQ(job, -7);
}

TEST_F(TotalStation, HasNoObjectsWhereNoIndexReaches) {
  for (const int beyond :
       {-1, 2, 1000, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()}) {
    EXPECT_EQ(library.GetJobAt(beyond), nullptr);
    EXPECT_EQ(library.GetStaAt(beyond, 0), nullptr);
    EXPECT_EQ(library.GetStaAt(0, beyond), nullptr);
    EXPECT_EQ(library.GetPunAt(beyond, 0, 0), nullptr);
    EXPECT_EQ(library.GetPunAt(0, beyond, 0), nullptr);
    EXPECT_EQ(library.GetPunAt(0, 0, beyond), nullptr);
  }
}

TEST_F(TotalStation, HasEmptyListsWhereNoIndexReaches) {
  for (const int beyond : {-1, 2, std::numeric_limits<int>::max()}) {
    EXPECT_EQ(library.GetStaArSize(beyond), 0);
    EXPECT_EQ(library.GetPunArSize(beyond, 0), 0);
    EXPECT_EQ(library.GetPunArSize(0, beyond), 0);
  }
}

TEST_F(TotalStation, AddsNothingWhereTheParentIsNotThere) {
  EXPECT_EQ(library.AddSta(2, true), nullptr);
  EXPECT_EQ(library.AddSta(-1, true), nullptr);
  EXPECT_EQ(library.AddPun(0, 2, true), nullptr);
  EXPECT_EQ(library.AddPun(5, 0, true), nullptr);
  EXPECT_EQ(library.AddPun(nullptr, true), nullptr);
  EXPECT_EQ(library.GetStaArSize(0), 2);
}

TEST_F(TotalStation, AddsNoJobThatTheHostRefuses) {
  RefuseKinds policy({AddedKind::kJob});
  library.SetAddPolicy(&policy);
  EXPECT_EQ(library.AddJob(true), nullptr);
  EXPECT_EQ(library.GetJobArSize(), 2);
  EXPECT_NE(library.AddSta(0, true), nullptr);
}

TEST_F(TotalStation, AddsNoStationThatTheHostRefuses) {
  RefuseKinds policy({AddedKind::kStation});
  library.SetAddPolicy(&policy);
  EXPECT_EQ(library.AddSta(0, true), nullptr);
  EXPECT_EQ(library.GetStaArSize(0), 2);
  EXPECT_NE(library.AddPun(0, 0, true), nullptr);
}

TEST_F(TotalStation, AddsNoPointThatTheHostRefuses) {
  RefuseKinds policy({AddedKind::kPoint});
  library.SetAddPolicy(&policy);
  EXPECT_EQ(library.AddPun(0, 0, true), nullptr);
  EXPECT_EQ(library.AddPun(a, true), nullptr);
  EXPECT_EQ(library.GetPunArSize(0, 0), 2);
  EXPECT_NE(library.AddJob(true), nullptr);
}

TEST_F(TotalStation, AddsNoControlRecordThatTheHostRefuses) {
  RefuseKinds policy({AddedKind::kControlRecord});
  library.SetAddPolicy(&policy);
  EXPECT_EQ(library.AddOri(true), nullptr);
  EXPECT_EQ(library.GetOriArSize(), 0);
  EXPECT_NE(library.AddJob(true), nullptr);
}

TEST_F(TotalStation, AddsUntilTheHostRefuses) {
  RefuseAfter policy(3);
  library.SetAddPolicy(&policy);
  int added = 0;
  while (library.AddPun(1, 0, true) != nullptr) ++added;
  EXPECT_EQ(added, 3);
  EXPECT_EQ(library.GetPunArSize(1, 0), 3);
  library.SetAddPolicy(nullptr);
  EXPECT_NE(library.AddPun(1, 0, true), nullptr);
}

TEST_F(TotalStation, AsksTheHostForNothingThatHasNoParent) {
  RefuseKinds policy({});
  library.SetAddPolicy(&policy);
  library.AddSta(9, true);
  library.AddPun(0, 9, true);
  EXPECT_TRUE(policy.asked.empty());
}

TEST_F(TotalStation, RemembersTheCurrentStation) {
  library.SetCurrSta(b);
  EXPECT_EQ(library.GetCurrSta(), b);
  library.SetCurrSta(nullptr);
  EXPECT_EQ(library.GetCurrSta(), nullptr);
}

TEST_F(TotalStation, HasNoChangeContextWhenTheHostHasNone) {
  library.HaveCmpContext(false);
  EXPECT_EQ(library.GetCmpContext(), nullptr);
  library.HaveCmpContext(true);
  EXPECT_NE(library.GetCmpContext(), nullptr);
}

TEST_F(TotalStation, KeepsTargetDrawingsOfLibraryAndJobsApart) {
  library.SetTargetDrawing(5);
  first->SetTargetDrawing(6);
  second->SetTargetDrawing(-1);
  EXPECT_EQ(library.GetTargetDrawing(), 5);
  EXPECT_EQ(first->GetTargetDrawing(), 6);
  EXPECT_EQ(second->GetTargetDrawing(), -1);
}

TEST_F(TotalStation, KeepsControlRecordsInTheOrderOfAddition) {
  CLibConOri& records = library;
  COri* const one = records.AddOri(true);
  COri* const two = records.AddOri(true);
  two->SetNomCoord("K2", "nail", 1, 2, 3);
  EXPECT_EQ(records.GetOriArSize(), 2);
  EXPECT_EQ(records.GetOriAt(0), one);
  EXPECT_EQ(records.GetOriAt(1)->GetNome(), tdk::WString("K2"));
  EXPECT_EQ(records.GetOriAt(2), nullptr);
  EXPECT_EQ(records.GetOriAt(-1), nullptr);
}

TEST_F(TotalStation, FindsTheIndicesOfAHundredThousandStations) {
  constexpr int kMany = 100'000;
  while (library.GetStaArSize(1) < kMany) library.AddSta(1, true);
  for (int i = 0; i < kMany; ++i) {
    ASSERT_TRUE(library.GetIndiciDiSta(library.GetStaAt(1, i), job, sta));
    ASSERT_EQ(job, 1);
    ASSERT_EQ(sta, i);
  }
}

TEST_F(TotalStation, FindsTheIndicesOfAHundredThousandJobs) {
  constexpr int kMany = 100'000;
  while (library.GetJobArSize() < kMany) library.AddJob(true);
  for (int i = 0; i < kMany; ++i) {
    ASSERT_TRUE(library.GetIndiciDiJob(library.GetJobAt(i), job));
    ASSERT_EQ(job, i);
  }
}

TEST_F(TotalStation, LeavesEveryObjectWhereItIsWhileOthersAreAdded) {
  first->SetNome("wall");
  a->SetNome("S1");
  for (int i = 0; i < 5000; ++i) {
    library.AddJob(true);
    library.AddSta(0, true);
    library.AddPun(a, true);
  }
  EXPECT_EQ(library.GetJobAt(0), first);
  EXPECT_EQ(library.GetStaAt(0, 0), a);
  EXPECT_EQ(library.GetPunAt(0, 0, 1), secondPoint);
  EXPECT_EQ(a->GetNome(), tdk::WString("S1"));
}

TEST_F(TotalStation, KeepsTheFourTextsOfAJob) {
  first->SetNome("wall");
  first->SetOper("Rossi");
  first->SetStrum("TS-1");
  first->SetData("1/2/2024");
  EXPECT_EQ(first->GetNome(), tdk::WString("wall"));
  EXPECT_EQ(first->GetOper(), tdk::WString("Rossi"));
  EXPECT_EQ(first->GetStrum(), tdk::WString("TS-1"));
  EXPECT_EQ(first->GetData(), tdk::WString("1/2/2024"));
}

TEST_F(TotalStation, SetsTheFourTextsOfAJobInOneCall) {
  first->SetLabels("wall", "Rossi", "TS-1", "1/2/2024");
  EXPECT_EQ(first->GetNome(), tdk::WString("wall"));
  EXPECT_EQ(first->GetOper(), tdk::WString("Rossi"));
  EXPECT_EQ(first->GetStrum(), tdk::WString("TS-1"));
  EXPECT_EQ(first->GetData(), tdk::WString("1/2/2024"));
}

TEST_F(TotalStation, KeepsTheValuesOfAStation) {
  a->SetIden("set-up 7");
  a->SetAltStr(1.532);
  a->SetTemper(-3.5);
  a->SetPressi(1013);
  EXPECT_EQ(a->GetIden(), tdk::WString("set-up 7"));
  EXPECT_EQ(a->GetAltStr(), 1.532);
  EXPECT_EQ(a->GetTemper(), -3.5);
  EXPECT_EQ(a->GetPressi(), 1013);
}

TEST_F(TotalStation, AddsEmptyObjects) {
  EXPECT_TRUE(first->GetNome().IsEmpty());
  EXPECT_TRUE(first->GetData().IsEmpty());
  EXPECT_TRUE(a->GetNome().IsEmpty());
  EXPECT_TRUE(a->GetIden().IsEmpty());
  EXPECT_TRUE(firstPoint->GetNome().IsEmpty());
  EXPECT_FALSE(IsDefined(a->GetCoordX()));
  EXPECT_FALSE(IsDefined(firstPoint->GetDato0()));
  EXPECT_EQ(firstPoint->GetDateTime(), 0U);
}

TEST_F(TotalStation, StoresAnObservationInOneCall) {
  firstPoint->SetDtIntAng(12.345, 99.5, 399.9999, 1'700'000'000'123);
  EXPECT_EQ(firstPoint->GetDato0(), 12.345);
  EXPECT_EQ(firstPoint->GetDato1(), 99.5);
  EXPECT_EQ(firstPoint->GetDato2(), 399.9999);
  EXPECT_EQ(firstPoint->GetDateTime(), 1'700'000'000'123U);
}

TEST_F(TotalStation, KeepsATimeStampOf64Bits) {
  constexpr std::uint64_t kLatest = std::numeric_limits<std::uint64_t>::max();
  firstPoint->SetDtIntAng(1, 2, 3, kLatest);
  EXPECT_EQ(firstPoint->GetDateTime(), kLatest);
}

TEST_F(TotalStation, KeepsTheValuesOfAPoint) {
  firstPoint->SetAltPri(1.8);
  firstPoint->SetPrismType(4'000'000'000U);
  firstPoint->SetPrismOffset(-0.034);
  EXPECT_EQ(firstPoint->GetAltPri(), 1.8);
  EXPECT_EQ(firstPoint->GetPrismType(), 4'000'000'000U);
  EXPECT_EQ(firstPoint->GetPrismOffset(), -0.034);
}

TEST_F(TotalStation, DerivesHeightDifferenceAndHorizontalDistance) {
  firstPoint->SetDtIntAng(100, 200 / 3.0, 0, 0);  // 60 degrees from the zenith
  EXPECT_NEAR(firstPoint->GetDfQu(), 50, 1e-9);
  EXPECT_NEAR(firstPoint->GetDiOr(), 100 * std::sqrt(3) / 2, 1e-9);
}

TEST_F(TotalStation, DerivesNothingFromAnObservationWithoutDistance) {
  firstPoint->SetDtIntAng(UndefinedValue, 80, 0, 0);
  EXPECT_EQ(firstPoint->GetDfQu(), UndefinedValue);
  EXPECT_EQ(firstPoint->GetDiOr(), UndefinedValue);
  firstPoint->SetDtIntAng(10, UndefinedValue, 0, 0);
  EXPECT_EQ(firstPoint->GetDfQu(), UndefinedValue);
  EXPECT_EQ(firstPoint->GetDiOr(), UndefinedValue);
}

TEST_F(TotalStation, HasOneTextForCodeAndSecondDescription) {
  firstPoint->SetCode("wall");
  EXPECT_EQ(firstPoint->GetSecScri(), tdk::WString("wall"));
  firstPoint->SetSecScri("fence");
  EXPECT_EQ(firstPoint->GetCode(), tdk::WString("fence"));
  firstPoint->SetNomCoord("1", "tree", 0, 0, 0);
  EXPECT_EQ(firstPoint->GetCode(), tdk::WString("tree"));
}

TEST_F(TotalStation, KeepsNameAndThirdDescriptionApart) {
  firstPoint->SetNome("101");
  firstPoint->SetSecScri("wall");
  firstPoint->SetTerScri("corner");
  EXPECT_EQ(firstPoint->GetNome(), tdk::WString("101"));
  EXPECT_EQ(firstPoint->GetTerScri(), tdk::WString("corner"));
}

TEST_F(TotalStation, SetsNameAndDescriptionThroughTheBase) {
  CEgn& base = *firstPoint;
  base.SetNome("101");
  base.SetSecScri("wall");
  EXPECT_EQ(firstPoint->GetNome(), tdk::WString("101"));
  EXPECT_EQ(firstPoint->GetCode(), tdk::WString("wall"));
}

TEST_F(TotalStation, KeepsCoordinatesAndTheirValidity) {
  a->SetCoord(1, 2, UndefinedValue);
  EXPECT_EQ(a->GetCoordX(), 1);
  EXPECT_EQ(a->GetCoordY(), 2);
  EXPECT_EQ(a->GetCoordZ(), UndefinedValue);
  a->CalcolaValiditaXYZ();
  EXPECT_TRUE(a->IsValidX());
  EXPECT_TRUE(a->IsValidY());
  EXPECT_FALSE(a->IsValidZ());
}

TEST_F(TotalStation, TakesACoordinateFromTheLimitOnForUndefined) {
  a->SetCoord(std::nextafter(8.5e199, 0), 8.5e199, 1e300);
  a->CalcolaValiditaXYZ();
  EXPECT_TRUE(a->IsValidX());
  EXPECT_FALSE(a->IsValidY());
  EXPECT_FALSE(a->IsValidZ());
}

TEST_F(TotalStation, TakesWhatIsNoFiniteNumberForUndefined) {
  constexpr double kInfinity = std::numeric_limits<double>::infinity();
  EXPECT_FALSE(IsDefined(std::numeric_limits<double>::quiet_NaN()));
  EXPECT_FALSE(IsDefined(kInfinity));
  EXPECT_FALSE(IsDefined(-kInfinity));
  EXPECT_TRUE(IsDefined(std::numeric_limits<double>::lowest()));
}

TEST_F(TotalStation, KeepsTheFlagsOfAPointApart) {
  firstPoint->SetCode3D(true);
  EXPECT_TRUE(firstPoint->IsCode3D());
  EXPECT_FALSE(firstPoint->IsCodedNP());
  firstPoint->SetCodedNP(true);
  firstPoint->SetCode3D(false);
  EXPECT_FALSE(firstPoint->IsCode3D());
  EXPECT_TRUE(firstPoint->IsCodedNP());
}

TEST_F(TotalStation, ReachesTheOtherOverriddenOperationsThroughTheBase) {
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

TEST_F(TotalStation, BuildsAPointThatIsInNoLibrary) {
  CPun point(nullptr, true, a, library.GetCmpContext());
  point.SetNome("101");
  EXPECT_EQ(point.GetSta(), a);
  EXPECT_EQ(library.GetPunArSize(0, 0), 2);
}

TEST_F(TotalStation, DerivesTheObservationFromCoordinates) {
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

TEST_F(TotalStation, DerivesNoObservationFromAStationWithoutCoordinates) {
  CCalcDsOr how;
  firstPoint->SetCoordEtCalcMisure(true, 1, 2, 3, how, 0, 0, 0);
  EXPECT_EQ(firstPoint->GetCoordY(), 2);
  EXPECT_FALSE(IsDefined(firstPoint->GetDato0()));
}

TEST_F(TotalStation, DerivesCoordinatesFromTheObservation) {
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

TEST_F(TotalStation, DerivesNoCoordinatesWithoutADistance) {
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
