#include "host/cad/writing/extent.h"

#include <algorithm>
#include <cmath>

#include "host/cad/writing/soundness.h"

namespace cad_writer {
namespace {

using cad::Point;

Point Away(const Point& center, const Direction& direction, double distance) {
  return {center.getX() + distance * direction.cos, center.getY() + distance * direction.sin,
          center.getZ()};
}

// Its ends, and the points to the right, top, left and bottom that lie on it.
void IncludeArc(Extent& extent, const cad::ArcShape& arc) {
  const double sweep = Sweep(arc.start, arc.end);
  extent.Include(Away(arc.center, DirectionOf(arc.start), arc.radius));
  extent.Include(Away(arc.center, DirectionOf(arc.end), arc.radius));
  const double start = std::fmod(arc.start, 360.0);
  for (int side = static_cast<int>(std::ceil(start / 90)); side * 90 <= start + sweep; ++side) {
    extent.Include(Away(arc.center, DirectionOf(side * 90), arc.radius));
  }
}

double DegreesTo(const Point& from, const Point& to) {
  return std::atan2(to.getY() - from.getY(), to.getX() - from.getX()) / kRadiansPerDegree;
}

// The centre lies beside the middle of the chord, and the arc turns left where the bulge is
// positive.
void IncludeBulge(Extent& extent, const Point& from, const Point& to, double bulge) {
  const double dx = to.getX() - from.getX();
  const double dy = to.getY() - from.getY();
  if (bulge == 0 || (dx == 0 && dy == 0)) return;
  const double beside = (1 / bulge - bulge) / 4;
  const Point center(from.getX() + dx / 2 - dy * beside, from.getY() + dy / 2 + dx * beside,
                     from.getZ());
  const double radius = std::hypot(dx, dy) * (1 / std::fabs(bulge) + std::fabs(bulge)) / 4;
  if (!IsPlace(center) || !IsNumber(radius)) return;
  double start = DegreesTo(center, from);
  double end = DegreesTo(center, to);
  if (bulge < 0) std::swap(start, end);
  IncludeArc(extent, {center, radius, start, end});
}

struct Inclusion {
  Extent& extent;

  void All(std::span<const Point> points) const {
    for (const Point& point : points) extent.Include(point);
  }
  void operator()(const cad::PointShape& it) const { extent.Include(it.at); }
  void operator()(const cad::LineShape& it) const {
    extent.Include(it.from);
    extent.Include(it.to);
  }
  void operator()(const cad::PolylineShape& it) const {
    All(it.points);
    if (it.bulges.empty() || !IsFlat(it)) return;
    const std::size_t arcs = it.points.size() - (it.isClosed ? 0 : 1);
    for (std::size_t i = 0; i < arcs; ++i) {
      IncludeBulge(extent, it.points[i], it.points[(i + 1) % it.points.size()], BulgeAt(it, i));
    }
  }
  void operator()(const cad::CircleShape& it) const {
    IncludeArc(extent, {it.center, it.radius, 0, 360});
  }
  void operator()(const cad::ArcShape& it) const { IncludeArc(extent, it); }
  void operator()(const cad::EllipseShape& it) const { All(ChordsOf(it).Points()); }
  void operator()(const cad::TextShape& it) const { extent.Include(it.at); }
  void operator()(const cad::InsertShape& it) const { extent.Include(it.at); }
  void operator()(const cad::FaceShape& it) const { All(it.points); }
  void operator()(const cad::SolidShape& it) const { All(it.points); }
};

}  // namespace

void Extent::Include(const Point& point) {
  if (!IsPlace(point)) return;
  min_ = {std::min(min_.getX(), point.getX()), std::min(min_.getY(), point.getY()),
          std::min(min_.getZ(), point.getZ())};
  max_ = {std::max(max_.getX(), point.getX()), std::max(max_.getY(), point.getY()),
          std::max(max_.getZ(), point.getZ())};
}

void Extent::Include(const Extent& box, const InsertPlacing& placing) {
  if (box.IsEmpty()) return;
  for (const double x : {box.min_.getX(), box.max_.getX()}) {
    for (const double y : {box.min_.getY(), box.max_.getY()}) {
      for (const double z : {box.min_.getZ(), box.max_.getZ()}) Include(placing({x, y, z}));
    }
  }
}

View ViewOf(const Extent& extent) {
  constexpr double kMargin = 1.1;
  if (extent.IsEmpty()) return {};
  const Point& min = extent.Min();
  const Point& max = extent.Max();
  const double height =
      std::max(max.getY() - min.getY(), (max.getX() - min.getX()) / View::kWidthByHeight);
  return {min.getX() / 2 + max.getX() / 2, min.getY() / 2 + max.getY() / 2,
          height > 0 ? height * kMargin : 1};
}

void Include(Extent& extent, const cad::Shape& shape) { std::visit(Inclusion{extent}, shape); }

}  // namespace cad_writer
