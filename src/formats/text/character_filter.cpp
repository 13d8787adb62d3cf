#include "formats/text/character_filter.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

#include "platform/code_page.h"

namespace text {
namespace {

struct Folding {
  std::u32string_view from;
  char to;
};

// This many and no more: other letters of that range are dropped.
constexpr Folding kFoldings[] = {{U"ÄÅ", 'A'},    {U"É", 'E'},    {U"Ö", 'O'},    {U"Ü", 'U'},
                                 {U"àáâäå", 'a'}, {U"èéêë", 'e'}, {U"ìíîï", 'i'}, {U"òóôö", 'o'},
                                 {U"ùúûü", 'u'},  {U"ÿ", 'y'}};

char Folded(char32_t character) {
  for (const Folding& folding : kFoldings) {
    if (folding.from.find(character) != std::u32string_view::npos) return folding.to;
  }
  return '\0';
}

constexpr unsigned kFirstPlain = 32;
constexpr unsigned kPlainCount = 96;

// ASCII text and line ends stay as they are.
bool IsPlain(char c, char kept) {
  return static_cast<unsigned char>(c) - kFirstPlain < kPlainCount || c == '\n' || c == '\r' ||
         (kept != '\0' && c == kept);
}

struct Sorts {
  bool isAllText;
  bool hasQuote;
};

using Word = std::uint64_t;
constexpr Word kOfEach = 0x0101010101010101;  // times a byte: that byte eight times
constexpr Word kHighBits = 0x80 * kOfEach;

// Not 0 when a byte of the word is less than `limit`, which is at most 128.
Word AnyLess(Word word, Word limit) { return (word - limit * kOfEach) & ~word & kHighBits; }

Sorts SortsOfWord(const char* at) {
  Word word;
  std::memcpy(&word, at, sizeof word);
  return {((word & kHighBits) | AnyLess(word, kFirstPlain)) == 0,
          AnyLess(word ^ '"' * kOfEach, 1) != 0};
}

Sorts SortsOfShort(std::string_view text) {
  Sorts sorts{true, false};
  for (const char c : text) {
    if (static_cast<unsigned char>(c) - kFirstPlain >= kPlainCount) sorts.isAllText = false;
    if (c == '"') sorts.hasQuote = true;
  }
  return sorts;
}

// Eight characters at once; the last eight may overlap those before.
Sorts SortsIn(std::string_view text) {
  if (text.size() < sizeof(Word)) return SortsOfShort(text);
  const char* const last = text.data() + text.size() - sizeof(Word);
  Sorts sorts = SortsOfWord(last);
  for (const char* at = text.data(); at < last; at += sizeof(Word)) {
    const Sorts more = SortsOfWord(at);
    sorts.isAllText &= more.isAllText;
    sorts.hasQuote |= more.hasQuote;
  }
  return sorts;
}

}  // namespace

std::string_view CharacterFilter::Filter(std::string_view utf8, char kept, bool cutAtNul) {
  if (cutAtNul) utf8 = utf8.substr(0, utf8.find('\0'));
  const Sorts sorts = SortsIn(utf8.substr(0, utf8.size() - (utf8.ends_with('\n') ? 1 : 0)));
  hasMarks_ = sorts.hasQuote || !sorts.isAllText;
  if (sorts.isAllText) return utf8;
  const auto* const odd =
      std::find_if(utf8.begin(), utf8.end(), [kept](char c) { return !IsPlain(c, kept); });
  if (odd == utf8.end()) return utf8;
  line_.assign(utf8.begin(), odd);
  std::string_view rest = utf8.substr(line_.size());
  while (!rest.empty()) {
    const std::string_view before = rest;
    char32_t character = platform::TakeCodePoint(rest);
    // What is no UTF-8 is a byte of the 8-bit code page, whose letters lie where Unicode has them.
    const bool isByte = before.size() - rest.size() == 1 && character == 0xFFFD;
    if (isByte) character = static_cast<unsigned char>(before.front());
    Take(character, kept);
  }
  return line_;
}

void CharacterFilter::Take(char32_t character, char kept) {
  if (character < 128 && IsPlain(static_cast<char>(character), kept)) {
    line_ += static_cast<char>(character);
  } else if (const char folded = Folded(character)) {
    line_ += folded;
    ++replaced_;
  } else {
    ++removed_;
  }
}

}  // namespace text
