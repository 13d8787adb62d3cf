#include "host/cad/writing/names.h"

#include <algorithm>
#include <array>

#include "platform/code_page.h"
#include "platform/numbers.h"

namespace cad_writer {
namespace {

constexpr std::u32string_view kNotInLong = U"<>/\\\":;?*|,=`";

char32_t InShort(char32_t c) {
  if (c >= 'a' && c <= 'z') return c - 'a' + 'A';
  const bool isAllowed =
      (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '$' || c == '_' || c == '-';
  return isAllowed ? c : U'_';
}

char32_t InLong(char32_t c) {
  const bool isControl = c < 0x20 || (c >= 0x7F && c < 0xA0);
  return isControl || kNotInLong.find(c) != std::u32string_view::npos ? U'_' : c;
}

struct NameForm {
  char32_t (*allowed)(char32_t);
  std::size_t longest;
};
constexpr std::array<NameForm, 2> kForms = {NameForm{InShort, 31}, NameForm{InLong, 255}};
const NameForm& FormOf(NameRule rule) { return kForms[static_cast<std::size_t>(rule)]; }

// Letters that other programs take for the same as others.
struct CapitalRange {
  char32_t first;
  char32_t last;
  char32_t step;
  char32_t toSmall;
};
constexpr std::array<CapitalRange, 9> kCapitals = {{{U'A', U'Z', 1, 32},
                                                    {0xC0, 0xD6, 1, 32},
                                                    {0xD8, 0xDE, 1, 32},
                                                    {0x100, 0x12E, 2, 1},
                                                    {0x14A, 0x176, 2, 1},
                                                    {0x17D, 0x17D, 1, 1},
                                                    {0x391, 0x3AB, 1, 32},
                                                    {0x400, 0x40F, 1, 80},
                                                    {0x410, 0x42F, 1, 32}}};

char32_t Small(char32_t c) {
  for (const CapitalRange& range : kCapitals) {
    if (c >= range.first && c <= range.last && (c - range.first) % range.step == 0) {
      return c + range.toSmall;
    }
  }
  return c == 0x178 ? 0xFF : c;
}

std::u32string WithoutCapitals(std::u32string name) {
  std::transform(name.begin(), name.end(), name.begin(), Small);
  return name;
}

// A reader may take blanks at either end for none.
std::u32string Allowed(std::string_view utf8, const NameForm& form) {
  std::u32string name;
  while (!utf8.empty() && name.size() < form.longest) {
    name += form.allowed(platform::TakeCodePoint(utf8));
  }
  if (name.empty()) name = U"_";
  if (name.front() == U' ') name.front() = U'_';
  if (name.back() == U' ') name.back() = U'_';
  return name;
}

std::u32string Numbered(const std::u32string& name, int number, std::size_t longest) {
  std::string ending = "_";
  platform::AppendWhole(ending, number);
  return name.substr(0, longest - ending.size()) + std::u32string(ending.begin(), ending.end());
}

}  // namespace

std::u32string NameTable::Free(const std::u32string& name) {
  if (taken_.insert(WithoutCapitals(name)).second) return name;
  int& number = lastNumbers_.emplace(WithoutCapitals(name), 1).first->second;
  for (;;) {
    std::u32string next = Numbered(name, ++number, FormOf(rule_).longest);
    if (taken_.insert(WithoutCapitals(next)).second) return next;
  }
}

std::string NameTable::Add(std::string_view utf8) {
  std::string name;
  for (const char32_t c : Free(Allowed(utf8, FormOf(rule_)))) {
    platform::AppendUtf8(name, c);
  }
  return name;
}

}  // namespace cad_writer
