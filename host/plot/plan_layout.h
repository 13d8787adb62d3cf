// The sheet: its size, its scale, where on it the plan lies, and the round numbers around it.
#pragma once

#include <vector>

#include "host/plot/plan.h"
#include "host/plot/plan_extent.h"

namespace plot {

/// All lengths on the sheet in millimetres, from its upper left corner, y downwards.
class Sheet {
 public:
  double width = 0;
  double height = 0;
  Box frame;         ///< around the plan
  double scale = 1;  ///< N of 1:N
  Place middle;      ///< metres: what is shown in the middle of the frame
  double pixel = 0;  ///< the side of what is seen as one dot

  double MetresOf(double millimetres) const { return millimetres * scale / 1000; }
  double MillimetresOf(double metres) const { return metres * 1000 / scale; }
  Place OnSheet(const Place& place) const {
    const Place centre = frame.Middle();
    return {centre.x + MillimetresOf(place.x - middle.x),
            centre.y - MillimetresOf(place.y - middle.y)};
  }
  /// What the frame shows, metres.
  Box Shown() const;
};

/// Pixels of a PNG picture for each millimetre: 2,000 on the long side of A4.
inline constexpr double kPixelsPerMillimetre = 2000.0 / 297;

/// The sheet for what reaches so far (metres, not empty), as the options say. A PNG picture is a
/// sheet of kPixelsPerMillimetre.
Sheet LayOut(const Box& extent, const PlanOptions& options);

/// The lines of the grid: round coordinates within the frame, metres.
struct Grid {
  double step = 0;
  int decimals = 0;
  std::vector<double> eastings;
  std::vector<double> northings;
};
Grid GridOf(const Sheet& sheet);

/// The length of the scale bar, metres: a round one that is well seen on the sheet.
double ScaleBarLength(const Sheet& sheet);

/// The round distances between chainage marks, and between those that have a label: metres.
struct ChainageSteps {
  double marks = 0;
  double labels = 0;
};
ChainageSteps ChainageStepsOf(const Sheet& sheet);

}  // namespace plot
