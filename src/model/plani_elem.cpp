#include "model/plani_elem.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace {

using tdk::geom::PNT_2D;
using tdk::geom::VECTOR_2D;

VECTOR_2D Direction(const PNT_2D& from, const PNT_2D& to) {
  const double x = to.getX() - from.getX();
  const double y = to.getY() - from.getY();
  const double length = std::hypot(x, y);
  return length == 0 ? VECTOR_2D(1, 0) : VECTOR_2D(x / length, y / length);
}

VECTOR_2D Turned(const VECTOR_2D& v, double angle) {
  const double cosine = std::cos(angle);
  const double sine = std::sin(angle);
  return {v.getX() * cosine - v.getY() * sine, v.getX() * sine + v.getY() * cosine};
}

// `along` in the direction of `tangent`, `left` to its left.
PNT_2D Moved(const PNT_2D& from, const VECTOR_2D& tangent, double along, double left) {
  return {from.getX() + along * tangent.getX() - left * tangent.getY(),
          from.getY() + along * tangent.getY() + left * tangent.getX()};
}

struct Node {
  double at;  // within -1..1
  double weight;
};
// Gauss and Legendre, five points.
constexpr std::array<Node, 5> kNodes = {{{0, 0.5688888888888889},
                                         {-0.5384693101056831, 0.4786286704993665},
                                         {0.5384693101056831, 0.4786286704993665},
                                         {-0.9061798459386640, 0.2369268850561891},
                                         {0.9061798459386640, 0.2369268850561891}}};
// Panels that turn no more give the end point better than 1e-12 m.
constexpr double kTurnOfPanel = 0.1;
constexpr double kMostPanels = 10'000;

}  // namespace

CPlaniElem::~CPlaniElem() = default;

CLinePlaniElem::CLinePlaniElem(double prog, const PNT_2D& start, const PNT_2D& end)
    : CPlaniElem(prog, start, Direction(start, end)), end_(end) {}

double CLinePlaniElem::GetLength() const {
  return std::hypot(end_.getX() - GetStartPnt().getX(), end_.getY() - GetStartPnt().getY());
}

void CLinePlaniElem::GetTg(double /*s*/, VECTOR_2D& tangent) const { tangent = GetStartTg(); }

double CLinePlaniElem::GetRadius(double /*s*/) const {
  return std::numeric_limits<double>::infinity();
}

PNT_2D CLinePlaniElem::PointAt(double s) const { return Moved(GetStartPnt(), GetStartTg(), s, 0); }

void CArcPlaniElem::GetTg(double s, VECTOR_2D& tangent) const {
  tangent = Turned(GetStartTg(), (ccw_ ? s : -s) / radius_);
}

PNT_2D CArcPlaniElem::PointAt(double s) const {
  const double turn = s / radius_;
  const double left = radius_ * (1 - std::cos(turn));
  return Moved(GetStartPnt(), GetStartTg(), radius_ * std::sin(turn), ccw_ ? left : -left);
}

CClotPlaniElem::CClotPlaniElem(double prog, const PNT_2D& start, const VECTOR_2D& tangent,
                               double length, double a, bool entrance, bool ccw)
    : CPlaniElem(prog, start, tangent),
      length_(length),
      clothoid_(a),
      entrance_(entrance),
      ccw_(ccw) {}

double CClotPlaniElem::CurvatureAt(double s) const {
  const double a = clothoid_.GetA();
  const double curvature = (entrance_ ? s : length_ - s) / (a * a);
  return ccw_ ? curvature : -curvature;
}

double CClotPlaniElem::TurnAt(double s) const { return s * (CurvatureAt(0) + CurvatureAt(s)) / 2; }

void CClotPlaniElem::GetTg(double s, VECTOR_2D& tangent) const {
  tangent = Turned(GetStartTg(), TurnAt(s));
}

double CClotPlaniElem::GetRadius(double s) const { return 1 / std::abs(CurvatureAt(s)); }

PNT_2D CClotPlaniElem::PointAt(double s) const {
  const double panels = std::clamp(std::ceil(std::abs(TurnAt(s)) / kTurnOfPanel), 1.0, kMostPanels);
  const double half = s / panels / 2;
  double along = 0;
  double left = 0;
  for (double panel = 0; panel < panels; ++panel) {
    const double middle = (2 * panel + 1) * half;
    for (const Node& node : kNodes) {
      const double turn = TurnAt(middle + half * node.at);
      along += node.weight * std::cos(turn);
      left += node.weight * std::sin(turn);
    }
  }
  return Moved(GetStartPnt(), GetStartTg(), along * half, left * half);
}
