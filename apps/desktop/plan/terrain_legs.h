// The sides of a terrain model's triangles, its breaklines and contours.
#pragma once

#include <vector>

#include "apps/desktop/plan/plan_lines.h"
#include "model/terrain.h"

namespace plan {

/// Each side once; `source`: a triangle that has it.
std::vector<Leg> TriangleSides(const CDtmPrj& model);
std::vector<Leg> Breaklines(const CDtmPrj& model);

}  // namespace plan
