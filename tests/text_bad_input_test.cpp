// Files that are no point files, or no longer whole: nothing crashes, and what was odd is told.
#include <filesystem>

#include "tests/support/random.h"
#include "tests/support/text_files.h"
#include "tests/support/trouble_log.h"

using namespace exchange_test;
using tdk::WString;

namespace {

using TextBadInput = TextTest;

const std::string kPoints =
    "P1;652512.010;4945655.870;111.020;caposaldo;;\n"
    "\"Torre; lato N\";652600.000;4945700.500;0.000;spigolo;;\r\n"
    "Città;-1.5;2,5;1e3;muro di là\n"
    "\n"
    "P 4;0;0;0\n";

/// How many points a prefix of kPoints has: one for each line of three characters or more.
int LinesWorthAPoint(std::string_view text) {
  int count = 0;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find('\n'), text.size() - 1);
    if (end >= 2) ++count;
    text.remove_prefix(end + 1);
  }
  return count;
}

TEST_F(TextBadInput, DelimitedFileIsReadCutAtEveryByte) {
  for (std::size_t size = 0; size <= kPoints.size(); ++size) {
    const std::string cut = kPoints.substr(0, size);
    // CR LF is one character, a letter of two bytes is one, too.
    std::string lines = cut;
    std::erase(lines, '\r');
    ReadDelimited(cut);
    ASSERT_EQ(Known().GetGrpArSize(), static_cast<int>(size) + 1);
    ASSERT_EQ(static_cast<int>(KnownPoints().size()), LinesWorthAPoint(lines)) << "after " << size;
  }
}

TEST_F(TextBadInput, FixedWidthFileIsReadCutAtEveryByte) {
  settings.fieldLength = {4, 12, 12, 12, 6, 1};
  const std::string file = "P1         1.500       2.500       3.500wall  \nè          1\r\n\n";
  for (std::size_t size = 0; size <= file.size(); ++size) {
    ReadFixedLength(file.substr(0, size));
    const std::string cut = file.substr(0, size);
    const auto ends = std::count(cut.begin(), cut.end(), '\n');
    const bool isOpen = !cut.empty() && cut.back() != '\n';
    ASSERT_EQ(static_cast<long>(KnownPoints().size()), ends + (isOpen ? 1 : 0)) << size;
  }
}

// A tab stays where it is the separator, within quotes.
TEST_F(TextBadInput, RandomBytesBecomeAsciiTexts) {
  Random random;
  for (int file = 0; file < 40; ++file) {
    std::string bytes(random.Whole<std::size_t>(0, 3000), '\0');
    for (char& byte : bytes) byte = static_cast<char>(random.Whole(0, 255));
    settings.separator = u" ,\t;"[file % 4];
    settings.fieldLength.fill(random.Whole(1, 100));
    ReadDelimited(bytes);
    ReadFixedLength(bytes);
  }
  for (int group = 0; group < Known().GetGrpArSize(); ++group) {
    for (int i = 0; i < Known().GetPtnArSize(group); ++i) {
      const CPunPnt& point = *Known().GetPtnAt(group, i);
      const std::string texts = point.GetNome().ToUtf8() + point.GetSecScri().ToUtf8();
      ASSERT_TRUE(std::all_of(texts.begin(), texts.end(), [](char c) {
        return c >= 32 || c == '\t';
      })) << texts;
      ASSERT_TRUE(std::isfinite(point.GetCoordX()) && std::isfinite(point.GetCoordZ()));
    }
  }
}

TEST_F(TextBadInput, Utf16IsReadByItsAsciiLettersAndTold) {
  std::string bytes = "\xFF\xFE";
  for (const char c : std::string("P1;1;2;3;muro\n")) bytes += {c, '\0'};
  ReadDelimited(bytes);
  ASSERT_FALSE(KnownPoints().empty());
  EXPECT_EQ(KnownPoints()[0], "yP1|1|2|3|muro") << "the first byte is an accented letter";
  EXPECT_EQ(views.messages.size(), 1u);
}

TEST_F(TextBadInput, MillionColumnsAreOneLineInPieces) {
  std::string line = "P;1;2;3;x";
  for (int i = 0; i < 1'000'000; ++i) line += ";c";
  ReadDelimited(line + "\nQ;1;2;3\n");
  // Every piece is a line of its own; the last line is whole.
  EXPECT_EQ(KnownPoints().size(), line.size() / 254 + 2);
  EXPECT_EQ(KnownPoints().front(), "P|1|2|3|x");
  EXPECT_EQ(KnownPoints().back(), "Q|1|2|3|");
}

TEST_F(TextBadInput, FileWithoutAnyLineEndIsReadInPieces) {
  ReadDelimited(std::string(1'000'000, 'x'));
  EXPECT_EQ(KnownPoints().size(), 3937u) << "two characters are left over, too few for a line";
  EXPECT_EQ(KnownPoints().back(), std::string(254, 'x') + "|0|0|0|");
}

TEST_F(TextBadInput, NumbersBeyondADoubleAreUndefined) {
  ReadDelimited("P;1e999;-1e999;1e-999\n");
  const CPunPnt& point = *Known().GetPtnAt(0, 0);
  EXPECT_FALSE(IsDefined(point.GetCoordX()));
  EXPECT_EQ(point.GetCoordZ(), 0);
}

TEST_F(TextBadInput, NanAndInfinityAreNoNumbers) {
  ReadDelimited("P;nan;inf;0x10\n");
  EXPECT_EQ(KnownPoints(), (Lines{"P|0|0|0|"}));
  ASSERT_EQ(views.notes.size(), 1u);
  EXPECT_NE(views.notes[0].text.ToUtf8().find("\"nan\""), std::string::npos);
}

TEST_F(TextBadInput, FolderIsNoFile) {
  const TroubleLog log;
  settings.filePath = WString(folder.Path());
  text::ReadDelimited(&parent, libraries, settings);
  EXPECT_EQ(Known().GetGrpArSize(), 0);
  EXPECT_FALSE(log.Troubles().empty());
}

}  // namespace
