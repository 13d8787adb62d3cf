// How well field work is expected to fit together. A figure stands out when it is larger than
// `kStandsOut` times the standard deviation that follows from these.
#pragma once

namespace survey {

inline constexpr double kDirectionSigma = 0.0015;  ///< gon: one pointing, in one face
inline constexpr double kDistanceSigma = 0.005;    ///< metres
inline constexpr double kHeightSigma = 0.005;      ///< metres: instrument and prism height

/// Metres, across and along the line of sight: a mark with given coordinates, the instrument and
/// the prism centred over it; and one whose coordinates were worked out on the way.
inline constexpr double kKnownSigma = 0.005;
inline constexpr double kComputedSigma = 0.01;

inline constexpr double kStandsOut = 4;

/// So many others must agree before one is left out.
inline constexpr int kLeastAgreeing = 3;

/// Metres: sights of one name that lie farther apart are not taken for one point.
inline constexpr double kLargestSpread = 0.1;

}  // namespace survey
