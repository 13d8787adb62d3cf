#include "host/cad/reading/text.h"

#include <algorithm>

#include "host/cad/reading/text_codes.h"
#include "platform/code_page.h"
#include "platform/utf8_check.h"

namespace cad_reader {
namespace {

constexpr std::string_view kFirstUtf8Version = "AC1021";

// ASCII that no code begins with.
bool IsItself(char c) {
  return static_cast<signed char>(c) >= 0 && c != '\\' && c != '^' && c != '%' && c != '{' &&
         c != '}';
}

bool IsUtf8(std::string_view text) {
  platform::Utf8Check check;
  check.Add(text);
  return check.IsUtf8();
}

}  // namespace

void TextDecoder::SetVersion(std::string_view version) {
  if (!version.starts_with("AC10") || version.size() != kFirstUtf8Version.size()) return;
  isUtf8_ = isUtf8_ || version >= kFirstUtf8Version;
}

bool TextDecoder::SetCodePage(std::string_view name) {
  std::optional<CodePage> codePage = CodePageNamed(name);
  if (!codePage) return false;
  codePage_ = std::move(*codePage);
  return true;
}

std::string TextDecoder::Name(std::string_view bytes) {
  return Decode(bytes, &TextDecoder::TakeNameCode);
}
std::string TextDecoder::Line(std::string_view bytes) {
  return Decode(bytes, &TextDecoder::TakeLineCode);
}
std::string TextDecoder::Lines(std::string_view bytes) {
  return Decode(bytes, &TextDecoder::TakeLinesCode);
}

// The bytes become UTF-8 first: in some code pages a backslash may be the second byte of a
// character.
std::string TextDecoder::Decode(std::string_view bytes, Take take) {
  if (std::all_of(bytes.begin(), bytes.end(), IsItself)) return std::string(bytes);
  std::string_view text = Converted(bytes);
  std::string decoded;
  decoded.reserve(text.size());
  while (!text.empty()) {
    if (!IsItself(text.front()) && (this->*take)(text, decoded)) continue;
    decoded += text.front();
    text.remove_prefix(1);
  }
  return decoded;
}

// Some files say to be UTF-8, and are in a code page.
std::string_view TextDecoder::Converted(std::string_view bytes) {
  if (platform::IsAscii(bytes) || (isUtf8_ && IsUtf8(bytes))) return bytes;
  converted_.clear();
  codePage_.AppendUtf8(converted_, bytes);
  return converted_;
}

bool TextDecoder::TakeEscape(std::string_view& text, std::string& to) {
  constexpr std::size_t kSize = 8;  // "\M+1829F"
  if (TakeUnicodeCode(text, to)) return true;
  if (!text.starts_with("\\M+") || text.size() < kSize) return false;
  const auto bytes = HexAt(text, 4, 4);
  if (!bytes || !digitPages_.AppendUtf8(to, text[3], *bytes)) return false;
  text.remove_prefix(kSize);
  return true;
}

bool TextDecoder::TakeNameCode(std::string_view& text, std::string& to) {
  return (hasCaretCodes_ && TakeCaretCode(text, to)) || TakeEscape(text, to);
}
bool TextDecoder::TakeLineCode(std::string_view& text, std::string& to) {
  return TakeNameCode(text, to) || TakePercentCode(text, to);
}
bool TextDecoder::TakeLinesCode(std::string_view& text, std::string& to) {
  return TakeCaretCode(text, to) || TakeLineCode(text, to) || TakeFormatCode(text, to);
}

}  // namespace cad_reader
