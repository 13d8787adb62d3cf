// What is left over between what a set-up sighted and the coordinates of its targets.
#pragma once

#include <vector>

#include "host/survey/solution.h"

namespace survey {

/// Of an oriented set-up, over the known points and set-ups that it sighted and whatever else its
/// orientation rests on, in the order of their names in the job.
std::vector<TargetResidual> ResidualsOf(const Network& net, const Solution& solution, int setUp);

}  // namespace survey
