// Where a set-up stands that saw points with coordinates.
#pragma once

#include <optional>
#include <span>
#include <vector>

#include "host/survey/target_sight.h"

namespace survey {

enum class ResectionTrouble {
  kNone,
  kTooFewSights,  ///< fewer than two with a distance and fewer than three in all
  kDoesNotFit,    ///< the sights contradict each other
  kUndetermined,  ///< the set-up lies on one circle or line with the points, or they coincide
};

struct Resection {
  ResectionTrouble trouble = ResectionTrouble::kNone;
  Place mark;
  double orientation = 0;    ///< gon, within 0..400
  double markSigma = 0;      ///< metres, of the easting and northing together; 0 without redundancy
  std::vector<bool> isUsed;  ///< goes with the sights
};

/// By least squares over directions and distances. Targets that contradict the greatest number that
/// agree are left out when those are at least kLeastAgreeing.
Resection Resect(std::span<const TargetSight> sights);

}  // namespace survey
