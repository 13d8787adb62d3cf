#include "host/cad/reading/shapes.h"

#include <algorithm>
#include <cmath>

namespace cad_reader {
namespace {

using cad::Point;

constexpr double kStep = 5;  // degrees from point to point

bool AllFinite(std::initializer_list<double> numbers) {
  return std::all_of(numbers.begin(), numbers.end(),
                     [](double each) { return std::isfinite(each); });
}
bool AreFinite(const std::vector<double>& numbers) {
  return std::all_of(numbers.begin(), numbers.end(),
                     [](double each) { return std::isfinite(each); });
}
bool IsFinitePoint(const Point& p) { return AllFinite({p.getX(), p.getY(), p.getZ()}); }
bool AllFinite(const std::vector<Point>& points) {
  return std::all_of(points.begin(), points.end(), IsFinitePoint);
}

struct FiniteCheck {
  bool operator()(const cad::PointShape& s) const { return IsFinitePoint(s.at); }
  bool operator()(const cad::LineShape& s) const {
    return IsFinitePoint(s.from) && IsFinitePoint(s.to);
  }
  bool operator()(const cad::PolylineShape& s) const {
    return AllFinite(s.points) && AreFinite(s.bulges);
  }
  bool operator()(const cad::CircleShape& s) const {
    return IsFinitePoint(s.center) && std::isfinite(s.radius);
  }
  bool operator()(const cad::ArcShape& s) const {
    return IsFinitePoint(s.center) && AllFinite({s.radius, s.start, s.end});
  }
  bool operator()(const cad::EllipseShape& s) const {
    return IsFinitePoint(s.center) && IsFinitePoint(s.major) &&
           AllFinite({s.ratio, s.start, s.end});
  }
  bool operator()(const cad::TextShape& s) const {
    return IsFinitePoint(s.at) && AllFinite({s.height, s.rotation});
  }
  bool operator()(const cad::InsertShape& s) const {
    return IsFinitePoint(s.at) && IsFinitePoint(s.scale) && std::isfinite(s.rotation);
  }
  bool operator()(const cad::FaceShape& s) const { return AllFinite(s.points); }
  bool operator()(const cad::SolidShape& s) const { return AllFinite(s.points); }
};

int StepsFor(double degrees) {
  constexpr double kMost = 360 / kStep;
  return static_cast<int>(std::clamp(std::ceil(std::abs(degrees) / kStep), 1.0, kMost));
}

// The points between both ends of an arc; `bulge` is the tangent of a quarter of its angle.
void AppendArc(std::vector<Point>& points, const Point& from, const Point& to, double bulge) {
  const double angle = 4 * std::atan(bulge);
  const double across =
      (1 / bulge - bulge) / 4;  // from the chord's middle to the centre, in chords
  const double dx = to.getX() - from.getX();
  const double dy = to.getY() - from.getY();
  const Point center(from.getX() + dx / 2 - dy * across, from.getY() + dy / 2 + dx * across, 0);
  const double x = from.getX() - center.getX();
  const double y = from.getY() - center.getY();
  const int steps = StepsFor(Degrees(angle));
  for (int i = 1; i < steps; ++i) {
    const double turn = angle * i / steps;
    points.emplace_back(center.getX() + x * std::cos(turn) - y * std::sin(turn),
                        center.getY() + x * std::sin(turn) + y * std::cos(turn), from.getZ());
  }
}

}  // namespace

bool IsFinite(const cad::Point& point) { return IsFinitePoint(point); }
bool IsFinite(const cad::Shape& shape) { return std::visit(FiniteCheck(), shape); }

cad::PolylineShape PointsOf(const Curve& curve) {
  const auto at = [](double center, double x, double y, double t) {
    return center + x * std::cos(t) + y * std::sin(t);
  };
  cad::PolylineShape line;
  const double turn = curve.end - curve.start;
  line.isClosed = turn >= 360;
  const int steps = StepsFor(turn);
  for (int i = 0; i < (line.isClosed ? steps : steps + 1); ++i) {
    const double t = Radians(curve.start + std::min(turn, 360.0) * i / steps);
    line.points.emplace_back(at(curve.center.getX(), curve.x.getX(), curve.y.getX(), t),
                             at(curve.center.getY(), curve.x.getY(), curve.y.getY(), t),
                             at(curve.center.getZ(), curve.x.getZ(), curve.y.getZ(), t));
  }
  return line;
}

cad::PolylineShape WithoutBulges(const cad::PolylineShape& line) {
  cad::PolylineShape straight;
  straight.isClosed = line.isClosed;
  const std::size_t count = line.points.size();
  for (std::size_t i = 0; i < count; ++i) {
    straight.points.push_back(line.points[i]);
    const bool hasNext = i + 1 < count || line.isClosed;
    if (hasNext && line.bulges[i] != 0) {
      AppendArc(straight.points, line.points[i], line.points[(i + 1) % count], line.bulges[i]);
    }
  }
  return straight;
}

}  // namespace cad_reader
