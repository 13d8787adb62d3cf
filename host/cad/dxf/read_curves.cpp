#include <cmath>

#include "host/cad/dxf/read_entities.h"

namespace dxf_reader {
namespace {

constexpr int kClosed = 1;
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

void EntityReader::PutCurve(const Curve& curve) {
  if (!std::isfinite(curve.start) || !std::isfinite(curve.end)) {
    context_.notes.Count(Note::kNoShape);
    return;
  }
  context_.notes.Count(Note::kTiltedCurve);
  Put(PointsOf(curve));
}

void EntityReader::TakeCircle() {
  const Plane plane = PlaneOf();
  const double radius = std::abs(fields_.Real(40));
  if (plane.IsTilted()) {
    PutCurve(CurveOf(plane, fields_.PointAt(10), radius, 0, 360));
  } else {
    Put(cad::CircleShape{plane.ToWorld(fields_.PointAt(10)), radius});
  }
}

// Seen from below it runs the other way: what was its end is its start.
void EntityReader::TakeArc() {
  const Plane plane = PlaneOf();
  const double radius = std::abs(fields_.Real(40));
  const double start = fields_.Real(50);
  const double end = fields_.Real(51);
  const cad::Point center = plane.ToWorld(fields_.PointAt(10));
  if (plane.IsTilted()) {
    PutCurve(CurveOf(plane, fields_.PointAt(10), radius, start, EndFrom(start, end)));
  } else if (plane.IsMirrored()) {
    Put(cad::ArcShape{center, radius, WithinTurn(180 - end), WithinTurn(180 - start)});
  } else {
    Put(cad::ArcShape{center, radius, start, end});
  }
}

// Its points are the world's, whatever its plane is.
void EntityReader::TakeEllipse() {
  const Plane plane = PlaneOf();
  cad::Point major = fields_.PointAt(11);
  double ratio = std::abs(fields_.Real(40));
  double start = Degrees(fields_.Real(41));
  double end = fields_.Has(42) ? Degrees(fields_.Real(42)) : 360;
  end = EndFrom(start, end);
  const cad::Point minor = MinorOf(fields_.Extrusion(), major, ratio);
  if (ratio == 0 || LengthOf(major) == 0) {
    context_.notes.Count(Note::kNoShape);
    return;
  }
  if (!IsFlat(plane, major)) {
    PutCurve({fields_.PointAt(10), major, minor, start, end});
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
  Put(cad::EllipseShape{fields_.PointAt(10), major, ratio, start, start + turn});
}

void EntityReader::ReadSpline() {
  spline_ = {};
  fields_.Read(pairs_, [this] { return KeepSplineNumber(); });
  spline_.degree = fields_.Whole(71, 3);
  spline_.isClosed = fields_.HasFlag(70, kClosed);
}

bool EntityReader::KeepSplineNumber() {
  const int code = pairs_.Code();
  if (code == 40) {
    spline_.knots.push_back(pairs_.Real());
  } else if (code == 41) {
    spline_.weights.push_back(pairs_.Real());
  } else if (code % 10 <= 1 && code >= 10 && code <= 31) {
    std::vector<cad::Point>& points = code % 10 == 0 ? spline_.controls : spline_.fits;
    const double value = pairs_.Real();
    if (code < 20) {
      points.emplace_back(value, 0.0, 0.0);
    } else if (!points.empty()) {
      const cad::Point& last = points.back();
      points.back() = {last.getX(), code < 30 ? value : last.getY(),
                       code < 30 ? last.getZ() : value};
    }
  } else {
    return false;
  }
  return true;
}

void EntityReader::TakeSpline() {
  cad::PolylineShape line = PointsOf(spline_);
  if (line.points.size() < 2) {
    context_.notes.CountNotRead("SPLINE");
    return;
  }
  context_.notes.Count(Note::kSpline);
  Put(std::move(line));
}

}  // namespace dxf_reader
