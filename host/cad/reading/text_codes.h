// The codes in the texts of a drawing file, which stand for characters or for how the text looks.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace cad_reader {

// Each takes a code off the front of `text`, appends what it stands for to `to`, and is false, with
// nothing changed, when the text begins with no such code.

/// "^J" is a control character, "^ " a caret.
bool TakeCaretCode(std::string_view& text, std::string& to);
/// "%%d", "%%p", "%%c", "%%065", and those that switch lines under or over the text.
bool TakePercentCode(std::string_view& text, std::string& to);
/// "\U+00E0", of which two may be the halves of one character.
bool TakeUnicodeCode(std::string_view& text, std::string& to);
/// What only texts of several lines have: "\P", "\H2.5;", "{", and so on.
bool TakeFormatCode(std::string_view& text, std::string& to);

/// That many hexadecimal digits from a position on.
std::optional<unsigned> HexAt(std::string_view text, std::size_t at, std::size_t digits);

}  // namespace cad_reader
