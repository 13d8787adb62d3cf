// Where the records of a file lie, by their handles.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "host/cad/dwg/version.h"

namespace dwg {

struct MapEntry {
  Handle handle = 0;
  std::uint32_t address = 0;  ///< in the file

  bool operator==(const MapEntry&) const = default;
};

/// Appends the map as a file has it. The handles have to ascend.
void AppendObjectMap(std::string& bytes, const std::vector<MapEntry>& entries);

/// What a map holds, as it stands there. Throws Damage. `hasWrongChecksum` says whether one of its
/// sections has a checksum that does not fit.
std::vector<MapEntry> ReadObjectMap(std::string_view bytes, bool& hasWrongChecksum);

/// A number of seven bits a byte, the lowest first; the signed form has its sign in the last byte.
void AppendModular(std::string& bytes, std::uint64_t value);
void AppendSignedModular(std::string& bytes, std::int64_t value);
/// Take one off the front. Throw Damage.
std::uint64_t TakeModular(std::string_view& bytes);
std::int64_t TakeSignedModular(std::string_view& bytes);

}  // namespace dwg
