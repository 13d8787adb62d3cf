#include "model/polar.h"

#include <cmath>
#include <numbers>

#include "model/total_station.h"

namespace {

constexpr double kRadiansPerGon = std::numbers::pi / 200;

bool IsPlaneDefined(const Place& place) { return IsDefined(place.x) && IsDefined(place.y); }

}  // namespace

Instrument InstrumentOf(const CSta& station) {
  return {{station.GetCoordX(), station.GetCoordY(), station.GetCoordZ()}, station.GetAltStr()};
}

double HeightDifference(double slopeDistance, double zenith) {
  if (!IsDefined(slopeDistance) || !IsDefined(zenith)) return UndefinedValue;
  return slopeDistance * std::cos(zenith * kRadiansPerGon);
}

double HorizontalDistance(double slopeDistance, double zenith) {
  if (!IsDefined(slopeDistance) || !IsDefined(zenith)) return UndefinedValue;
  return slopeDistance * std::sin(zenith * kRadiansPerGon);
}

Place Locate(const Instrument& instrument, const Observation& observation, double prismHeight,
             double orientation) {
  const double distance = HorizontalDistance(observation.slopeDistance, observation.zenith);
  if (!IsDefined(distance) || !IsDefined(observation.horizontal) ||
      !IsPlaneDefined(instrument.mark)) {
    return {};
  }
  const double azimuth = (orientation + observation.horizontal) * kRadiansPerGon;
  Place place{instrument.mark.x + distance * std::sin(azimuth),
              instrument.mark.y + distance * std::cos(azimuth), UndefinedValue};
  if (IsDefined(instrument.mark.z)) {
    place.z = instrument.mark.z + instrument.height +
              HeightDifference(observation.slopeDistance, observation.zenith) - prismHeight;
  }
  return place;
}

Observation Observe(const Instrument& instrument, const Place& target, double prismHeight,
                    double orientation) {
  if (!IsPlaneDefined(instrument.mark) || !IsDefined(instrument.mark.z) ||
      !IsPlaneDefined(target) || !IsDefined(target.z)) {
    return {};
  }
  const double east = target.x - instrument.mark.x;
  const double north = target.y - instrument.mark.y;
  const double up = target.z + prismHeight - (instrument.mark.z + instrument.height);
  const double across = std::hypot(east, north);
  if (across == 0 && up == 0) return {};
  double direction = std::fmod(std::atan2(east, north) / kRadiansPerGon - orientation, 400);
  if (direction < 0) direction += 400;
  return {std::hypot(across, up), std::atan2(across, up) / kRadiansPerGon, direction};
}
