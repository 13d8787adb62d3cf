// Texts as the file holds them: in its code page, without control characters.
#pragma once

#include <string>
#include <string_view>

namespace cad_writer {

/// How a file writes control characters and what would look like something else.
enum class TextForm {
  kPlain,     ///< control characters as "\U+XXXX"
  kLine,      ///< control characters as "^J", a caret as "^ "
  kMultiLine  ///< the same, with a backslash before braces and backslashes
};

/// Appends a UTF-8 text in Windows-1252. A character that the code page lacks becomes "\U+XXXX"
/// (two of them beyond U+FFFF).
void AppendText(std::string& bytes, std::string_view utf8, TextForm form);
/// Takes one character off the front of the text, which must not be empty, and appends it so. It
/// becomes 16 bytes at most.
void AppendCharacter(std::string& bytes, std::string_view& utf8, TextForm form);

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

}  // namespace cad_writer
