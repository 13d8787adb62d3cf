// Which rings of a polygon are its borders and which are holes.
#pragma once

#include <span>
#include <vector>

namespace shape {

/// A closed ring: its last vertex is its first.
struct Ring {
  std::span<const double> x;
  std::span<const double> y;
};

/// Twice the area in plan, positive for a ring that runs counter-clockwise.
double TwiceArea(const Ring& ring);

/// For each ring whether it is a hole: it lies within an odd number of larger rings. Rings may
/// touch each other but not cross. Takes time about in proportion to the number of vertices.
std::vector<bool> AreHoles(std::span<const Ring> rings);

}  // namespace shape
