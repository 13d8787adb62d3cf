// Straight legs, as many as a terrain has, ready to be drawn.
#pragma once

#include "apps/desktop/plan/cell_grid.h"
#include "host/plot/line_work.h"

namespace plan {

using plot::Leg;

/// The legs of one layer.
class PlanLines {
 public:
  PlanLines() = default;
  explicit PlanLines(const std::vector<Leg>& legs);

  bool IsEmpty() const { return grid_.Size() == 0 && longLegs_.empty(); }
  const plot::Box& Extent() const { return extent_; }

  /// Calls leg(leg) for what may be within the box (metres). Where that is too much to be drawn, it
  /// calls crowd(legs, pixels) for the cells, of so many pixels, in which there are so many legs
  /// that they cannot be told apart.
  template <class OnLeg, class OnCrowd>
  void Visit(const plot::Box& shown, double metresPerPixel, const OnLeg& leg,
             const OnCrowd& crowd) const {
    const double pixels = grid_.Side() / metresPerPixel;
    const double cell = pixels * pixels;
    const plot::Box touched = shown.Grown(longest_ / 2);
    const bool isMuch = grid_.CountIn(touched) > kMostLegs;
    grid_.VisitCells(touched, [&](const plot::Box&, auto legs) {
      if (isMuch && static_cast<double>(legs.size()) > cell / kLeastPixels) {
        crowd(legs, cell);
      } else {
        for (const Leg& each : legs) leg(each);
      }
    });
    for (const Leg& each : longLegs_) leg(each);
  }

 private:
  static constexpr std::size_t kMostLegs = 20'000;  // that are drawn wherever they are
  static constexpr double kLeastPixels = 16;        // for each leg

  plot::Box extent_;
  CellGrid<Leg> grid_;
  double longest_ = 0;  // of the legs in the grid, metres
  std::vector<Leg> longLegs_;
};

}  // namespace plan
