#include "host/survey/agreed_mean.h"

#include <algorithm>
#include <cmath>

#include "host/survey/tolerances.h"

namespace survey {

namespace {

// Among thousands of values some fifty serve as well as all to find what most agree on.
constexpr std::size_t kCandidates = 50;

bool Agree(const Measured& one, const Measured& other, double circle) {
  return std::abs(Wrapped(one.value - other.value, circle)) <=
         kStandsOut * std::hypot(one.sigma, other.sigma);
}

std::size_t CountAgreeing(std::span<const Measured> values, const Measured& with, double circle) {
  return static_cast<std::size_t>(std::count_if(
      values.begin(), values.end(), [&](const Measured& it) { return Agree(it, with, circle); }));
}

// Spread over all in no regular steps, which a pattern in the data could hide from.
std::size_t Candidate(std::size_t k, std::size_t size) {
  if (size <= kCandidates) return k;
  constexpr double kGoldenRatio = 0.6180339887498949;
  const double part = static_cast<double>(k) * kGoldenRatio;
  return static_cast<std::size_t>((part - std::floor(part)) * static_cast<double>(size));
}

// The first candidate that the greatest number agree with.
const Measured& Middle(std::span<const Measured> values, double circle) {
  const Measured* best = &values.front();
  std::size_t most = 0;
  for (std::size_t k = 0; k < std::min(values.size(), kCandidates); ++k) {
    const Measured& candidate = values[Candidate(k, values.size())];
    const std::size_t agreeing = CountAgreeing(values, candidate, circle);
    if (agreeing <= most) continue;
    most = agreeing;
    best = &candidate;
  }
  return *best;
}

double Weight(const Measured& it) { return 1 / (it.sigma * it.sigma); }

// Angles are taken as differences from `origin`, so that it does not matter where the circle
// starts.
void TakeMean(std::span<const Measured> values, double origin, double circle, AgreedMean& mean) {
  double weights = 0;
  double sum = 0;
  for (std::size_t i = 0; i < values.size(); ++i) {
    if (!mean.isUsed[i]) continue;
    weights += Weight(values[i]);
    sum += Weight(values[i]) * Wrapped(values[i].value - origin, circle);
  }
  mean.value = origin + sum / weights;
  if (circle > 0) mean.value -= circle * std::floor(mean.value / circle);
}

void TakeSpread(std::span<const Measured> values, double circle, AgreedMean& mean) {
  double weights = 0;
  double squares = 0;
  int count = 0;
  for (std::size_t i = 0; i < values.size(); ++i) {
    if (!mean.isUsed[i]) continue;
    const double residual = Wrapped(values[i].value - mean.value, circle);
    weights += Weight(values[i]);
    squares += Weight(values[i]) * residual * residual;
    ++count;
  }
  mean.spread = count < 2 ? 0 : std::sqrt(squares / weights * count / (count - 1));
}

}  // namespace

double Wrapped(double difference, double circle) {
  return circle > 0 ? std::remainder(difference, circle) : difference;
}

AgreedMean MeanOfAgreeing(std::span<const Measured> values, double circle) {
  const Measured& middle = Middle(values, circle);
  AgreedMean mean;
  mean.isUsed.resize(values.size());
  std::transform(values.begin(), values.end(), mean.isUsed.begin(),
                 [&](const Measured& it) { return Agree(it, middle, circle); });
  if (std::count(mean.isUsed.begin(), mean.isUsed.end(), true) < kLeastAgreeing) {
    mean.isUsed.assign(values.size(), true);
  }
  TakeMean(values, middle.value, circle, mean);
  TakeSpread(values, circle, mean);
  return mean;
}

}  // namespace survey
