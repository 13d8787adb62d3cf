// Values that are not there.
#pragma once

#include <limits>

/// What the host stores for a coordinate, height or measurement that is undefined.
inline constexpr double UndefinedValue = 1.7e+200;

/// A value is there only when it lies below this limit.
inline constexpr double UndefinedValueLimit = 8.5e199;

/// False for an undefined value and for NaN.
constexpr bool IsDefined(double value) { return value < UndefinedValueLimit; }

/// The same for what is held in single precision, which cannot hold UndefinedValue itself.
inline constexpr float UndefinedFloat = std::numeric_limits<float>::infinity();
