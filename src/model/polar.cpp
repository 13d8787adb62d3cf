#include "model/polar.h"

#include <cmath>
#include <numbers>

#include "model/total_station.h"

namespace {

constexpr double kRadiansPerGon = std::numbers::pi / 200;
constexpr double kCircle = 400;  // gon
constexpr double kEarthRadius = 6'371'000;

bool IsPlaneDefined(const Place& place) { return IsDefined(place.x) && IsDefined(place.y); }

// Plumb lines draw together downwards, so a higher prism is nearer at the instrument's height than
// it looks, and a level line of sight rises above the earth.
double Narrowing(double up, double refraction) {
  return 1 - (1 - refraction / 2) / kEarthRadius * up;
}
double Lift(double across, double refraction) {
  return (1 - refraction) / (2 * kEarthRadius) * across * across;
}

Ray Bent(const Ray& straight, double refraction) {
  return {straight.across * Narrowing(straight.up, refraction),
          straight.up + Lift(straight.across, refraction)};
}

// The reverse. Each turn makes the error smaller by the distance divided by the earth's radius.
Ray Straightened(const Ray& bent, double refraction) {
  constexpr int kTurns = 6;
  Ray straight = bent;
  for (int i = 0; i < kTurns; ++i) {
    straight = {bent.across / Narrowing(straight.up, refraction),
                bent.up - Lift(straight.across, refraction)};
  }
  return straight;
}

}  // namespace

Instrument InstrumentOf(const CSta& station) {
  return {{station.GetCoordX(), station.GetCoordY(), station.GetCoordZ()}, station.GetAltStr()};
}

Ray RayOf(double slopeDistance, double zenith, const Reduction& reduction) {
  if (!IsDefined(slopeDistance) || !IsDefined(zenith)) return {};
  const double angle = zenith * kRadiansPerGon;
  const Ray straight{slopeDistance * std::sin(angle), slopeDistance * std::cos(angle)};
  return reduction.isCurved ? Bent(straight, reduction.refraction) : straight;
}

double HeightDifference(double slopeDistance, double zenith) {
  return RayOf(slopeDistance, zenith).up;
}

double HorizontalDistance(double slopeDistance, double zenith) {
  return RayOf(slopeDistance, zenith).across;
}

PolarOrigin::PolarOrigin(const Instrument& instrument, double orientation,
                         const Reduction& reduction)
    : mark_(IsPlaneDefined(instrument.mark) ? instrument.mark : Place{}),
      axis_(IsDefined(mark_.z) ? mark_.z + instrument.height : UndefinedValue),
      orientation_(orientation),
      reduction_(reduction) {}

Place PolarOrigin::Locate(const Observation& observation, double prismHeight) const {
  if (!IsDefined(observation.horizontal) || mark_.x == UndefinedValue) return {};
  const Ray ray = RayOf(observation.slopeDistance, observation.zenith, reduction_);
  if (ray.across == UndefinedValue) return {};
  const double azimuth = (orientation_ + observation.horizontal) * kRadiansPerGon;
  return {mark_.x + ray.across * std::sin(azimuth), mark_.y + ray.across * std::cos(azimuth),
          axis_ == UndefinedValue ? UndefinedValue : axis_ + ray.up - prismHeight};
}

Place Locate(const Instrument& instrument, const Observation& observation, double prismHeight,
             double orientation, const Reduction& reduction) {
  return PolarOrigin(instrument, orientation, reduction).Locate(observation, prismHeight);
}

Observation Observe(const Instrument& instrument, const Place& target, double prismHeight,
                    double orientation, const Reduction& reduction) {
  if (!IsPlaneDefined(instrument.mark) || !IsDefined(instrument.mark.z) ||
      !IsPlaneDefined(target) || !IsDefined(target.z)) {
    return {};
  }
  Ray ray{std::hypot(target.x - instrument.mark.x, target.y - instrument.mark.y),
          target.z + prismHeight - (instrument.mark.z + instrument.height)};
  if (ray.across == 0 && ray.up == 0) return {};
  if (reduction.isCurved) ray = Straightened(ray, reduction.refraction);
  return {std::hypot(ray.across, ray.up), std::atan2(ray.across, ray.up) / kRadiansPerGon,
          FullCircle(Azimuth(instrument.mark, target) - orientation)};
}

double Azimuth(const Place& from, const Place& to) {
  return FullCircle(std::atan2(to.x - from.x, to.y - from.y) / kRadiansPerGon);
}

double FullCircle(double angle) {
  const double rest = std::fmod(angle, kCircle);
  return rest < 0 ? rest + kCircle : rest;
}
