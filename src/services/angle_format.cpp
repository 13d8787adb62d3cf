#include "services/angle_format.h"

#include <cmath>
#include <numbers>

#include "model/undefined.h"
#include "services/measure_system.h"

namespace {

constexpr double kGonPerRadian = 200 / std::numbers::pi;
constexpr double kDegreesPerRadian = 180 / std::numbers::pi;

// What an angle is rounded to before it is taken apart, so that 11° does not become 10°59'60".
constexpr double kUnitsPerSecond = 1e7;
constexpr double kSecondsPerMinute = 60;

struct Sexagesimal {
  double sign;
  double degrees;
  double minutes;
  double seconds;
};

Sexagesimal TakeApart(double radians) {
  const double total =
      std::round(std::fabs(radians) * kDegreesPerRadian * 3600 * kUnitsPerSecond) / kUnitsPerSecond;
  const double wholeMinutes = std::floor(total / kSecondsPerMinute);
  return {radians < 0 ? -1.0 : 1.0, std::floor(wholeMinutes / 60), std::fmod(wholeMinutes, 60),
          total - wholeMinutes * kSecondsPerMinute};
}

}  // namespace

double AngRadiFromCent(double gon) { return IsDefined(gon) ? gon / kGonPerRadian : gon; }

double AngSesdFromRadi(double radians) {
  return IsDefined(radians) ? radians * kDegreesPerRadian : radians;
}

double AngCentFromRadi(double radians) {
  return IsDefined(radians) ? radians * kGonPerRadian : radians;
}

double AngSesgVertoFromRadi(double radians) {
  if (!IsDefined(radians)) return radians;
  const Sexagesimal angle = TakeApart(radians);
  return angle.sign * (angle.degrees + angle.minutes / 100 + angle.seconds / 10'000);
}

double AngGraPriDcPFromRadi(double radians) {
  if (!IsDefined(radians)) return radians;
  const Sexagesimal angle = TakeApart(radians);
  return angle.sign * (angle.degrees + (angle.minutes + angle.seconds / kSecondsPerMinute) / 100);
}

tdk::WString StrAngSesgFromRadi(double radians, int decimals) {
  return SexagesimalText(AngSesdFromRadi(radians), decimals);
}

tdk::WString StrAngSesgNoSmbFromRadi(double radians, int decimals) {
  const tdk::WString withSymbols = StrAngSesgFromRadi(radians, decimals);
  std::string text;
  for (const char c : withSymbols.ToUtf8()) {
    // The first byte of the degree sign goes, the second and the minute sign become blanks.
    if (c == '\xC2') continue;
    text += c == '\xB0' || c == '\'' ? ' ' : c;
  }
  return tdk::WString(std::move(text));
}
