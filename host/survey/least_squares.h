// The adjustment of one set-up.
#pragma once

#include <span>
#include <vector>

#include "host/survey/target_sight.h"

namespace survey {

/// Easting and northing of the mark, and the azimuth of the zero direction in radians.
struct SetUpState {
  Place mark;
  double orientation = 0;
};

struct Adjustment {
  SetUpState state;
  bool isDetermined = false;
  bool hasConverged = false;
  /// Metres, of the easting and northing together, from what is left over; 0 when nothing is.
  double markSigma = 0;
};

/// Least squares over the directions and distances of the used sights, by Gauss and Newton from
/// `start`.
Adjustment Adjust(const SetUpState& start, std::span<const TargetSight> sights,
                  const std::vector<bool>& isUsed);

}  // namespace survey
