// Numbers as text and back. The quick ways of the code are compared with the C library, in the C
// locale.
#include "platform/numbers.h"

#include <gtest/gtest.h>
#include <stdlib.h>

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <limits>

#include "support/c_locale.h"
#include "support/random.h"

namespace {

using platform::ParseDecimalPrefix;
using platform::ParseWhole;
using platform::ParseWholePrefix;

constexpr double kBeyond = 1.7e+200;
constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr std::int64_t kLeast = std::numeric_limits<std::int64_t>::min();
constexpr std::int64_t kMost = std::numeric_limits<std::int64_t>::max();

std::string Fixed(double value, int decimals) {
  std::string text;
  platform::AppendFixed(text, value, decimals);
  return text;
}

std::string Shortest(double value) {
  std::string text;
  platform::AppendShortest(text, value);
  return text;
}

std::string WholeText(std::int64_t value) {
  std::string text;
  platform::AppendWhole(text, value);
  return text;
}

double Parsed(std::string_view text) { return ParseDecimalPrefix(text, kBeyond); }

// The text of the C library; needs a CLocale around it.
std::string_view LibraryText(double value, int decimals) {
  static std::array<char, 512> buffer;
  const int length = std::snprintf(buffer.data(), buffer.size(), "%.*f", decimals, value);
  return {buffer.data(), static_cast<std::size_t>(length)};
}

void ExpectFixedAsLibrary(double value, int decimals) {
  const CLocale locale;
  EXPECT_EQ(Fixed(value, decimals), LibraryText(value, decimals)) << decimals << " decimals";
}

// Compares that many numbers, more than a million in all tests; stops at the first that differs.
template <class Next>
void CompareFixed(int count, Next next) {
  const CLocale locale;
  Random random;
  std::string text;
  for (int i = 0; i < count; ++i) {
    const double value = next(random);
    const int decimals = random.Whole(0, 12);
    text.clear();
    platform::AppendFixed(text, value, decimals);
    ASSERT_EQ(text, LibraryText(value, decimals)) << std::hexfloat << value << ' ' << decimals;
  }
}

double RandomSign(Random& random, double value) { return random.OneIn(2) ? value : -value; }

// The value of the C library for the same text: what cannot be in a decimal number ends it before.
double LibraryValue(std::string text, locale_t locale) {
  text.resize(std::min(text.find_first_not_of("0123456789+-.,eE \t"), text.size()));
  std::replace(text.begin(), text.end(), ',', '.');
  const double value = strtod_l(text.c_str(), nullptr, locale);
  return std::isinf(value) ? kBeyond : value;
}

std::string RandomDigits(Random& random) {
  return random.Text("0123456789", random.Whole<std::size_t>(0, random.OneIn(20) ? 40 : 12));
}

std::string RandomNumberText(Random& random) {
  constexpr std::array<const char*, 8> kStarts = {"", "", "", "-", "-", "+", " ", " \t-"};
  constexpr std::array<const char*, 4> kPoints = {".", ".", ",", ""};
  constexpr std::array<const char*, 8> kEnds = {"", "", "", " m", ",5", "x1", "e", "e+"};
  std::string text = kStarts[random.Whole<std::size_t>(0, 7)] + RandomDigits(random);
  text += kPoints[random.Whole<std::size_t>(0, 3)] + RandomDigits(random);
  if (random.OneIn(4)) text += random.Text("eE", 1) + WholeText(random.Whole(-345, 330));
  return text + kEnds[random.Whole<std::size_t>(0, 7)];
}

TEST(Numbers, WritesFieldValuesAsTheCLibraryDoes) {
  CompareFixed(400'000, [](Random& random) { return random.Real(-6'000'000, 6'000'000); });
}

TEST(Numbers, WritesValuesOfAllUsualMagnitudesAsTheCLibraryDoes) {
  CompareFixed(400'000, [](Random& random) {
    return RandomSign(random, std::ldexp(random.Real(1, 2), random.Whole(-70, 80)));
  });
}

TEST(Numbers, WritesAnyBitPatternAsTheCLibraryDoes) {
  CompareFixed(100'000, [](Random& random) { return std::bit_cast<double>(random.Bits()); });
}

TEST(Numbers, WritesTiesAndTheirNeighboursAsTheCLibraryDoes) {
  CompareFixed(300'000, [](Random& random) {
    const double half = std::ldexp(random.Whole(0, 20'000'000) + 0.5, random.Whole(-12, 0));
    const double next = std::nextafter(half, random.OneIn(2) ? 1e9 : -1e9);
    return RandomSign(random, random.OneIn(2) ? half : next);
  });
}

TEST(Numbers, WritesDecimalTiesAndTheirNeighboursAsTheCLibraryDoes) {
  CompareFixed(300'000, [](Random& random) {
    const double tie =
        (random.Whole(0, 2'000'000'000) * 10.0 + 5) / std::pow(10, random.Whole(1, 13));
    return RandomSign(random, std::nextafter(tie, random.OneIn(3) ? tie : random.Real(-1e9, 1e9)));
  });
}

TEST(Numbers, RoundsAnExactTieToTheEvenDigit) {
  EXPECT_EQ(Fixed(0.5, 0), "0");
  EXPECT_EQ(Fixed(1.5, 0), "2");
  EXPECT_EQ(Fixed(2.5, 0), "2");
  EXPECT_EQ(Fixed(0.125, 2), "0.12");
  EXPECT_EQ(Fixed(0.375, 2), "0.38");
}

TEST(Numbers, RoundsByTheValueHeldAndNotByItsUsualText) {
  EXPECT_EQ(Fixed(1.0005, 3), "1.000");  // the double lies below
  EXPECT_EQ(Fixed(1.005, 2), "1.00");
  EXPECT_EQ(Fixed(8.345, 2), "8.35");  // and this one above
}

TEST(Numbers, WritesKnownTiesAndTheirNeighboursAsTheCLibraryDoes) {
  for (const double tie :
       {0.5, 1.5, 2.5, 0.125, 0.0625, 1.0005, 2.675, 1e15 + 0.5, 4503599627370495.5}) {
    for (int decimals = 0; decimals <= 12; ++decimals) {
      ExpectFixedAsLibrary(tie, decimals);
      ExpectFixedAsLibrary(-std::nextafter(tie, 0), decimals);
      ExpectFixedAsLibrary(std::nextafter(tie, kInfinity), decimals);
    }
  }
}

TEST(Numbers, WritesTheEndsOfTheRangeAsTheCLibraryDoes) {
  using Limits = std::numeric_limits<double>;
  for (const double value : {0.0, -0.0, Limits::min(), Limits::denorm_min(), Limits::max(),
                             Limits::lowest(), 0x1p50, 0x1p53, 0x1p63, 0x1p64, 1.7e+200}) {
    for (const int decimals : {0, 1, 3, 12, 18, 19, 22, 40}) ExpectFixedAsLibrary(value, decimals);
  }
}

TEST(Numbers, WritesInfinitiesAndNaNAsTheCLibraryDoes) {
  ExpectFixedAsLibrary(kInfinity, 3);
  ExpectFixedAsLibrary(-kInfinity, 0);
  ExpectFixedAsLibrary(kNaN, 3);
}

TEST(Numbers, HoldsTheCountOfDecimalsWithinZeroAndForty) {
  EXPECT_EQ(Fixed(1.25, -1), "1");
  EXPECT_EQ(Fixed(1.25, 1000), Fixed(1.25, 40));
  EXPECT_EQ(Fixed(1.25, 40).size(), 42U);
}

TEST(Numbers, AppendsBehindTheTextThatIsThere) {
  std::string text = "x=";
  platform::AppendFixed(text, -1.5, 2);
  platform::AppendShortest(text, 0.1);
  platform::AppendWhole(text, -7);
  EXPECT_EQ(text, "x=-1.500.1-7");
}

TEST(Numbers, WritesTheShortestTextThatReadsBack) {
  EXPECT_EQ(Shortest(0.1), "0.1");
  EXPECT_EQ(Shortest(-3), "-3");
  EXPECT_EQ(Shortest(1.7e+200), "1.7e+200");
}

TEST(Numbers, ReadsBackTheShortestTextOfAnyFiniteNumber) {
  Random random;
  for (int i = 0; i < 200'000; ++i) {
    const auto value = std::bit_cast<double>(random.Bits());
    if (!std::isfinite(value)) continue;
    ASSERT_EQ(Parsed(Shortest(value)), value) << std::hexfloat << value;
  }
}

void ExpectShortestAsLibrary(double value) {
  std::array<char, 32> buffer;
  const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value).ptr;
  ASSERT_EQ(Shortest(value), std::string(buffer.data(), end)) << std::hexfloat << value;
}

TEST(Numbers, WritesTheShortestTextThatTheLibraryWrites) {
  Random random;
  for (int i = 0; i < 300'000; ++i) {
    const int decimals = random.Whole(0, 6);
    const auto units = random.Whole<std::int64_t>(-9'999'999'999, 9'999'999'999);
    const double value =
        static_cast<double>(units >> random.Whole(0, 33)) / std::pow(10.0, decimals);
    for (const double each : {value, std::nextafter(value, 1e300), value * 1e7, value + 0.4}) {
      ExpectShortestAsLibrary(each);
    }
  }
  for (int units = -20'000; units <= 20'000; ++units) ExpectShortestAsLibrary(units / 1e4);
  for (const double edge : {1e11, 1e11 - 0.5, 99'999'999'999.9999, 1e-3, 0.5e-3, kInfinity, -0.0}) {
    ExpectShortestAsLibrary(edge);
    ExpectShortestAsLibrary(-edge);
  }
}

TEST(Numbers, WritesWholeNumbersOverTheirWholeRange) {
  EXPECT_EQ(WholeText(0), "0");
  EXPECT_EQ(WholeText(kLeast), "-9223372036854775808");
  EXPECT_EQ(WholeText(kMost), "9223372036854775807");
}

TEST(Numbers, ReadsNumbersInAllSpellingsAsTheCLibraryDoes) {
  const CLocale locale;
  Random random;
  for (int i = 0; i < 400'000; ++i) {
    const std::string text = RandomNumberText(random);
    ASSERT_EQ(Parsed(text), LibraryValue(text, locale.Get())) << '"' << text << '"';
  }
}

TEST(Numbers, ReadsJumbledTextsAsTheCLibraryDoes) {
  const CLocale locale;
  Random random;
  for (int i = 0; i < 600'000; ++i) {
    const std::string text =
        random.Text("0011234567899+-..,eE xin", random.Whole<std::size_t>(0, 14));
    ASSERT_EQ(Parsed(text), LibraryValue(text, locale.Get())) << '"' << text << '"';
  }
}

TEST(Numbers, ReadsTextsHalfWayBetweenTwoDoublesAsTheCLibraryDoes) {
  const CLocale locale;
  Random random;
  for (int i = 0; i < 20'000; ++i) {
    const auto whole = random.Whole<std::uint64_t>(1ULL << 53, 1ULL << 60);
    const double value = static_cast<double>(whole) / 8;
    const double above = std::nextafter(value, kInfinity);
    std::array<char, 128> text;
    std::snprintf(text.data(), text.size(), "%.30Lf",
                  (static_cast<long double>(value) + above) / 2);
    ASSERT_EQ(Parsed(text.data()), LibraryValue(text.data(), locale.Get())) << text.data();
  }
}

TEST(Numbers, ReadsPointAndCommaAlike) {
  EXPECT_EQ(Parsed("1.75"), 1.75);
  EXPECT_EQ(Parsed("1,75"), 1.75);
  EXPECT_EQ(Parsed("-,5"), -0.5);
  EXPECT_EQ(Parsed("5,"), 5);
  EXPECT_EQ(Parsed("1,75e2"), 175);
}

TEST(Numbers, EndsANumberAtItsSecondSeparator) {
  EXPECT_EQ(Parsed("1,234.5"), 1.234);
  EXPECT_EQ(Parsed("1.234,5"), 1.234);
  EXPECT_EQ(Parsed("1..5"), 1);
}

TEST(Numbers, TakesTheLongestPrefixThatIsANumber) {
  EXPECT_EQ(Parsed("12.5m"), 12.5);
  EXPECT_EQ(Parsed("12.5 13"), 12.5);
  EXPECT_EQ(Parsed("12e"), 12);
  EXPECT_EQ(Parsed("12e+"), 12);
  EXPECT_EQ(Parsed("12e+x"), 12);
  EXPECT_EQ(Parsed("12e2x"), 1200);
}

TEST(Numbers, SkipsBlanksInFront) {
  EXPECT_EQ(Parsed("   7.5"), 7.5);
  EXPECT_EQ(Parsed("\t -7.5  "), -7.5);
  EXPECT_EQ(Parsed("- 7.5"), 0);
}

TEST(Numbers, ReadsBothSigns) {
  EXPECT_EQ(Parsed("+7.5"), 7.5);
  EXPECT_EQ(Parsed("+7.5e-1"), 0.75);
  EXPECT_EQ(Parsed("-7.5"), -7.5);
  EXPECT_EQ(Parsed("+-7.5"), 0);
}

TEST(Numbers, ReadsZeroWhereThereIsNoNumber) {
  for (const char* text : {"", " ", ".", ",", "-", "+", "-.", "e5", ".e5", "abc", "--1", "°"}) {
    EXPECT_EQ(Parsed(text), 0) << text;
  }
}

TEST(Numbers, RefusesInfinitiesAndNaN) {
  for (const char* text : {"inf", "-inf", "+INF", "infinity", "nan", "-NaN", "nan(1)"}) {
    EXPECT_EQ(Parsed(text), 0) << text;
  }
}

TEST(Numbers, TakesTheZeroOfAHexadecimalNumberOnly) {
  EXPECT_EQ(Parsed("0x1F"), 0);
  EXPECT_EQ(Parsed("0X1p3"), 0);
}

TEST(Numbers, ReadsWhatIsTooLargeAsTheValueForIt) {
  EXPECT_EQ(Parsed("1e309"), kBeyond);
  EXPECT_EQ(Parsed("1.8e+308"), kBeyond);
  EXPECT_EQ(Parsed("9e99999999999999999999"), kBeyond);
  EXPECT_EQ(Parsed("0.001e400"), kBeyond);
  EXPECT_EQ(Parsed(std::string(400, '9')), kBeyond);
}

TEST(Numbers, ReadsWhatIsTooLargeAndNegativeAsTheSameValue) {
  EXPECT_EQ(Parsed("-1e309"), kBeyond);
  EXPECT_EQ(Parsed("-" + std::string(400, '9')), kBeyond);
}

TEST(Numbers, ReadsTheLargestNumberAsItIs) {
  EXPECT_EQ(Parsed("1.7976931348623157e308"), std::numeric_limits<double>::max());
  EXPECT_EQ(Parsed("-1,7976931348623157e308"), std::numeric_limits<double>::lowest());
}

TEST(Numbers, ReadsWhatIsTooSmallAsZero) {
  EXPECT_EQ(Parsed("1e-400"), 0);
  EXPECT_EQ(Parsed("-1e-400"), 0);
  EXPECT_EQ(Parsed("1e-99999999999999999999"), 0);
  EXPECT_EQ(Parsed("1000e-500"), 0);
  EXPECT_EQ(Parsed("0." + std::string(400, '0') + "1"), 0);
}

TEST(Numbers, ReadsZerosWithAnyExponentAsZero) {
  EXPECT_EQ(Parsed("0e999"), 0);
  EXPECT_EQ(Parsed("-0.000e-999"), 0);
  EXPECT_EQ(Parsed("0e99999999999999999999"), 0);
}

TEST(Numbers, ReadsTheSmallestNumbersExactly) {
  EXPECT_EQ(Parsed("4.9e-324"), std::numeric_limits<double>::denorm_min());
  EXPECT_EQ(Parsed("2.2250738585072014e-308"), std::numeric_limits<double>::min());
  EXPECT_EQ(Parsed("1e-310"), 1e-310);
}

TEST(Numbers, ReadsVeryLongTexts) {
  const std::string zeros(100'000, '0');
  EXPECT_EQ(Parsed(zeros + "12.5"), 12.5);
  EXPECT_EQ(Parsed("12.5" + zeros), 12.5);
  EXPECT_EQ(Parsed("0." + zeros + "1e100001"), 1);
  EXPECT_EQ(Parsed("1" + zeros + "e-100000"), 1);
  EXPECT_EQ(Parsed("0." + std::string(100'000, '9')), 1);
}

TEST(Numbers, KeepsATextThatIsNotEndedByANul) {
  const std::string_view text("12.34567");
  EXPECT_EQ(Parsed(text.substr(0, 5)), 12.34);
  EXPECT_EQ(Parsed(std::string_view()), 0);
}

TEST(Numbers, TakesTheLongestPrefixThatIsAWholeNumber) {
  EXPECT_EQ(ParseWholePrefix("42"), 42);
  EXPECT_EQ(ParseWholePrefix("-42.9"), -42);
  EXPECT_EQ(ParseWholePrefix("+7x"), 7);
  EXPECT_EQ(ParseWholePrefix("  007"), 7);
}

TEST(Numbers, FindsNoWholeNumberWhereThereIsNone) {
  for (const char* text : {"", " ", "x", "-", "+", "+-1", "-+1", ".5", "- 1"}) {
    EXPECT_EQ(ParseWholePrefix(text), std::nullopt) << text;
  }
}

TEST(Numbers, HoldsAWholeNumberWithinItsType) {
  EXPECT_EQ(ParseWholePrefix("9223372036854775808"), kMost);
  EXPECT_EQ(ParseWholePrefix("+99999999999999999999"), kMost);
  EXPECT_EQ(ParseWholePrefix("-99999999999999999999x"), kLeast);
  EXPECT_EQ(ParseWholePrefix("-9223372036854775808"), kLeast);
}

TEST(Numbers, TakesAWholeTextAsAWholeNumberOrNotAtAll) {
  EXPECT_EQ(ParseWhole("42"), 42);
  EXPECT_EQ(ParseWhole("-42"), -42);
  for (const char* text : {"", "4 2", " 42", "42 ", "42x", "4.2", "99999999999999999999"}) {
    EXPECT_EQ(ParseWhole(text), std::nullopt) << text;
  }
}

}  // namespace
