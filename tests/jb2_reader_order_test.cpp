// Where the JB2 reader puts stations and points: the current job and the current station.
#include <string>

#include "tests/support/exchange_jb2.h"

using namespace exchange_test;

namespace {

class Jb2Order : public Jb2Test {
 protected:
  /// Two jobs before the file is read: A with the station S and its point P, and B with the station
  /// T.
  void HaveTwoJobs() {
    library.AddJob(true)->SetNome("A");
    library.AddSta(0, true)->SetNome("S");
    library.AddPun(0, 0, true)->SetNome("P");
    library.AddJob(true)->SetNome("B");
    library.AddSta(1, true)->SetNome("T");
  }
};

TEST_F(Jb2Order, PutsStationsIntoTheLastJobRecordAndPointsIntoTheLastStationRecord) {
  Read(JobNamed("J1") + StationNamed("S1") + PointNamed("1") + PointNamed("2") +
       StationNamed("S2") + PointNamed("3") + JobNamed("J2") + StationNamed("S3") +
       PointNamed("4"));
  EXPECT_EQ(Outline(), "J1(S1[1 2]S2[3])J2(S3[4])");
}

TEST_F(Jb2Order, PutsReducedPointsAmongThePolarOnes) {
  Read(StationNamed("S") + PointNamed("1") + Line('R', {"2", "", "0", "0", "1", "1"}) +
       PointNamed("3"));
  EXPECT_EQ(Outline(), "(S[1 2 3])");
}

TEST_F(Jb2Order, KeepsJobsWithoutStationsAndStationsWithoutPoints) {
  Read(JobNamed("J1") + JobNamed("J2") + StationNamed("S1") + StationNamed("S2") + JobNamed("J3"));
  EXPECT_EQ(Outline(), "J1()J2(S1[]S2[])J3()");
}

TEST_F(Jb2Order, AppendsJobsAfterThoseThatAreThere) {
  HaveTwoJobs();
  Read(JobNamed("C") + StationNamed("U") + PointNamed("1"));
  EXPECT_EQ(Outline(), "A(S[P])B(T[])C(U[1])");
}

TEST_F(Jb2Order, PutsAStationWithoutAJobRecordIntoTheLastJob) {
  HaveTwoJobs();
  Read(StationNamed("U") + PointNamed("1") + StationNamed("V"));
  EXPECT_EQ(Outline(), "A(S[P])B(T[]U[1]V[])");
}

TEST_F(Jb2Order, PutsAStationIntoANewJobWithEmptyLabelsWhenThereIsNone) {
  Read(StationNamed("S1") + PointNamed("1") + StationNamed("S2"));
  EXPECT_EQ(Outline(), "(S1[1]S2[])");
  EXPECT_EQ(Job(0).GetOper(), "");
  EXPECT_EQ(Job(0).GetStrum(), "");
  EXPECT_EQ(Job(0).GetData(), "");
}

TEST_F(Jb2Order, PutsAPointBeforeAnyStationIntoAnUnnamedOneOfANewJob) {
  Read(PointNamed("1") + PointNamed("2"));
  EXPECT_EQ(Outline(), "([1 2])");
  EXPECT_EQ(Job(0).GetOper(), "");
  EXPECT_EQ(Station(0, 0).GetIden(), "");
  EXPECT_EQ(Station(0, 0).GetAltStr(), 0);
  EXPECT_EQ(Station(0, 0).GetTemper(), 0);
  EXPECT_EQ(Station(0, 0).GetPressi(), 0);
}

TEST_F(Jb2Order, PutsAReducedPointBeforeAnyStationIntoAnUnnamedOneToo) {
  Read(Line('R', {"1", "", "0", "0", "1", "1"}));
  EXPECT_EQ(Outline(), "([1])");
}

TEST_F(Jb2Order, PutsAPointBeforeAnyStationIntoAnUnnamedOneOfTheLastJob) {
  HaveTwoJobs();
  Read(PointNamed("1") + PointNamed("2"));
  EXPECT_EQ(Outline(), "A(S[P])B(T[][1 2])");
}

TEST_F(Jb2Order, ForgetsTheStationAtAJobRecord) {
  Read(JobNamed("J1") + StationNamed("S1") + JobNamed("J2") + PointNamed("1"));
  EXPECT_EQ(Outline(), "J1(S1[])J2([1])");
}

TEST_F(Jb2Order, LetsAStationRecordFollowThePointsOfAnUnnamedOne) {
  Read(JobNamed("J") + PointNamed("1") + StationNamed("S") + PointNamed("2"));
  EXPECT_EQ(Outline(), "J([1]S[2])");
}

TEST_F(Jb2Order, IsNotDisturbedByCommentsBetweenTheRecords) {
  Read("# a\n" + JobNamed("J") + "# b\n" + StationNamed("S") + "\n" + PointNamed("1") + "# c\n" +
       PointNamed("2"));
  EXPECT_EQ(Outline(), "J(S[1 2])");
}

TEST_F(Jb2Order, AppendsAFileThatIsReadTwice) {
  const std::string file = JobNamed("J") + StationNamed("S") + PointNamed("1");
  Read(file);
  Read(file);
  EXPECT_EQ(Outline(), "J(S[1])J(S[1])");
}

TEST_F(Jb2Order, LeavesThePointThatWasThereAsItWas) {
  HaveTwoJobs();
  library.GetPunAt(0, 0, 0)->SetDtIntAng(1, 2, 3, 4);
  Read(PointNamed("1"));
  EXPECT_EQ(Point(0, 0, 0).GetDato0(), 1);
  EXPECT_EQ(Point(0, 0, 0).GetDateTime(), 4u);
}

TEST_F(Jb2Order, AddsNoControlRecord) {
  Read(JobNamed("J") + StationNamed("S") + PointNamed("1"));
  EXPECT_EQ(library.GetOriArSize(), 0);
}

}  // namespace
