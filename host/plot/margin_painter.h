// Draws what is around a plan: frame, coordinates, title, scale bar, legend, north arrow.
#pragma once

#include <string>

#include "host/plot/canvas.h"
#include "host/plot/plan_scene.h"

namespace plot {

struct MarginTexts {
  std::string title;
  std::string counts;
  std::string extent;
  std::string scale;  ///< "1:500"; empty: not told
};

void PaintMargins(const Scene& scene, const MarginTexts& texts, Canvas& canvas);

}  // namespace plot
