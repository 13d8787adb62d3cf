// The total-station library: what is added, found and refused.
#include <limits>

#include "support/add_policies.h"
#include "support/two_jobs.h"

namespace {

using TotalStation = TwoJobs;

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

}  // namespace
