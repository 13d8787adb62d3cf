// Small letters and capitals of ASCII, whatever the process locale.
#pragma once

#include <algorithm>
#include <string>
#include <string_view>

namespace platform {

constexpr char Small(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }
constexpr char Capital(char c) {
  return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

/// All other bytes stay, those of UTF-8 too.
inline std::string Small(std::string_view text) {
  std::string small(text);
  std::ranges::transform(small, small.begin(), [](char c) { return Small(c); });
  return small;
}
inline std::string Capital(std::string_view text) {
  std::string capitals(text);
  std::ranges::transform(capitals, capitals.begin(), [](char c) { return Capital(c); });
  return capitals;
}

/// Whether two texts differ in letter case only.
inline bool AreSameInAnyLetters(std::string_view a, std::string_view b) {
  return std::ranges::equal(a, b, [](char x, char y) { return Small(x) == Small(y); });
}

}  // namespace platform
