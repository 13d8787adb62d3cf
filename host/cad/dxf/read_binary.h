// Binary DXF files: the mark they begin with, and the type of each value.
#pragma once

#include <cstdint>
#include <string_view>

namespace dxf_reader {

inline constexpr std::string_view kBinaryMark("AutoCAD Binary DXF\r\n\x1A\0", 22);

enum class BinaryType : std::uint8_t { kText, kReal, kBool, kWhole16, kWhole32, kWhole64, kBytes };

/// What the value of a pair with this code is in a binary file.
BinaryType BinaryTypeOf(int code);

}  // namespace dxf_reader
