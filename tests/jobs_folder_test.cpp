#include "services/jobs_folder.h"

#include <gtest/gtest.h>

namespace {

using tdk::WString;

struct JobsFolder : testing::Test {
  ~JobsFolder() override { CJobsFolder::SetJobFolder("."); }

  static void ExpectFolder(const char* set, const char* folder) {
    CJobsFolder::SetJobFolder(set);
    EXPECT_EQ(CJobsFolder::GetJobNameFolderNoSlash(), WString(folder));
    EXPECT_EQ(CJobsFolder::GetJobNameFolderWthSlash(), WString(folder) + "\\");
  }
};

TEST_F(JobsFolder, IsWrittenWithAndWithoutATrailingBackslash) {
  ExpectFolder("/jobs/wall", "/jobs/wall");
}

TEST_F(JobsFolder, MayBeGivenWithAFinalSeparator) {
  ExpectFolder("/jobs/wall/", "/jobs/wall");
  ExpectFolder("/jobs/wall\\", "/jobs/wall");
  ExpectFolder("\\jobs\\wall\\", "\\jobs\\wall");
}

TEST_F(JobsFolder, IsTheWorkingFolderAtFirst) {
  EXPECT_EQ(CJobsFolder::GetJobNameFolderNoSlash(), WString("."));
  EXPECT_EQ(CJobsFolder::GetJobNameFolderWthSlash(), WString(".\\"));
}

TEST_F(JobsFolder, MayBeTheRoot) {
  CJobsFolder::SetJobFolder("/");
  EXPECT_EQ(CJobsFolder::GetJobNameFolderWthSlash(), WString("\\"));
}

}  // namespace
