#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "support/program.h"
#include "support/survey_files.h"

namespace {

class ConvertProgram : public testing::Test {
 protected:
  // A run that must fail with one line that names the file.
  void ExpectFailure(const std::vector<std::string>& words, int status, const std::string& file) {
    const ProgramRun run = RunProgram(folder, words);
    EXPECT_EQ(run.status, status) << run.err;
    EXPECT_NE(run.err.find(file), std::string::npos) << run.err;
    EXPECT_EQ(std::count(run.err.begin(), run.err.end(), '\n'), 1) << run.err;
  }

  TemporaryFolder folder;
};

TEST_F(ConvertProgram, TurnsAJobIntoLandXmlAndTellsWhatItDid) {
  folder.Write("a.jb2", SmallJob());
  const ProgramRun run = RunProgram(folder, {"convert", "a.jb2", "a.xml"});
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_NE(run.out.find("1 job, 1 station, 2 points"), std::string::npos) << run.out;
  const std::string xml = ReadBytes(folder.File("a.xml"));
  EXPECT_NE(xml.find("slopeDistance=\"23.513000\""), std::string::npos);
  EXPECT_NE(xml.find("<Project name=\"" + folder.File("a.xml") + "\"/>"), std::string::npos);
}

TEST_F(ConvertProgram, WritesJb2AsItWasRead) {
  folder.Write("a.jb2", SmallJob());
  EXPECT_EQ(RunProgram(folder, {"convert", "a.jb2", "b.jb2"}).status, 0);
  EXPECT_EQ(ReadBytes(folder.File("b.jb2")), SmallJob());
}

TEST_F(ConvertProgram, JoinsSeveralInputs) {
  folder.Write("a.jb2", SmallJob());
  folder.Write("b.jb2", SmallJob());
  EXPECT_EQ(RunProgram(folder, {"convert", "a.jb2", "b.jb2", "both.jb2"}).status, 0);
  EXPECT_EQ(ReadBytes(folder.File("both.jb2")), SmallJob() + SmallJob());
}

TEST_F(ConvertProgram, SaysNothingWhenQuiet) {
  folder.Write("a.jb2", SmallJob());
  const ProgramRun run = RunProgram(folder, {"convert", "--quiet", "a.jb2", "a.xml"});
  EXPECT_EQ(run.out + run.err, "");
}

TEST_F(ConvertProgram, NamesInputsThatCannotBeRead) {
  folder.Write("empty.jb2", "");
  folder.Write("rubbish.jb2", std::string("\x00\x01\x02 nothing here\n", 17));
  std::filesystem::create_directory(folder.File("folder.jb2"));
  ExpectFailure({"convert", "missing.jb2", "o.xml"}, 1, "missing.jb2");
  ExpectFailure({"convert", "empty.jb2", "o.xml"}, 1, "empty.jb2");
  ExpectFailure({"convert", "folder.jb2", "o.xml"}, 1, "folder.jb2");
  const ProgramRun rubbish = RunProgram(folder, {"convert", "rubbish.jb2", "o.xml"});
  EXPECT_EQ(rubbish.status, 1);
  EXPECT_NE(rubbish.err.find("rubbish.jb2"), std::string::npos);
  EXPECT_FALSE(std::filesystem::exists(folder.File("o.xml")));
}

TEST_F(ConvertProgram, RefusesFormatsThatItDoesNotKnow) {
  folder.Write("a.jb2", SmallJob());
  ExpectFailure({"convert", "a.jb2", "a.foo"}, 2, "a.foo");
  EXPECT_EQ(RunProgram(folder, {"convert", "a.jb2"}).status, 2);
  EXPECT_EQ(RunProgram(folder, {"convert", "--kind", "none", "a.jb2", "b.xml"}).status, 2);
}

TEST_F(ConvertProgram, LeavesTheOldFileWhenTheNewOneCannotBeWritten) {
  folder.Write("a.jb2", SmallJob());
  ExpectFailure({"convert", "a.jb2", "no/such/folder/o.xml"}, 1, "o.xml");
  std::filesystem::create_symlink("/dev/full", folder.File("full.xml"));
  const ProgramRun full = RunProgram(folder, {"convert", "a.jb2", "full.xml"});
  EXPECT_EQ(full.status, 1);
  EXPECT_NE(full.err.find("full.xml"), std::string::npos) << full.err;
}

TEST_F(ConvertProgram, TellsWhatWasLeftOut) {
  folder.Write("a.jb2", SmallJob() + "not a record\n\nX|\n");
  const ProgramRun run = RunProgram(folder, {"convert", "a.jb2", "a.xml"});
  EXPECT_EQ(run.status, 0);
  EXPECT_NE(run.err.find("line 5"), std::string::npos) << run.err;
}

TEST_F(ConvertProgram, ShowsAJobAsTableAndAsJson) {
  folder.Write("a.jb2", SmallJob());
  const ProgramRun table = RunProgram(folder, {"show", "a.jb2"});
  EXPECT_EQ(table.status, 0) << table.err;
  EXPECT_NE(table.out.find("WALL"), std::string::npos);
  EXPECT_NE(table.out.find("Conti"), std::string::npos);
  const auto job = nlohmann::json::parse(RunProgram(folder, {"show", "a.jb2", "--json"}).out);
  EXPECT_EQ(job["jobs"][0]["stations"][0]["name"], "100");
}

TEST_F(ConvertProgram, SpeaksItalianWhenAsked) {
  folder.Write("a.jb2", SmallJob());
  const ProgramRun run = RunProgram(folder, {"show", "a.jb2", "--lang", "it"});
  EXPECT_NE(run.out.find("1 lavoro, 1 stazione, 2 punti"), std::string::npos) << run.out;
}

TEST_F(ConvertProgram, HelpsOnOneScreen) {
  for (const char* command : {"", "convert", "show", "call", "formats"}) {
    std::vector<std::string> words = {"--help"};
    if (*command != '\0') words.insert(words.begin(), command);
    const ProgramRun run = RunProgram(folder, words);
    EXPECT_EQ(run.status, 0);
    EXPECT_NE(run.out.find("kalvio "), std::string::npos);
  }
  const std::string help = RunProgram(folder, {"--help"}).out;
  EXPECT_LE(std::count(help.begin(), help.end(), '\n'), 24);
}

TEST_F(ConvertProgram, FailsWhenStandardOutputIsFull) {
  folder.Write("a.jb2", SmallJob());
  EXPECT_EQ(RunProgram(folder, {"show", "a.jb2"}, "/dev/full").status, 1);
}

}  // namespace
