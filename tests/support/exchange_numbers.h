// Numbers as the tests expect them in a file, straight from the standard library.
#pragma once

#include <array>
#include <charconv>
#include <string>
#include <string_view>

namespace exchange_test {

/// `value` in fixed notation with that many decimals.
inline std::string Fixed(double value, int decimals) {
  std::array<char, 400> text{};
  const auto end = std::to_chars(text.data(), text.data() + text.size(), value,
                                 std::chars_format::fixed, decimals);
  return {text.data(), end.ptr};
}

/// What remains of `value` when it is written with that many decimals and read again.
inline double Rounded(double value, int decimals) {
  const std::string text = Fixed(value, decimals);
  double result = 0;
  std::from_chars(text.data(), text.data() + text.size(), result);
  return result;
}

}  // namespace exchange_test
