#include "host/survey/orientation.h"

namespace survey {

namespace {

// Nearer than this, a target is the mark itself: it has no azimuth.
constexpr double kLeastReach = 0.001;

}  // namespace

std::optional<AgreedMean> OrientationOf(const Place& mark, std::span<const TargetSight> sights) {
  std::vector<Measured> offers;
  std::vector<bool> hasAzimuth;
  for (const TargetSight& sight : sights) {
    const double reach = PlaneDistance(mark, sight.place);
    hasAzimuth.push_back(reach > kLeastReach);
    if (!hasAzimuth.back()) continue;
    offers.push_back({Azimuth(mark, sight.place) - sight.direction,
                      kGonPerRadian * sight.SigmaAcross(reach) / reach});
  }
  if (offers.empty()) return std::nullopt;
  AgreedMean mean = MeanOfAgreeing(offers, kCircle);
  std::size_t offer = 0;
  for (std::size_t i = 0; i < hasAzimuth.size(); ++i) {
    hasAzimuth[i] = hasAzimuth[i] && mean.isUsed[offer++];
  }
  mean.isUsed = std::move(hasAzimuth);
  return mean;
}

double ElevationOf(std::span<const TargetSight> sights) {
  std::vector<Measured> offers;
  for (const TargetSight& sight : sights) {
    if (!IsDefined(sight.rise) || !IsDefined(sight.place.z)) continue;
    offers.push_back({sight.place.z - sight.rise, sight.SigmaRise()});
  }
  return offers.empty() ? UndefinedValue : MeanOfAgreeing(offers).value;
}

}  // namespace survey
