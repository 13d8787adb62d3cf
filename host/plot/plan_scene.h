// Everything that a plan shows, in its place on the sheet.
#pragma once

#include <string>
#include <vector>

#include "host/plot/mark_symbols.h"
#include "host/plot/plan_labels.h"
#include "host/plot/terrain_lines.h"
#include "host/plot/work_on_sheet.h"

namespace plot {

struct Scene {
  Sheet sheet;
  Grid grid;
  double contourInterval = 0;  ///< metres; 0: no contours
  std::vector<TerrainLines> terrain;
  std::vector<RoadOnSheet> roads;
  std::vector<WorkOnSheet> themes;
  std::vector<WorkOnSheet> drawings;
  MarkSymbols symbols;
  std::vector<Label> labels;
};

/// `content` is not empty and must stay.
Scene SceneOf(const PlanContent& content, const PlanOptions& options, const TextWidth& width);

}  // namespace plot
