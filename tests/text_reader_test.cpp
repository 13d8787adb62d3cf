#include "platform/text_reader.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>

#include "support/ordinary_user.h"
#include "support/random.h"
#include "support/temporary_folder.h"
#include "support/trouble_log.h"

namespace {

using platform::FileTrouble;
using platform::TextReader;
using Pieces = std::vector<std::string>;

constexpr std::size_t kBlock = 256 * 1024;

Pieces PiecesOf(TextReader& reader, std::size_t limit) {
  Pieces pieces;
  while (const auto piece = reader.NextPiece(limit)) pieces.emplace_back(*piece);
  return pieces;
}

// Writes a file and reads it again.
Pieces Read(std::string_view bytes, std::size_t limit = 254) {
  const TemporaryFolder folder;
  TextReader reader;
  EXPECT_TRUE(reader.Open(folder.Write("a.txt", bytes)));
  return PiecesOf(reader, limit);
}

// What text mode makes of the bytes: every CR LF is one LF.
std::string InTextMode(std::string_view bytes) {
  std::string text;
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    if (bytes.substr(i, 2) != "\r\n") text += bytes[i];
  }
  return text;
}

// The simplest way to cut a text into pieces, one limit after the other.
std::string TakePiece(std::string_view& text, std::size_t limit) {
  const std::size_t length = std::min({text.find('\n'), text.size() - 1, limit - 1}) + 1;
  const std::string piece(text.substr(0, length));
  text.remove_prefix(length);
  return piece;
}

Pieces SimplePieces(std::string_view bytes, std::size_t limit) {
  const std::string text = InTextMode(bytes);
  std::string_view rest = text;
  Pieces pieces;
  while (!rest.empty()) pieces.push_back(TakePiece(rest, limit));
  return pieces;
}

std::string Characters(std::size_t count) { return std::string(count, 'a'); }

TEST(TextReader, HandsOutLinesWithTheirLineFeed) {
  EXPECT_EQ(Read("one\ntwo\n\nthree\n"), (Pieces{"one\n", "two\n", "\n", "three\n"}));
}

TEST(TextReader, TurnsCrLfIntoLf) {
  EXPECT_EQ(Read("one\r\ntwo\r\n\r\n"), (Pieces{"one\n", "two\n", "\n"}));
}

TEST(TextReader, KeepsALoneCr) {
  EXPECT_EQ(Read("one\rtwo\n\rthree\r"), (Pieces{"one\rtwo\n", "\rthree\r"}));
}

TEST(TextReader, KeepsTheFirstOfTwoCrsBeforeALf) {
  EXPECT_EQ(Read("one\r\r\ntwo\r\r\r\n"), (Pieces{"one\r\n", "two\r\r\n"}));
}

TEST(TextReader, HandsOutALastLineWithoutALineFeed) {
  EXPECT_EQ(Read("one\ntwo"), (Pieces{"one\n", "two"}));
  EXPECT_EQ(Read("x"), (Pieces{"x"}));
}

TEST(TextReader, FindsNothingInAnEmptyFile) { EXPECT_EQ(Read(""), Pieces{}); }

TEST(TextReader, KeepsNulBytes) {
  const std::string bytes("a\0b\n\0\n", 6);
  EXPECT_EQ(Read(bytes), (Pieces{bytes.substr(0, 4), bytes.substr(4)}));
}

TEST(TextReader, HandsOutALineOf253CharactersAndItsEndInOnePiece) {
  EXPECT_EQ(Read(Characters(253) + "\nb\n"), (Pieces{Characters(253) + "\n", "b\n"}));
  EXPECT_EQ(Read(Characters(253) + "\r\nb\n"), (Pieces{Characters(253) + "\n", "b\n"}));
}

TEST(TextReader, HandsOutTheEndOfALineOf254CharactersAlone) {
  EXPECT_EQ(Read(Characters(254) + "\nb\n"), (Pieces{Characters(254), "\n", "b\n"}));
  EXPECT_EQ(Read(Characters(254) + "\r\nb\n"), (Pieces{Characters(254), "\n", "b\n"}));
}

TEST(TextReader, CutsALongerLineAfter254Characters) {
  EXPECT_EQ(Read(Characters(255) + "\n"), (Pieces{Characters(254), "a\n"}));
  EXPECT_EQ(Read(Characters(255) + "\r\n"), (Pieces{Characters(254), "a\n"}));
  EXPECT_EQ(Read(Characters(600)), (Pieces{Characters(254), Characters(254), Characters(92)}));
}

TEST(TextReader, CountsALoneCrAtTheLimitAsACharacter) {
  EXPECT_EQ(Read(Characters(253) + "\rb\n"), (Pieces{Characters(253) + "\r", "b\n"}));
  EXPECT_EQ(Read(Characters(253) + "\r\r\n"), (Pieces{Characters(253) + "\r", "\n"}));
  EXPECT_EQ(Read(Characters(254) + "\r"), (Pieces{Characters(254), "\r"}));
}

TEST(TextReader, EndsInTheMidstOfALineAtTheLimit) {
  EXPECT_EQ(Read(Characters(254)), (Pieces{Characters(254)}));
  EXPECT_EQ(Read(Characters(253) + "\r"), (Pieces{Characters(253) + "\r"}));
}

TEST(TextReader, HandsOutSingleCharacters) {
  EXPECT_EQ(Read("ab\r\n\r", 1), (Pieces{"a", "b", "\n", "\r"}));
}

TEST(TextReader, ReadsALineEndThatLiesAcrossABlock) {
  for (std::size_t shift = 0; shift <= 5; ++shift) {
    const std::string bytes = Characters(kBlock - shift) + "\r\nsecond\r\n";
    EXPECT_EQ(Read(bytes), SimplePieces(bytes, 254)) << shift;
  }
}

TEST(TextReader, ReadsLinesOfALimitThatEndAcrossABlock) {
  for (std::size_t length = 251; length <= 257; ++length) {
    std::string bytes;
    while (bytes.size() < kBlock + 1000) bytes += Characters(length) + "\r\n";
    EXPECT_EQ(Read(bytes), SimplePieces(bytes, 254)) << length;
  }
}

TEST(TextReader, ReadsAFileOfExactlyOneBlock) {
  EXPECT_EQ(Read(Characters(kBlock), 32768), SimplePieces(Characters(kBlock), 32768));
  EXPECT_EQ(Read(Characters(kBlock - 1) + "\n").back().back(), '\n');
}

TEST(TextReader, ReadsALineOfManyBlocksInPieces) {
  const std::string bytes = Characters(3 * kBlock + 17);
  EXPECT_EQ(Read(bytes, 32768), SimplePieces(bytes, 32768));
}

TEST(TextReader, CutsRandomFilesAsTheSimplestReaderDoes) {
  Random random;
  const TemporaryFolder folder;
  for (int round = 0; round < 200; ++round) {
    const std::string bytes = random.Text("aaab\r\r\n\0", random.Whole<std::size_t>(0, 2000));
    TextReader reader;
    ASSERT_TRUE(reader.Open(folder.Write("a.txt", bytes)));
    const auto limit = random.Whole<std::size_t>(1, random.OneIn(2) ? 10 : 300);
    ASSERT_EQ(PiecesOf(reader, limit), SimplePieces(bytes, limit)) << "round " << round;
  }
}

TEST(TextReader, CutsRandomLongFilesUnderChangingLimitsAsTheSimplestReaderDoes) {
  Random random;
  const TemporaryFolder folder;
  for (int round = 0; round < 8; ++round) {
    const std::string bytes =
        random.Text("aaaaaaaaaaaaaaaa\r\r\n", kBlock + random.Whole(0U, 200000U));
    TextReader reader;
    ASSERT_TRUE(reader.Open(folder.Write("a.txt", bytes)));
    const std::string text = InTextMode(bytes);
    for (std::string_view rest = text; !rest.empty();) {
      const auto limit = random.Whole<std::size_t>(1, random.OneIn(9) ? 32768 : 30);
      ASSERT_EQ(reader.NextPiece(limit), TakePiece(rest, limit)) << "before " << rest.size();
    }
    ASSERT_EQ(reader.NextPiece(1), std::nullopt);
  }
}

TEST(TextReader, TellsTheBytesHandedOutAndTheSize) {
  const TemporaryFolder folder;
  TextReader reader;
  ASSERT_TRUE(reader.Open(folder.Write("a.txt", "one\r\ntwo")));
  EXPECT_EQ(reader.Size(), 8U);
  EXPECT_EQ(reader.Position(), 0U);
  reader.NextPiece(254);
  EXPECT_EQ(reader.Position(), 5U);
  reader.NextPiece(254);
  EXPECT_EQ(reader.Position(), 8U);
}

TEST(TextReader, TakesBackslashesInThePath) {
  const TemporaryFolder folder;
  std::filesystem::create_directory(folder.File("jobs"));
  folder.Write("jobs/a.txt", "one\n");
  TextReader reader;
  EXPECT_TRUE(reader.Open(folder.Path() + "\\jobs\\a.txt"));
  EXPECT_EQ(PiecesOf(reader, 254), Pieces{"one\n"});
}

TEST(TextReader, ReadsAPipe) {
  int ends[2];
  ASSERT_EQ(pipe(ends), 0);
  ASSERT_EQ(write(ends[1], "one\r\ntwo", 8), 8);
  close(ends[1]);
  TextReader reader;
  EXPECT_TRUE(reader.Open("/dev/fd/" + std::to_string(ends[0])));
  EXPECT_EQ(reader.Size(), 0U);
  EXPECT_EQ(PiecesOf(reader, 254), (Pieces{"one\n", "two"}));
  close(ends[0]);
}

TEST(TextReader, ReportsAFileThatIsMissing) {
  const TemporaryFolder folder;
  const TroubleLog log;
  TextReader reader;
  EXPECT_FALSE(reader.Open(folder.Path() + "\\missing.txt"));
  EXPECT_TRUE(log.HasOnly(FileTrouble::Action::kOpen, folder.File("missing.txt"), ENOENT));
}

TEST(TextReader, ReportsAFolder) {
  const TemporaryFolder folder;
  const TroubleLog log;
  TextReader reader;
  EXPECT_FALSE(reader.Open(folder.Path()));
  EXPECT_TRUE(log.HasOnly(FileTrouble::Action::kOpen, folder.Path(), EISDIR));
}

TEST(TextReader, HasNoPiecesAndNoFurtherTroubleAfterAFailedOpen) {
  const TemporaryFolder folder;
  const TroubleLog log;
  TextReader reader;
  EXPECT_FALSE(reader.Open(folder.Path()));
  EXPECT_EQ(reader.NextPiece(254), std::nullopt);
  EXPECT_EQ(log.Troubles().size(), 1U);
}

TEST(TextReader, HasNoPiecesBeforeItIsOpened) {
  TextReader reader;
  EXPECT_EQ(reader.NextPiece(254), std::nullopt);
}

TEST(TextReader, ReportsAFileThatMayNotBeRead) {
  const TemporaryFolder folder;
  const std::string path = folder.Write("a.txt", "one\n");
  chmod(folder.Path().c_str(), 0755);
  chmod(path.c_str(), 0);
  const TroubleLog log;
  TextReader reader;
  const OrdinaryUser user;
  EXPECT_FALSE(reader.Open(path));
  EXPECT_TRUE(log.HasOnly(FileTrouble::Action::kOpen, path, EACCES));
}

TEST(TextReader, EndsAtAReadErrorAndReportsIt) {
  // The memory of this process: nothing can be read at its beginning.
  const std::string path = "/proc/self/mem";
  const TroubleLog log;
  TextReader reader;
  ASSERT_TRUE(reader.Open(path));
  EXPECT_EQ(reader.NextPiece(254), std::nullopt);
  EXPECT_EQ(reader.NextPiece(254), std::nullopt);
  EXPECT_TRUE(log.HasOnly(FileTrouble::Action::kRead, path, EIO));
}

}  // namespace
