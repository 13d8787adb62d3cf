// What the JB2 reader does when it cannot open the file, when the library refuses an add, and whom
// it tells.
#include <filesystem>
#include <stdexcept>
#include <string>

#include "tests/support/exchange_jb2.h"

using namespace exchange_test;

namespace {

class Jb2Refusal : public Jb2Test {
 protected:
  bool Run(const std::string& path) {
    return jb2::Jb2Reader(nullptr, &library, tdk::WString(path)).Run();
  }
  void HaveTwoJobs() {
    library.AddJob(true)->SetNome("A");
    library.AddJob(true)->SetNome("B");
  }
};

// ---- Files that cannot be read ----

TEST_F(Jb2Refusal, ReturnsFalseForAnEmptyPath) {
  EXPECT_FALSE(Run(""));
  EXPECT_EQ(Outline(), "");
}

TEST_F(Jb2Refusal, ReturnsFalseForAFileThatIsNotThere) {
  EXPECT_FALSE(Run(folder.Path("missing.jb2")));
  EXPECT_EQ(Outline(), "");
}

TEST_F(Jb2Refusal, ReturnsFalseForAFolder) {
  EXPECT_FALSE(Run(folder.Path()));
  EXPECT_EQ(Outline(), "");
}

TEST_F(Jb2Refusal, ReturnsTrueForAnEmptyFile) {
  EXPECT_TRUE(Read(""));
  EXPECT_EQ(Outline(), "");
}

TEST_F(Jb2Refusal, ReturnsTrueForAFileWithoutAnyRecord) {
  EXPECT_TRUE(Read("nothing here\nthat is a record\n\n"));
  EXPECT_EQ(Outline(), "");
}

TEST_F(Jb2Refusal, TakesAPathWithBackslashes) {
  std::filesystem::create_directory(folder.Path("sub"));
  WriteFile(folder.Path("sub/in.jb2"), JobNamed("J"));
  EXPECT_TRUE(Run(folder.Path() + "\\sub\\in.jb2"));
  EXPECT_EQ(Outline(), "J()");
}

TEST_F(Jb2Refusal, TakesAPathWithCharactersBeyondAscii) {
  WriteFile(folder.Path("però €.jb2"), JobNamed("J"));
  EXPECT_TRUE(Run(folder.Path("però €.jb2")));
  EXPECT_EQ(Outline(), "J()");
}

// ---- The batch of changes ----

TEST_F(Jb2Refusal, OpensNoBatchForAnEmptyPathOrAFileThatIsNotThere) {
  BatchCounter batches;
  library.GetCmpContext()->SetListener(&batches);
  Run("");
  Run(folder.Path("missing.jb2"));
  EXPECT_EQ(batches.begun, 0);
  EXPECT_EQ(batches.ended, 0);
}

TEST_F(Jb2Refusal, BracketsTheWholeFileWithOneBatch) {
  BatchCounter batches;
  library.GetCmpContext()->SetListener(&batches);
  Read(JobNamed("J") + StationNamed("S") + PointNamed("1") + JobNamed("K") + PointNamed("2"));
  EXPECT_EQ(batches.begun, 1);
  EXPECT_EQ(batches.ended, 1);
}

TEST_F(Jb2Refusal, BracketsAnEmptyFileToo) {
  BatchCounter batches;
  library.GetCmpContext()->SetListener(&batches);
  Read("");
  EXPECT_EQ(batches.begun, 1);
  EXPECT_EQ(batches.ended, 1);
}

TEST_F(Jb2Refusal, AddsInsideTheBatchOnly) {
  int outside = 0;
  ScriptedPolicy policy([&](AddedKind, int) {
    if (library.GetCmpContext()->Depth() != 1) ++outside;
    return true;
  });
  ReadWith(policy, PointNamed("1") + JobNamed("J") + StationNamed("S"));
  EXPECT_EQ(policy.asked.size(), 5u);
  EXPECT_EQ(outside, 0);
  EXPECT_EQ(library.GetCmpContext()->Depth(), 0);
}

TEST_F(Jb2Refusal, EndsTheBatchWhenEveryAddIsRefused) {
  BatchCounter batches;
  library.GetCmpContext()->SetListener(&batches);
  ScriptedPolicy policy([](AddedKind, int) { return false; });
  EXPECT_TRUE(ReadWith(policy, JobNamed("J") + StationNamed("S") + PointNamed("1")));
  EXPECT_EQ(batches.begun, 1);
  EXPECT_EQ(batches.ended, 1);
}

TEST_F(Jb2Refusal, EndsTheBatchWhenTheLibraryBreaksOff) {
  BatchCounter batches;
  library.GetCmpContext()->SetListener(&batches);
  ScriptedPolicy policy([](AddedKind, int) -> bool { throw std::runtime_error("locked"); });
  EXPECT_THROW(ReadWith(policy, JobNamed("J")), std::runtime_error);
  EXPECT_EQ(batches.begun, 1);
  EXPECT_EQ(batches.ended, 1);
}

TEST_F(Jb2Refusal, ReadsIntoALibraryThatHasNobodyToTell) {
  BatchCounter batches;
  CLibCmpChangeContext* const context = library.GetCmpContext();
  context->SetListener(&batches);
  library.HaveCmpContext(false);
  EXPECT_TRUE(Read(JobNamed("J") + StationNamed("S") + PointNamed("1")));
  EXPECT_EQ(Outline(), "J(S[1])");
  EXPECT_EQ(batches.begun, 0);
  EXPECT_EQ(batches.ended, 0);
}

// ---- What is asked of the library ----

TEST_F(Jb2Refusal, AsksForAJobAndAStationBeforeAFirstPoint) {
  ScriptedPolicy policy([](AddedKind, int) { return true; });
  ReadWith(policy, PointNamed("1") + PointNamed("2"));
  const std::vector<AddedKind> expected = {AddedKind::kJob, AddedKind::kStation, AddedKind::kPoint,
                                           AddedKind::kPoint};
  EXPECT_EQ(policy.asked, expected);
}

TEST_F(Jb2Refusal, AsksForAJobBeforeAFirstStation) {
  ScriptedPolicy policy([](AddedKind, int) { return true; });
  ReadWith(policy, StationNamed("S") + StationNamed("T"));
  const std::vector<AddedKind> expected = {AddedKind::kJob, AddedKind::kStation,
                                           AddedKind::kStation};
  EXPECT_EQ(policy.asked, expected);
}

TEST_F(Jb2Refusal, AsksForNothingAtALineThatIsNoRecord) {
  ScriptedPolicy policy([](AddedKind, int) { return true; });
  ReadWith(policy, "# P\np|\n\n");
  EXPECT_TRUE(policy.asked.empty());
}

// ---- Jobs refused ----

TEST_F(Jb2Refusal, OfAJobRecordLetsTheNextStationOpenAJobWithoutLabels) {
  ScriptedPolicy policy(RefuseNth(AddedKind::kJob, 1));
  EXPECT_TRUE(ReadWith(policy, JobNamed("J") + StationNamed("S") + PointNamed("1")));
  EXPECT_EQ(Outline(), "(S[1])");
}

TEST_F(Jb2Refusal, OfAJobRecordForgetsTheStationBefore) {
  ScriptedPolicy policy(RefuseNth(AddedKind::kJob, 2));
  ReadWith(policy, JobNamed("J") + StationNamed("S") + JobNamed("K") + PointNamed("1"));
  // The point opens a job, and goes into the first one all the same.
  EXPECT_EQ(Outline(), "J(S[][1])()");
}

TEST_F(Jb2Refusal, OfAJobRecordWithJobsPresentSendsTheNextStationToTheFirstJob) {
  HaveTwoJobs();
  ScriptedPolicy policy(RefuseNth(AddedKind::kJob, 1));
  ReadWith(policy, JobNamed("J") + StationNamed("S") + PointNamed("1"));
  EXPECT_EQ(Outline(), "A(S[1])B()()");
}

TEST_F(Jb2Refusal, OfAJobRecordWithJobsPresentSendsTheNextPointToTheFirstJob) {
  HaveTwoJobs();
  ScriptedPolicy policy(RefuseNth(AddedKind::kJob, 1));
  ReadWith(policy, JobNamed("J") + PointNamed("1") + StationNamed("S"));
  EXPECT_EQ(Outline(), "A([1]S[])B()()");
}

TEST_F(Jb2Refusal, OfAJobRecordLetsTheNextJobRecordCountFromTheFirstJob) {
  HaveTwoJobs();
  ScriptedPolicy policy(RefuseNth(AddedKind::kJob, 1));
  ReadWith(policy, JobNamed("J") + JobNamed("K") + StationNamed("S"));
  EXPECT_EQ(Outline(), "A(S[])B()K()");
}

TEST_F(Jb2Refusal, OfEveryJobDropsStationsAndPoints) {
  ScriptedPolicy policy(RefuseEvery(AddedKind::kJob));
  EXPECT_TRUE(ReadWith(policy, JobNamed("J") + StationNamed("S") + PointNamed("1") +
                                   Line('R', {"2", "", "0", "0", "1", "1"})));
  EXPECT_EQ(Outline(), "");
  const std::vector<AddedKind> expected(4, AddedKind::kJob);
  EXPECT_EQ(policy.asked, expected);
}

TEST_F(Jb2Refusal, OfTheJobForAStationDropsThatStationOnly) {
  ScriptedPolicy policy(RefuseNth(AddedKind::kJob, 1));
  ReadWith(policy, StationNamed("S") + StationNamed("T") + PointNamed("1"));
  EXPECT_EQ(Outline(), "(T[1])");
}

TEST_F(Jb2Refusal, OfTheJobForAPointDropsThatPointOnly) {
  ScriptedPolicy policy(RefuseNth(AddedKind::kJob, 1));
  ReadWith(policy, PointNamed("1") + PointNamed("2"));
  EXPECT_EQ(Outline(), "([2])");
}

// ---- Stations refused ----

TEST_F(Jb2Refusal, OfAStationRecordLetsTheNextPointOpenAnUnnamedStation) {
  ScriptedPolicy policy(RefuseNth(AddedKind::kStation, 1));
  ReadWith(policy, JobNamed("J") + StationNamed("S") + PointNamed("1"));
  EXPECT_EQ(Outline(), "J([1])");
  EXPECT_EQ(Station(0, 0).GetAltStr(), 0);
}

TEST_F(Jb2Refusal, OfAStationRecordForgetsTheStationBefore) {
  ScriptedPolicy policy(RefuseNth(AddedKind::kStation, 2));
  ReadWith(policy, JobNamed("J") + StationNamed("S") + StationNamed("T") + PointNamed("1"));
  EXPECT_EQ(Outline(), "J(S[][1])");
}

TEST_F(Jb2Refusal, OfAStationRecordKeepsTheJobThatWasOpenedForIt) {
  ScriptedPolicy policy(RefuseNth(AddedKind::kStation, 1));
  ReadWith(policy, StationNamed("S") + StationNamed("T"));
  EXPECT_EQ(Outline(), "(T[])");
}

TEST_F(Jb2Refusal, OfTheStationForAPointDropsThePointAndKeepsTheJob) {
  ScriptedPolicy policy(RefuseNth(AddedKind::kStation, 1));
  ReadWith(policy, PointNamed("1") + PointNamed("2"));
  EXPECT_EQ(Outline(), "([2])");
}

TEST_F(Jb2Refusal, OfEveryStationLeavesTheJobsEmpty) {
  ScriptedPolicy policy(RefuseEvery(AddedKind::kStation));
  EXPECT_TRUE(
      ReadWith(policy, PointNamed("1") + JobNamed("J") + StationNamed("S") + PointNamed("2")));
  EXPECT_EQ(Outline(), "()J()");
}

// ---- Points refused ----

TEST_F(Jb2Refusal, OfAPointDropsThatPointOnly) {
  ScriptedPolicy policy(RefuseNth(AddedKind::kPoint, 2));
  ReadWith(policy, StationNamed("S") + PointNamed("1") + PointNamed("2") + PointNamed("3"));
  EXPECT_EQ(Outline(), "(S[1 3])");
}

TEST_F(Jb2Refusal, OfAReducedPointDropsThatPointOnly) {
  ScriptedPolicy policy(RefuseNth(AddedKind::kPoint, 1));
  ReadWith(policy, Line('R', {"1", "", "0", "0", "1", "1"}) + PointNamed("2"));
  EXPECT_EQ(Outline(), "([2])");
}

TEST_F(Jb2Refusal, OfEveryPointKeepsTheStations) {
  ScriptedPolicy policy(RefuseEvery(AddedKind::kPoint));
  EXPECT_TRUE(ReadWith(policy, PointNamed("1") + PointNamed("2") + StationNamed("S")));
  EXPECT_EQ(Outline(), "([]S[])");
}

}  // namespace
