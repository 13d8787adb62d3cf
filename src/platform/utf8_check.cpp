#include "platform/utf8_check.h"

#include <algorithm>

#include "platform/code_page.h"

namespace platform {
namespace {

constexpr std::size_t kLongestCharacter = 4;
constexpr char32_t kReplacement = 0xFFFD;

std::size_t AsciiLength(std::string_view text) {
  constexpr std::size_t kStride = 64;
  std::size_t length = 0;
  while (text.size() - length >= kStride && IsAscii(text.substr(length, kStride)))
    length += kStride;
  while (length < text.size() && static_cast<unsigned char>(text[length]) < 0x80) ++length;
  return length;
}

// How many bytes the character has that begins with `lead`, as far as this byte tells.
std::size_t LengthFrom(char lead) {
  const auto byte = static_cast<unsigned char>(lead);
  if (byte < 0xC0) return 1;
  return byte < 0xE0 ? 2 : byte < 0xF0 ? 3 : kLongestCharacter;
}

// Takes one character off; false when there is none. U+FFFD itself may stand in a text.
bool TakeGood(std::string_view& text) {
  constexpr std::string_view kReplacementText = "\xEF\xBF\xBD";
  const bool isReplacement = text.starts_with(kReplacementText);
  return TakeCodePoint(text) != kReplacement || isReplacement;
}

}  // namespace

void Utf8Check::Add(std::string_view block) {
  while (isGood_ && !block.empty()) {
    if (!rest_.empty()) {
      rest_ += block.front();
      block.remove_prefix(1);
      if (rest_.size() < LengthFrom(rest_.front())) continue;
      std::string_view whole = rest_;
      isGood_ = TakeGood(whole) && whole.empty();
      rest_.clear();
      continue;
    }
    block.remove_prefix(AsciiLength(block));
    if (block.empty()) return;
    if (block.size() < LengthFrom(block.front())) {
      rest_ = block;
      return;
    }
    isGood_ = TakeGood(block);
  }
}

}  // namespace platform
