// The names and numbers on a plan: each in a place where it covers nothing.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "host/plot/contour_lines.h"
#include "host/plot/mark_symbols.h"
#include "host/plot/road_lines.h"

namespace plot {

/// What a text is about, which says how it looks.
enum class TextKind { kStation, kKnown, kName, kCode, kRoad, kChainage, kContour };

/// Height of a kind's letters from line to line, millimetres.
double TextSize(TextKind kind);

struct Label {
  std::string text;  ///< drawable
  TextKind kind = TextKind::kName;
  Place start;       ///< where its line begins, on the sheet
  double angle = 0;  ///< radians, clockwise
  LabelBox box;      ///< what it covers
};

/// The width of a text in its kind's letters, millimetres.
using TextWidth = std::function<double(std::string_view text, TextKind kind)>;

/// A road on the sheet.
struct RoadOnSheet {
  std::string name;
  std::vector<Polyline> axis;
  struct Tick {
    double chainage = 0;
    Place place;
    double direction = 0;  ///< of driving: radians, clockwise from the right
    bool hasLabel = false;
  };
  std::vector<Tick> ticks;
};

/// Half the length of a chainage tick, millimetres; those with a label are longer.
double HalfTick(bool hasLabel);

class LabelPlacer {
 public:
  /// `grid` holds what is drawn already; it and `width` must stay.
  LabelPlacer(LabelGrid& grid, const TextWidth& width) : grid_(grid), width_(width) {}

  /// Names, or the codes, or both, of the marks of the given importance. A name that stands beside
  /// the same place already is not written again.
  void AddMarks(const std::vector<Symbol>& symbols, MarkKind first, MarkKind last, bool names,
                bool codes);
  void AddRoads(const std::vector<RoadOnSheet>& roads, int chainageDecimals);
  /// Elevations of heavy contours, whose lines are on the sheet.
  void AddContours(const std::vector<ContourLine>& contours, int decimals);

  std::vector<Label>& Labels() { return labels_; }

 private:
  struct Line {
    std::string text;
    TextKind kind;
    double width;
  };
  bool PlaceBeside(const Symbol& symbol, const std::vector<Line>& lines);
  bool IsNamedAlready(const Symbol& symbol, const std::string& name) const;
  void AddMark(const Symbol& symbol, bool names, bool codes);
  void NameRoad(const RoadOnSheet& road);
  void AddTick(const RoadOnSheet::Tick& tick, int decimals);
  /// On a line, or above it by `above`, the right way up.
  bool PlaceOnLine(const Polyline& line, double share, double above, const std::string& text,
                   TextKind kind);
  bool Add(const std::string& text, TextKind kind, const LabelBox& box);

  LabelGrid& grid_;
  const TextWidth& width_;
  std::vector<Label> labels_;
  std::vector<std::pair<Place, std::string>> named_;
};

}  // namespace plot
