#include "host/survey/place_mean.h"

#include <algorithm>
#include <cmath>

#include "host/survey/place.h"

namespace survey {

namespace {

// Sums of differences from the first one keep their digits.
Place Mean(std::span<const Place> places) {
  const Place& first = places.front();
  Place sum{0, 0, 0};
  double base = UndefinedValue;
  int heights = 0;
  for (const Place& place : places) {
    sum.x += place.x - first.x;
    sum.y += place.y - first.y;
    if (!IsDefined(place.z)) continue;
    if (heights++ == 0) base = place.z;
    sum.z += place.z - base;
  }
  const auto count = static_cast<double>(places.size());
  return {first.x + sum.x / count, first.y + sum.y / count,
          heights == 0 ? UndefinedValue : base + sum.z / heights};
}

}  // namespace

PlaceMean MeanOf(std::span<const Place> places) {
  PlaceMean result;
  if (places.empty()) return result;
  result.mean = Mean(places);
  for (const Place& place : places) {
    result.spread = std::max(result.spread, PlaneDistance(place, result.mean));
    if (!IsDefined(place.z)) continue;
    result.heightSpread = std::max(result.heightSpread, std::abs(place.z - result.mean.z));
  }
  return result;
}

}  // namespace survey
