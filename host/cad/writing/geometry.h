// What the shapes of a drawing become where the file has no such shape.
#pragma once

#include <array>
#include <span>

#include "model/drawing_entities.h"

namespace cad_writer {

inline constexpr double kPi = 3.14159265358979323846;
inline constexpr double kRadiansPerDegree = kPi / 180;

/// From the foot of a line of text to that of the next, by the height of the text.
inline constexpr double kLineDistance = 5.0 / 3;

struct Direction {
  double cos = 1;
  double sin = 0;
};
/// Exact at right angles. Degrees, counter-clockwise from the X axis.
Direction DirectionOf(double degrees);

/// The point that lies `down` metres below `at`, in a text of that direction.
cad::Point Below(const cad::Point& at, const Direction& direction, double down);

/// Degrees from `start` counter-clockwise to `end`, within (0, 360].
double Sweep(double start, double end);

inline constexpr std::size_t kEllipseChords = 64;
/// The ends of the chords that stand for an ellipse: one less when they close.
struct EllipseChords {
  std::array<cad::Point, kEllipseChords + 1> points;
  bool isClosed = false;

  std::span<const cad::Point> Points() const {
    return std::span(points).first(isClosed ? kEllipseChords : points.size());
  }
};
EllipseChords ChordsOf(const cad::EllipseShape& ellipse);

/// Whether a polyline lies in a plane of one elevation; else it is a line in space.
bool IsFlat(const cad::PolylineShape& polyline);
/// The bulge of the arc that starts at a point of a polyline; 0 when it is straight.
double BulgeAt(const cad::PolylineShape& polyline, std::size_t position);

/// From a block to where it is inserted.
class InsertPlacing {
 public:
  InsertPlacing(const cad::InsertShape& insert, const cad::Point& base)
      : insert_(insert), base_(base), direction_(DirectionOf(insert.rotation)) {}

  cad::Point operator()(const cad::Point& inBlock) const;
  const Direction& TextDirection() const { return direction_; }

 private:
  const cad::InsertShape& insert_;
  const cad::Point& base_;
  Direction direction_;
};

}  // namespace cad_writer
