// Numbers as text and back, as the host writes and reads them.
#include "services/number_text.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cmath>
#include <cstdio>
#include <limits>

#include "model/undefined.h"
#include "support/c_locale.h"
#include "support/random.h"

namespace {

using tdk::WString;

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

std::string Text(double value, int width, int decimals) {
  return StringDaDouble(value, width, decimals).ToUtf8();
}

std::string CText(double value, int width, int decimals) {
  return CStringDaDouble(value, width, decimals).ToUtf8();
}

std::string WithZeros(double value, int digits) {
  return StringDaDoubleConZeri(value, digits).ToUtf8();
}

// 1.7e+200 in full.
std::string UndefinedInFull(int decimals) {
  const CLocale locale;
  std::string text(400, '\0');
  text.resize(static_cast<std::size_t>(
      std::snprintf(text.data(), text.size(), "%.*f", decimals, UndefinedValue)));
  return text;
}

TEST(StringDaDouble, WritesFixedNotationWithItsDecimals) {
  EXPECT_EQ(Text(1.5, 0, 3), "1.500");
  EXPECT_EQ(Text(-12.345678, 0, 4), "-12.3457");
  EXPECT_EQ(Text(1e15, 0, 1), "1000000000000000.0");
  EXPECT_EQ(Text(1013.4, 0, 0), "1013");
}

TEST(StringDaDouble, RoundsAsTheCLibraryDoes) {
  EXPECT_EQ(Text(0.125, 0, 2), "0.12");
  EXPECT_EQ(Text(0.375, 0, 2), "0.38");
  EXPECT_EQ(Text(2.5, 0, 0), "2");
  EXPECT_EQ(Text(0.9996, 0, 3), "1.000");
}

TEST(StringDaDouble, GivesNoTextForAnUndefinedValue) {
  for (const double value : {UndefinedValue, 8.5e199, 1e308, kInfinity, -kInfinity, kNaN}) {
    EXPECT_EQ(Text(value, 0, 3), "") << value;
    EXPECT_EQ(Text(value, 12, 3), "") << value;
  }
}

TEST(StringDaDouble, WritesTheLargestDefinedValue) {
  EXPECT_EQ(Text(std::nextafter(8.5e199, 0), 0, 1).size(), 202U);
}

TEST(StringDaDouble, FillsTheIntegerPartWithBlanks) {
  EXPECT_EQ(Text(1.5, 5, 2), "    1.50");
  EXPECT_EQ(Text(-1.5, 5, 2), "   -1.50");
  EXPECT_EQ(Text(42, 4, 0), "  42");
}

TEST(StringDaDouble, CutsNothingThatIsWiderThanItsWidth) {
  EXPECT_EQ(Text(12345.6, 3, 1), "12345.6");
  EXPECT_EQ(Text(123, 3, 0), "123");
  EXPECT_EQ(Text(1.5, -4, 1), "1.5");
}

TEST(StringDaDouble, WritesNoMinusBeforeZeros) {
  EXPECT_EQ(Text(-0.0, 0, 2), "0.00");
  EXPECT_EQ(Text(-0.0004, 0, 3), "0.000");
  EXPECT_EQ(Text(-0.4, 0, 0), "0");
  EXPECT_EQ(Text(-0.0006, 0, 3), "-0.001");
  EXPECT_EQ(Text(-0.0004, 3, 3), "  0.000");
}

TEST(CStringDaDouble, WritesDefinedValuesAsStringDaDoubleDoes) {
  Random random;
  for (int i = 0; i < 10'000; ++i) {
    const double value = random.Real(-1e7, 1e7);
    const int width = random.Whole(0, 12);
    const int decimals = random.Whole(0, 8);
    ASSERT_EQ(CText(value, width, decimals), Text(value, width, decimals)) << value;
  }
}

TEST(CStringDaDouble, WritesAnUndefinedValueInFull) {
  EXPECT_EQ(CText(UndefinedValue, 0, 3), UndefinedInFull(3));
  EXPECT_EQ(CText(UndefinedValue, 0, 3).find('.'), 201U);
  EXPECT_EQ(CText(UndefinedValue, 0, 0).size(), 201U);
}

TEST(CStringDaDouble, WritesWhatIsNoFiniteNumberAsTheUndefinedValue) {
  for (const double value : {kInfinity, -kInfinity, kNaN}) {
    EXPECT_EQ(CText(value, 0, 3), UndefinedInFull(3));
  }
}

TEST(CStringDaDouble, WritesAnUndefinedValueThatReadsBackAsUndefined) {
  EXPECT_FALSE(IsDefined(DoubleDaCString(CText(UndefinedValue, 0, 3))));
}

TEST(CStringDaDouble, AppendsBehindTheTextThatIsThere) {
  std::string text = "-0.00|";
  AppendCStringDaDouble(text, -0.001, 2);
  AppendCStringDaDouble(text, -1.5, 1);
  EXPECT_EQ(text, "-0.00|0.00-1.5");
}

TEST(StringDaDoubleConZeri, FillsTheNearestWholeNumberWithZeros) {
  EXPECT_EQ(WithZeros(7, 2), "07");
  EXPECT_EQ(WithZeros(6.6, 3), "007");
  EXPECT_EQ(WithZeros(7.4, 2), "07");
  EXPECT_EQ(WithZeros(0, 2), "00");
}

TEST(StringDaDoubleConZeri, CutsNothingThatHasMoreDigits) {
  EXPECT_EQ(WithZeros(2024, 2), "2024");
  EXPECT_EQ(WithZeros(99.7, 2), "100");
  EXPECT_EQ(WithZeros(7, 0), "7");
  EXPECT_EQ(WithZeros(7, -3), "7");
}

TEST(StringDaDoubleConZeri, PutsTheSignBeforeTheZeros) {
  EXPECT_EQ(WithZeros(-7, 3), "-007");
  EXPECT_EQ(WithZeros(-0.2, 2), "00");
}

TEST(StringDaDoubleConZeri, GivesNoTextForAnUndefinedValue) {
  EXPECT_EQ(WithZeros(UndefinedValue, 2), "");
  EXPECT_EQ(WithZeros(kNaN, 2), "");
}

TEST(DoubleDaString, ReadsTheLongestPrefixThatIsANumber) {
  EXPECT_EQ(DoubleDaString("12.5"), 12.5);
  EXPECT_EQ(DoubleDaString("-12.5e1 m"), -125);
  EXPECT_EQ(DoubleDaString("12.5.6"), 12.5);
}

TEST(DoubleDaString, TrimsBlanks) {
  EXPECT_EQ(DoubleDaString("   12.5   "), 12.5);
  EXPECT_EQ(DoubleDaCString("  12.5 "), 12.5);
}

TEST(DoubleDaString, TakesACommaForThePoint) {
  EXPECT_EQ(DoubleDaString("12,5"), 12.5);
  EXPECT_EQ(DoubleDaCString("-0,25"), -0.25);
}

TEST(DoubleDaString, GivesZeroWhereThereIsNoNumber) {
  for (const char* text : {"", "  ", "abc", "-", ".", "inf", "nan", "-inf", "infinity", "NaN"}) {
    EXPECT_EQ(DoubleDaString(text), 0) << text;
    EXPECT_EQ(DoubleDaCString(text), 0) << text;
  }
  EXPECT_EQ(DoubleDaString("0x10"), 0);
}

TEST(DoubleDaString, GivesTheUndefinedValueBeyondTheRangeOfADouble) {
  EXPECT_EQ(DoubleDaString("1e400"), UndefinedValue);
  EXPECT_EQ(DoubleDaCString("-1e400"), UndefinedValue);
  EXPECT_EQ(DoubleDaCString("1e-400"), 0);
}

TEST(DoubleDaString, ReadsBackWhatWasWritten) {
  Random random;
  for (int i = 0; i < 100'000; ++i) {
    const double value = random.Whole(-2'000'000'000, 2'000'000'000) / 1000.0;
    ASSERT_EQ(DoubleDaString(StringDaDouble(value, random.Whole(0, 12), 3)), value);
  }
}

TEST(ShortDaString32000, ReadsTheLongestPrefixThatIsAWholeNumber) {
  EXPECT_EQ(ShortDaString32000("42"), 42);
  EXPECT_EQ(ShortDaString32000(" -42.9"), -42);
  EXPECT_EQ(ShortDaString32000("7 m"), 7);
}

TEST(ShortDaString32000, HoldsTheNumberWithinItsRange) {
  EXPECT_EQ(ShortDaString32000("32000"), 32000);
  EXPECT_EQ(ShortDaString32000("32001"), 32000);
  EXPECT_EQ(ShortDaString32000("-32000"), -32000);
  EXPECT_EQ(ShortDaString32000("-32768"), -32000);
  EXPECT_EQ(ShortDaString32000("99999999999999999999999"), 32000);
  EXPECT_EQ(ShortDaString32000("-99999999999999999999999"), -32000);
}

TEST(ShortDaString32000, GivesZeroWhereThereIsNoNumber) {
  for (const char* text : {"", " ", "x", "-", ".5"}) EXPECT_EQ(ShortDaString32000(text), 0) << text;
}

}  // namespace
