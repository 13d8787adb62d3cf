// Texts as the file holds them: in its code page, without control characters.
#pragma once

#include <string>
#include <string_view>

namespace dxf_writer {

/// Appends a UTF-8 text in Windows-1252. A character that the code page lacks becomes "\U+XXXX"
/// (two of them beyond U+FFFF), a control character "^J" and the like, a caret "^ ".
void AppendText(std::string& bytes, std::string_view utf8);

std::string TextOf(std::string_view utf8);

/// Appends the pairs (codes 3 and 1) of a multi-line text, in which line feeds part the lines.
void AppendMultiLineText(std::string& bytes, std::string_view utf8);

/// Parts a text at its line feeds, before which a carriage return is none of the line.
class LineSplitter {
 public:
  explicit LineSplitter(std::string_view text) : rest_(text) {}
  /// False when there are no more.
  bool Next(std::string_view& line);

 private:
  std::string_view rest_;
  bool isDone_ = false;
};

}  // namespace dxf_writer
