// Places of points and the way between them.
#pragma once

#include <cmath>

#include "model/egn.h"
#include "model/polar.h"

namespace survey {

inline Place PlaceOf(const CEgn& point) {
  return {point.GetCoordX(), point.GetCoordY(), point.GetCoordZ()};
}

/// Whether its easting and northing are defined.
inline bool HasPlan(const CEgn& point) { return point.IsValidX() && point.IsValidY(); }

/// Metres.
inline double PlaneDistance(const Place& one, const Place& other) {
  return std::hypot(one.x - other.x, one.y - other.y);
}

}  // namespace survey
