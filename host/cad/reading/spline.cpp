#include <algorithm>
#include <array>
#include <cmath>

#include "host/cad/reading/shapes.h"

namespace cad_reader {
namespace {

using cad::Point;

constexpr int kHighestDegree = 20;
constexpr int kStepsOfSpan = 8;

// A point with its weight, the other numbers already multiplied by it.
using Weighted = std::array<double, 4>;

// Evaluates a spline between two of its knots by going from its control points halfway to each
// other, as far as the knots say.
class Evaluation {
 public:
  explicit Evaluation(const Spline& spline)
      : spline_(spline), degree_(static_cast<std::size_t>(spline.degree)) {}

  /// The point at `t`, which lies between the knots `span` and `span` + 1.
  Point At(std::size_t span, double t) {
    for (std::size_t i = 0; i <= degree_; ++i) points_[i] = Control(span - degree_ + i);
    for (std::size_t round = 1; round <= degree_; ++round) {
      for (std::size_t i = degree_; i >= round; --i) {
        const double from = spline_.knots[span - degree_ + i];
        const double to = spline_.knots[span + 1 + i - round];
        Mix(points_[i], points_[i - 1], to > from ? (t - from) / (to - from) : 0);
      }
    }
    const Weighted& point = points_[degree_];
    return {point[0] / point[3], point[1] / point[3], point[2] / point[3]};
  }

 private:
  Weighted Control(std::size_t i) const {
    const double weight = spline_.weights.empty() ? 1 : spline_.weights[i];
    const Point& point = spline_.controls[i];
    return {point.getX() * weight, point.getY() * weight, point.getZ() * weight, weight};
  }
  static void Mix(Weighted& to, const Weighted& from, double share) {
    for (std::size_t k = 0; k < to.size(); ++k) to[k] = share * to[k] + (1 - share) * from[k];
  }

  const Spline& spline_;
  std::size_t degree_;
  std::array<Weighted, kHighestDegree + 1> points_{};
};

bool IsSound(const Spline& spline) {
  if (spline.degree < 1 || spline.degree > kHighestDegree) return false;
  const auto degree = static_cast<std::size_t>(spline.degree);
  const std::size_t count = spline.controls.size();
  return count > degree && spline.knots.size() == count + degree + 1 &&
         (spline.weights.empty() || spline.weights.size() == count) &&
         std::is_sorted(spline.knots.begin(), spline.knots.end());
}

}  // namespace

cad::PolylineShape PointsOf(const Spline& spline) {
  cad::PolylineShape line;
  line.isClosed = spline.isClosed;
  if (!IsSound(spline)) {
    line.points = spline.fits;
    return line;
  }
  Evaluation evaluation(spline);
  const int steps = spline.degree == 1 ? 1 : kStepsOfSpan;
  const std::vector<double>& knots = spline.knots;
  std::size_t last = 0;
  for (auto span = static_cast<std::size_t>(spline.degree); span < spline.controls.size(); ++span) {
    const double length = knots[span + 1] - knots[span];
    if (!(length > 0)) continue;
    last = span;
    for (int i = 0; i < steps; ++i) {
      line.points.push_back(evaluation.At(span, knots[span] + length * i / steps));
    }
  }
  if (last != 0 && !spline.isClosed) line.points.push_back(evaluation.At(last, knots[last + 1]));
  return line;
}

}  // namespace cad_reader
