// The host's string type.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tdk {

/// A text of the host: every name, path and message. It holds any Unicode text and keeps it as
/// UTF-8, so that the texts of a job stay small and reach a file without a detour. Bytes that are
/// no UTF-8 (a path may hold them) are kept as they are.
class WString {
 public:
  WString() = default;
  // Texts are written so, which makes these two implicit.
  WString(const char* utf8) : utf8_(utf8) {}  // NOLINT(google-explicit-constructor)
  WString(const wchar_t* wide);               // NOLINT(google-explicit-constructor)
  explicit WString(std::string utf8) : utf8_(std::move(utf8)) {}
  explicit WString(std::string_view utf8) : utf8_(utf8) {}

  const std::string& ToUtf8() const { return utf8_; }
  /// As 32-bit characters; a byte that is no UTF-8 becomes U+FFFD.
  std::wstring ToWide() const;

  bool IsEmpty() const { return utf8_.empty(); }
  /// Number of characters (not of bytes).
  std::size_t Length() const;

  WString& operator+=(const WString& more) {
    utf8_ += more.utf8_;
    return *this;
  }
  friend WString operator+(WString first, const WString& second) { return first += second; }
  friend bool operator==(const WString&, const WString&) = default;
  friend auto operator<=>(const WString&, const WString&) = default;

 private:
  std::string utf8_;
};

/// 8-bit text in a code page as a host string. `codePage` 0 is the system's own, Windows-1252, and
/// the only one.
WString ConvertString(std::string_view text, int codePage);

/// The name of the host program.
WString GetPrgName();

}  // namespace tdk
