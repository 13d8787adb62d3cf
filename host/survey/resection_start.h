// Approximate places of a set-up, each from as few sights as will do.
#pragma once

#include <span>
#include <vector>

#include "host/survey/least_squares.h"

namespace survey {

/// Two with a distance, or three.
bool HasEnoughSights(std::span<const TargetSight> sights);

/// One for each pair of targets with distances and, when there is no such pair, for each three
/// directions; of many targets only some are paired.
std::vector<SetUpState> ResectionStarts(std::span<const TargetSight> sights);

}  // namespace survey
