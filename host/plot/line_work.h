// Themes and the drawing of a job as straight legs and texts.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "host/plot/index_colours.h"
#include "host/plot/plan_extent.h"
#include "model/gis.h"
#include "model/tcad_eng.h"

namespace plot {

/// From one place to another; both may be the same: a dot. Metres.
struct Leg {
  Place from;
  Place to;
  /// Position of what it belongs to: a triangle, a feature, an entity.
  std::uint32_t source = 0;

  Place Where() const { return Between(from, to, 0.5); }
};

/// A text in the plane, of one or more lines.
struct WorkText {
  Place at;             ///< its lower left corner (of the first line), metres
  double height = 0;    ///< of its capitals, metres
  double rotation = 0;  ///< degrees, counter-clockwise
  std::uint32_t source = 0;
  std::string text;  ///< UTF-8

  const Place& Where() const { return at; }
};

/// The lines below a text's first one stand so many heights apart.
inline constexpr double kLineSpacing = 1.6;
/// The share of a font's size that its capitals have.
inline constexpr double kCapitals = 0.72;

/// What belongs together: a theme, or a layer of the drawing.
struct LineWork {
  std::string name;  ///< UTF-8
  int position = 0;  ///< of a theme: in its library; of a layer: its id
  bool isVisible = true;
  bool arePoints = false;   ///< a theme of points
  std::uint64_t count = 0;  ///< features, entities
  std::vector<Leg> legs;
  std::vector<WorkText> texts;
  std::vector<Rgb> colours;  ///< by source; one alone is that of all

  Rgb ColourOf(std::uint32_t source) const { return colours[colours.size() == 1 ? 0 : source]; }
};

/// Each theme. Vertices without a place are left out, with the legs that they end.
std::vector<LineWork> ThemesOf(const gis::CLibGis& library);

/// Each layer on which there is something, hidden ones too. What the host draws of its own
/// libraries is left out: a plan shows those themselves. Inserts are taken apart.
std::vector<LineWork> DrawingsOf(const CTcadEng& engine);

Box ExtentOf(const LineWork& work);

}  // namespace plot
