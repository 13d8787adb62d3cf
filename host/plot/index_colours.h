// The colours of a drawing's colour indices on white paper.
#pragma once

#include <cstdint>

namespace plot {

/// 0xRRGGBB
using Rgb = std::uint32_t;

/// What would be too bright on white paper is darker.
Rgb RgbOf(std::uint16_t colourIndex);

}  // namespace plot
