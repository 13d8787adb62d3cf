#include "host/cad/writing/text.h"

#include <algorithm>
#include <array>

#include "platform/code_page.h"

namespace cad_writer {
namespace {

bool IsItself(char c) { return c >= 0x20 && c < 0x7F && c != '^' && c != '\\' && c != '%'; }

void AppendEscape(std::string& bytes, char32_t unit) {
  bytes += "\\U+";
  for (int shift = 12; shift >= 0; shift -= 4) bytes += "0123456789ABCDEF"[(unit >> shift) & 0xF];
}

// Escapes have four digits, so what lies beyond is written as the two halves of UTF-16.
void AppendEscapes(std::string& bytes, char32_t codePoint) {
  if (codePoint < 0x10000) {
    AppendEscape(bytes, codePoint);
    return;
  }
  AppendEscape(bytes, 0xD800 + ((codePoint - 0x10000) >> 10));
  AppendEscape(bytes, 0xDC00 + ((codePoint - 0x10000) & 0x3FF));
}

// The bytes that the code page does not assign are no characters to other programs.
bool IsUnassigned(char32_t codePoint) { return codePoint >= 0x80 && codePoint < 0xA0; }

void AppendBeyondAscii(std::string& bytes, std::string_view& utf8) {
  const std::string_view before = utf8;
  const char32_t codePoint = platform::TakeCodePoint(utf8);
  const std::size_t size = bytes.size();
  platform::AppendCodePageFromUtf8(bytes, before.substr(0, before.size() - utf8.size()));
  if (bytes.back() != '?' && !IsUnassigned(codePoint)) return;
  bytes.resize(size);
  AppendEscapes(bytes, codePoint);
}

// A backslash before "U+" or "M+" would start an escape, so there the letter is written as one.
void AppendBackslash(std::string& bytes, std::string_view& utf8, TextForm form) {
  bytes += form == TextForm::kMultiLine ? "\\\\" : "\\";
  if (!utf8.starts_with("U+") && !utf8.starts_with("M+")) return;
  AppendEscape(bytes, static_cast<char32_t>(utf8.front()));
  utf8.remove_prefix(1);
}

}  // namespace

void AppendCharacter(std::string& bytes, std::string_view& utf8, TextForm form) {
  const char c = utf8.front();
  if (static_cast<unsigned char>(c) >= 0x80) {
    AppendBeyondAscii(bytes, utf8);
    return;
  }
  utf8.remove_prefix(1);
  const bool hasCarets = form != TextForm::kPlain;
  if (c < 0x20 && hasCarets) {
    bytes += '^';
    bytes += static_cast<char>(c + 0x40);
  } else if (c < 0x20) {
    AppendEscape(bytes, static_cast<char32_t>(c));
  } else if (c == '^' && hasCarets) {
    bytes += "^ ";
  } else if (c == '\\') {
    AppendBackslash(bytes, utf8, form);
  } else if (c == '%' && hasCarets && utf8.starts_with('%')) {
    bytes += "%%%";  // two of them would start a code, and three are one
  } else {
    if (form == TextForm::kMultiLine && (c == '{' || c == '}')) bytes += '\\';
    bytes += c;
  }
}

void AppendText(std::string& bytes, std::string_view utf8, TextForm form) {
  if (std::all_of(utf8.begin(), utf8.end(), IsItself)) {
    bytes += utf8;
    return;
  }
  while (!utf8.empty()) AppendCharacter(bytes, utf8, form);
}

bool LineSplitter::Next(std::string_view& line) {
  if (isDone_) return false;
  const std::size_t end = rest_.find('\n');
  isDone_ = end == std::string_view::npos;
  line = rest_.substr(0, end);
  if (!isDone_) rest_.remove_prefix(end + 1);
  if (line.ends_with('\r')) line.remove_suffix(1);
  return true;
}

}  // namespace cad_writer
