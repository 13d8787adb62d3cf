#include "services/ini_file.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <filesystem>
#include <limits>
#include <vector>

#include "support/current_settings.h"
#include "support/temporary_folder.h"
#include "support/trouble_log.h"

namespace {

using tdk::WString;

std::vector<std::string> AllOf(const JobSettings& settings) {
  std::vector<std::string> all;
  settings.ForEach(
      [&all](const std::string& section, const std::string& key, const std::string& value) {
        all.push_back(section + "." + key + "=" + value);
      });
  return all;
}

struct IniFile : testing::Test {
  CurrentSettings current;
  JobSettings& settings = current.settings;
  CIniFile ini;
};

TEST_F(IniFile, GivesTheDefaultWhereNothingIsStored) {
  EXPECT_EQ(ini.ReadShort("Importazione", "a", -5), -5);
  EXPECT_EQ(ini.ReadLong("Importazione", "a", 70'000), 70'000);
  EXPECT_TRUE(ini.ReadBool("Importazione", "a", true));
  EXPECT_FALSE(ini.ReadBool("Importazione", "a", false));
  EXPECT_EQ(ini.ReadString("Importazione", "a", "none"), WString("none"));
}

TEST_F(IniFile, ReadsWhatItWrote) {
  ini.WriteShort("Importazione", "short", -32768);
  ini.WriteLong("Importazione", "long", std::numeric_limits<std::int32_t>::max());
  ini.WriteBool("Importazione", "yes", true);
  ini.WriteBool("Importazione", "no", false);
  ini.WriteString("Importazione", "text", "è testo");
  EXPECT_EQ(ini.ReadShort("Importazione", "short", 0), -32768);
  EXPECT_EQ(ini.ReadLong("Importazione", "long", 0), std::numeric_limits<std::int32_t>::max());
  EXPECT_TRUE(ini.ReadBool("Importazione", "yes", false));
  EXPECT_FALSE(ini.ReadBool("Importazione", "no", true));
  EXPECT_EQ(ini.ReadString("Importazione", "text", ""), WString("è testo"));
}

TEST_F(IniFile, KeepsSectionsAndKeysApart) {
  ini.WriteShort("Importazione", "a", 1);
  ini.WriteShort("Esportazione", "a", 2);
  ini.WriteShort("Esportazione", "b", 3);
  EXPECT_EQ(ini.ReadShort("Importazione", "a", 0), 1);
  EXPECT_EQ(ini.ReadShort("Esportazione", "a", 0), 2);
  EXPECT_EQ(ini.ReadShort("Importazione", "b", 0), 0);
}

TEST_F(IniFile, ReplacesAnOlderValue) {
  ini.WriteString("PERSIST", "a", "old");
  ini.WriteString("PERSIST", "a", "");
  EXPECT_EQ(ini.ReadString("PERSIST", "a", "none"), WString(""));
}

TEST_F(IniFile, GivesTheDefaultForAValueOfAnotherType) {
  for (const char* stored : {"", "abc", "1.5", "1 ", "7x", "0x7"}) {
    settings.Set("PERSIST", "a", stored);
    EXPECT_EQ(ini.ReadShort("PERSIST", "a", -5), -5) << stored;
    EXPECT_EQ(ini.ReadLong("PERSIST", "a", -5), -5) << stored;
  }
  settings.Set("PERSIST", "a", "2");
  EXPECT_TRUE(ini.ReadBool("PERSIST", "a", true));
  EXPECT_FALSE(ini.ReadBool("PERSIST", "a", false));
}

TEST_F(IniFile, GivesTheDefaultForANumberThatDoesNotFit) {
  settings.Set("PERSIST", "a", "32768");
  EXPECT_EQ(ini.ReadShort("PERSIST", "a", -5), -5);
  EXPECT_EQ(ini.ReadLong("PERSIST", "a", -5), 32768);
  settings.Set("PERSIST", "a", "2147483648");
  EXPECT_EQ(ini.ReadLong("PERSIST", "a", -5), -5);
}

TEST_F(IniFile, ReadsAFlagInItsUsualSpellings) {
  for (const char* stored : {"true", "1"}) {
    settings.Set("PERSIST", "a", stored);
    EXPECT_TRUE(ini.ReadBool("PERSIST", "a", false)) << stored;
  }
  for (const char* stored : {"false", "0"}) {
    settings.Set("PERSIST", "a", stored);
    EXPECT_FALSE(ini.ReadBool("PERSIST", "a", true)) << stored;
  }
}

TEST_F(IniFile, FollowsTheCurrentSettings) {
  JobSettings other;
  ini.WriteShort("PERSIST", "a", 1);
  JobSettings::MakeCurrent(&other);
  EXPECT_EQ(ini.ReadShort("PERSIST", "a", 0), 0);
  JobSettings::MakeCurrent(&settings);
  EXPECT_EQ(ini.ReadShort("PERSIST", "a", 0), 1);
}

TEST_F(IniFile, WorksWithoutAJob) {
  JobSettings::MakeCurrent(nullptr);
  ini.WriteShort("PERSIST", "nobody", 1);
  EXPECT_EQ(ini.ReadString("PERSIST", "never written", "none"), WString("none"));
  EXPECT_TRUE(settings.IsEmpty());
}

TEST_F(IniFile, KnowsWhetherAnythingWasSet) {
  const TemporaryFolder folder;
  EXPECT_FALSE(settings.IsChanged());
  EXPECT_TRUE(settings.IsEmpty());
  settings.Set("PERSIST", "a", "1");
  EXPECT_TRUE(settings.IsChanged());
  EXPECT_FALSE(settings.IsEmpty());
  EXPECT_TRUE(settings.Save(folder.File("settings.ini")));
  EXPECT_FALSE(settings.IsChanged());
  settings.Set("PERSIST", "a", "2");
  EXPECT_TRUE(settings.Load(folder.File("settings.ini")));
  EXPECT_FALSE(settings.IsChanged());
}

TEST_F(IniFile, LoadsWhatItSaved) {
  const TemporaryFolder folder;
  settings.Set("PERSIST", "b", "1");
  settings.Set("PERSIST", "a", "caffè €");
  settings.Set("Importazione", "a", "");
  ASSERT_TRUE(settings.Save(folder.File("settings.ini")));
  JobSettings loaded;
  ASSERT_TRUE(loaded.Load(folder.File("settings.ini")));
  EXPECT_EQ(AllOf(loaded), AllOf(settings));
}

TEST_F(IniFile, LoadsTextsOfOneLineThatItSaved) {
  const TemporaryFolder folder;
  const std::vector<std::string> texts = {";",   "#",      "=",     "a=b",       "[x]",
                                          "[",   "\"",     "\"a\"", "two words", "a;b",
                                          "a\\", "<<<END", "'",     ",",         "\xE8"};
  for (const std::string& text : texts) {
    settings.Set("PERSIST", "text", text);
    settings.Set("PERSIST", "next", "1");
    ASSERT_TRUE(settings.Save(folder.File("settings.ini")));
    JobSettings loaded;
    ASSERT_TRUE(loaded.Load(folder.File("settings.ini")));
    EXPECT_EQ(loaded.Get("PERSIST", "text", "none"), text) << testing::PrintToString(text);
    EXPECT_EQ(loaded.Get("PERSIST", "next", "none"), "1") << testing::PrintToString(text);
  }
}

TEST_F(IniFile, KeepsOrderAndCommentsOfALoadedFile) {
  const TemporaryFolder folder;
  const std::string path =
      folder.Write("settings.ini", "; of the office\n[Z]\nb=1\n; why\na=2\n\n[A]\nc=3\n");
  ASSERT_TRUE(settings.Load(path));
  EXPECT_EQ(AllOf(settings), (std::vector<std::string>{"Z.b=1", "Z.a=2", "A.c=3"}));
  settings.Set("Z", "a", "9");
  ASSERT_TRUE(settings.Save(path));
  const std::string saved = ReadBytes(path);
  EXPECT_LT(saved.find("; of the office"), saved.find("[Z]"));
  EXPECT_LT(saved.find("b=1"), saved.find("; why"));
  EXPECT_LT(saved.find("; why"), saved.find("a=9"));
  EXPECT_LT(saved.find("a=9"), saved.find("[A]"));
}

TEST_F(IniFile, ReplacesAllSettingsByThoseOfTheFile) {
  const TemporaryFolder folder;
  settings.Set("PERSIST", "gone", "1");
  ASSERT_TRUE(settings.Load(folder.Write("settings.ini", "[PERSIST]\nthere=2\n")));
  EXPECT_EQ(AllOf(settings), std::vector<std::string>{"PERSIST.there=2"});
}

TEST_F(IniFile, TakesAFileThatIsNotThereForAnEmptyOne) {
  const TemporaryFolder folder;
  settings.Set("PERSIST", "gone", "1");
  EXPECT_TRUE(settings.Load(folder.File("missing.ini")));
  EXPECT_TRUE(settings.IsEmpty());
}

TEST_F(IniFile, LoadsNoFolder) {
  const TemporaryFolder folder;
  errno = ENOENT;  // left over from something else
  EXPECT_FALSE(settings.Load(folder.Path()));
}

TEST_F(IniFile, SurvivesAFileThatIsNoSettingsFile) {
  const TemporaryFolder folder;
  std::string bytes("\0\x01[[[=\xFF\xFE\n]=;\r\r=", 16);
  settings.Load(folder.Write("settings.ini", bytes));
  settings.Set("PERSIST", "a", "1");
  EXPECT_EQ(settings.Get("PERSIST", "a", ""), "1");
}

TEST_F(IniFile, ReportsAFileThatCannotBeWrittenAndStaysChanged) {
  const TemporaryFolder folder;
  const TroubleLog log;
  settings.Set("PERSIST", "a", "1");
  EXPECT_FALSE(settings.Save(folder.File("missing/settings.ini")));
  EXPECT_TRUE(settings.IsChanged());
  EXPECT_EQ(log.Troubles().size(), 1U);
}

TEST_F(IniFile, StaysChangedWhenTheDiskIsFull) {
  const TroubleLog log;
  settings.Set("PERSIST", "a", "1");
  EXPECT_FALSE(settings.Save("/dev/full"));
  EXPECT_TRUE(settings.IsChanged());
}

}  // namespace
