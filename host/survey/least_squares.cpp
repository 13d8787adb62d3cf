#include "host/survey/least_squares.h"

#include <Eigen/Dense>

#include "host/survey/agreed_mean.h"

namespace survey {

namespace {

constexpr int kMostTurns = 30;
constexpr double kSettled = 1e-7;  // metres

// The equations of one turn: a column for the easting, the northing and, times `scale`, the
// orientation, so that all three are lengths.
struct Normal {
  Eigen::Matrix3d matrix = Eigen::Matrix3d::Zero();
  Eigen::Vector3d right = Eigen::Vector3d::Zero();
  double squares = 0;
  int equations = 0;

  void Add(const Eigen::Vector3d& row, double misclosure, double sigma) {
    const double weight = 1 / (sigma * sigma);
    matrix += weight * row * row.transpose();
    right += weight * misclosure * row;
    squares += weight * misclosure * misclosure;
    ++equations;
  }
};

void AddSight(const SetUpState& state, const TargetSight& sight, double scale, Normal& normal) {
  const double east = sight.place.x - state.mark.x;
  const double north = sight.place.y - state.mark.y;
  const double reach = std::hypot(east, north);
  if (reach == 0) return;
  // Both in metres: across the line of sight, and along it.
  const double turn = Wrapped(sight.direction + state.orientation * kGonPerRadian -
                                  Azimuth(state.mark, sight.place),
                              kCircle) /
                      kGonPerRadian;
  normal.Add({-north / reach, east / reach, -reach / scale}, turn * reach,
             sight.SigmaAcross(reach));
  if (!sight.HasDistance()) return;
  normal.Add({-east / reach, -north / reach, 0}, sight.distance - reach, sight.SigmaAlong());
}

Normal NormalOf(const SetUpState& state, std::span<const TargetSight> sights,
                const std::vector<bool>& isUsed, double scale) {
  Normal normal;
  for (std::size_t i = 0; i < sights.size(); ++i) {
    if (isUsed[i]) AddSight(state, sights[i], scale, normal);
  }
  return normal;
}

double MeanReach(const SetUpState& state, std::span<const TargetSight> sights) {
  double sum = 0;
  for (const TargetSight& sight : sights) sum += PlaneDistance(state.mark, sight.place);
  return std::max(1.0, sum / static_cast<double>(sights.size()));
}

bool IsRegular(const Eigen::Matrix3d& matrix) {
  constexpr double kLeastRatio = 1e-10;
  const Eigen::SelfAdjointEigenSolver<Eigen::Matrix3d> solver(matrix, Eigen::EigenvaluesOnly);
  const Eigen::Vector3d& values = solver.eigenvalues();
  return values.allFinite() && values[0] > kLeastRatio * values[2];
}

double MarkSigma(const Normal& normal) {
  const int left = normal.equations - 3;
  if (left <= 0) return 0;
  const Eigen::Matrix3d cofactors = normal.matrix.inverse();
  return std::sqrt(normal.squares / left * (cofactors(0, 0) + cofactors(1, 1)));
}

}  // namespace

Adjustment Adjust(const SetUpState& start, std::span<const TargetSight> sights,
                  const std::vector<bool>& isUsed) {
  Adjustment result{start};
  const double scale = MeanReach(start, sights);
  for (int turn = 0; turn < kMostTurns; ++turn) {
    const Normal normal = NormalOf(result.state, sights, isUsed, scale);
    result.isDetermined = IsRegular(normal.matrix);
    if (!result.isDetermined) return result;
    if (result.hasConverged) {
      result.markSigma = MarkSigma(normal);
      return result;
    }
    const Eigen::Vector3d step = normal.matrix.ldlt().solve(normal.right);
    result.state.mark.x += step[0];
    result.state.mark.y += step[1];
    result.state.orientation += step[2] / scale;
    result.hasConverged = step.norm() < kSettled;
  }
  return result;
}

}  // namespace survey
