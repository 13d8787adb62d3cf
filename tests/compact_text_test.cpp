#include "model/compact_text.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

// Around the 15 bytes that fit, around the ends of a signed and an unsigned byte, and long ones.
const std::vector<std::size_t> kLengths = {0,   1,   2,   14,  15,  16,  17,  31,     32,
                                           126, 127, 128, 254, 255, 256, 257, 100'000};

std::string Sample(std::size_t length, int start) {
  std::string text;
  for (std::size_t i = 0; i < length; ++i)
    text += static_cast<char>(start + static_cast<int>(i % 200));
  return text;
}

TEST(CompactText, IsEmptyAtFirst) { EXPECT_EQ(CompactText().View(), ""); }

TEST(CompactText, TakesSixteenBytes) { EXPECT_EQ(sizeof(CompactText), 16U); }

TEST(CompactText, HoldsATextOfAnyLength) {
  for (const std::size_t length : kLengths) {
    CompactText text;
    text.Set(Sample(length, 0));
    EXPECT_EQ(text.View(), Sample(length, 0)) << length;
  }
}

TEST(CompactText, ReplacesATextOfAnyLengthByOneOfAnyOther) {
  for (const std::size_t before : kLengths) {
    for (const std::size_t after : kLengths) {
      CompactText text;
      text.Set(Sample(before, 0));
      text.Set(Sample(after, 50));
      ASSERT_EQ(text.View(), Sample(after, 50)) << before << " to " << after;
    }
  }
}

TEST(CompactText, HoldsNulBytesAndAnyOtherByte) {
  const std::string bytes("\0\x7F\x80\xFF\0", 5);
  CompactText text;
  text.Set(bytes);
  EXPECT_EQ(text.View(), bytes);
  text.Set(bytes + bytes + bytes + bytes);
  EXPECT_EQ(text.View(), bytes + bytes + bytes + bytes);
}

TEST(CompactText, KeepsACopyOfItsOwn) {
  std::string source(40, 'a');
  CompactText text;
  text.Set(source);
  source.assign(40, 'b');
  EXPECT_EQ(text.View(), std::string(40, 'a'));
}

TEST(CompactText, MayBeSetToAnEndOfItself) {
  for (const std::size_t length : kLengths) {
    if (length < 2) continue;
    CompactText text;
    text.Set(Sample(length, 0));
    text.Set(text.View().substr(1));
    EXPECT_EQ(text.View(), Sample(length, 0).substr(1)) << length;
  }
}

TEST(CompactText, MayBeSetToItself) {
  for (const std::size_t length : kLengths) {
    CompactText text;
    text.Set(Sample(length, 0));
    text.Set(text.View());
    EXPECT_EQ(text.View(), Sample(length, 0)) << length;
  }
}

}  // namespace
