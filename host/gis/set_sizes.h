// How large a set of Shape files may be.
#pragma once

#include <cstdint>

#include "host/gis/remarks.h"

namespace shape {

/// What no file of a set can have (its places are told in 32 bits), and what many programs cannot
/// read.
inline constexpr std::uint64_t kLargestFile = 0xFFFFFFFE;
inline constexpr std::uint64_t kLargestCommonFile = 0x7FFFFFFF;
inline constexpr std::uint64_t kMostCommonVertices = 50'000'000;

/// What will be written.
struct SetSizes {
  std::uint64_t shp = 0;           ///< bytes, at most
  std::uint64_t dbf = 0;           ///< bytes
  std::uint64_t mostVertices = 0;  ///< of the largest shape
};

/// The bits of the files that would be too large (see FExportFileShape). Tells of them, and of what
/// other programs may not read.
int CheckSizes(const SetSizes& sizes, Remarks& remarks);

}  // namespace shape
