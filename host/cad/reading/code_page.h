// Text in the code page of a drawing file.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "platform/character_set.h"

namespace cad_reader {

/// Converts from one code page to UTF-8. What it lacks becomes U+FFFD.
class CodePage {
 public:
  /// Windows-1252.
  CodePage() = default;
  /// The one that iconv knows by this name; nothing when it knows none.
  static std::optional<CodePage> Open(const std::string& name);

  void AppendUtf8(std::string& utf8, std::string_view bytes) const;

 private:
  std::optional<platform::CharacterSet> set_;  // none: Windows-1252
};

/// The code page that a file names ("ANSI_1252", "dos850"); nothing when it is not known.
std::optional<CodePage> CodePageNamed(std::string_view name);

/// Code pages by the digit that stands before the bytes of a character in "\M+n....".
class DigitCodePages {
 public:
  /// Appends the character of these two bytes (of one when the first is 0); false when there is no
  /// such code page.
  bool AppendUtf8(std::string& utf8, char digit, unsigned bytes);

 private:
  std::map<char, std::optional<CodePage>> byDigit_;
};

}  // namespace cad_reader
