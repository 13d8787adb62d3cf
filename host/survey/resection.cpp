#include "host/survey/resection.h"

#include <algorithm>
#include <limits>

#include "host/survey/agreed_mean.h"
#include "host/survey/least_squares.h"
#include "host/survey/resection_start.h"

namespace survey {

namespace {

// What a trial is worth: how many targets fit it, and how well.
struct Fit {
  std::vector<bool> isUsed;
  int agreeing = 0;
  double misfit = std::numeric_limits<double>::infinity();

  bool IsBetterThan(const Fit& other) const {
    return agreeing != other.agreeing ? agreeing > other.agreeing : misfit < other.misfit;
  }
};

// How far a sight is from what a set-up would have seen, in standard deviations.
double Misfit(const SetUpState& state, const TargetSight& sight) {
  const double reach = PlaneDistance(state.mark, sight.place);
  const double turn = Wrapped(
      Azimuth(state.mark, sight.place) - sight.direction - state.orientation * kGonPerRadian,
      kCircle);
  const double across = turn / kGonPerRadian * reach / sight.SigmaAcross(reach);
  if (!sight.HasDistance()) return std::abs(across);
  return std::max(std::abs(across), std::abs(reach - sight.distance) / sight.SigmaAlong());
}

Fit FitOf(const SetUpState& state, std::span<const TargetSight> sights) {
  Fit fit;
  fit.misfit = 0;
  for (const TargetSight& sight : sights) {
    const double misfit = Misfit(state, sight);
    fit.isUsed.push_back(misfit <= kStandsOut);
    if (!fit.isUsed.back()) continue;
    ++fit.agreeing;
    fit.misfit += misfit * misfit;
  }
  return fit;
}

struct Trial {
  SetUpState state;
  Fit fit;
};

// The start that most targets agree with, brought to its best by least squares over those.
std::optional<Trial> BestTrial(std::span<const TargetSight> sights) {
  std::optional<Trial> best;
  for (const SetUpState& start : ResectionStarts(sights)) {
    Trial trial{start, FitOf(start, sights)};
    if (!best || trial.fit.IsBetterThan(best->fit)) best = std::move(trial);
  }
  return best;
}

}  // namespace

Resection Resect(std::span<const TargetSight> sights) {
  Resection result;
  if (!HasEnoughSights(sights)) {
    result.trouble = ResectionTrouble::kTooFewSights;
    return result;
  }
  const auto best = BestTrial(sights);
  if (!best) {
    result.trouble = ResectionTrouble::kUndetermined;
    return result;
  }
  result.isUsed = best->fit.isUsed;
  if (best->fit.agreeing < kLeastAgreeing) result.isUsed.assign(sights.size(), true);
  const Adjustment adjusted = Adjust(best->state, sights, result.isUsed);
  if (!adjusted.isDetermined) {
    result.trouble = ResectionTrouble::kUndetermined;
  } else if (!adjusted.hasConverged) {
    result.trouble = ResectionTrouble::kDoesNotFit;
  } else {
    result.mark = adjusted.state.mark;
    result.orientation = FullCircle(adjusted.state.orientation * kGonPerRadian);
    result.markSigma = adjusted.markSigma;
  }
  return result;
}

}  // namespace survey
