#include "host/survey/sight_mean.h"

#include "host/survey/agreed_mean.h"

namespace survey {

namespace {

constexpr double kHalfCircle = 200;  // gon

struct Mean {
  double sum = 0;
  int count = 0;

  void Add(double value) {
    sum += value;
    ++count;
  }
  double Value() const { return count == 0 ? UndefinedValue : sum / count; }
};

double FaceOneDirection(const Observation& observation) {
  const bool isFaceTwo = IsDefined(observation.zenith) && observation.zenith > kHalfCircle;
  return isFaceTwo ? observation.horizontal - kHalfCircle : observation.horizontal;
}

}  // namespace

std::optional<TargetSight> MeanOfSights(std::span<const Sight> sights, double instrumentHeight,
                                        const CCalcDsOr& how) {
  std::optional<double> first;
  Mean turn;
  Mean distance;
  Mean rise;
  for (const Sight& sight : sights) {
    const Observation observation = sight.point->ObservationToUse(how);
    if (!IsDefined(observation.horizontal)) continue;
    const double direction = FaceOneDirection(observation);
    if (!first) first = direction;
    // As differences from the first, so that it does not matter where the circle starts.
    turn.Add(Wrapped(direction - *first, kCircle));
    const Ray ray = RayOf(observation.slopeDistance, observation.zenith, how.reduction);
    if (!IsDefined(ray.across)) continue;
    distance.Add(std::abs(ray.across));
    rise.Add(instrumentHeight + ray.up - sight.point->GetAltPri());
  }
  if (!first) return std::nullopt;
  TargetSight result;
  result.target = sights.front().target;
  result.direction = FullCircle(*first + turn.Value());
  result.distance = distance.Value();
  result.rise = rise.Value();
  return result;
}

}  // namespace survey
