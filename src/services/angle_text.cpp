#include <cmath>
#include <string_view>

#include "model/undefined.h"
#include "platform/numbers.h"
#include "services/ini_file.h"
#include "services/measure_system.h"
#include "services/number_text.h"

namespace {

constexpr double kDegreesPerGon = 0.9;

void AppendTwoDigits(std::string& text, std::int64_t value) {
  if (value < 10) text += '0';
  platform::AppendWhole(text, value);
}

// Degrees, minutes and seconds, divided by anything that is no part of a number.
double DegreesFromSexagesimal(std::string_view text) {
  constexpr std::string_view kNumber = "0123456789.,";
  const bool negative = text.find('-') != std::string_view::npos;
  double degrees = 0;
  double unit = 1;
  for (int part = 0; part < 3; ++part) {
    const std::size_t start = text.find_first_of(kNumber);
    if (start == std::string_view::npos) break;
    text.remove_prefix(start);
    degrees += DoubleDaCString(text) * unit;
    unit /= 60;
    text.remove_prefix(std::min(text.find_first_not_of(kNumber), text.size()));
  }
  return negative ? -degrees : degrees;
}

}  // namespace

AngleUnit CMeasureSystem::GetAngleUnit() {
  const std::int16_t stored = CIniFile().ReadShort("Misure", "UnitaAngoli", 0);
  return stored < 0 || stored > 2 ? AngleUnit::kGon : static_cast<AngleUnit>(stored);
}

tdk::WString CMeasureSystem::GetTsAngleString(double gon) {
  if (!IsDefined(gon)) return {};
  switch (GetAngleUnit()) {
    case AngleUnit::kDecimalDegrees: return StringDaDouble(gon * kDegreesPerGon, 0, 5);
    case AngleUnit::kSexagesimal: return SexagesimalText(gon * kDegreesPerGon, 1);
    case AngleUnit::kGon: break;
  }
  return StringDaDouble(gon, 0, 4);
}

double CMeasureSystem::GetTsAngleValueCent(const tdk::WString& text) {
  if (text.IsEmpty()) return UndefinedValue;
  switch (GetAngleUnit()) {
    case AngleUnit::kDecimalDegrees: return DoubleDaString(text) / kDegreesPerGon;
    case AngleUnit::kSexagesimal: return DegreesFromSexagesimal(text.ToUtf8()) / kDegreesPerGon;
    case AngleUnit::kGon: break;
  }
  return DoubleDaString(text);
}

tdk::WString SexagesimalText(double degrees, int decimals) {
  if (!IsDefined(degrees)) return {};
  const double unit = std::pow(10, decimals);
  // All of the angle in its last written place, so that rounding carries by itself.
  const double total = std::round(std::fabs(degrees) * 3600 * unit);
  const double wholeSeconds = std::floor(total / unit);
  const auto seconds = std::fmod(wholeSeconds, 60);
  const auto minutes = std::fmod(std::floor(wholeSeconds / 60), 60);
  std::string text;
  if (degrees < 0 && total > 0) text += '-';
  platform::AppendFixed(text, std::floor(wholeSeconds / 3600), 0);
  text += "°";
  AppendTwoDigits(text, static_cast<std::int64_t>(minutes));
  text += '\'';
  AppendTwoDigits(text, static_cast<std::int64_t>(seconds));
  if (decimals > 0) {
    std::string fraction;
    platform::AppendFixed(fraction, (total - wholeSeconds * unit) / unit, decimals);
    text += fraction.substr(1);
  }
  return tdk::WString(std::move(text));
}
