// What a set-up saw of a point that has coordinates.
#pragma once

#include <cmath>
#include <numbers>

#include "host/survey/place.h"
#include "host/survey/tolerances.h"

namespace survey {

inline constexpr double kCircle = 400;  ///< gon
inline constexpr double kGonPerRadian = 200 / std::numbers::pi;

/// All sights of one set-up to one target together: in face one, the mean of those that were
/// repeated.
struct TargetSight {
  int target = 0;  ///< whatever the caller tells it by
  Place place;     ///< of the target; the elevation may be undefined
  double placeSigma = kKnownSigma;
  double direction = 0;              ///< gon
  double distance = UndefinedValue;  ///< horizontal, metres
  double rise = UndefinedValue;      ///< from the set-up's mark to the target's, metres

  bool HasDistance() const { return IsDefined(distance) && distance > 0; }
  /// Metres; `reach` is the horizontal distance.
  double SigmaAcross(double reach) const {
    return std::hypot(placeSigma, kDirectionSigma / kGonPerRadian * reach);
  }
  double SigmaAlong() const { return std::hypot(placeSigma, kDistanceSigma); }
  double SigmaRise() const {
    const double reach = HasDistance() ? distance : 0;
    return std::hypot(SigmaAcross(reach), kHeightSigma);
  }
};

}  // namespace survey
