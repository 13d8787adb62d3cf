// The texts of a drawing file as UTF-8.
#pragma once

#include <string>
#include <string_view>

#include "host/cad/reading/code_page.h"

namespace cad_reader {

class TextDecoder {
 public:
  /// As the header names it ("AC1015"): from AC1021 on, texts are UTF-8.
  void SetVersion(std::string_view version);
  /// False when the code page is not known; it is Windows-1252 then, as where none is named.
  bool SetCodePage(std::string_view name);
  void SetUtf8() { isUtf8_ = true; }
  /// In lines and names a caret is itself, and no code begins with it.
  void SetPlainCarets() { hasCaretCodes_ = false; }

  /// A name, in which only the codes of single characters count ("\U+00E0", "^J").
  std::string Name(std::string_view bytes);
  /// A line of text, which may also have codes as "%%d".
  std::string Line(std::string_view bytes);
  /// A text of several lines: what is said in it of fonts, sizes and the like is taken off.
  std::string Lines(std::string_view bytes);

 private:
  // Takes the code that the text begins with; false when it begins with none.
  using Take = bool (TextDecoder::*)(std::string_view& text, std::string& to);

  std::string Decode(std::string_view bytes, Take take);
  std::string_view Converted(std::string_view bytes);
  bool TakeNameCode(std::string_view& text, std::string& to);
  bool TakeLineCode(std::string_view& text, std::string& to);
  bool TakeLinesCode(std::string_view& text, std::string& to);
  bool TakeEscape(std::string_view& text, std::string& to);

  CodePage codePage_;
  DigitCodePages digitPages_;
  bool isUtf8_ = false;
  bool hasCaretCodes_ = true;
  std::string converted_;
};

}  // namespace cad_reader
