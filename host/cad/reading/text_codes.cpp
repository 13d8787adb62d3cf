#include "host/cad/reading/text_codes.h"

#include <algorithm>

#include "platform/code_page.h"
#include "platform/letters.h"
#include "platform/numbers.h"

namespace cad_reader {
namespace {

constexpr std::string_view kUnicode = "\\U+";
constexpr std::size_t kUnicodeSize = 7;

struct Letter {
  char letter;
  std::string_view stands;
};

constexpr Letter kPercentLetters[] = {
    {'d', "°"}, {'p', "±"}, {'c', "Ø"}, {'%', "%"}, {'u', ""}, {'o', ""}, {'k', ""},
};

// After a backslash.
constexpr Letter kFormatLetters[] = {
    {'P', "\n"}, {'N', "\n"}, {'X', "\n"}, {'~', " "}, {'\\', "\\"}, {'{', "{"}, {'}', "}"},
    {'L', ""},   {'l', ""},   {'O', ""},   {'o', ""},  {'K', ""},    {'k', ""},
};
// These have a value, up to a semicolon.
constexpr std::string_view kFormatsWithValue = "ACcHWTQFfp";
constexpr std::size_t kLongestFormat = 256;

// Where the value of a format code ends.
std::size_t FormatEnd(std::string_view text) { return text.substr(0, kLongestFormat).find(';'); }

template <std::size_t size>
const Letter* Find(const Letter (&letters)[size], char letter) {
  const Letter* const end = letters + size;
  const Letter* const found =
      std::find_if(letters, end, [&](const Letter& each) { return each.letter == letter; });
  return found == end ? nullptr : found;
}

// The number of a character in Windows-1252.
bool TakePercentNumber(std::string_view& text, std::string& to) {
  constexpr std::size_t kSize = 5;  // "%%065"
  if (text.size() < kSize) return false;
  const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
  const std::string_view digits = text.substr(2, 3);
  if (!std::all_of(digits.begin(), digits.end(), isDigit)) return false;
  const auto number = platform::ParseWhole(digits);
  if (!number || *number > 255) return false;
  const char byte = static_cast<char>(*number);
  if (*number >= ' ') platform::AppendUtf8FromCodePage(to, {&byte, 1});
  text.remove_prefix(kSize);
  return true;
}

// "\S1/2;": one above the other. A caret parts them without a line between, and where one of them
// is empty it only moves the other up or down.
bool TakeStack(std::string_view& text, std::string& to) {
  const std::size_t end = FormatEnd(text);
  if (end == std::string_view::npos) return false;
  std::string_view stack = text.substr(2, end - 2);
  text.remove_prefix(end + 1);
  const std::size_t bar = stack.find_first_of("^/#");
  if (bar == std::string_view::npos) {
    to += stack;
    return true;
  }
  std::string_view below = stack.substr(bar + 1);
  while (below.starts_with(' ')) below.remove_prefix(1);
  to += stack.substr(0, bar);
  if (bar > 0 && !below.empty()) to += '/';
  to += below;
  return true;
}

}  // namespace

std::optional<unsigned> HexAt(std::string_view text, std::size_t at, std::size_t digits) {
  if (text.size() < at + digits) return std::nullopt;
  unsigned number = 0;
  for (const char c : text.substr(at, digits)) {
    const char lower = platform::Small(c);
    const bool isDigit = c >= '0' && c <= '9';
    if (!isDigit && (lower < 'a' || lower > 'f')) return std::nullopt;
    number = number * 16 + static_cast<unsigned>(isDigit ? c - '0' : lower - 'a' + 10);
  }
  return number;
}

bool TakeCaretCode(std::string_view& text, std::string& to) {
  if (text.size() < 2 || text[0] != '^') return false;
  const char c = text[1];
  if (c == ' ') {
    to += '^';
  } else if (c < '@' || c > '_') {
    return false;
  } else if (c != '@' && !text.starts_with("^M^J")) {
    to += static_cast<char>(c - '@');
  }
  text.remove_prefix(2);
  return true;
}

bool TakePercentCode(std::string_view& text, std::string& to) {
  if (text.size() < 3 || !text.starts_with("%%")) return false;
  const Letter* const letter = Find(kPercentLetters, platform::Small(text[2]));
  if (letter == nullptr) return TakePercentNumber(text, to);
  to += letter->stands;
  text.remove_prefix(3);
  return true;
}

bool TakeUnicodeCode(std::string_view& text, std::string& to) {
  if (!text.starts_with(kUnicode)) return false;
  const auto first = HexAt(text, kUnicode.size(), 4);
  if (!first) return false;
  text.remove_prefix(kUnicodeSize);
  char32_t codePoint = *first;
  if (codePoint >= 0xD800 && codePoint < 0xDC00 && text.starts_with(kUnicode)) {
    const auto second = HexAt(text, kUnicode.size(), 4);
    if (second && *second >= 0xDC00 && *second < 0xE000) {
      codePoint = 0x10000 + ((codePoint - 0xD800) << 10) + (*second - 0xDC00);
      text.remove_prefix(kUnicodeSize);
    }
  }
  platform::AppendUtf8(to, codePoint);
  return true;
}

bool TakeFormatCode(std::string_view& text, std::string& to) {
  if (text[0] == '{' || text[0] == '}') {
    text.remove_prefix(1);
    return true;
  }
  if (text[0] != '\\' || text.size() < 2) return false;
  if (const Letter* const letter = Find(kFormatLetters, text[1])) {
    to += letter->stands;
    text.remove_prefix(2);
    return true;
  }
  if (text[1] == 'S') return TakeStack(text, to);
  const std::size_t end = FormatEnd(text);
  const bool hasValue = kFormatsWithValue.find(text[1]) != std::string_view::npos;
  if (!hasValue || end == std::string_view::npos) return false;
  text.remove_prefix(end + 1);
  return true;
}

}  // namespace cad_reader
