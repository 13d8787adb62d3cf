#include "host/plot/label_grid.h"

#include <algorithm>
#include <array>

namespace plot {
namespace {

std::array<Place, 4> CornersOf(const LabelBox& box) {
  const Place along = {std::cos(box.angle) * box.width / 2, std::sin(box.angle) * box.width / 2};
  const Place down = {-std::sin(box.angle) * box.height / 2, std::cos(box.angle) * box.height / 2};
  const Place& m = box.middle;
  return {{{m.x - along.x - down.x, m.y - along.y - down.y},
           {m.x + along.x - down.x, m.y + along.y - down.y},
           {m.x + along.x + down.x, m.y + along.y + down.y},
           {m.x - along.x + down.x, m.y - along.y + down.y}}};
}

Box AroundOf(const LabelBox& box) {
  if (box.angle == 0) {
    return {box.middle.x - box.width / 2, box.middle.y - box.height / 2,
            box.middle.x + box.width / 2, box.middle.y + box.height / 2};
  }
  Box around;
  for (const Place& corner : CornersOf(box)) around.Add(corner);
  return around;
}

// How far the rectangle reaches to the left and right between two heights.
Box Slice(const std::array<Place, 4>& corners, double low, double high) {
  Box band;
  band.left = -std::numeric_limits<double>::max();
  band.right = std::numeric_limits<double>::max();
  band.low = low;
  band.high = high;
  Box slice;
  for (std::size_t i = 0; i < corners.size(); ++i) {
    Place a = corners[i];
    Place b = corners[(i + 1) % corners.size()];
    if (!ClipLeg(band, a, b)) continue;
    slice.Add(a);
    slice.Add(b);
  }
  return slice;
}

// Calls visit(row, first column, last column) until it answers false.
template <class Visit>
bool EveryRow(const BitGrid& cells, const LabelBox& box, Visit visit) {
  const bool isAskew = box.angle != 0;
  const std::array<Place, 4> corners = isAskew ? CornersOf(box) : std::array<Place, 4>{};
  const Box around = AroundOf(box);
  const int last = std::min(cells.RowOf(around.high), cells.Rows() - 1);
  for (int row = std::max(cells.RowOf(around.low), 0); row <= last; ++row) {
    Box slice = around;
    if (isAskew) {
      const double low = cells.Area().low + row * cells.Cell();
      slice = Slice(corners, low, low + cells.Cell());
      if (slice.IsEmpty()) continue;
    }
    if (!visit(row, cells.ColumnOf(slice.left), cells.ColumnOf(slice.right))) return false;
  }
  return true;
}

}  // namespace

bool LabelGrid::IsFree(const LabelBox& box) const {
  const Box around = AroundOf(box);
  const Box& area = cells_.Area();
  const bool isInside = around.left >= area.left && around.right <= area.right &&
                        around.low >= area.low && around.high <= area.high;
  return isInside && EveryRow(cells_, box, [this](int row, int first, int last) {
           return !cells_.HasAny(row, first, last);
         });
}

void LabelGrid::Occupy(const LabelBox& box) {
  EveryRow(cells_, box, [this](int row, int first, int last) {
    cells_.SetRun(row, first, last);
    return true;
  });
}

bool LabelGrid::Take(const LabelBox& box) {
  if (!IsFree(box)) return false;
  Occupy(box);
  return true;
}

void LabelGrid::OccupyLine(const Polyline& line) {
  for (const Polyline& part : ClipLine(cells_.Area(), line, 0)) {
    for (std::size_t i = 1; i < part.size(); ++i) {
      const int steps = static_cast<int>(Distance(part[i - 1], part[i]) / (kCell / 2)) + 2;
      for (int step = 0; step <= steps; ++step) {
        cells_.Insert(Between(part[i - 1], part[i], static_cast<double>(step) / steps));
      }
    }
  }
}

}  // namespace plot
