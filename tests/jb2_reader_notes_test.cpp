// What the JB2 reader tells the host while it reads: lines left out, records refused, how far it
// has come.
#include <algorithm>
#include <string>
#include <vector>

#include "tests/support/exchange_jb2.h"
#include "tests/support/exchange_views.h"

using namespace exchange_test;

namespace {

class Jb2Notes : public Jb2Test {
 protected:
  /// Reads a file of these bytes with views that take notes.
  void ReadAloud(std::string_view bytes) {
    WriteFile(folder.Path("in.jb2"), bytes);
    CWnd parent(&views);
    EXPECT_TRUE(jb2::Jb2Reader(&parent, &library, tdk::WString(folder.Path("in.jb2"))).Run());
  }
  /// The whole numbers that stand in the text of the one note; empty when there is none or more
  /// than one.
  std::vector<int> NumbersSaid() const {
    std::vector<int> numbers;
    if (views.notes.size() != 1) return numbers;
    const std::string& text = views.notes[0].text.ToUtf8();
    for (auto at = text.find_first_of(kDigits); at != text.npos;) {
      const auto end = std::min(text.find_first_not_of(kDigits, at), text.size());
      numbers.push_back(std::stoi(text.substr(at, end - at)));
      at = text.find_first_of(kDigits, end);
    }
    return numbers;
  }

  static constexpr const char* kDigits = "0123456789";
  ScriptedViews views;
};

using Numbers = std::vector<int>;

TEST_F(Jb2Notes, AreNoneForAFileOfRecords) {
  ReadAloud(JobNamed("J") + StationNamed("S") + PointNamed("1"));
  EXPECT_TRUE(views.notes.empty());
  EXPECT_TRUE(views.messages.empty());
  EXPECT_TRUE(views.dialogs.empty());
}

TEST_F(Jb2Notes, AreNoneForEmptyLines) {
  ReadAloud("\n\r\n" + JobNamed("J") + "\n");
  EXPECT_TRUE(views.notes.empty());
}

TEST_F(Jb2Notes, CountTheLinesThatHoldNoRecordAndNameTheFirst) {
  ReadAloud(JobNamed("J") + "\n# one\n" + PointNamed("1") + "two\np|\n");
  EXPECT_EQ(NumbersSaid(), (Numbers{3, 3}));
  EXPECT_EQ(views.notes[0].line, 3u);
  EXPECT_EQ(views.notes[0].path, tdk::WString(folder.Path("in.jb2")));
}

TEST_F(Jb2Notes, CountTheRecordsThatWereRefusedAndNameTheFirst) {
  ScriptedPolicy policy(RefuseEvery(AddedKind::kPoint));
  library.SetAddPolicy(&policy);
  ReadAloud(JobNamed("J") + StationNamed("S") + PointNamed("1") + PointNamed("2"));
  EXPECT_EQ(NumbersSaid(), (Numbers{2, 3}));
  EXPECT_EQ(views.notes[0].line, 3u);
}

TEST_F(Jb2Notes, CountALongLineOnceHoweverManyPiecesItHas) {
  const std::string longLine = "P|\x1d" + std::string(2000, 'n') + '\n';
  ReadAloud(PointNamed("1") + longLine + PointNamed("2") + longLine);
  EXPECT_EQ(NumbersSaid(), (Numbers{254, 2, 2}));
}

TEST_F(Jb2Notes, DoNotMindTheTailOfAnUndefinedDistance) {
  const std::string digits(205, '7');
  ReadAloud(Line('P', {std::string(60, 'n'), "C", "1.500", "10.0000", "99.0000", digits}));
  EXPECT_TRUE(views.notes.empty());
}

TEST_F(Jb2Notes, TellHowFarALongFileHasBeenRead) {
  std::string text;
  for (int i = 0; i < 40'000; ++i) text += "P\n";
  ReadAloud(text);
  ASSERT_GE(views.progress.size(), 2u);
  std::uint64_t before = 0;
  for (const auto& [done, total] : views.progress) {
    EXPECT_GT(done, before);
    EXPECT_LE(done, total);
    EXPECT_EQ(total, text.size());
    before = done;
  }
}

}  // namespace
