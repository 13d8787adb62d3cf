// Terrain models as lines on the sheet.
#pragma once

#include <utility>
#include <vector>

#include "host/plot/contour_lines.h"
#include "host/plot/plan_layout.h"

namespace plot {

using LineLeg = std::pair<Place, Place>;

/// All on the sheet, in millimetres, and no farther than its frame.
struct TerrainLines {
  std::vector<LineLeg> sides;  ///< of triangles, each once
  std::vector<LineLeg> breaklines;
  std::vector<Polyline> outline;  ///< outer contours and holes
  std::vector<ContourLine> contours;
  bool isTooFine = false;  ///< its triangles are too small to be seen: no sides
};

/// `interval` between contours, metres; 0: none.
TerrainLines TerrainLinesOf(const CDtmPrj& model, const Sheet& sheet, double interval);

}  // namespace plot
