#include "host/cadastre/covariance.h"

#include <algorithm>
#include <cmath>

namespace dat {
namespace {

// Whole billionths of a square metre, as the file has them; larger ones are no variances of a
// survey, and their determinant would not be exact.
__extension__ using Exact = __int128;
constexpr double kUnit = 1e9;
constexpr double kLargest = 1e12;

// Sylvester: all leading minors are positive.
bool IsPositiveDefinite(Exact xx, Exact xy, Exact xz, Exact yy, Exact yz, Exact zz) {
  const Exact second = xx * yy - xy * xy;
  const Exact third =
      xx * (yy * zz - yz * yz) - xy * (xy * zz - yz * xz) + xz * (xy * yz - yy * xz);
  return xx > 0 && second > 0 && third > 0;
}

}  // namespace

std::vector<double> CovarianceOf(const CPunGps& point) {
  return {point.GetPosCov_xx(), point.GetPosCov_xy(), point.GetPosCov_xz(),
          point.GetPosCov_yy(), point.GetPosCov_yz(), point.GetPosCov_zz()};
}

CovarianceState StateOf(const std::vector<double>& terms) {
  const auto isDefined = [](double term) { return IsDefined(term); };
  if (!std::all_of(terms.begin(), terms.end(), isDefined)) return CovarianceState::kMissing;
  std::vector<Exact> units;
  for (const double term : terms) {
    const double unit = std::nearbyint(term * kUnit);
    if (std::abs(unit) > kLargest) return CovarianceState::kNotPositive;
    units.push_back(static_cast<Exact>(unit));
  }
  return IsPositiveDefinite(units[0], units[1], units[2], units[3], units[4], units[5])
             ? CovarianceState::kSound
             : CovarianceState::kNotPositive;
}

}  // namespace dat
