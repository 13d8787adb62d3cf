// Themes and the drawing on the sheet.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "host/plot/line_work.h"
#include "host/plot/terrain_lines.h"

namespace plot {

/// A line of text; all in millimetres.
struct TextOnSheet {
  Place start;  ///< of its base line
  double size = 0;
  double angle = 0;  ///< radians, clockwise
  Rgb colour = 0;
  std::string text;  ///< drawable
};

/// What of it lies within the frame. Where many legs, or points, lie within what is seen as one
/// dot, there is one.
struct WorkOnSheet {
  std::string name;  ///< drawable
  Rgb colour = 0;    ///< of its first object
  bool arePoints = false;
  std::map<Rgb, std::vector<LineLeg>> legs;
  std::map<Rgb, std::vector<Box>> dots;
  std::vector<TextOnSheet> texts;
  std::uint64_t smallTexts = 0;  ///< texts whose letters could not be read: left out

  bool IsEmpty() const { return legs.empty() && dots.empty() && texts.empty(); }
};

WorkOnSheet OnSheet(const LineWork& work, const Sheet& sheet);

}  // namespace plot
