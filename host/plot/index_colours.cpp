#include "host/plot/index_colours.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace plot {
namespace {

// Nobody tells pure yellow from white paper.
Rgb OnPaper(double red, double green, double blue) {
  const auto part = [](double share) { return static_cast<Rgb>(std::lround(255 * share)); };
  const double light = 0.3 * red + 0.59 * green + 0.11 * blue;
  const double darker = light > 0.75 ? 0.75 / light : 1;
  return part(red * darker) << 16 | part(green * darker) << 8 | part(blue * darker);
}

// Of the hues, one every 15 degrees, each has five brightnesses, full and half as strong.
Rgb HueOf(int index) {
  constexpr std::array<double, 5> kBrightness = {1, 0.65, 0.5, 0.3, 0.15};
  const double hue = (index / 10 - 1) * 15 / 60.0;
  const double brightness = kBrightness[static_cast<std::size_t>(index % 10 / 2)];
  const double least = index % 2 == 0 ? 0 : 0.5;
  const auto part = [&](double peak) {
    double away = std::abs(hue - peak);
    away = std::min(away, 6 - away);
    return brightness * (least + (1 - least) * std::clamp(2 - away, 0.0, 1.0));
  };
  return OnPaper(part(0), part(2), part(4));
}

}  // namespace

Rgb RgbOf(std::uint16_t colourIndex) {
  constexpr std::array<Rgb, 10> kFirst = {0x000000, 0xE00000, 0xA89B00, 0x008F00, 0x008F9B,
                                          0x0000E0, 0xC000C0, 0x000000, 0x696969, 0x9B9B9B};
  if (colourIndex < kFirst.size()) return kFirst[colourIndex];
  if (colourIndex < 250) return HueOf(colourIndex);
  const double grey = std::min(0.2 + (colourIndex - 250) * 0.13, 0.85);
  return OnPaper(grey, grey, grey);
}

}  // namespace plot
