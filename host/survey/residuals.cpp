#include "host/survey/residuals.h"

#include <algorithm>
#include <cmath>

#include "host/survey/agreed_mean.h"

namespace survey {

namespace {

bool StandsOut(double residual, double sigma) { return std::abs(residual) > kStandsOut * sigma; }

TargetResidual ResidualOf(const Solution::State& state, const TargetSight& sight) {
  TargetResidual result;
  const double reach = PlaneDistance(state.mark, sight.place);
  const double azimuth = Azimuth(state.mark, sight.place);
  result.direction = Wrapped(state.orientation + sight.direction - azimuth, kCircle);
  result.across = result.direction / kGonPerRadian * reach;
  result.directionStandsOut = StandsOut(result.across, sight.SigmaAcross(reach));
  if (IsDefined(sight.distance)) {
    result.along = sight.distance - reach;
    result.alongStandsOut = StandsOut(result.along, sight.SigmaAlong());
  }
  if (IsDefined(sight.rise) && IsDefined(sight.place.z) && IsDefined(state.mark.z)) {
    result.height = state.mark.z + sight.rise - sight.place.z;
    result.heightStandsOut = StandsOut(result.height, sight.SigmaRise());
  }
  return result;
}

}  // namespace

std::vector<TargetResidual> ResidualsOf(const Network& net, const Solution& solution, int setUp) {
  const Solution::State& state = solution.StateOf(setUp);
  std::vector<TargetResidual> residuals;
  if (!state.IsOriented()) return residuals;
  for (const TargetSight& sight : solution.PlacedTargets(setUp, /*withPoints=*/true)) {
    const bool isUsed =
        std::find(state.used.begin(), state.used.end(), sight.target) != state.used.end();
    if (!isUsed && !solution.IsMark(sight.target)) continue;
    residuals.push_back(ResidualOf(state, sight));
    residuals.back().name = net.Targets()[static_cast<std::size_t>(sight.target)].name;
    residuals.back().isUsed = isUsed;
  }
  return residuals;
}

}  // namespace survey
