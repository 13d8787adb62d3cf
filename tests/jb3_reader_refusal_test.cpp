// The JB3 reader with a host that refuses to add: what is skipped, what is still read, and that
// nothing is said.
#include "tests/support/exchange_jb2.h"
#include "tests/support/jb3_documents.h"

using namespace exchange_test;
using tdk::WString;

namespace {

class Jb3ReaderRefusal : public Jb3Test {
 protected:
  /// Reads while one kind of object is refused the nth time, and every other time allowed.
  void ReadRefusing(AddedKind kind, int nth, const std::string& body) {
    ScriptedPolicy policy(RefuseNth(kind, nth));
    ReadUnder(policy, body);
  }
  void ReadUnder(ScriptedPolicy& policy, const std::string& body) {
    Jobs().SetAddPolicy(&policy);
    Gps().SetAddPolicy(&policy);
    Known().SetAddPolicy(&policy);
    Read(body);
    Jobs().SetAddPolicy(nullptr);
    Gps().SetAddPolicy(nullptr);
    Known().SetAddPolicy(nullptr);
  }
  std::string PointNames(int sta) {
    std::string names;
    for (int i = 0; i < Jobs().GetPunArSize(0, sta); ++i) {
      names += Jobs().GetPunAt(0, sta, i)->GetNome().ToUtf8();
    }
    return names;
  }
  std::string GpsNames(int group) {
    std::string names;
    for (int i = 0; i < Gps().GetPunArSize(group); ++i) {
      names += Gps().GetPunAt(group, i)->GetNome().ToUtf8();
    }
    return names;
  }
};

// ---- Total station ----

TEST_F(Jb3ReaderRefusal, StationsOfARefusedJobDoNotGoToTheOneBefore) {
  ReadRefusing(AddedKind::kJob, 2,
               "<Job name=\"A\"><Station name=\"S\"/></Job>"
               "<Job name=\"B\"><Station name=\"T\"/></Job>"
               "<Job name=\"C\"><Station name=\"U\"/></Job>");
  ASSERT_EQ(Jobs().GetJobArSize(), 2);
  EXPECT_EQ(Jobs().GetStaArSize(0), 1);
  EXPECT_EQ(Jobs().GetJobAt(1)->GetNome(), WString("C"));
  EXPECT_EQ(Jobs().GetStaAt(1, 0)->GetNome(), WString("U"));
}

TEST_F(Jb3ReaderRefusal, GpsGroupsOfARefusedJobAreSkippedWithIt) {
  ReadRefusing(AddedKind::kJob, 1, "<Job><Station/><GpsBase/></Job>");
  EXPECT_EQ(Gps().GetGrpArSize(), 0);
}

TEST_F(Jb3ReaderRefusal, PointsOfARefusedStationDoNotGoToAnotherOne) {
  ReadRefusing(AddedKind::kStation, 2,
               "<Job><Station><Pnts><Pnt name=\"1\"/></Pnts></Station>"
               "<Station><Pnts><Pnt name=\"2\"/></Pnts></Station>"
               "<Station><Pnts><Pnt name=\"3\"/></Pnts></Station></Job>");
  ASSERT_EQ(Jobs().GetStaArSize(0), 2);
  EXPECT_EQ(PointNames(0), "1");
  EXPECT_EQ(PointNames(1), "3");
}

TEST_F(Jb3ReaderRefusal, RefusedPointEndsItsListAndNoOther) {
  ReadRefusing(AddedKind::kPoint, 2,
               "<Job><Station><Pnts><Pnt name=\"1\"/><Pnt name=\"2\"/><Pnt name=\"3\"/></Pnts>"
               "<Pnts><Pnt name=\"4\"/></Pnts></Station>"
               "<Station><Pnts><Pnt name=\"5\"/></Pnts></Station></Job>");
  EXPECT_EQ(PointNames(0), "14");
  EXPECT_EQ(PointNames(1), "5");
}

TEST_F(Jb3ReaderRefusal, HostIsNotAskedForTheRestOfAList) {
  ScriptedPolicy policy(RefuseEvery(AddedKind::kPoint));
  ReadUnder(policy, "<Job><Station><Pnts><Pnt/><Pnt/><Pnt/></Pnts></Station></Job>");
  EXPECT_EQ(policy.asked, (std::vector{AddedKind::kJob, AddedKind::kStation, AddedKind::kPoint}));
}

// ---- GPS ----

TEST_F(Jb3ReaderRefusal, PointsOfARefusedGroupDoNotGoToAnotherOne) {
  ReadRefusing(AddedKind::kGpsGroup, 2,
               "<Job><GpsBase><GpsPnts><GpsPnt name=\"1\"/></GpsPnts></GpsBase>"
               "<GpsBase><GpsPnts><GpsPnt name=\"2\"/></GpsPnts></GpsBase>"
               "<GpsBase><GpsPnts><GpsPnt name=\"3\"/></GpsPnts></GpsBase></Job>");
  ASSERT_EQ(Gps().GetGrpArSize(), 2);
  EXPECT_EQ(GpsNames(0), "1");
  EXPECT_EQ(GpsNames(1), "3");
}

TEST_F(Jb3ReaderRefusal, RefusedGpsPointEndsItsListAndNoOther) {
  ReadRefusing(AddedKind::kGpsPoint, 2,
               "<Job><GpsBase><GpsPnts><GpsPnt name=\"1\"/><GpsPnt name=\"2\"/>"
               "<GpsPnt name=\"3\"/></GpsPnts></GpsBase>"
               "<GpsBase><GpsPnts><GpsPnt name=\"4\"/></GpsPnts></GpsBase></Job>");
  EXPECT_EQ(GpsNames(0), "1");
  EXPECT_EQ(GpsNames(1), "4");
}

// ---- Known points ----

const std::string kThreeLists =
    "<KnownPoints><KnownPoint name=\"1\" type=\"generic\"/><KnownPoint name=\"2\" type=\"ctrl\"/>"
    "</KnownPoints><KnownPoints><KnownPoint name=\"3\" type=\"ctrl\"/><KnownPoint name=\"4\" "
    "type=\"generic\"/></KnownPoints><KnownPoints><KnownPoint name=\"5\" type=\"generic\"/>"
    "</KnownPoints>";

TEST_F(Jb3ReaderRefusal, RefusedKnownGroupEndsItsElementAndNoOther) {
  ReadRefusing(AddedKind::kKnownGroup, 1, kThreeLists);
  EXPECT_EQ(Known().GetGrpArSize(), 2);
  EXPECT_EQ(Known().GetPtnAt(0, 0)->GetNome(), WString("4"));
  ASSERT_EQ(Jobs().GetOriArSize(), 1);
  EXPECT_EQ(Jobs().GetOriAt(0)->GetNome(), WString("3"));
}

TEST_F(Jb3ReaderRefusal, RefusedKnownPointEndsItsElementAndLeavesItsGroup) {
  ReadRefusing(AddedKind::kKnownPoint, 1, kThreeLists);
  EXPECT_EQ(Known().GetGrpArSize(), 3);
  EXPECT_EQ(Known().GetPtnArSize(0), 0);
  EXPECT_EQ(Known().GetPtnArSize(1), 1);
  EXPECT_EQ(Jobs().GetOriArSize(), 1);
}

TEST_F(Jb3ReaderRefusal, RefusedControlRecordEndsItsElementAndNoOther) {
  ReadRefusing(AddedKind::kControlRecord, 2, kThreeLists);
  EXPECT_EQ(Jobs().GetOriArSize(), 1);
  ASSERT_EQ(Known().GetGrpArSize(), 2);
  EXPECT_EQ(Known().GetPtnAt(1, 0)->GetNome(), WString("5"));
}

// ---- All kinds ----

class Jb3ReaderRefusalOf : public Jb3ReaderRefusal,
                           public testing::WithParamInterface<AddedKind> {};

TEST_P(Jb3ReaderRefusalOf, AnyKindIsNotTalkedAboutAndEndsTheBatch) {
  BatchCounter batches;
  Jobs().GetCmpContext()->SetListener(&batches);
  ScriptedPolicy policy(RefuseEvery(GetParam()));
  ReadUnder(policy,
            "<Job><Station><Pnts><Pnt/></Pnts></Station></Job>"
            "<Job><GpsBase><GpsPnts><GpsPnt/></GpsPnts></GpsBase></Job>"
            "<KnownPoints><KnownPoint type=\"ctrl\"/></KnownPoints>"
            "<KnownPoints><KnownPoint type=\"generic\"/></KnownPoints>");
  EXPECT_EQ(std::count(policy.asked.begin(), policy.asked.end(), GetParam()), 1);
  EXPECT_TRUE(views.messages.empty());
  EXPECT_EQ(batches.begun, 1);
  EXPECT_EQ(batches.ended, 1);
}

INSTANTIATE_TEST_SUITE_P(Each, Jb3ReaderRefusalOf,
                         testing::Values(AddedKind::kJob, AddedKind::kStation, AddedKind::kPoint,
                                         AddedKind::kGpsGroup, AddedKind::kGpsPoint,
                                         AddedKind::kKnownGroup, AddedKind::kKnownPoint,
                                         AddedKind::kControlRecord));

}  // namespace
