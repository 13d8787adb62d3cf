// Where the records of a ".shp" file are.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "host/gis/streams.h"

namespace shape {

/// The first 100 bytes of a ".shp" file.
struct ShapeHeader {
  std::uint64_t length = 0;  ///< of the file in bytes, as it says itself
  int type = 0;              ///< one of the library's SHPT_…
};

/// Nothing when there is no such header.
std::optional<ShapeHeader> ReadHeader(Stream& shp);

struct ShapeIndex {
  std::string shx;          ///< an index file that belongs to the records
  bool isRebuilt = false;   ///< it is not the one that was there
  std::uint64_t badAt = 0;  ///< where in the file something else than a record stands; 0: nowhere
};

/// `given`: the ".shx" file that came with it, empty for none. It is used when each of its entries
/// leads to a record; else the records are looked up in the file itself.
ShapeIndex IndexOf(Stream& shp, const ShapeHeader& header, std::string_view given);

}  // namespace shape
