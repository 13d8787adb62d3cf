// The settings file of a job folder: when it is written, and that it stays as people wrote it.
#include <gtest/gtest.h>

#include "support/ordinary_user.h"
#include "support/stored_jobs.h"

namespace {

using stored_jobs::ComplaintOfSave;
using stored_jobs::InWords;

constexpr std::string_view kSettings = "; units of the whole crew\n[Misure]\nUnitaAngoli=1\n";

struct StoreFolderSettings : testing::Test {
  TemporaryFolder folder;
  HostDocument document;
  std::string file = folder.File(kJobSettingsName);

  void LoadWith(std::string_view settings) {
    WriteBytes(file, settings);
    LoadJob(folder.Path(), document);
  }
};

TEST_F(StoreFolderSettings, AreReadWithTheJob) {
  LoadWith(kSettings);
  EXPECT_EQ(document.Settings().Get("Misure", "UnitaAngoli", ""), "1");
}

TEST_F(StoreFolderSettings, AreNotTouchedWhenNobodyChangedThem) {
  LoadWith(kSettings);
  WriteBytes(file, "[Misure]\nUnitaAngoli=0\n");  // somebody edits them meanwhile
  SaveJob(folder.Path() + "/.", document);
  EXPECT_EQ(ReadBytes(file), "[Misure]\nUnitaAngoli=0\n");
}

TEST_F(StoreFolderSettings, KeepTheirCommentsWhenOneIsChanged) {
  LoadWith(kSettings);
  document.Settings().Set("Misure", "UnitaAngoli", "2");
  SaveJob(folder.Path(), document);
  const std::string text = ReadBytes(file);
  EXPECT_NE(text.find("; units of the whole crew\n"), std::string::npos) << text;
  EXPECT_NE(text.find("UnitaAngoli=2\n"), std::string::npos) << text;
  EXPECT_FALSE(document.Settings().IsChanged());
}

TEST_F(StoreFolderSettings, GoAlongIntoAnotherFolder) {
  LoadWith(kSettings);
  std::filesystem::create_directory(folder.File("other"));
  const std::string other = folder.Write("other/settings.ini", "[Old]\nkey=1\n");
  SaveJob(folder.File("other"), document);
  EXPECT_NE(ReadBytes(other).find("UnitaAngoli=1"), std::string::npos);
  EXPECT_EQ(ReadBytes(other).find("Old"), std::string::npos);
  EXPECT_EQ(ReadBytes(file), kSettings);
}

TEST_F(StoreFolderSettings, OfAJsonJobGoIntoTheFolderItIsSavedTo) {
  LoadJob(folder.Write("job.json", R"({"settings":{"A":{"B":5}}})"), document);
  SaveJob(folder.File("job"), document);
  EXPECT_NE(ReadBytes(folder.File("job/settings.ini")).find("B=5"), std::string::npos);
}

TEST_F(StoreFolderSettings, MakeNoFileWhenThereAreNone) {
  SaveJob(folder.Path(), document);
  EXPECT_EQ(folder.Names(), std::vector<std::string>{kJobDatabaseName});
}

TEST_F(StoreFolderSettings, ThatCannotBeReadAreAnError) {
  std::filesystem::create_directory(file);
  EXPECT_EQ(stored_jobs::ComplaintOfLoad(folder.Path()), file + ": the settings cannot be read");
}

TEST_F(StoreFolderSettings, ThatCannotBeWrittenAreAnErrorAndTheJobIsSaved) {
  std::filesystem::create_directory(file);
  document.GetLibCmp()->AddJob(true)->SetNome("J");
  document.Settings().Set("A", "B", "1");
  EXPECT_EQ(ComplaintOfSave(folder.Path(), document),
            file + ": cannot be created: " + InWords(std::errc::is_a_directory) +
                " (the job itself was saved, only its settings were not)");
  std::filesystem::remove(file);
  HostDocument copy;
  LoadJob(folder.Path(), copy);
  ASSERT_EQ(copy.GetLibCmp()->GetJobArSize(), 1);
  EXPECT_EQ(copy.GetLibCmp()->GetJobAt(0)->GetNome(), "J");
}

}  // namespace
