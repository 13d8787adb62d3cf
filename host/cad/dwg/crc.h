// The checksum of everything in a file.
#pragma once

#include <cstdint>
#include <string_view>

namespace dwg {

/// Where the checksums of a file start.
inline constexpr std::uint16_t kCrcStart = 0xC0C1;

/// The checksum of bytes behind others, whose checksum is `start`.
std::uint16_t Crc(std::uint16_t start, std::string_view bytes);

}  // namespace dwg
