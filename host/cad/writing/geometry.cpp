#include "host/cad/writing/geometry.h"

#include <algorithm>
#include <cmath>

namespace cad_writer {

using cad::Point;

Direction DirectionOf(double degrees) {
  constexpr std::array<Direction, 4> kRightAngles = {
      {Direction{1, 0}, Direction{0, 1}, Direction{-1, 0}, Direction{0, -1}}};
  const double within = std::fmod(degrees, 360.0);
  const double quarters = (within < 0 ? within + 360 : within) / 90;
  if (quarters == std::floor(quarters)) {
    return kRightAngles[static_cast<std::size_t>(quarters) % kRightAngles.size()];
  }
  return {std::cos(within * kRadiansPerDegree), std::sin(within * kRadiansPerDegree)};
}

Point Below(const Point& at, const Direction& direction, double down) {
  return {at.getX() + down * direction.sin, at.getY() - down * direction.cos, at.getZ()};
}

double Sweep(double start, double end) {
  if (end - start >= 360) return 360;
  const double sweep = std::fmod(end - start, 360.0);
  return sweep > 0 ? sweep : sweep + 360;
}

EllipseChords ChordsOf(const cad::EllipseShape& ellipse) {
  EllipseChords chords;
  const double sweep = Sweep(ellipse.start, ellipse.end);
  chords.isClosed = sweep == 360;
  const Point& center = ellipse.center;
  const double majorX = ellipse.major.getX();
  const double majorY = ellipse.major.getY();
  for (std::size_t i = 0; i < chords.points.size(); ++i) {
    const auto [cos, sin] =
        DirectionOf(ellipse.start + sweep * static_cast<double>(i) / kEllipseChords);
    const double minor = sin * ellipse.ratio;
    chords.points[i] = {center.getX() + cos * majorX - minor * majorY,
                        center.getY() + cos * majorY + minor * majorX, center.getZ()};
  }
  return chords;
}

bool IsFlat(const cad::PolylineShape& polyline) {
  const double elevation = polyline.points.front().getZ();
  return std::all_of(polyline.points.begin(), polyline.points.end(),
                     [&](const Point& point) { return point.getZ() == elevation; });
}

double BulgeAt(const cad::PolylineShape& polyline, std::size_t position) {
  return position < polyline.bulges.size() ? polyline.bulges[position] : 0;
}

Point InsertPlacing::operator()(const Point& inBlock) const {
  const double x = (inBlock.getX() - base_.getX()) * insert_.scale.getX();
  const double y = (inBlock.getY() - base_.getY()) * insert_.scale.getY();
  const double z = (inBlock.getZ() - base_.getZ()) * insert_.scale.getZ();
  return {insert_.at.getX() + x * direction_.cos - y * direction_.sin,
          insert_.at.getY() + x * direction_.sin + y * direction_.cos, insert_.at.getZ() + z};
}

}  // namespace cad_writer
