// Whether a covariance matrix is one.
#pragma once

#include <vector>

#include "model/gps.h"

namespace dat {

/// The six terms as they are written: the upper triangle by rows, XX XY XZ YY YZ ZZ.
inline constexpr int kCovarianceDecimals = 9;

enum class CovarianceState { kSound, kMissing, kNotPositive };

/// xx, xy, xz, yy, yz, zz (square metres). Undefined when the point has none.
std::vector<double> CovarianceOf(const CPunGps& point);

/// Judges the terms as they are when rounded to the decimals of the file.
CovarianceState StateOf(const std::vector<double>& terms);

}  // namespace dat
