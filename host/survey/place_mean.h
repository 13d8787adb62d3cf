// The mean of places that are one point.
#pragma once

#include <span>

#include "model/polar.h"

namespace survey {

struct PlaceMean {
  Place mean;               ///< the elevation is that of the places that have one
  double spread = 0;        ///< metres: the largest distance of a place from the mean, in plan
  double heightSpread = 0;  ///< metres
};

/// Of places whose easting and northing are defined; undefined when there is none.
PlaceMean MeanOf(std::span<const Place> places);

}  // namespace survey
