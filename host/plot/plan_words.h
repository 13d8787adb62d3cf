// What a plan says about itself, in the user's language.
#pragma once

#include <string>
#include <vector>

#include "host/plot/plan_content.h"

namespace plot {

/// "3 stations, 105 points, 1 terrain model"
std::string CountsInWords(const PlanContent& content);
/// "easting 1000.00 to 1042.13 m, northing …, elevation …"
std::string ExtentInWords(const PlanContent& content);
/// What a kind of points is called in the legend.
std::string NameOfKind(MarkKind kind);

}  // namespace plot
