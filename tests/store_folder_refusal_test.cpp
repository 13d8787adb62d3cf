// Folders that hold no job, or one that is damaged, locked or out of reach.
#include <gtest/gtest.h>

#include <sqlite3.h>

#include "support/add_policies.h"
#include "support/ordinary_user.h"
#include "support/stored_jobs.h"

namespace {

namespace fs = std::filesystem;
using stored_jobs::ComplaintOfLoad;
using stored_jobs::ComplaintOfSave;
using stored_jobs::InWords;

struct StoreFolderRefusal : testing::Test {
  TemporaryFolder folder;
  std::string file = folder.File(kJobDatabaseName);
  HostDocument document;

  // What loading and saving complain of; they must say the same.
  std::string Complaint() {
    const std::string complaint = ComplaintOfLoad(folder.Path());
    EXPECT_EQ(ComplaintOfSave(folder.Path(), document), complaint);
    return complaint;
  }
  void SaveFullJob() {
    HostDocument full;
    stored_jobs::Read(stored_jobs::kFullJob, full);
    SaveJob(folder.Path(), full);
  }
  void Run(const char* sql) const {
    sqlite3* database = nullptr;
    ASSERT_EQ(sqlite3_open(file.c_str(), &database), SQLITE_OK);
    EXPECT_EQ(sqlite3_exec(database, sql, nullptr, nullptr, nullptr), SQLITE_OK)
        << sqlite3_errmsg(database);
    sqlite3_close(database);
  }
};

TEST_F(StoreFolderRefusal, AFolderThatIsNotThere) {
  EXPECT_EQ(ComplaintOfLoad(folder.File("none")),
            folder.File("none") + ": " + InWords(std::errc::no_such_file_or_directory));
}

TEST_F(StoreFolderRefusal, AFileInPlaceOfTheFolder) {
  const std::string path = folder.Write("file", "text");
  EXPECT_EQ(ComplaintOfLoad(path), path + ": this is a file, not a job folder");
  EXPECT_EQ(ComplaintOfSave(path, document),
            path + ": the job folder cannot be made: " + InWords(std::errc::not_a_directory));
  EXPECT_EQ(ReadBytes(path), "text");
}

TEST_F(StoreFolderRefusal, RubbishInPlaceOfTheDatabaseStaysAsItIs) {
  const std::string rubbish(10'000, 'x');
  WriteBytes(file, rubbish);
  EXPECT_EQ(Complaint(), file + ": file is not a database");
  EXPECT_EQ(ReadBytes(file), rubbish);
}

TEST_F(StoreFolderRefusal, ADatabaseOfAnotherProgramStaysAsItIs) {
  Run("CREATE TABLE points (name)");
  EXPECT_EQ(Complaint(), file + ": this is no job");
  Run("INSERT INTO points VALUES (1)");
}

TEST_F(StoreFolderRefusal, AJobOfANewerVersionStaysAsItIs) {
  SaveFullJob();
  Run("PRAGMA user_version = 5");
  EXPECT_EQ(Complaint(), file + ": a newer version of the program wrote this job");
  Run("PRAGMA user_version = 4");
  EXPECT_EQ(stored_jobs::JsonOfStored(folder.Path()), stored_jobs::kFullJob);
}

TEST_F(StoreFolderRefusal, AFolderInPlaceOfTheDatabase) {
  fs::create_directory(file);
  EXPECT_TRUE(Complaint().starts_with(file + ": unable to open database file")) << Complaint();
}

TEST_F(StoreFolderRefusal, ADatabaseThatSomebodyElseIsWriting) {
  SaveFullJob();
  sqlite3* other = nullptr;
  ASSERT_EQ(sqlite3_open(file.c_str(), &other), SQLITE_OK);
  sqlite3_exec(other, "BEGIN EXCLUSIVE", nullptr, nullptr, nullptr);
  EXPECT_EQ(Complaint(), file + ": database is locked");
  sqlite3_close(other);
  EXPECT_EQ(stored_jobs::JsonOfStored(folder.Path()), stored_jobs::kFullJob);
}

TEST_F(StoreFolderRefusal, ADatabaseThatIsCutOff) {
  HostDocument large;
  stored_jobs::FillWithPoints(large, 10'000);
  SaveJob(folder.Path(), large);
  fs::resize_file(file, fs::file_size(file) / 2);
  EXPECT_TRUE(
      ComplaintOfLoad(folder.Path()).starts_with(file + ": database disk image is malformed"));
}

struct Damage {
  const char* sql;
  const char* complaint;
};

class StoreFolderDamage : public StoreFolderRefusal, public testing::WithParamInterface<Damage> {};

TEST_P(StoreFolderDamage, IsNoticed) {
  SaveFullJob();
  Run(GetParam().sql);
  EXPECT_EQ(ComplaintOfLoad(folder.Path()), file + ": " + GetParam().complaint);
}

constexpr const char* kBelongsToNothing = "the job is damaged: a record belongs to nothing";
INSTANTIATE_TEST_SUITE_P(
    Each, StoreFolderDamage,
    testing::Values(Damage{"UPDATE gps_points SET month = 256",
                           "the job is damaged: a value of \"month\" does not fit there"},
                    Damage{"UPDATE gps_points SET quality = 2147483648",
                           "the job is damaged: a value of \"quality\" does not fit there"},
                    Damage{"UPDATE points SET x = 'text'",
                           "the job is damaged: a value of \"x\" does not fit there"},
                    Damage{"UPDATE points SET parent_station = 2", kBelongsToNothing},
                    Damage{"UPDATE points SET parent_job = -1", kBelongsToNothing},
                    Damage{"UPDATE known_points SET parent_group = 1", kBelongsToNothing},
                    Damage{"UPDATE current SET station_station = 2",
                           "the job is damaged: what is current is not there"},
                    Damage{"DROP TABLE known_points", "no such table: known_points"},
                    Damage{"ALTER TABLE stations DROP COLUMN iden", "no such column: iden"}));

TEST_F(StoreFolderRefusal, AHostThatRefusesAnAdd) {
  SaveFullJob();
  RefuseAfter policy(3);
  document.GetLibCmp()->SetAddPolicy(&policy);
  EXPECT_THROW(LoadJob(folder.Path(), document), JobError);
}

// A folder that nobody may write to can be read, and says so when it is to be written.
TEST_F(StoreFolderRefusal, AFolderThatMayOnlyBeRead) {
  SaveFullJob();
  for (const char* name : {kJobDatabaseName, kJobSettingsName})
    fs::permissions(folder.File(name), fs::perms{0444});
  fs::permissions(folder.Path(), fs::perms{0555});
  {
    const OrdinaryUser user;
    EXPECT_EQ(ComplaintOfSave(folder.Path(), document),
              file + ": attempt to write a readonly database");
    EXPECT_EQ(stored_jobs::JsonOfStored(folder.Path()), stored_jobs::kFullJob);
  }
  fs::permissions(folder.Path(), fs::perms::owner_all);
}

TEST_F(StoreFolderRefusal, AFolderThatMayNotBeEntered) {
  SaveFullJob();
  fs::permissions(folder.Path(), fs::perms::none);
  {
    const OrdinaryUser user;
    EXPECT_NE(ComplaintOfLoad(folder.Path()), "");
    EXPECT_EQ(ComplaintOfSave(folder.Path(), document),
              file + ": unable to open database file: " + InWords(std::errc::permission_denied));
  }
  fs::permissions(folder.Path(), fs::perms::owner_all);
}

}  // namespace
