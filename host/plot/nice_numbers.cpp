#include "host/plot/nice_numbers.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <span>

#include "platform/numbers.h"

namespace plot {
namespace {

// A quotient that should be whole misses it by rounding.
constexpr double kSlack = 1e-9;

// Divided rather than multiplied by 0.1…: 2 / 10 is the double next to 0.2.
double TimesPowerOfTen(double value, int power) {
  return power < 0 ? value / std::pow(10, -power) : value * std::pow(10, power);
}

int PowerOfTenBelow(double value) { return static_cast<int>(std::floor(std::log10(value))); }

// `heads`: ascending, the first is 1.
double AtLeast(double value, std::span<const double> heads) {
  const int power = PowerOfTenBelow(value);
  for (const double head : heads) {
    const double candidate = TimesPowerOfTen(head, power);
    if (candidate >= value * (1 - kSlack)) return candidate;
  }
  return TimesPowerOfTen(1, power + 1);
}

constexpr std::array kNice = {1.0, 2.0, 5.0};
constexpr std::array kScales = {1.0, 1.25, 1.5, 2.0, 2.5, 3.0, 4.0, 5.0, 7.5};
constexpr double kMostContours = 20;
constexpr double kKilometre = 1'000;
constexpr double kLargestWhole = 1e15;

std::string WithoutEmptyDecimals(std::string text) {
  if (text.find('.') == std::string::npos) return text;
  while (text.ends_with('0')) text.pop_back();
  if (text.ends_with('.')) text.pop_back();
  return text;
}

}  // namespace

double NiceAtLeast(double value) { return AtLeast(value, kNice); }

double NiceAtMost(double value) {
  const int power = PowerOfTenBelow(value);
  for (auto head = kNice.rbegin(); head != kNice.rend(); ++head) {
    const double candidate = TimesPowerOfTen(*head, power);
    if (candidate <= value * (1 + kSlack)) return candidate;
  }
  return TimesPowerOfTen(1, power);
}

double ScaleAtLeast(double value) { return value <= 1 ? 1 : AtLeast(value, kScales); }

double ContourInterval(double range) {
  return range > 0 && std::isfinite(range) ? NiceAtLeast(range / kMostContours) : 0;
}

int DecimalsOf(double step) {
  return step >= 1 || step <= 0 ? 0 : std::min(-PowerOfTenBelow(step * (1 + kSlack)), 9);
}

Multiples MultiplesWithin(double least, double largest, double step, int most) {
  if (!(step > 0)) return {};
  const double first = std::ceil(least / step - kSlack);
  const double last = std::floor(largest / step + kSlack);
  // Beyond, neighbouring multiples are no longer told apart.
  if (!(std::abs(first) < kLargestWhole) || !(last >= first) || last - first + 1 > most) return {};
  return {first, static_cast<int>(last - first) + 1};
}

std::string FixedText(double value, int decimals) {
  std::string text;
  platform::AppendFixed(text, value, decimals);
  const bool isZero = text.find_first_of("123456789") == std::string::npos;
  return isZero && text.starts_with('-') ? text.substr(1) : text;
}

std::string CountText(std::uint64_t value) {
  std::string text;
  platform::AppendWhole(text, static_cast<std::int64_t>(value));
  constexpr std::size_t kGroup = 3;
  if (text.size() <= kGroup + 1) return text;
  for (std::size_t place = text.size() - kGroup;; place -= kGroup) {
    text.insert(place, "\u202F");
    if (place <= kGroup) return text;
  }
}

std::string ScaleText(double scale) {
  if (scale >= kLargestWhole) {
    std::string text;
    platform::AppendShortest(text, scale);
    return text;
  }
  const bool isWhole = scale == std::floor(scale);
  return isWhole ? CountText(static_cast<std::uint64_t>(scale))
                 : WithoutEmptyDecimals(FixedText(scale, 3));
}

std::string LengthText(double metres) {
  const bool isFar = metres >= kKilometre;
  const double value = isFar ? metres / kKilometre : metres;
  return WithoutEmptyDecimals(FixedText(value, 9)) + (isFar ? " km" : " m");
}

std::string ChainageText(double metres, int decimals) {
  const double unit = std::pow(10, decimals);
  const double rounded = std::round(std::abs(metres) * unit) / unit;
  const double kilometres = std::floor(rounded / kKilometre);
  std::string rest = FixedText(rounded - kilometres * kKilometre, decimals);
  const std::size_t whole = std::min(rest.find('.'), rest.size());
  if (whole < 3) rest.insert(0, 3 - whole, '0');
  return (metres < 0 && rounded > 0 ? "-" : "") + FixedText(kilometres, 0) + "+" + rest;
}

}  // namespace plot
