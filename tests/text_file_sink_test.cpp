#include "services/text_file_sink.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>

#include "model/undefined.h"
#include "platform/paths.h"
#include "support/temporary_folder.h"
#include "support/trouble_log.h"

namespace {

using Names = std::vector<std::string>;
using tdk::WString;

// A name that nothing else in the executable's folder has.
std::string NameBesideTheExecutable() {
  return "kalvio-sink-test-" + std::to_string(testing::UnitTest::GetInstance()->random_seed()) +
         ".txt";
}

struct TextFileSinkTest : testing::Test {
  bool Open(const std::string& name) {
    return sink.Open(WString(name), false, TextFileSink::kPlainText);
  }

  TemporaryFolder folder;
  std::string path = folder.File("a.txt");
  TextFileSink sink;
};

TEST_F(TextFileSinkTest, WritesLines) {
  ASSERT_TRUE(Open(path));
  sink.WriteText("one ");
  sink.WriteText("more");
  sink.WriteLine(" end");
  sink.WriteLine("");
  sink.Close();
  EXPECT_EQ(ReadBytes(path), "one more end\n\n");
}

TEST_F(TextFileSinkTest, WritesTextsInTheCodePage) {
  ASSERT_TRUE(Open(path));
  sink.WriteLine("caffè €");
  sink.WriteLine("測");
  sink.Close();
  EXPECT_EQ(ReadBytes(path), "caff\xE8 \x80\n?\n");
}

TEST_F(TextFileSinkTest, WritesNumbersWithTheirDecimals) {
  ASSERT_TRUE(Open(path));
  sink.WriteNumber(1.5, 3);
  sink.WriteText("|");
  sink.WriteNumber(-0.0001, 1);
  sink.WriteText("|");
  sink.WriteNumber(1013.25, 0);
  sink.Close();
  EXPECT_EQ(ReadBytes(path), "1.500|0.0|1013");
}

TEST_F(TextFileSinkTest, WritesAnUndefinedNumberInFull) {
  ASSERT_TRUE(Open(path));
  sink.WriteNumber(UndefinedValue, 3);
  sink.Close();
  EXPECT_EQ(ReadBytes(path).size(), 205U);
}

TEST_F(TextFileSinkTest, WritesBytesAsTheyAre) {
  ASSERT_TRUE(Open(path));
  sink.WriteBytes("caff\xE8\n");
  sink.Close();
  EXPECT_EQ(ReadBytes(path), "caff\xE8\n");
}

TEST_F(TextFileSinkTest, CountsTheLinesThatAreEnded) {
  ASSERT_TRUE(Open(path));
  EXPECT_EQ(sink.LineCount(), 0);
  sink.WriteText("one");
  EXPECT_EQ(sink.LineCount(), 0);
  sink.WriteLine("");
  sink.WriteLine("two");
  EXPECT_EQ(sink.LineCount(), 2);
  sink.Close();
}

TEST_F(TextFileSinkTest, IsAtALineStartUntilTheFirstPiece) {
  ASSERT_TRUE(Open(path));
  EXPECT_TRUE(sink.IsAtLineStart());
  sink.WriteText("one");
  EXPECT_FALSE(sink.IsAtLineStart());
  sink.WriteLine("");
  EXPECT_TRUE(sink.IsAtLineStart());
  sink.WriteNumber(1, 0);
  EXPECT_FALSE(sink.IsAtLineStart());
  sink.Close();
  EXPECT_TRUE(sink.IsAtLineStart());
}

TEST_F(TextFileSinkTest, HasTheModeItWasOpenedWithUntilItIsClosed) {
  EXPECT_EQ(sink.Mode(), -1);
  EXPECT_FALSE(sink.IsOpen());
  ASSERT_TRUE(Open(path));
  EXPECT_EQ(sink.Mode(), 0);
  EXPECT_TRUE(sink.IsOpen());
  sink.Close();
  EXPECT_EQ(sink.Mode(), -1);
  EXPECT_FALSE(sink.IsOpen());
}

TEST_F(TextFileSinkTest, DoesNothingBeforeItIsOpened) {
  sink.WriteText("one");
  sink.WriteLine("two");
  sink.WriteNumber(3, 0);
  sink.WriteBytes("four");
  sink.Close();
  EXPECT_EQ(sink.LineCount(), 0);
  EXPECT_TRUE(sink.IsAtLineStart());
  EXPECT_EQ(folder.Names(), Names{});
}

TEST_F(TextFileSinkTest, DoesNothingAfterItWasClosed) {
  ASSERT_TRUE(Open(path));
  sink.WriteLine("one");
  sink.Close();
  sink.WriteLine("two");
  sink.WriteNumber(3, 0);
  sink.Close();
  EXPECT_EQ(ReadBytes(path), "one\n");
  EXPECT_TRUE(sink.IsAtLineStart());
}

TEST_F(TextFileSinkTest, BringsNothingOverIntoTheNextFile) {
  sink.WriteText("while closed");
  ASSERT_TRUE(Open(path));
  sink.WriteLine("one");
  sink.Close();
  sink.WriteText("while closed");
  ASSERT_TRUE(Open(folder.File("b.txt")));
  EXPECT_EQ(sink.LineCount(), 0);
  sink.WriteLine("two");
  sink.Close();
  EXPECT_EQ(ReadBytes(folder.File("b.txt")), "two\n");
}

TEST_F(TextFileSinkTest, ReplacesAnOldFile) {
  folder.Write("a.txt", "a long old text\n");
  ASSERT_TRUE(Open(path));
  sink.WriteLine("new");
  sink.Close();
  EXPECT_EQ(ReadBytes(path), "new\n");
}

TEST_F(TextFileSinkTest, LeavesTheOldFileWithoutAClose) {
  folder.Write("a.txt", "old\n");
  {
    TextFileSink unfinished;
    ASSERT_TRUE(unfinished.Open(WString(path), false, TextFileSink::kPlainText));
    unfinished.WriteLine("new");
  }
  EXPECT_EQ(ReadBytes(path), "old\n");
  EXPECT_EQ(folder.Names(), Names{"a.txt"});
}

TEST_F(TextFileSinkTest, RefusesAnEmptyPath) {
  const TroubleLog log;
  EXPECT_FALSE(Open(""));
  EXPECT_FALSE(sink.IsOpen());
  EXPECT_EQ(sink.Mode(), -1);
}

TEST_F(TextFileSinkTest, TakesAPathWithALeadingBackslashAsItIs) {
  std::string backslashes = path;
  for (char& c : backslashes) c = c == '/' ? '\\' : c;
  ASSERT_TRUE(Open(backslashes));
  sink.WriteLine("one");
  sink.Close();
  EXPECT_EQ(ReadBytes(path), "one\n");
  EXPECT_EQ(sink.Path(), WString(backslashes));
}

TEST_F(TextFileSinkTest, TakesAPathWithALeadingSlashAsItIs) {
  ASSERT_TRUE(Open(path));
  EXPECT_EQ(sink.Path(), WString(path));
}

TEST_F(TextFileSinkTest, TakesAPathWithAColonAsItIs) {
  const auto before = std::filesystem::current_path();
  std::filesystem::current_path(folder.Path());
  const bool opened = Open("card:a.txt");
  sink.WriteLine("one");
  sink.Close();
  std::filesystem::current_path(before);
  ASSERT_TRUE(opened);
  EXPECT_EQ(folder.Names(), Names{"card:a.txt"});
}

TEST_F(TextFileSinkTest, PutsARelativePathBesideTheExecutable) {
  const std::string name = NameBesideTheExecutable();
  const std::string wanted = platform::ExecutableFolder().value_or("") + name;
  ASSERT_TRUE(Open(name));
  sink.WriteLine("one");
  sink.Close();
  EXPECT_EQ(sink.Path(), WString(wanted));
  EXPECT_EQ(ReadBytes(wanted), "one\n");
  EXPECT_EQ(std::remove(wanted.c_str()), 0);
}

TEST_F(TextFileSinkTest, StaysClosedWhenTheFileCannotBeCreated) {
  const TroubleLog log;
  EXPECT_FALSE(Open(folder.File("missing/a.txt")));
  sink.WriteLine("one");
  sink.Close();
  EXPECT_EQ(sink.Mode(), -1);
  EXPECT_EQ(sink.LineCount(), 0);
  EXPECT_EQ(log.Troubles().size(), 1U);
}

TEST_F(TextFileSinkTest, ClosesTheFileBeforeWhenTheNextCannotBeCreated) {
  const TroubleLog log;
  ASSERT_TRUE(Open(path));
  EXPECT_FALSE(Open(folder.File("missing/b.txt")));
  EXPECT_FALSE(sink.IsOpen());
  EXPECT_EQ(sink.Mode(), -1);
}

TEST_F(TextFileSinkTest, DeletesItsFileInTheEndWhenThatWasAskedFor) {
  {
    TextFileSink temporary;
    ASSERT_TRUE(temporary.Open(WString(path), true, TextFileSink::kPlainText));
    temporary.WriteLine("one");
    temporary.Close();
    EXPECT_EQ(ReadBytes(path), "one\n");
  }
  EXPECT_EQ(folder.Names(), Names{});
}

TEST_F(TextFileSinkTest, KeepsItsFileWhenNothingElseWasAskedFor) {
  {
    TextFileSink kept;
    ASSERT_TRUE(kept.Open(WString(path), false, TextFileSink::kPlainText));
    kept.Close();
  }
  EXPECT_EQ(folder.Names(), Names{"a.txt"});
}

TEST_F(TextFileSinkTest, DeletesNoFileThatItCouldNotOpen) {
  const TroubleLog log;
  std::filesystem::create_directory(folder.File("other"));
  {
    TextFileSink temporary;
    ASSERT_TRUE(temporary.Open(WString(path), true, TextFileSink::kPlainText));
    temporary.Close();
    EXPECT_FALSE(temporary.Open(WString(folder.File("other")), true, TextFileSink::kPlainText));
  }
  EXPECT_EQ(folder.Names(), Names{"other"});
}

TEST_F(TextFileSinkTest, WritesAFileThatIsLargerThanItsBuffer) {
  std::string wanted;
  ASSERT_TRUE(Open(path));
  for (int i = 0; i < 60'000; ++i) {
    sink.WriteLine(WString("line " + std::to_string(i)));
    wanted += "line " + std::to_string(i) + '\n';
  }
  sink.Close();
  EXPECT_EQ(sink.LineCount(), 60'000);
  EXPECT_EQ(ReadBytes(path), wanted);
}

}  // namespace
