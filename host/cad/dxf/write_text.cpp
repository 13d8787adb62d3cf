#include "host/cad/dxf/write_text.h"

namespace dxf_writer {
namespace {

// No line of the file is longer; readers may have room for 255 bytes.
constexpr std::size_t kLongestLine = 250;
// From here on a line may end, when no blank is lost at its end.
constexpr std::size_t kLongLine = 200;
// The most bytes that one character becomes: two escapes and the backslash before them.
constexpr std::size_t kLongestCharacter = 16;

// All but the last line of a multi-line text have code 3: each is the last until it is full.
class MultiLines {
 public:
  explicit MultiLines(std::string& bytes) : bytes_(bytes) { Begin(); }

  void Append(std::string_view utf8) {
    while (!utf8.empty()) {
      if (IsFullBefore(utf8.front())) NextLine();
      AppendCharacter(bytes_, utf8, TextForm::kMultiLine);
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

}  // namespace dxf_writer
