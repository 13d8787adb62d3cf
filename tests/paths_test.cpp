#include "platform/paths.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>

namespace {

TEST(Paths, TurnsEveryBackslashIntoASlash) {
  EXPECT_EQ(platform::NativePath("\\jobs\\wall\\a.jb2"), "/jobs/wall/a.jb2");
  EXPECT_EQ(platform::NativePath("/jobs/wall\\a.jb2"), "/jobs/wall/a.jb2");
  EXPECT_EQ(platform::NativePath(""), "");
}

TEST(Paths, TakesALeadingSeparatorOrAColonAsAbsolute) {
  EXPECT_TRUE(platform::IsAbsolutePath("\\jobs\\a.jb2"));
  EXPECT_TRUE(platform::IsAbsolutePath("/jobs/a.jb2"));
  EXPECT_TRUE(platform::IsAbsolutePath("C:\\jobs\\a.jb2"));
  EXPECT_TRUE(platform::IsAbsolutePath("card:a.jb2"));
}

TEST(Paths, TakesAnythingElseAsRelative) {
  EXPECT_FALSE(platform::IsAbsolutePath(""));
  EXPECT_FALSE(platform::IsAbsolutePath("a.jb2"));
  EXPECT_FALSE(platform::IsAbsolutePath("jobs\\a.jb2"));
  EXPECT_FALSE(platform::IsAbsolutePath("../jobs/a.jb2"));
}

TEST(Paths, JoinsWithOneBackslash) {
  EXPECT_EQ(platform::JoinPath("/jobs", "a.jb2"), "/jobs\\a.jb2");
  EXPECT_EQ(platform::JoinPath("/jobs\\", "a.jb2"), "/jobs\\a.jb2");
  EXPECT_EQ(platform::JoinPath("/jobs/", "a.jb2"), "/jobs/a.jb2");
  EXPECT_EQ(platform::JoinPath("", "a.jb2"), "a.jb2");
}

TEST(Paths, FindsTheFileName) {
  EXPECT_EQ(platform::FileName("/jobs/wall\\a.jb2"), "a.jb2");
  EXPECT_EQ(platform::FileName("\\jobs\\wall/a.jb2"), "a.jb2");
  EXPECT_EQ(platform::FileName("a.jb2"), "a.jb2");
  EXPECT_EQ(platform::FileName("/jobs/"), "");
}

TEST(Paths, FindsTheExtensionInLowerCase) {
  EXPECT_EQ(platform::Extension("/jobs/WALL.JB2"), "jb2");
  EXPECT_EQ(platform::Extension("a.tar.Gz"), "gz");
}

TEST(Paths, FindsNoExtensionWhereTheNameHasNone) {
  EXPECT_EQ(platform::Extension("/jobs.old/wall"), "");
  EXPECT_EQ(platform::Extension("jobs.old\\wall"), "");
  EXPECT_EQ(platform::Extension("wall."), "");
  EXPECT_EQ(platform::Extension(""), "");
}

TEST(Paths, KnowsTheFolderOfTheRunningExecutable) {
  const auto folder = platform::ExecutableFolder();
  ASSERT_TRUE(folder.has_value());
  const auto program = std::filesystem::read_symlink("/proc/self/exe");
  EXPECT_EQ(*folder, program.parent_path().string() + "/");
}

}  // namespace
