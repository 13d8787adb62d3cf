#include "host/cad/reading/code_page.h"

#include <algorithm>
#include <array>

#include "platform/code_page.h"
#include "platform/letters.h"

namespace cad_reader {
namespace {

struct Named {
  std::string_view inFile;  // in capitals
  const char* name;
};

constexpr Named kNames[] = {
    {"GB2312", "CP936"}, {"BIG5", "CP950"},          {"KSC5601", "CP949"},
    {"JOHAB", "CP1361"}, {"MACINTOSH", "MACINTOSH"}, {"MAC-ROMAN", "MACINTOSH"},
};

// Before the number of a code page.
constexpr Named kPrefixes[] = {
    {"ANSI_", "CP"},
    {"ANSI", "CP"},
    {"DOS", "CP"},
    {"CP", "CP"},
    {"ISO8859-", "ISO-8859-"},
    {"ISO8859_", "ISO-8859-"},
    {"ISO-8859-", "ISO-8859-"},
};

bool IsNumber(std::string_view text) {
  constexpr std::size_t kMostDigits = 4;
  return !text.empty() && text.size() <= kMostDigits &&
         std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
}

}  // namespace

std::optional<CodePage> CodePage::Open(const std::string& name) {
  CodePage page;
  if (name == "CP1252") return page;
  page.set_ = platform::CharacterSet::Open(name);
  if (!page.set_) return std::nullopt;
  return page;
}

void CodePage::AppendUtf8(std::string& utf8, std::string_view bytes) const {
  if (set_) {
    set_->AppendUtf8(utf8, bytes);
  } else {
    platform::AppendUtf8FromCodePage(utf8, bytes);
  }
}

std::optional<CodePage> CodePageNamed(std::string_view name) {
  const std::string capitals = platform::Capital(name);
  for (const Named& known : kNames) {
    if (capitals == known.inFile) return CodePage::Open(known.name);
  }
  for (const Named& prefix : kPrefixes) {
    if (!capitals.starts_with(prefix.inFile)) continue;
    const std::string number = capitals.substr(prefix.inFile.size());
    if (IsNumber(number)) return CodePage::Open(prefix.name + number);
  }
  return std::nullopt;
}

bool DigitCodePages::AppendUtf8(std::string& utf8, char digit, unsigned bytes) {
  constexpr std::array<const char*, 5> kPages = {"CP932", "CP950", "CP949", "CP1361", "CP936"};
  if (digit < '1' || digit > '5') return false;
  auto found = byDigit_.find(digit);
  if (found == byDigit_.end()) {
    const auto page = static_cast<std::size_t>(digit - '1');
    found = byDigit_.emplace(digit, CodePage::Open(kPages[page])).first;
  }
  if (!found->second) return false;
  const std::array<char, 2> pair = {static_cast<char>(bytes >> 8), static_cast<char>(bytes & 0xFF)};
  const std::string_view both(pair.data(), pair.size());
  found->second->AppendUtf8(utf8, pair[0] == '\0' ? both.substr(1) : both);
  return true;
}

}  // namespace cad_reader
