// Lines of equal elevation on a triangulation.
#pragma once

#include <vector>

#include "host/plot/plan_extent.h"
#include "model/terrain.h"

namespace plot {

struct ContourLine {
  double elevation = 0;  ///< metres
  bool isFifth = false;  ///< its elevation is a multiple of five intervals
  Polyline line;         ///< metres; closed where the first vertex is also the last
};

/// The lines at the multiples of `interval` (metres, positive), each as long as it goes. A vertex
/// in a line's elevation counts as one above it. Triangles with a vertex without a place or an
/// elevation are passed over.
std::vector<ContourLine> ContourLines(const CTris& triangulation, double interval);

}  // namespace plot
