// Jobs as folders with a database and a settings file.
#include <gtest/gtest.h>

#include <sqlite3.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>

#include "support/stored_jobs.h"

namespace {

using stored_jobs::ComplaintOfSave;
using stored_jobs::JsonOf;
using stored_jobs::JsonOfStored;
using stored_jobs::Read;

TEST(StoreFolder, AJobIsTheSameAsInJson) {
  const TemporaryFolder folder;
  HostDocument document;
  Read(stored_jobs::kFullJob, document);
  SaveJob(folder.File("job"), document);
  EXPECT_EQ(JsonOfStored(folder.File("job")), stored_jobs::kFullJob);
}

TEST(StoreFolder, RandomJobsComeBackAsTheyWere) {
  const TemporaryFolder folder;
  Random random;
  for (int i = 0; i < 20; ++i) {  // each in place of the one before
    HostDocument document;
    stored_jobs::FillAtRandom(document, random);
    SaveJob(folder.File("job"), document);
    ASSERT_EQ(JsonOfStored(folder.File("job")), JsonOf(document));
  }
}

TEST(StoreFolder, KeepsTextsThatJsonCannotHold) {
  const TemporaryFolder folder;
  const std::string bytes("a\xFF\0b", 4);
  HostDocument document;
  document.GetLibCmp()->AddJob(true)->SetNome(tdk::WString(bytes));
  SaveJob(folder.File("job"), document);
  HostDocument copy;
  LoadJob(folder.File("job"), copy);
  EXPECT_EQ(copy.GetLibCmp()->GetJobAt(0)->GetNome().ToUtf8(), bytes);
}

TEST(StoreFolder, UndefinedIsNull) {
  const TemporaryFolder folder;
  HostDocument document;
  document.GetLibCmp()->AddOri(true);
  SaveJob(folder.Path(), document);
  sqlite3* database = nullptr;
  ASSERT_EQ(sqlite3_open(folder.File(kJobDatabaseName).c_str(), &database), SQLITE_OK);
  std::string type;
  const auto keep = [](void* into, int, char** columns, char**) {
    *static_cast<std::string*>(into) = columns[0];
    return 0;
  };
  sqlite3_exec(database, "SELECT typeof(x) FROM control_points", keep, &type, nullptr);
  sqlite3_close(database);
  EXPECT_EQ(type, "null");
}

TEST(StoreFolder, AFolderWithoutADatabaseIsAnEmptyJob) {
  const TemporaryFolder folder;
  HostDocument empty;
  EXPECT_EQ(JsonOfStored(folder.Path()), JsonOf(empty));
  folder.Write(kJobDatabaseName, "");  // as a first save leaves it that is killed
  EXPECT_EQ(JsonOfStored(folder.Path()), JsonOf(empty));
}

TEST(StoreFolder, MakesTheFolder) {
  const TemporaryFolder folder;
  HostDocument document;
  SaveJob(folder.File("a/b"), document);
  EXPECT_EQ(JsonOfStored(folder.File("a/b")), JsonOf(document));
  EXPECT_EQ(JsonOfStored(folder.File("a\\b\\")), JsonOf(document));
}

// Ends this process in the middle of a save that is to put 100,000 points in place of what is in
// `folder`.
[[noreturn]] void DieInSave(const std::string& folder) {
  HostDocument document;
  stored_jobs::FillWithPoints(document, 100'000);
  SaveJob(folder, document, [](std::uint64_t done, std::uint64_t /*total*/) {
    if (done > 50'000) std::raise(SIGKILL);
  });
  _exit(1);
}

int StatusOf(pid_t child) {
  int status = 0;
  EXPECT_EQ(waitpid(child, &status, 0), child);
  return status;
}

TEST(StoreFolder, ASaveThatIsKilledLeavesThePreviousJob) {
  const TemporaryFolder folder;
  HostDocument document;
  Random random;
  stored_jobs::FillAtRandom(document, random);
  stored_jobs::FillWithPoints(document, 30'000);  // more than stays in memory until the end
  SaveJob(folder.Path(), document);
  const std::string file = folder.File(kJobDatabaseName);
  const std::string before = ReadBytes(file);
  const pid_t child = fork();
  if (child == 0) DieInSave(folder.Path());
  const int status = StatusOf(child);
  ASSERT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL) << status;
  ASSERT_TRUE(ReadBytes(file) != before) << "the save had not begun to overwrite the job";
  EXPECT_EQ(JsonOfStored(folder.Path()), JsonOf(document));
  EXPECT_EQ(folder.Names(), std::vector<std::string>{kJobDatabaseName});
}

TEST(StoreFolder, AFirstSaveThatIsKilledLeavesAnEmptyJob) {
  const TemporaryFolder folder;
  const pid_t child = fork();
  if (child == 0) DieInSave(folder.Path());
  ASSERT_TRUE(WIFSIGNALED(StatusOf(child)));
  HostDocument empty;
  EXPECT_EQ(JsonOfStored(folder.Path()), JsonOf(empty));
  HostDocument document;
  stored_jobs::FillWithPoints(document, 10);
  SaveJob(folder.Path(), document);
  EXPECT_EQ(JsonOfStored(folder.Path()), JsonOf(document));
}

// A disk that is full half-way, as a process sees it that may write no more than so much into a
// file.
TEST(StoreFolder, AFullDiskLeavesThePreviousJob) {
  const TemporaryFolder folder;
  HostDocument document;
  Read(stored_jobs::kFullJob, document);
  SaveJob(folder.Path(), document);
  const pid_t child = fork();
  if (child == 0) {
    const rlimit limit{1'000'000, 1'000'000};
    setrlimit(RLIMIT_FSIZE, &limit);
    std::signal(SIGXFSZ, SIG_IGN);
    HostDocument large;
    stored_jobs::FillWithPoints(large, 100'000);
    const std::string complaint = ComplaintOfSave(folder.Path(), large);
    _exit(complaint.starts_with(folder.File(kJobDatabaseName) + ": ") ? 0 : 1);
  }
  const int status = StatusOf(child);
  EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << status;
  EXPECT_EQ(JsonOfStored(folder.Path()), stored_jobs::kFullJob);
}

TEST(StoreFolder, TellsHowFarItIs) {
  const TemporaryFolder folder;
  HostDocument document;
  stored_jobs::FillWithPoints(document, 10'000);
  std::vector<std::uint64_t> steps;
  const JobProgress progress = [&](std::uint64_t done, std::uint64_t total) {
    EXPECT_EQ(total, 10'000U);
    steps.push_back(done);
  };
  SaveJob(folder.Path(), document, progress);
  HostDocument copy;
  LoadJob(folder.Path(), copy, progress);
  EXPECT_EQ(steps, (std::vector<std::uint64_t>{4096, 8192, 4096, 8192}));
}

TEST(StoreFolder, KnowsItsFolderAndWhatIsJson) {
  EXPECT_TRUE(IsJsonJob("a/b.json") && IsJsonJob("B.JSON") && IsJsonJob(".json"));
  EXPECT_FALSE(IsJsonJob("json") || IsJsonJob("a.json/b") || IsJsonJob("a.jsonx"));
  EXPECT_EQ(JobFolderOf("a/b.json"), "a");
  EXPECT_EQ(JobFolderOf("a\\b.json"), "a");
  EXPECT_EQ(JobFolderOf("/b.json"), "/");
  EXPECT_EQ(JobFolderOf("b.json"), ".");
  EXPECT_EQ(JobFolderOf("a/b"), "a/b");
}

}  // namespace
