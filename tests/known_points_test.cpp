#include "model/known_points.h"

#include <gtest/gtest.h>

#include <limits>

#include "support/add_policies.h"

namespace {

using tdk::WString;

// Two groups; the first has two points.
struct KnownPoints : testing::Test {
  KnownPoints() {
    first = library.AddGrp(true);
    second = library.AddGrp(true);
    firstPoint = library.AddPtn(0, true);
    secondPoint = library.AddPtn(0, true);
  }

  CLibPnt library;
  CGrpPnt* first;
  CGrpPnt* second;
  CPunPnt* firstPoint;
  CPunPnt* secondPoint;
  int grp = -7;
};

TEST_F(KnownPoints, CountsGroupsAndPoints) {
  EXPECT_EQ(CLibPnt().GetGrpArSize(), 0);
  EXPECT_EQ(library.GetGrpArSize(), 2);
  EXPECT_EQ(library.GetPtnArSize(0), 2);
  EXPECT_EQ(library.GetPtnArSize(1), 0);
}

TEST_F(KnownPoints, FindsObjectsInTheOrderOfAddition) {
  EXPECT_EQ(library.GetGrpAt(0), first);
  EXPECT_EQ(library.GetGrpAt(1), second);
  EXPECT_EQ(library.GetPtnAt(0, 0), firstPoint);
  EXPECT_EQ(library.GetPtnAt(0, 1), secondPoint);
}

TEST_F(KnownPoints, HasNothingWhereNoIndexReaches) {
  for (const int beyond : {-1, 2, std::numeric_limits<int>::max()}) {
    EXPECT_EQ(library.GetGrpAt(beyond), nullptr);
    EXPECT_EQ(library.GetPtnAt(beyond, 0), nullptr);
    EXPECT_EQ(library.GetPtnAt(0, beyond), nullptr);
    EXPECT_EQ(library.GetPtnArSize(beyond), 0);
    EXPECT_EQ(library.AddPtn(beyond, true), nullptr);
  }
}

TEST_F(KnownPoints, FindsTheIndexOfAGroup) {
  EXPECT_TRUE(library.GetIndiciDiGrp(first, grp));
  EXPECT_EQ(grp, 0);
  EXPECT_TRUE(library.GetIndiciDiGrp(second, grp));
  EXPECT_EQ(grp, 1);
}

TEST_F(KnownPoints, LeavesTheIndexUntouchedForAForeignGroup) {
  CLibPnt other;
  const CGrpPnt nobodys(0);
  EXPECT_FALSE(library.GetIndiciDiGrp(other.AddGrp(true), grp));
  EXPECT_FALSE(library.GetIndiciDiGrp(&nobodys, grp));
  EXPECT_FALSE(library.GetIndiciDiGrp(nullptr, grp));
  EXPECT_EQ(grp, -7);
}

TEST_F(KnownPoints, AddsNoGroupThatTheHostRefuses) {
  RefuseKinds policy({AddedKind::kKnownGroup});
  library.SetAddPolicy(&policy);
  EXPECT_EQ(library.AddGrp(true), nullptr);
  EXPECT_EQ(library.GetGrpArSize(), 2);
  EXPECT_NE(library.AddPtn(0, true), nullptr);
}

TEST_F(KnownPoints, AddsNoPointThatTheHostRefuses) {
  RefuseKinds policy({AddedKind::kKnownPoint});
  library.SetAddPolicy(&policy);
  EXPECT_EQ(library.AddPtn(0, true), nullptr);
  EXPECT_EQ(library.GetPtnArSize(0), 2);
  EXPECT_NE(library.AddGrp(true), nullptr);
}

TEST_F(KnownPoints, AddsUntilTheHostRefuses) {
  RefuseAfter policy(2);
  library.SetAddPolicy(&policy);
  EXPECT_NE(library.AddPtn(1, true), nullptr);
  EXPECT_NE(library.AddPtn(1, true), nullptr);
  EXPECT_EQ(library.AddPtn(1, true), nullptr);
  EXPECT_EQ(library.GetPtnArSize(1), 2);
}

TEST_F(KnownPoints, KeepsTheFourLabelsOfAGroup) {
  WString one, two, three, four;
  first->SetLabels("A", "B", "C", "D");
  first->GetLabels(one, two, three, four);
  EXPECT_EQ(one + two + three + four, WString("ABCD"));
  second->GetLabels(one, two, three, four);
  EXPECT_EQ(one + two + three + four, WString());
}

TEST_F(KnownPoints, NamesAGroupByItsFirstLabel) {
  first->SetLabels("points.csv", "B", "C", "D");
  EXPECT_EQ(first->GetNome(), WString("points.csv"));
}

TEST_F(KnownPoints, KeepsNameCodeAndCoordinatesOfAPoint) {
  firstPoint->SetNomCoord("101", "nail", 1.5, 2.5, UndefinedValue);
  EXPECT_EQ(firstPoint->GetNome(), WString("101"));
  EXPECT_EQ(firstPoint->GetSecScri(), WString("nail"));
  EXPECT_EQ(firstPoint->GetCoordX(), 1.5);
  EXPECT_EQ(firstPoint->GetCoordY(), 2.5);
  EXPECT_EQ(firstPoint->GetCoordZ(), UndefinedValue);
}

TEST_F(KnownPoints, KeepsTargetDrawingsOfLibraryAndGroupsApart) {
  library.SetTargetDrawing(3);
  first->SetTargetDrawing(4);
  EXPECT_EQ(library.GetTargetDrawing(), 3);
  EXPECT_EQ(first->GetTargetDrawing(), 4);
  EXPECT_EQ(second->GetTargetDrawing(), 0);
}

TEST_F(KnownPoints, LeavesEveryObjectWhereItIsWhileOthersAreAdded) {
  for (int i = 0; i < 5000; ++i) {
    library.AddGrp(true);
    library.AddPtn(0, true);
  }
  EXPECT_EQ(library.GetGrpAt(1), second);
  EXPECT_EQ(library.GetPtnAt(0, 1), secondPoint);
  EXPECT_TRUE(library.GetIndiciDiGrp(library.GetGrpAt(5001), grp));
  EXPECT_EQ(grp, 5001);
}

TEST(ControlRecords, AreKeptInTheOrderOfAddition) {
  CLibConOri records;
  EXPECT_EQ(records.GetOriArSize(), 0);
  COri* const one = records.AddOri(true);
  COri* const two = records.AddOri(true);
  EXPECT_EQ(records.GetOriArSize(), 2);
  EXPECT_EQ(records.GetOriAt(0), one);
  EXPECT_EQ(records.GetOriAt(1), two);
  EXPECT_EQ(records.GetOriAt(2), nullptr);
  EXPECT_EQ(records.GetOriAt(-1), nullptr);
}

TEST(ControlRecords, CarryNameAndCoordinates) {
  CLibConOri records;
  records.AddOri(true)->SetNomCoord("K1", "nail", 1, 2, 3);
  const COri& record = *records.GetOriAt(0);
  EXPECT_EQ(record.GetNome(), WString("K1"));
  EXPECT_EQ(record.GetSecScri(), WString("nail"));
  EXPECT_EQ(record.GetCoordZ(), 3);
}

TEST(ControlRecords, AreNotAddedWhenTheHostRefuses) {
  CLibConOri records;
  RefuseKinds policy({AddedKind::kControlRecord});
  records.SetAddPolicy(&policy);
  EXPECT_EQ(records.AddOri(true), nullptr);
  EXPECT_EQ(records.GetOriArSize(), 0);
}

}  // namespace
