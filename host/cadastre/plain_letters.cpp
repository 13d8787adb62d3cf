#include "host/cadastre/plain_letters.h"

#include <algorithm>
#include <array>

namespace dat {
namespace {

// From this character on, one after the other; "" where nothing stands for it.
constexpr char32_t kFirstLatin = 0xA0;
constexpr std::array<std::string_view, 96> kLatin = {
    " ", "",  "",  "",  "",  "",  "",   "",  "",  "",  "A", "\"", "",  "-", "",  "",    // A0
    "",  "",  "2", "3", "",  "",  "",   ".", "",  "1", "O", "\"", "",  "",  "",  "",    // B0
    "A", "A", "A", "A", "A", "A", "AE", "C", "E", "E", "E", "E",  "I", "I", "I", "I",   // C0
    "D", "N", "O", "O", "O", "O", "O",  "X", "O", "U", "U", "U",  "U", "Y", "",  "SS",  // D0
    "a", "a", "a", "a", "a", "a", "ae", "c", "e", "e", "e", "e",  "i", "i", "i", "i",   // E0
    "d", "n", "o", "o", "o", "o", "o",  "/", "o", "u", "u", "u",  "u", "y", "",  "y"};  // F0

struct Letters {
  char32_t character;
  std::string_view plain;
};

// What else keyboards and word processors put into Italian texts.
constexpr auto kOthers = std::to_array<Letters>(
    {{0x160, "S"},   {0x161, "s"},    {0x17D, "Z"},   {0x17E, "z"},  {0x10C, "C"},  {0x10D, "c"},
     {0x106, "C"},   {0x107, "c"},    {0x110, "D"},   {0x111, "d"},  {0x152, "OE"}, {0x153, "oe"},
     {0x178, "Y"},   {0x2013, "-"},   {0x2014, "-"},  {0x2018, "'"}, {0x2019, "'"}, {0x201C, "\""},
     {0x201D, "\""}, {0x2026, "..."}, {0x20AC, "EUR"}});

// Every ASCII character, so that views of one of them need no memory.
constexpr auto kAscii = [] {
  std::array<char, 128> characters{};
  for (std::size_t i = 0; i < characters.size(); ++i) characters[i] = static_cast<char>(i);
  return characters;
}();

}  // namespace

std::string_view PlainLetters(char32_t character) {
  if (character < kAscii.size()) return {&kAscii[character], 1};
  if (character >= kFirstLatin && character - kFirstLatin < kLatin.size()) {
    return kLatin[character - kFirstLatin];
  }
  const auto* const found =
      std::find_if(kOthers.begin(), kOthers.end(),
                   [&](const Letters& letters) { return letters.character == character; });
  return found == kOthers.end() ? std::string_view() : found->plain;
}

}  // namespace dat
