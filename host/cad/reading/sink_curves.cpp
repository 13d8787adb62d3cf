#include <cmath>

#include "host/cad/reading/sink.h"

namespace cad_reader {
namespace {

constexpr double kWholeTurn = 1e-9;  // degrees: how near to a whole turn one is whole

double LengthOf(const cad::Point& v) { return std::hypot(v.getX(), v.getY(), v.getZ()); }

// A circle's two half diameters in a plane.
Curve CurveOf(const Plane& plane, const cad::Point& center, double radius, double start,
              double end) {
  return {plane.ToWorld(center), plane.ToWorld({radius, 0, 0}), plane.ToWorld({0, radius, 0}),
          start, end};
}

// `end` as what is reached from `start` within one turn.
double EndFrom(double start, double end) {
  const double turn = WithinTurn(end - start);
  return start + (turn < kWholeTurn || turn > 360 - kWholeTurn ? 360 : turn);
}

// The minor half axis, to the left of the major one as seen against the direction of the plane.
cad::Point MinorOf(const cad::Point& direction, const cad::Point& major, double ratio) {
  const double length = LengthOf(direction);
  const double x = direction.getX() / length;
  const double y = direction.getY() / length;
  const double z = direction.getZ() / length;
  return {ratio * (y * major.getZ() - z * major.getY()),
          ratio * (z * major.getX() - x * major.getZ()),
          ratio * (x * major.getY() - y * major.getX())};
}

bool IsFlat(const Plane& plane, const cad::Point& major) {
  constexpr double kFlat = 1e-9;
  return !plane.IsTilted() && std::abs(major.getZ()) <= kFlat * LengthOf(major);
}

}  // namespace

void EntitySink::PutCurve(const Curve& curve) {
  if (!std::isfinite(curve.start) || !std::isfinite(curve.end)) {
    notes_.Count(Note::kNoShape);
    return;
  }
  notes_.Count(Note::kTiltedCurve);
  Put(PointsOf(curve));
}

void EntitySink::PutCircle(const cad::Point& center, double radius, const Plane& plane) {
  if (plane.IsTilted()) {
    PutCurve(CurveOf(plane, center, std::abs(radius), 0, 360));
  } else {
    Put(cad::CircleShape{plane.ToWorld(center), std::abs(radius)});
  }
}

// Seen from below it runs the other way: what was its end is its start.
void EntitySink::PutArc(const cad::ArcShape& arc, const Plane& plane) {
  const double radius = std::abs(arc.radius);
  const cad::Point center = plane.ToWorld(arc.center);
  if (plane.IsTilted()) {
    PutCurve(CurveOf(plane, arc.center, radius, arc.start, EndFrom(arc.start, arc.end)));
  } else if (plane.IsMirrored()) {
    Put(cad::ArcShape{center, radius, WithinTurn(180 - arc.end), WithinTurn(180 - arc.start)});
  } else {
    Put(cad::ArcShape{center, radius, arc.start, arc.end});
  }
}

// Its points are the world's, whatever its plane is.
void EntitySink::PutEllipse(const EllipseNumbers& numbers) {
  const Plane plane(numbers.direction);
  cad::Point major = numbers.major;
  double ratio = std::abs(numbers.ratio);
  double start = numbers.start;
  double end = EndFrom(start, numbers.end);
  const cad::Point minor = MinorOf(numbers.direction, major, ratio);
  if (ratio == 0 || LengthOf(major) == 0) {
    notes_.Count(Note::kNoShape);
    return;
  }
  if (!IsFlat(plane, major)) {
    PutCurve({numbers.center, major, minor, start, end});
    return;
  }
  if (ratio > 1) {
    major = minor;
    ratio = 1 / ratio;
    start -= 90;
    end -= 90;
  }
  const double turn = end - start;
  start = turn == 360 ? 0 : WithinTurn(plane.IsMirrored() ? -end : start);
  Put(cad::EllipseShape{numbers.center, major, ratio, start, start + turn});
}

void EntitySink::PutSpline(const Spline& spline) {
  cad::PolylineShape line = PointsOf(spline);
  if (line.points.size() < 2) {
    notes_.CountNotRead("SPLINE");
    return;
  }
  notes_.Count(Note::kSpline);
  Put(std::move(line));
}

}  // namespace cad_reader
