// The sights of one set-up to one target, taken together.
#pragma once

#include <optional>
#include <span>

#include "host/survey/network.h"
#include "host/survey/target_sight.h"

namespace survey {

/// The means of direction, distance and rise; those in face two are turned into face one. Nothing
/// without any direction. The target's place is left for the caller.
std::optional<TargetSight> MeanOfSights(std::span<const Sight> sights, double instrumentHeight,
                                        const CCalcDsOr& how);

}  // namespace survey
