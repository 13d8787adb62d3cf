// The azimuth of a set-up's zero direction, and its elevation, from targets with coordinates.
#pragma once

#include <optional>
#include <span>
#include <vector>

#include "host/survey/agreed_mean.h"
#include "host/survey/target_sight.h"

namespace survey {

/// In gon, from a mark whose easting and northing are defined; `isUsed` goes with `sights`. Nothing
/// when no target lies apart from the mark.
std::optional<AgreedMean> OrientationOf(const Place& mark, std::span<const TargetSight> sights);

/// The mark's elevation in metres; undefined when no target with an elevation was measured.
double ElevationOf(std::span<const TargetSight> sights);

}  // namespace survey
