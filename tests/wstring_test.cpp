#include "tdk/wstring.h"

#include <gtest/gtest.h>

namespace {

using tdk::WString;

TEST(WString, IsEmptyAtFirst) {
  EXPECT_TRUE(WString().IsEmpty());
  EXPECT_TRUE(WString("").IsEmpty());
  EXPECT_EQ(WString().ToUtf8(), "");
  EXPECT_EQ(WString().Length(), 0U);
}

TEST(WString, HoldsAnyText) {
  EXPECT_EQ(WString("muro è 測 😀").ToUtf8(), "muro è 測 😀");
  EXPECT_EQ(WString(std::string("a\0b", 3)).ToUtf8(), std::string("a\0b", 3));
  EXPECT_FALSE(WString(" ").IsEmpty());
}

TEST(WString, IsMadeOfWideCharacters) {
  EXPECT_EQ(WString(L"è 測 😀").ToUtf8(), "è 測 😀");
  EXPECT_EQ(WString(L"").ToUtf8(), "");
}

TEST(WString, TurnsIntoWideCharacters) {
  EXPECT_EQ(WString("è 測 😀").ToWide(), L"è 測 😀");
  EXPECT_EQ(WString().ToWide(), L"");
}

TEST(WString, KeepsBytesThatAreNoUtf8) {
  const WString text(std::string("a\xFF\xE8z"));
  EXPECT_EQ(text.ToUtf8(), "a\xFF\xE8z");
  EXPECT_EQ(text.ToWide(), L"a\uFFFD\uFFFDz");
}

TEST(WString, CountsCharactersAndNotBytes) {
  EXPECT_EQ(WString("abc").Length(), 3U);
  EXPECT_EQ(WString("è測😀").Length(), 3U);
}

TEST(WString, AppendsAndJoins) {
  WString text = "a";
  text += "è";
  EXPECT_EQ(text, WString("aè"));
  EXPECT_EQ(text + WString("b"), WString("aèb"));
  EXPECT_EQ(text.ToUtf8(), "aè");
}

TEST(WString, ComparesByItsText) {
  EXPECT_EQ(WString("a"), WString(L"a"));
  EXPECT_NE(WString("a"), WString("A"));
  EXPECT_LT(WString("a"), WString("b"));
}

TEST(WString, IsMadeOfTextInTheCodePage) {
  EXPECT_EQ(tdk::ConvertString("caff\xE8 \x80", 0).ToUtf8(), "caffè €");
  EXPECT_EQ(tdk::ConvertString("", 0).ToUtf8(), "");
}

TEST(WString, NamesTheHostProgram) { EXPECT_EQ(tdk::GetPrgName().ToUtf8(), "KalvioField"); }

}  // namespace
