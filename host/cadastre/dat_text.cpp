#include "host/cadastre/dat_text.h"

#include <algorithm>

#include "host/cadastre/plain_letters.h"
#include "platform/code_page.h"

namespace dat {
namespace {

constexpr std::string_view kReportWord = "TECNICA";
constexpr std::string_view kReportWordCut = "TECN.";

char Upper(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }

std::string Upper(std::string_view text) {
  std::string upper(text);
  std::transform(upper.begin(), upper.end(), upper.begin(), [](char c) { return Upper(c); });
  return upper;
}

std::string Trimmed(const std::string& text) {
  const std::size_t first = text.find_first_not_of(' ');
  if (first == std::string::npos) return {};
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

// The word marks the report at the end of the file; anywhere before, it would make one there.
void CutReportWord(std::string& text, TextChanges& changes) {
  for (std::size_t at = 0; (at = Upper(text).find(kReportWord)) != std::string::npos;) {
    text.replace(at, kReportWord.size(), kReportWordCut);
    ++changes.reportWords;
  }
}

std::string Cleaned(std::string text, TextChanges& changes) {
  for (char& c : text) {
    if (static_cast<unsigned char>(c) < ' ' || c == '\x7f') c = ' ';
    if (c != '|') continue;
    c = '/';
    ++changes.separators;
  }
  CutReportWord(text, changes);
  return Trimmed(text);
}

bool LooksLikeANumber(std::string_view text) {
  return text.find_first_of("0123456789") != std::string_view::npos &&
         text.find_first_not_of("0123456789 .,+-/") == std::string_view::npos;
}

}  // namespace

std::string FieldText(std::string_view utf8, TextChanges& changes) {
  std::string text;
  platform::AppendCodePageFromUtf8(text, utf8);
  const auto marks = [](std::string_view of) { return std::count(of.begin(), of.end(), '?'); };
  changes.letters += static_cast<std::uint64_t>(marks(text) - marks(utf8));
  return Cleaned(std::move(text), changes);
}

std::string HeadingText(std::string_view utf8, TextChanges& changes) {
  std::string text;
  while (!utf8.empty()) {
    const char32_t letter = platform::TakeCodePoint(utf8);
    const std::string_view plain = PlainLetters(letter);
    if (plain.empty()) ++changes.letters;
    text += plain.empty() ? "?" : plain;
  }
  return Cleaned(Upper(text), changes);
}

std::string NoteText(std::string_view utf8, TextChanges& changes) {
  std::string text = FieldText(utf8, changes);
  if (!LooksLikeANumber(text)) return text;
  ++changes.numericNotes;
  return "COD " + text;
}

}  // namespace dat
