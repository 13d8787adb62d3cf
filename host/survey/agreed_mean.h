// The mean of values that measure one thing, without those that contradict the others.
#pragma once

#include <span>
#include <vector>

namespace survey {

struct Measured {
  double value;
  double sigma;  ///< its standard deviation, larger than 0
};

struct AgreedMean {
  double value = 0;
  /// Standard deviation of a value of average weight, from how the used ones differ; 0 for one.
  double spread = 0;
  std::vector<bool> isUsed;
};

/// The weighted mean. Values that contradict the greatest number that agree are left out when those
/// are at least kLeastAgreeing, else all are used. `values` is not empty. `circle`: values are
/// angles of which so many are a full turn, and the mean lies within 0..circle; 0: plain numbers.
AgreedMean MeanOfAgreeing(std::span<const Measured> values, double circle = 0);

/// `difference` within half a turn to either side; as it is when `circle` is 0.
double Wrapped(double difference, double circle);

}  // namespace survey
