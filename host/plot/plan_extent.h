// Places in a plane and the rectangles around them.
#pragma once

#include <cmath>
#include <limits>
#include <vector>

namespace plot {

/// In metres, easting and northing; or in millimetres on the sheet, from its upper left corner, y
/// downwards.
struct Place {
  double x = 0;
  double y = 0;
  bool operator==(const Place&) const = default;
};

inline double Distance(const Place& a, const Place& b) { return std::hypot(b.x - a.x, b.y - a.y); }

/// The place between two; `share` 0: `a`, 1: `b`.
inline Place Between(const Place& a, const Place& b, double share) {
  return {a.x + share * (b.x - a.x), a.y + share * (b.y - a.y)};
}

using Polyline = std::vector<Place>;

/// A rectangle along the axes; empty at first.
struct Box {
  double left = std::numeric_limits<double>::infinity();
  double low = std::numeric_limits<double>::infinity();  ///< the least y
  double right = -std::numeric_limits<double>::infinity();
  double high = -std::numeric_limits<double>::infinity();  ///< the largest y

  bool IsEmpty() const { return !(left <= right && low <= high); }
  double Width() const { return right - left; }
  double Height() const { return high - low; }
  Place Middle() const { return {left + Width() / 2, low + Height() / 2}; }
  bool Holds(const Place& place) const {
    return place.x >= left && place.x <= right && place.y >= low && place.y <= high;
  }
  void Add(const Place& place);
  void AddBox(const Box& box);
  /// Larger by so much on every side.
  Box Grown(double by) const { return {left - by, low - by, right + by, high + by}; }
};

/// Cuts the leg from `a` to `b` to what of it lies within the box; false when nothing does.
bool ClipLeg(const Box& box, Place& a, Place& b);

/// The parts of a line that lie within the box. Vertices nearer than `least` to the one before are
/// left out, the last one aside.
std::vector<Polyline> ClipLine(const Box& box, const Polyline& line, double least);

double LengthOf(const Polyline& line);

/// Where a line is after so much of its length, and its direction there (radians, from x to y).
struct OnLine {
  Place place;
  double direction = 0;
};
OnLine Along(const Polyline& line, double distance);

}  // namespace plot
