// Values that are not there.
#pragma once

#include <limits>

/// What the host stores for a coordinate, height or measurement that is undefined.
inline constexpr double UndefinedValue = 1.7e+200;

/// A value is there only when it lies below this limit.
inline constexpr double UndefinedValueLimit = 8.5e199;

/// False for an undefined value, and for NaN and the infinities.
constexpr bool IsDefined(double value) {
  return value < UndefinedValueLimit && value >= std::numeric_limits<double>::lowest();
}

/// The same for what is held in single precision, which cannot hold UndefinedValue itself.
inline constexpr float UndefinedFloat = std::numeric_limits<float>::infinity();

/// The nearest single-precision value; what is too large for one is undefined there.
constexpr float ToSingle(double value) {
  constexpr double kLargest = std::numeric_limits<float>::max();
  return value <= kLargest && value >= -kLargest ? static_cast<float>(value) : UndefinedFloat;
}
