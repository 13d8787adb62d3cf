// Round numbers for grids, scales, contours and chainages, and their texts.
#pragma once

#include <cstdint>
#include <string>

namespace plot {

/// The nearest number not below, or not above, a positive finite `value` that is 1, 2 or 5 times a
/// power of ten.
double NiceAtLeast(double value);
double NiceAtMost(double value);

/// The N of the next scale 1:N, not below `value`, that scale rulers have; 1 at least.
double ScaleAtLeast(double value);

/// The elevation between neighbouring contours for a range of elevations, metres: 8 to 20 of them
/// over the range. 0 for no range.
double ContourInterval(double range);

/// Decimals that tell multiples of a nice `step` apart.
int DecimalsOf(double step);

/// How many of the multiples of `step` lie within a range, and the first of them as a multiple:
/// i * step for i = first, first + 1, …
struct Multiples {
  double first = 0;
  int count = 0;  ///< 0 also for more than `most` of them
};
Multiples MultiplesWithin(double least, double largest, double step, int most = 1'000);

/// "1234.50"
std::string FixedText(double value, int decimals);
/// "1 000 000", with a narrow space between groups of three digits from five digits on.
std::string CountText(std::uint64_t value);
/// The N of a scale: "500", "1 000 000", "0.5" as it may be asked for.
std::string ScaleText(double scale);
/// "250 m", "2 km", "0.5 m"
std::string LengthText(double metres);
/// A chainage in kilometres and metres: "1+250", "0+007.5", "-0+020".
std::string ChainageText(double metres, int decimals);

}  // namespace plot
