// Texts in the character sets of other programs.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace platform {

/// Converts from one character set to UTF-8. Bytes that are no character of it become U+FFFD.
class CharacterSet {
 public:
  /// By the name under which the system's converter (iconv) knows it; nothing when it knows none.
  static std::optional<CharacterSet> Open(const std::string& name);

  void AppendUtf8(std::string& utf8, std::string_view bytes) const;

 private:
  struct Closer {
    void operator()(void* converter) const;
  };
  std::unique_ptr<void, Closer> converter_;
};

/// Whether all of a text is UTF-8.
bool IsUtf8(std::string_view text);

/// The longest beginning of UTF-8 text with at most so many bytes that ends with a whole character.
std::string_view CutUtf8(std::string_view utf8, std::size_t bytes);

/// The same with at most so many characters.
std::string_view FirstCharacters(std::string_view utf8, std::size_t characters);

}  // namespace platform
