#include "host/cad/reading/code_page.h"

#include <iconv.h>

#include <algorithm>
#include <array>
#include <cerrno>

#include "platform/code_page.h"

namespace cad_reader {
namespace {

constexpr char32_t kReplacement = 0xFFFD;

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

std::string InCapitals(std::string_view name) {
  std::string capitals(name);
  std::transform(capitals.begin(), capitals.end(), capitals.begin(), [](char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
  });
  return capitals;
}

}  // namespace

void CodePage::Closer::operator()(void* converter) const { iconv_close(converter); }

std::optional<CodePage> CodePage::Open(const std::string& name) {
  CodePage page;
  if (name == "CP1252") return page;
  const iconv_t converter = iconv_open("UTF-8", name.c_str());
  if (converter == reinterpret_cast<iconv_t>(-1)) return std::nullopt;
  page.converter_.reset(converter);
  return page;
}

void CodePage::AppendUtf8(std::string& utf8, std::string_view bytes) const {
  if (converter_ == nullptr) {
    platform::AppendUtf8FromCodePage(utf8, bytes);
    return;
  }
  iconv(converter_.get(), nullptr, nullptr, nullptr, nullptr);
  char* from = const_cast<char*>(bytes.data());  // iconv does not write there
  std::size_t left = bytes.size();
  while (left > 0) {
    std::array<char, 512> out;
    char* to = out.data();
    std::size_t room = out.size();
    const bool isDone =
        iconv(converter_.get(), &from, &left, &to, &room) != static_cast<std::size_t>(-1);
    const int error = errno;
    utf8.append(out.data(), to);
    if (isDone || error == E2BIG || left == 0) continue;
    platform::AppendUtf8(utf8, kReplacement);
    ++from;
    --left;
  }
}

std::optional<CodePage> CodePageNamed(std::string_view name) {
  const std::string capitals = InCapitals(name);
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
