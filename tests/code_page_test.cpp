#include "platform/code_page.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace {

std::string Widened(std::string_view bytes) {
  std::string utf8;
  platform::AppendUtf8FromCodePage(utf8, bytes);
  return utf8;
}

std::string Narrowed(std::string_view utf8) {
  std::string bytes;
  platform::AppendCodePageFromUtf8(bytes, utf8);
  return bytes;
}

std::string Utf8(char32_t codePoint) {
  std::string utf8;
  platform::AppendUtf8(utf8, codePoint);
  return utf8;
}

// The code points that a text is taken for.
std::u32string Taken(std::string_view utf8) {
  std::u32string taken;
  while (!utf8.empty()) taken += platform::TakeCodePoint(utf8);
  return taken;
}

std::string AllBytes() {
  std::string bytes;
  for (int byte = 0; byte < 256; ++byte) bytes += static_cast<char>(byte);
  return bytes;
}

TEST(CodePage, BringsAll256BytesThereAndBack) {
  EXPECT_EQ(Narrowed(Widened(AllBytes())), AllBytes());
}

TEST(CodePage, BringsEachByteThereAndBackAlone) {
  for (const char c : AllBytes()) {
    const std::string byte(1, c);
    EXPECT_EQ(Narrowed(Widened(byte)), byte) << static_cast<int>(c);
  }
}

TEST(CodePage, KnowsTheCharactersBetween80And9F) {
  const std::string assigned =
      "\x80\x82\x83\x84\x85\x86\x87\x88\x89\x8A\x8B\x8C\x8E"
      "\x91\x92\x93\x94\x95\x96\x97\x98\x99\x9A\x9B\x9C\x9E\x9F";
  EXPECT_EQ(Widened(assigned), "€‚ƒ„…†‡ˆ‰Š‹ŒŽ‘’“”•–—˜™š›œžŸ");
}

TEST(CodePage, KnowsTheCharactersFromA0On) {
  EXPECT_EQ(Widened("\xA0\xB0\xC0\xE8\xF9\xFF"), "\u00A0°Àèùÿ");
  for (int byte = 0xA0; byte < 256; ++byte) {
    EXPECT_EQ(Widened(std::string(1, static_cast<char>(byte))), Utf8(static_cast<char32_t>(byte)));
  }
}

TEST(CodePage, KeepsTheCodePointOfTheFiveUnassignedBytes) {
  for (const int byte : {0x81, 0x8D, 0x8F, 0x90, 0x9D}) {
    const std::string text(1, static_cast<char>(byte));
    EXPECT_EQ(Widened(text), Utf8(static_cast<char32_t>(byte)));
    EXPECT_EQ(Narrowed(Utf8(static_cast<char32_t>(byte))), text);
  }
}

TEST(CodePage, NarrowsWhatItLacksToAQuestionMark) {
  EXPECT_EQ(Narrowed("aЖb"), "a?b");
  EXPECT_EQ(Narrowed("测点"), "??");
  EXPECT_EQ(Narrowed("😀"), "?");
  EXPECT_EQ(Narrowed("Ł€"), "?\x80");
}

TEST(CodePage, NarrowsAControlThatAnAssignedByteTookThePlaceOf) {
  EXPECT_EQ(Narrowed("\u0080"), "?");
  EXPECT_EQ(Narrowed("\u009F"), "?");
}

TEST(CodePage, NarrowsEachByteThatIsNoUtf8ToAQuestionMark) {
  EXPECT_EQ(Narrowed("a\xFF"
                     "b"),
            "a?b");
  EXPECT_EQ(Narrowed("\x80\xBF"), "??");
  EXPECT_EQ(Narrowed("caf\xE9 nero"), "caf? nero");
}

TEST(CodePage, AppendsBehindTheTextThatIsThere) {
  std::string text = "x";
  platform::AppendUtf8FromCodePage(text, "\xE8");
  platform::AppendUtf8FromCodePage(text, "y");
  EXPECT_EQ(text, "xèy");
  std::string bytes = "x";
  platform::AppendCodePageFromUtf8(bytes, "èy");
  EXPECT_EQ(bytes, "x\xE8y");
}

TEST(CodePage, TakesAsciiAsItIsNulBytesIncluded) {
  const std::string text("a\0b\r\n\x7F", 6);
  EXPECT_EQ(Widened(text), text);
  EXPECT_EQ(Narrowed(text), text);
  EXPECT_EQ(Widened(""), "");
}

TEST(CodePage, FindsAByteThatIsNoAsciiAtAnyPlace) {
  for (std::size_t length = 0; length <= 40; ++length) {
    EXPECT_TRUE(platform::IsAscii(std::string(length, '\x7F'))) << length;
    for (std::size_t at = 0; at < length; ++at) {
      std::string text(length, 'a');
      text[at] = '\x80';
      EXPECT_FALSE(platform::IsAscii(text)) << at << " of " << length;
    }
  }
}

TEST(CodePage, WritesAndTakesEveryCodePoint) {
  for (char32_t codePoint = 0; codePoint <= 0x10FFFF; ++codePoint) {
    if (codePoint == 0xD800) codePoint = 0xE000;
    const std::string text = Utf8(codePoint);
    std::string_view rest = text;
    ASSERT_EQ(platform::TakeCodePoint(rest), codePoint);
    ASSERT_TRUE(rest.empty());
  }
}

TEST(CodePage, WritesUtf8OfEachLength) {
  EXPECT_EQ(Utf8(U'A'), "A");
  EXPECT_EQ(Utf8(0xE8), "\xC3\xA8");
  EXPECT_EQ(Utf8(0x20AC), "\xE2\x82\xAC");
  EXPECT_EQ(Utf8(0x1F600), "\xF0\x9F\x98\x80");
}

TEST(CodePage, WritesTheReplacementForWhatIsNoCharacter) {
  for (const char32_t codePoint : {0xD800U, 0xDFFFU, 0x110000U, 0x7FFFFFFFU}) {
    EXPECT_EQ(Utf8(codePoint), "\xEF\xBF\xBD");
  }
}

TEST(CodePage, TakesEachByteOfAMalformedSequenceAlone) {
  const std::vector<std::string> malformed = {"\x80",
                                              "\xC0\x80",
                                              "\xC1\xBF",
                                              "\xE0\x80\x80",
                                              "\xE0\x9F\xBF",  // overlong
                                              "\xF0\x80\x80\x80",
                                              "\xF0\x8F\xBF\xBF",  // overlong
                                              "\xED\xA0\x80",
                                              "\xED\xBF\xBF",  // surrogates
                                              "\xF4\x90\x80\x80",
                                              "\xF5\x80\x80\x80",
                                              "\xFF",  // too large
                                              "\xC3",
                                              "\xE2\x82",
                                              "\xF0\x9F\x98"};  // cut
  for (const std::string& text : malformed) {
    EXPECT_EQ(Taken(text), std::u32string(text.size(), 0xFFFD)) << testing::PrintToString(text);
  }
}

TEST(CodePage, GoesOnBehindAMalformedSequence) {
  EXPECT_EQ(Taken("\xE2\x82"
                  "A"),
            U"\uFFFD\uFFFDA");
  EXPECT_EQ(Taken("\xF0\x9F\xC3\xA8"), U"\uFFFD\uFFFDè");
  EXPECT_EQ(Taken("\xC3\xC3\xA8"), U"\uFFFDè");
}

TEST(CodePage, TakesTheFirstAndLastOfEachLength) {
  EXPECT_EQ(Taken("\xC2\x80\xDF\xBF"), U"\u0080\u07FF");
  EXPECT_EQ(Taken("\xE0\xA0\x80\xEF\xBF\xBF"), U"\u0800\uFFFF");
  EXPECT_EQ(Taken("\xED\x9F\xBF\xEE\x80\x80"), U"\uD7FF\uE000");
  EXPECT_EQ(Taken("\xF0\x90\x80\x80\xF4\x8F\xBF\xBF"), U"\U00010000\U0010FFFF");
}

}  // namespace
