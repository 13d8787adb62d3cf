// Which places of the sheet are taken, so that no label lies on another one or on a symbol.
#pragma once

#include "host/plot/bit_grid.h"

namespace plot {

/// A rectangle that may lie askew, millimetres on the sheet.
struct LabelBox {
  Place middle;
  double width = 0;
  double height = 0;
  double angle = 0;  ///< radians, clockwise as y runs downwards
};

/// The sheet's frame in small cells; a rectangle takes every cell that it touches.
class LabelGrid {
 public:
  explicit LabelGrid(const Box& area) : cells_(area, kCell) {}

  /// Whether the rectangle lies within the area and nothing took a cell of it before.
  bool IsFree(const LabelBox& box) const;
  void Occupy(const LabelBox& box);
  /// Occupies it if it is free; false when it is not.
  bool Take(const LabelBox& box);
  void OccupyLine(const Polyline& line);

  static constexpr double kCell = 0.25;

 private:
  BitGrid cells_;
};

}  // namespace plot
