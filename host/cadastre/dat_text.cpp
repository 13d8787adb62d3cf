#include "host/cadastre/dat_text.h"

#include <algorithm>

#include "host/cadastre/plain_letters.h"
#include "platform/code_page.h"
#include "platform/letters.h"

namespace dat {
namespace {

constexpr std::string_view kReportWord = "TECNICA";
constexpr std::string_view kReportWordCut = "TECN.";

// The word marks the report at the end of the file; anywhere before, it would make one there.
std::string WithoutReportWord(const std::string& text, TextChanges& changes) {
  const std::string upper = platform::Capital(text);
  std::string result;
  std::size_t start = 0;
  for (std::size_t at = 0; (at = upper.find(kReportWord, start)) != std::string::npos;) {
    result.append(text, start, at - start).append(kReportWordCut);
    start = at + kReportWord.size();
    ++changes.reportWords;
  }
  return result.append(text, start);
}

bool IsControl(char c) { return static_cast<unsigned char>(c) < ' ' || c == '\x7f'; }

std::string Cleaned(std::string text, TextChanges& changes) {
  for (char& c : text) {
    if (IsControl(c)) c = ' ';
    if (c != '|') continue;
    c = '/';
    ++changes.separators;
  }
  return std::string(Trimmed(WithoutReportWord(text, changes)));
}

bool LooksLikeANumber(std::string_view text) {
  return text.find_first_of("0123456789") != std::string_view::npos &&
         text.find_first_not_of("0123456789 .,+-/") == std::string_view::npos;
}

}  // namespace

std::string_view Trimmed(std::string_view text) {
  const std::size_t first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

std::string FieldText(std::string_view utf8, TextChanges& changes) {
  std::string text;
  platform::AppendCodePageFromUtf8(text, utf8);
  const auto marks = [](std::string_view of) { return std::count(of.begin(), of.end(), '?'); };
  changes.letters += static_cast<std::uint64_t>(marks(text) - marks(utf8));
  return Cleaned(std::move(text), changes);
}

bool IsNameless(std::string_view name) {
  return std::all_of(name.begin(), name.end(), [](char c) { return c == ' ' || IsControl(c); });
}

std::string HeadingText(std::string_view utf8, TextChanges& changes) {
  std::string text;
  while (!utf8.empty()) {
    const char32_t letter = platform::TakeCodePoint(utf8);
    const std::string_view plain = PlainLetters(letter);
    if (plain.empty()) ++changes.letters;
    text += plain.empty() ? "?" : plain;
  }
  return Cleaned(platform::Capital(text), changes);
}

std::string NoteText(std::string_view utf8, TextChanges& changes) {
  std::string text = FieldText(utf8, changes);
  if (!LooksLikeANumber(text)) return text;
  ++changes.numericNotes;
  return "COD " + text;
}

}  // namespace dat
