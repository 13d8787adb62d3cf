// Roads as lines: their axes, and the places of round chainages.
#pragma once

#include <vector>

#include "host/plot/plan_extent.h"
#include "model/road.h"

namespace plot {

/// A chord error that is too small to matter for how far a road reaches and whether it has a place:
/// a share of the element's length.
inline constexpr double kRoughChord = 0;

/// The axis of a road, metres: one line for elements that join each other. Straights are exact;
/// arcs and clothoids become chords that leave the curve by `chordError` at most (metres;
/// kRoughChord: 64 chords each). Elements without a place are left out, and all of them where the
/// host calls the road empty.
std::vector<Polyline> AxisOf(const CRoad& road, double chordError);

/// A mark at a chainage.
struct ChainageMark {
  double chainage = 0;   ///< metres
  Place place;           ///< metres
  double direction = 0;  ///< of driving: radians, counter-clockwise from east
};

/// The multiples of `step` along a road, metres. None where they would be more than can be marked.
std::vector<ChainageMark> ChainageMarks(const CRoad& road, double step);

}  // namespace plot
