#include "layout.h"

#include <algorithm>
#include <array>

#include "platform/code_page.h"

namespace {

struct Range {
  char32_t first;
  char32_t last;
};

constexpr std::array kCombining = {
    Range{0x300, 0x36F},   Range{0x483, 0x489},   Range{0x591, 0x5BD},
    Range{0x610, 0x61A},   Range{0x64B, 0x65F},   Range{0x200B, 0x200F},
    Range{0x20D0, 0x20FF}, Range{0xFE00, 0xFE0F}, Range{0xFE20, 0xFE2F}};
constexpr std::array kWide = {
    Range{0x1100, 0x115F},   Range{0x2E80, 0x303E},   Range{0x3041, 0xA4CF},  Range{0xAC00, 0xD7A3},
    Range{0xF900, 0xFAFF},   Range{0xFE30, 0xFE6F},   Range{0xFF00, 0xFF60},  Range{0xFFE0, 0xFFE6},
    Range{0x1F300, 0x1F64F}, Range{0x1F900, 0x1F9FF}, Range{0x20000, 0x3FFFD}};

template <class Ranges>
bool IsIn(const Ranges& ranges, char32_t character) {
  return std::any_of(ranges.begin(), ranges.end(), [&](const Range& range) {
    return character >= range.first && character <= range.last;
  });
}

std::size_t WidthOf(char32_t character) {
  if (character < kCombining.front().first) return 1;
  if (IsIn(kCombining, character)) return 0;
  return IsIn(kWide, character) ? 2 : 1;
}

bool IsControl(char32_t character) {
  return character < 0x20 || (character >= 0x7F && character < 0xA0);
}

}  // namespace

std::size_t DisplayWidth(std::string_view utf8) {
  std::size_t width = 0;
  while (!utf8.empty()) width += WidthOf(platform::TakeCodePoint(utf8));
  return width;
}

std::string Printable(std::string_view utf8) {
  std::string text;
  while (!utf8.empty()) {
    const char32_t character = platform::TakeCodePoint(utf8);
    platform::AppendUtf8(text, IsControl(character) ? U' ' : character);
  }
  return text;
}

std::string Wrapped(std::string_view text, std::size_t width, std::size_t indent) {
  std::string wrapped;
  std::size_t column = indent;
  while (!text.empty()) {
    const std::string_view word = text.substr(0, text.find(' '));
    text.remove_prefix(std::min(word.size() + 1, text.size()));
    const std::size_t wordWidth = DisplayWidth(word);
    if (column > indent && column + 1 + wordWidth > width) {
      wrapped.append("\n").append(indent, ' ');
      column = indent;
    }
    if (column > indent) {
      wrapped += ' ';
      ++column;
    }
    wrapped += word;
    column += wordWidth;
  }
  return wrapped + '\n';
}
