// Numbers as text and back, as the host writes and reads them. The decimal separator is always ".".
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "tdk/wstring.h"

/// Fixed notation with `decimals` decimals; the integer part is filled with blanks on the left to
/// `width` characters (0: not at all). A result that is all zeros carries no minus sign. An
/// undefined value gives empty text.
tdk::WString StringDaDouble(double value, int width, int decimals);

/// The same, but an undefined value is written too, in full: 1.7e+200 gives 201 digits before the
/// point. What is no finite number is written as the undefined value.
tdk::WString CStringDaDouble(double value, int width, int decimals);

/// CStringDaDouble with width 0, appended to 8-bit or UTF-8 text.
void AppendCStringDaDouble(std::string& text, double value, int decimals);

/// The nearest whole number, filled with zeros on the left to `digits`. An undefined value gives
/// empty text.
tdk::WString StringDaDoubleConZeri(double value, int digits);

/// The number a text begins with, after blanks: sign, digits, "." or "," as decimal separator,
/// exponent. No number: 0. Beyond the range of a double: 1.7e+200.
double DoubleDaString(const tdk::WString& text);
double DoubleDaCString(std::string_view text);

/// The whole number a text begins with, held within -32000..32000; none: 0.
std::int16_t ShortDaString32000(const tdk::WString& text);
