// How kalvio plot is told to draw.
#pragma once

#include <string>

#include "arguments.h"
#include "host/plot/plan.h"

/// Kind of picture, size and scale. Throws Failure (bad usage) for a file name that says no kind of
/// picture, a size or a scale that cannot be.
plot::PlanOptions ReadPlanOptions(const Arguments& arguments, const std::string& output);
