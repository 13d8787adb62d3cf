// The one home of conversions between numbers and text. Nothing here looks at the process locale.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace platform {

/// Appends `value` as printf("%.*f") of the C locale writes it, infinities and NaN included.
/// `decimals` is held within 0..40.
void AppendFixed(std::string& text, double value, int decimals);

/// Appends the shortest decimal text that reads back to the same double. `value` must be finite.
void AppendShortest(std::string& text, double value);

void AppendWhole(std::string& text, std::int64_t value);

/// The longest prefix that is a decimal number (sign, digits, "." or "," as decimal separator,
/// exponent), after leading blanks. No such prefix: 0. Too large for a double: `beyondRange`,
/// whatever the sign; too small: 0. "inf", "nan" and hexadecimal are no numbers.
double ParseDecimalPrefix(std::string_view text, double beyondRange);

/// The whole text as a decimal number with "." or "," as decimal separator, nothing else around it.
/// Nothing when it is none, or too large for a double.
std::optional<double> ParseDecimal(std::string_view text);

/// The longest prefix that is a whole number (sign, digits), after leading blanks; held within the
/// range of the type. Nothing when there is none.
std::optional<std::int64_t> ParseWholePrefix(std::string_view text);

/// The whole text as a whole number, nothing else around it.
std::optional<std::int64_t> ParseWhole(std::string_view text);

/// Takes the next number off the front of a list whose numbers stand between blanks and line ends.
/// Nothing, with the text untouched, at its end, and when something else comes next: "inf", "nan",
/// a number with more behind it, one that is too large for a double. "." is the decimal separator.
std::optional<double> TakeDecimal(std::string_view& text);
std::optional<std::int64_t> TakeWhole(std::string_view& text);

/// Whether nothing but blanks and line ends is left.
bool IsBlank(std::string_view text);

}  // namespace platform
