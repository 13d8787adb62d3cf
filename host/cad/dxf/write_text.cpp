#include "host/cad/dxf/write_text.h"

#include <algorithm>
#include <array>

#include "platform/code_page.h"

namespace dxf_writer {
namespace {

enum class Form { kLine, kMultiLine };

// No line of the file is longer; readers may have room for 255 bytes.
constexpr std::size_t kLongestLine = 250;
// From here on a line may end, when no blank is lost at its end.
constexpr std::size_t kLongLine = 200;
// The most bytes that one character becomes: two escapes and the backslash before them.
constexpr std::size_t kLongestCharacter = 16;

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
void AppendBackslash(std::string& bytes, std::string_view& utf8, Form form) {
  bytes += form == Form::kMultiLine ? "\\\\" : "\\";
  if (!utf8.starts_with("U+") && !utf8.starts_with("M+")) return;
  AppendEscape(bytes, static_cast<char32_t>(utf8.front()));
  utf8.remove_prefix(1);
}

void AppendCharacter(std::string& bytes, std::string_view& utf8, Form form) {
  const char c = utf8.front();
  if (static_cast<unsigned char>(c) >= 0x80) {
    AppendBeyondAscii(bytes, utf8);
    return;
  }
  utf8.remove_prefix(1);
  if (c < 0x20) {
    bytes += '^';
    bytes += static_cast<char>(c + 0x40);
  } else if (c == '^') {
    bytes += "^ ";
  } else if (c == '\\') {
    AppendBackslash(bytes, utf8, form);
  } else if (c == '%' && utf8.starts_with('%')) {
    bytes += "%%%";  // two of them would start a code, and three are one
  } else {
    if (form == Form::kMultiLine && (c == '{' || c == '}')) bytes += '\\';
    bytes += c;
  }
}

// All but the last line of a multi-line text have code 3: each is the last until it is full.
class MultiLines {
 public:
  explicit MultiLines(std::string& bytes) : bytes_(bytes) { Begin(); }

  void Append(std::string_view utf8) {
    while (!utf8.empty()) {
      if (IsFullBefore(utf8.front())) NextLine();
      AppendCharacter(bytes_, utf8, Form::kMultiLine);
    }
  }
  void AppendBreak() {
    if (IsFullBefore('\\')) NextLine();
    bytes_ += "\\P";
  }
  void End() { bytes_ += '\n'; }

 private:
  void Begin() {
    code_ = bytes_.size();
    bytes_ += "1\n";
    start_ = bytes_.size();
  }
  void NextLine() {
    End();
    bytes_[code_] = '3';
    Begin();
  }
  bool IsFullBefore(char next) const {
    const std::size_t length = bytes_.size() - start_;
    if (length + kLongestCharacter > kLongestLine) return true;
    return length > kLongLine && next != ' ' && bytes_.back() != ' ';
  }

  std::string& bytes_;
  std::size_t code_ = 0;
  std::size_t start_ = 0;
};

}  // namespace

void AppendText(std::string& bytes, std::string_view utf8) {
  if (std::all_of(utf8.begin(), utf8.end(), IsItself)) {
    bytes += utf8;
    return;
  }
  while (!utf8.empty()) AppendCharacter(bytes, utf8, Form::kLine);
}

std::string TextOf(std::string_view utf8) {
  std::string bytes;
  AppendText(bytes, utf8);
  return bytes;
}

void AppendMultiLineText(std::string& bytes, std::string_view utf8) {
  MultiLines lines(bytes);
  LineSplitter splitter(utf8);
  std::string_view line;
  for (bool isFirst = true; splitter.Next(line); isFirst = false) {
    if (!isFirst) lines.AppendBreak();
    lines.Append(line);
  }
  lines.End();
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

}  // namespace dxf_writer
