// What a JB2 line looks like: reader and writer share it.
//
// A line is a record letter, "|", the separator, then fields that each end with the separator.
#pragma once

namespace jb2 {

inline constexpr char kSeparator = '\x1d';

inline constexpr char kJobLetter = 'L';
inline constexpr char kStationLetter = 'S';
inline constexpr char kPolarLetter = 'P';  // slope distance and zenith angle
inline constexpr char kReducedLetter =
    'R';  // horizontal distance and height difference; read, never written

// Letter, "|" and the first separator; the reader skips them without a look.
inline constexpr int kPrefixLength = 3;

// A line-reading call takes this many characters at most; what follows is a line of its own.
inline constexpr int kLongestPiece = 254;

// Decimals of the numbers.
inline constexpr int kHeightDecimals = 3;  // instrument and prism height, metres
inline constexpr int kTemperatureDecimals = 1;
inline constexpr int kPressureDecimals = 0;
inline constexpr int kAngleDecimals = 4;  // gon
inline constexpr int kDistanceDecimals = 3;

}  // namespace jb2
