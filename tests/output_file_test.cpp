// A file that is written whole or not at all: what is there before, meanwhile and afterwards.
#include "platform/output_file.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>

#include "support/ordinary_user.h"
#include "support/output_files.h"
#include "support/temporary_folder.h"
#include "support/trouble_log.h"

namespace {

using platform::FileTrouble;
using platform::OutputFile;

TEST(OutputFile, PutsBytesOverOthers) {
  const TemporaryFolder folder;
  OutputFile file;
  ASSERT_TRUE(file.Open(folder.File("a")));
  file.Buffer() += std::string(kMoreThanAFlush, 'x');
  file.FlushIfLarge();
  file.Buffer() += "behind";
  file.Overwrite(2, "over");
  file.Buffer() += " and more";
  EXPECT_TRUE(file.Commit());
  const std::string text = ReadBytes(folder.File("a"));
  EXPECT_EQ(text.size(), kMoreThanAFlush + 15);
  EXPECT_EQ(text.substr(0, 8), "xxoverxx");
  EXPECT_TRUE(text.ends_with("xbehind and more"));
}

TEST(OutputFile, PutsNoBytesOverOthersInADevice) {
  const TroubleLog log;
  OutputFile file;
  ASSERT_TRUE(file.Open("/dev/full"));
  file.Overwrite(0, "over");
  EXPECT_FALSE(file.Commit());
}

TEST(OutputFile, WritesANewFile) {
  const TemporaryFolder folder;
  EXPECT_TRUE(WriteWhole(folder.File("a.txt"), "one\n"));
  EXPECT_EQ(ReadBytes(folder.File("a.txt")), "one\n");
  EXPECT_EQ(folder.Names(), Names{"a.txt"});
}

TEST(OutputFile, WritesAnEmptyFile) {
  const TemporaryFolder folder;
  EXPECT_TRUE(WriteWhole(folder.File("a.txt"), ""));
  EXPECT_EQ(ReadBytes(folder.File("a.txt")), "");
}

TEST(OutputFile, ReplacesAnOldFile) {
  const TemporaryFolder folder;
  const std::string path = folder.Write("a.txt", "a long old text\n");
  EXPECT_TRUE(WriteWhole(path, "new\n"));
  EXPECT_EQ(ReadBytes(path), "new\n");
  EXPECT_EQ(folder.Names(), Names{"a.txt"});
}

TEST(OutputFile, TakesBackslashesInThePath) {
  const TemporaryFolder folder;
  std::filesystem::create_directory(folder.File("jobs"));
  EXPECT_TRUE(WriteWhole(folder.Path() + "\\jobs\\a.txt", "one\n"));
  EXPECT_EQ(ReadBytes(folder.File("jobs/a.txt")), "one\n");
}

TEST(OutputFile, LeavesTheOldFileAsItIsUntilTheCommit) {
  const TemporaryFolder folder;
  const std::string path = folder.Write("a.txt", "old\n");
  OutputFile file;
  ASSERT_TRUE(file.Open(path));
  file.Buffer() += "new\n";
  file.Flush();
  EXPECT_EQ(ReadBytes(path), "old\n");
  EXPECT_TRUE(file.Commit());
  EXPECT_EQ(ReadBytes(path), "new\n");
}

TEST(OutputFile, LeavesNothingWithoutACommit) {
  const TemporaryFolder folder;
  const std::string path = folder.Write("a.txt", "old\n");
  {
    OutputFile file;
    ASSERT_TRUE(file.Open(path));
    file.Buffer() += "new\n";
    file.Flush();
    EXPECT_EQ(folder.Names().size(), 2U);
  }
  EXPECT_EQ(ReadBytes(path), "old\n");
  EXPECT_EQ(folder.Names(), Names{"a.txt"});
}

TEST(OutputFile, LeavesNoNewFileWithoutACommit) {
  const TemporaryFolder folder;
  {
    OutputFile file;
    ASSERT_TRUE(file.Open(folder.File("a.txt")));
    file.Flush();
  }
  EXPECT_EQ(folder.Names(), Names{});
}

TEST(OutputFile, WritesATextThatIsLargerThanAFlush) {
  const TemporaryFolder folder;
  std::string wanted;
  OutputFile file;
  ASSERT_TRUE(file.Open(folder.File("a.txt")));
  while (wanted.size() < kMoreThanAFlush) {
    const std::string line = "line " + std::to_string(wanted.size()) + '\n';
    wanted += line;
    file.Buffer() += line;
    file.FlushIfLarge();
    ASSERT_LT(file.Buffer().size(), 256U * 1024);
  }
  EXPECT_TRUE(file.Commit());
  EXPECT_EQ(ReadBytes(folder.File("a.txt")), wanted);
}

TEST(OutputFile, KeepsASmallTextInItsBuffer) {
  const TemporaryFolder folder;
  OutputFile file;
  ASSERT_TRUE(file.Open(folder.File("a.txt")));
  file.Buffer() += "one";
  file.FlushIfLarge();
  EXPECT_EQ(file.Buffer(), "one");
  file.Flush();
  EXPECT_EQ(file.Buffer(), "");
}

TEST(OutputFile, KeepsTheModeOfTheOldFile) {
  const TemporaryFolder folder;
  const std::string path = folder.Write("a.txt", "old\n");
  for (const mode_t mode : {0600U, 0640U, 0664U, 0755U}) {
    chmod(path.c_str(), mode);
    EXPECT_TRUE(WriteWhole(path, "new\n"));
    EXPECT_EQ(ModeOf(path), mode);
  }
}

TEST(OutputFile, GivesANewFileTheModeOfTheUser) {
  const TemporaryFolder folder;
  const mode_t before = umask(027);
  EXPECT_TRUE(WriteWhole(folder.File("a.txt"), "new\n"));
  umask(before);
  EXPECT_EQ(ModeOf(folder.File("a.txt")), 0640U);
}

TEST(OutputFile, ReplacesTheFileThatALinkNamesAndKeepsTheLink) {
  const TemporaryFolder folder;
  std::filesystem::create_directory(folder.File("jobs"));
  const std::string target = folder.Write("jobs/a.txt", "old\n");
  std::filesystem::create_symlink("jobs/a.txt", folder.File("link.txt"));
  EXPECT_TRUE(WriteWhole(folder.File("link.txt"), "new\n"));
  EXPECT_TRUE(std::filesystem::is_symlink(folder.File("link.txt")));
  EXPECT_EQ(ReadBytes(target), "new\n");
  EXPECT_FALSE(std::filesystem::is_symlink(target));
}

TEST(OutputFile, CreatesTheFileThatALinkNames) {
  const TemporaryFolder folder;
  std::filesystem::create_directory(folder.File("jobs"));
  std::filesystem::create_symlink("jobs/a.txt", folder.File("link.txt"));
  EXPECT_TRUE(WriteWhole(folder.File("link.txt"), "new\n"));
  EXPECT_TRUE(std::filesystem::is_symlink(folder.File("link.txt")));
  EXPECT_EQ(ReadBytes(folder.File("jobs/a.txt")), "new\n");
}

TEST(OutputFile, WritesAFileWithTheLongestName) {
  const TemporaryFolder folder;
  const std::string name(255, 'n');
  EXPECT_TRUE(WriteWhole(folder.File(name), "one\n"));
  EXPECT_EQ(folder.Names(), Names{name});
}

TEST(OutputFile, WritesTheSameTargetTwiceAtOnce) {
  const TemporaryFolder folder;
  OutputFile first;
  OutputFile second;
  ASSERT_TRUE(first.Open(folder.File("a.txt")));
  ASSERT_TRUE(second.Open(folder.File("a.txt")));
  first.Buffer() += "first\n";
  second.Buffer() += "second\n";
  EXPECT_TRUE(second.Commit());
  EXPECT_TRUE(first.Commit());
  EXPECT_EQ(ReadBytes(folder.File("a.txt")), "first\n");
  EXPECT_EQ(folder.Names(), Names{"a.txt"});
}

TEST(OutputFile, GivesUpAnUnfinishedFileWhenItIsOpenedAnew) {
  const TemporaryFolder folder;
  OutputFile file;
  ASSERT_TRUE(file.Open(folder.File("a.txt")));
  file.Buffer() += "one\n";
  ASSERT_TRUE(file.Open(folder.File("b.txt")));
  file.Buffer() += "two\n";
  EXPECT_TRUE(file.Commit());
  EXPECT_EQ(folder.Names(), Names{"b.txt"});
  EXPECT_EQ(ReadBytes(folder.File("b.txt")), "two\n");
}

TEST(OutputFile, IsUsableAgainAfterAFailure) {
  const TemporaryFolder folder;
  const TroubleLog log;
  OutputFile file;
  EXPECT_FALSE(file.Open(folder.File("missing/a.txt")));
  ASSERT_TRUE(file.Open(folder.File("a.txt")));
  file.Buffer() += "one\n";
  EXPECT_TRUE(file.Commit());
  EXPECT_EQ(ReadBytes(folder.File("a.txt")), "one\n");
}

TEST(OutputFile, IsOpenBetweenOpenAndCommit) {
  const TemporaryFolder folder;
  OutputFile file;
  EXPECT_FALSE(file.IsOpen());
  EXPECT_TRUE(file.Open(folder.File("a.txt")));
  EXPECT_TRUE(file.IsOpen());
  EXPECT_TRUE(file.Commit());
  EXPECT_FALSE(file.IsOpen());
}

TEST(OutputFile, CommitsNothingThatIsNotOpen) {
  const TemporaryFolder folder;
  OutputFile file;
  EXPECT_FALSE(file.Commit());
  ASSERT_TRUE(file.Open(folder.File("a.txt")));
  EXPECT_TRUE(file.Commit());
  EXPECT_FALSE(file.Commit());
  EXPECT_EQ(folder.Names(), Names{"a.txt"});
}

TEST(OutputFile, ClosesItsFile) {
  const TemporaryFolder folder;
  const int before = dup(0);
  close(before);
  for (int i = 0; i < 10; ++i) EXPECT_TRUE(WriteWhole(folder.File("a.txt"), "one\n"));
  const int after = dup(0);
  close(after);
  EXPECT_EQ(before, after);
}

TEST(OutputFile, BesideItsTargetOnlyNeverWritesOverIt) {
  const TemporaryFolder folder;
  const std::string path = folder.Write("a", "old");
  ASSERT_EQ(chmod(path.c_str(), 0666), 0);
  ASSERT_EQ(chmod(folder.Path().c_str(), 0555), 0);
  {
    const OrdinaryUser user;
    const TroubleLog log;
    OutputFile file;
    EXPECT_FALSE(file.OpenBeside(path));
    ASSERT_EQ(log.Troubles().size(), 1U);
    EXPECT_EQ(log.Troubles()[0].error, EACCES);
  }
  ASSERT_EQ(chmod(folder.Path().c_str(), 0755), 0);
  EXPECT_EQ(ReadBytes(path), "old");
  OutputFile file;
  ASSERT_TRUE(file.OpenBeside(path));
  file.Buffer() += "new";
  EXPECT_TRUE(file.Commit());
  EXPECT_EQ(ReadBytes(path), "new");
}

}  // namespace
