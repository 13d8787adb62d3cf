// Files that cannot be written: full disks, missing folders, what the user may not do; and targets
// that are no files.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <filesystem>

#include "platform/output_file.h"
#include "support/ordinary_user.h"
#include "support/output_files.h"
#include "support/temporary_folder.h"
#include "support/trouble_log.h"

namespace {

using platform::FileTrouble;
using platform::OutputFile;

// A limit for the size of files as long as it lives, as a full disk would set one.
class FileSizeLimit {
 public:
  explicit FileSizeLimit(rlim_t bytes) : handler_(std::signal(SIGXFSZ, SIG_IGN)) {
    getrlimit(RLIMIT_FSIZE, &before_);
    const rlimit limit{bytes, before_.rlim_max};
    setrlimit(RLIMIT_FSIZE, &limit);
  }
  ~FileSizeLimit() {
    setrlimit(RLIMIT_FSIZE, &before_);
    std::signal(SIGXFSZ, handler_);
  }
  FileSizeLimit(const FileSizeLimit&) = delete;
  FileSizeLimit& operator=(const FileSizeLimit&) = delete;

 private:
  rlimit before_{};
  void (*handler_)(int);
};

TEST(OutputFileTrouble, ReportsADeviceThatIsFull) {
  const TroubleLog log;
  EXPECT_FALSE(WriteWhole("/dev/full", "one\n"));
  EXPECT_TRUE(log.HasOnly(FileTrouble::Action::kWrite, "/dev/full", ENOSPC));
  EXPECT_TRUE(std::filesystem::is_character_file("/dev/full"));
}

TEST(OutputFileTrouble, ReportsAFullDeviceOnceOnly) {
  const TroubleLog log;
  OutputFile file;
  ASSERT_TRUE(file.Open("/dev/full"));
  for (int i = 0; i < 3; ++i) {
    file.Buffer() += "one\n";
    file.Flush();
  }
  EXPECT_FALSE(file.Commit());
  EXPECT_EQ(log.Troubles().size(), 1U);
}

TEST(OutputFileTrouble, LeavesTheOldFileWhenTheDiskIsFull) {
  const TemporaryFolder folder;
  const std::string path = folder.Write("a.txt", "old\n");
  const TroubleLog log;
  bool complete = true;
  {
    const FileSizeLimit limit(100'000);
    complete = WriteWhole(path, std::string(kMoreThanAFlush, 'x'));
  }
  EXPECT_FALSE(complete);
  EXPECT_TRUE(log.HasOnly(FileTrouble::Action::kWrite, path, EFBIG));
  EXPECT_EQ(ReadBytes(path), "old\n");
  EXPECT_EQ(folder.Names(), Names{"a.txt"});
}

TEST(OutputFileTrouble, WritesToADevice) {
  const TroubleLog log;
  EXPECT_TRUE(WriteWhole("/dev/null", "one\n"));
  EXPECT_TRUE(std::filesystem::is_character_file("/dev/null"));
  EXPECT_TRUE(log.Troubles().empty());
}

TEST(OutputFileTrouble, WritesToAPipe) {
  int ends[2];
  ASSERT_EQ(pipe(ends), 0);
  EXPECT_TRUE(WriteWhole("/dev/fd/" + std::to_string(ends[1]), "one\n"));
  std::array<char, 16> got{};
  EXPECT_EQ(read(ends[0], got.data(), got.size()), 4);
  EXPECT_STREQ(got.data(), "one\n");
  close(ends[0]);
  close(ends[1]);
}

TEST(OutputFileTrouble, ReportsAFolderThatIsMissing) {
  const TemporaryFolder folder;
  const TroubleLog log;
  EXPECT_FALSE(WriteWhole(folder.File("missing/a.txt"), "one\n"));
  EXPECT_TRUE(log.HasOnly(FileTrouble::Action::kCreate, folder.File("missing/a.txt"), ENOENT));
  EXPECT_EQ(folder.Names(), Names{});
}

TEST(OutputFileTrouble, ReportsAFolderInItsPlace) {
  const TemporaryFolder folder;
  std::filesystem::create_directory(folder.File("a.txt"));
  const TroubleLog log;
  EXPECT_FALSE(WriteWhole(folder.File("a.txt"), "one\n"));
  EXPECT_TRUE(log.HasOnly(FileTrouble::Action::kCreate, folder.File("a.txt"), EISDIR));
  EXPECT_TRUE(std::filesystem::is_directory(folder.File("a.txt")));
}

TEST(OutputFileTrouble, ReportsAFolderThatTookItsPlaceMeanwhile) {
  const TemporaryFolder folder;
  const TroubleLog log;
  OutputFile file;
  ASSERT_TRUE(file.Open(folder.File("a.txt")));
  std::filesystem::create_directory(folder.File("a.txt"));
  EXPECT_FALSE(file.Commit());
  EXPECT_EQ(log.Troubles().size(), 1U);
  EXPECT_EQ(folder.Names(), Names{"a.txt"});
}

TEST(OutputFileTrouble, RefusesAFileThatTheUserMayNotWrite) {
  const TemporaryFolder folder;
  const std::string path = folder.Write("a.txt", "old\n");
  chmod(folder.Path().c_str(), 0777);
  chmod(path.c_str(), 0444);
  const TroubleLog log;
  const OrdinaryUser user;
  EXPECT_FALSE(WriteWhole(path, "new\n"));
  EXPECT_TRUE(log.HasOnly(FileTrouble::Action::kCreate, path, EACCES));
  EXPECT_EQ(ReadBytes(path), "old\n");
  EXPECT_EQ(folder.Names(), Names{"a.txt"});
}

TEST(OutputFileTrouble, WritesAReadOnlyFileForRootAndKeepsItReadOnly) {
  if (geteuid() != 0) GTEST_SKIP() << "only root may write such a file";
  const TemporaryFolder folder;
  const std::string path = folder.Write("a.txt", "old\n");
  chmod(path.c_str(), 0444);
  EXPECT_TRUE(WriteWhole(path, "new\n"));
  EXPECT_EQ(ReadBytes(path), "new\n");
  EXPECT_EQ(ModeOf(path), 0444U);
}

TEST(OutputFileTrouble, WritesTheFileItselfInAFolderThatTakesNoNewOnes) {
  const TemporaryFolder folder;
  const std::string path = folder.Write("a.txt", "a long old text\n");
  chmod(path.c_str(), 0666);
  chmod(folder.Path().c_str(), 0555);
  bool complete = false;
  {
    const OrdinaryUser user;
    complete = WriteWhole(path, "new\n");
  }
  EXPECT_EQ(ReadBytes(path), "new\n");
  chmod(folder.Path().c_str(), 0755);
  EXPECT_TRUE(complete);
}

TEST(OutputFileTrouble, ReportsANewFileInAFolderThatTakesNone) {
  const TemporaryFolder folder;
  chmod(folder.Path().c_str(), 0555);
  const TroubleLog log;
  bool complete = true;
  {
    const OrdinaryUser user;
    complete = WriteWhole(folder.File("a.txt"), "new\n");
  }
  chmod(folder.Path().c_str(), 0755);
  EXPECT_FALSE(complete);
  EXPECT_TRUE(log.HasOnly(FileTrouble::Action::kCreate, folder.File("a.txt"), EACCES));
}

}  // namespace
