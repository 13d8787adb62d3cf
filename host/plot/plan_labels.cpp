#include "host/plot/plan_labels.h"

#include <algorithm>
#include <array>

#include "host/plot/nice_numbers.h"

namespace plot {
namespace {

constexpr double kPi = 3.14159265358979323846;
constexpr double kGap = 0.3;             // between a symbol and its name, millimetres
constexpr double kGapAfter = 0.6;        // between a name and what comes next, millimetres
constexpr double kGapInLine = 0.6;       // between a line and a text in it, millimetres
constexpr double kSamePlace = 1.5;       // names as near as this are of one place, millimetres
constexpr double kLineHeight = 1.15;     // of a line of text, in sizes of its letters
constexpr double kBaseline = 0.82;       // from the top of a line down to where letters stand
constexpr double kShortestContour = 30;  // that gets a label, millimetres
constexpr double kContourLabelEvery = 150;

// Where a block of text may stand beside a symbol: -1, 0, 1 for before, along and after it. The
// upper right is the most usual place, then the lower right.
struct Side {
  int x;
  int y;
};
constexpr std::array<Side, 8> kSides = {
    {{1, -1}, {1, 1}, {-1, -1}, {-1, 1}, {1, 0}, {-1, 0}, {0, -1}, {0, 1}}};

double LineHeight(TextKind kind) { return TextSize(kind) * kLineHeight; }

TextKind NameKind(MarkKind kind) {
  if (kind == MarkKind::kStation || kind == MarkKind::kGpsBase) return TextKind::kStation;
  if (kind == MarkKind::kKnown || kind == MarkKind::kControl) return TextKind::kKnown;
  return TextKind::kName;
}

// The middle of a block beside a symbol. At a corner the block's edge is level with the symbol's
// middle.
Place BlockMiddle(const Symbol& symbol, const Side& side, double width, double height) {
  const double away = HalfSizeOf(symbol) + kGap;
  const double x = side.x * (away + width / 2);
  const double y = side.x == 0 ? side.y * (away + height / 2) : side.y * height / 2;
  return {symbol.place.x + x, symbol.place.y + y};
}

// The direction in which a text along a line is not upside down.
double Upright(double angle) {
  const double turned = std::remainder(angle, 2 * kPi);
  return std::abs(turned) > kPi / 2 ? std::remainder(turned + kPi, 2 * kPi) : turned;
}

}  // namespace

double TextSize(TextKind kind) {
  switch (kind) {
    case TextKind::kStation: return 2.4;
    case TextKind::kRoad: return 2.6;
    case TextKind::kKnown: return 2.1;
    case TextKind::kName:
    case TextKind::kChainage: return 1.9;
    case TextKind::kCode:
    case TextKind::kContour: break;
  }
  return 1.7;
}

double HalfTick(bool hasLabel) { return hasLabel ? 1.2 : 0.7; }

bool LabelPlacer::Add(const std::string& text, TextKind kind, const LabelBox& box) {
  if (text.empty() || !grid_.Take(box)) return false;
  // From the middle of the box to the left end of the line that the letters stand on.
  const double back = -width_(text, kind) / 2;
  const double down = (kBaseline - 0.5) * box.height;
  const double cosine = std::cos(box.angle);
  const double sine = std::sin(box.angle);
  const Place start = {box.middle.x + back * cosine - down * sine,
                       box.middle.y + back * sine + down * cosine};
  labels_.push_back({text, kind, start, box.angle, box});
  return true;
}

bool LabelPlacer::IsNamedAlready(const Symbol& symbol, const std::string& name) const {
  return std::any_of(named_.begin(), named_.end(), [&](const auto& other) {
    return Distance(other.first, symbol.place) < kSamePlace && other.second == name;
  });
}

bool LabelPlacer::PlaceBeside(const Symbol& symbol, const std::vector<Line>& lines) {
  double width = 0;
  double height = 0;
  for (const Line& line : lines) {
    width = std::max(width, line.width);
    height += LineHeight(line.kind);
  }
  width += kGapAfter;
  for (const Side& side : kSides) {
    const Place middle = BlockMiddle(symbol, side, width, height);
    if (!grid_.IsFree({middle, width, height})) continue;
    double top = middle.y - height / 2;
    for (const Line& line : lines) {
      const double lineHeight = LineHeight(line.kind);
      const double rest = width - line.width;
      const double indent = side.x < 0 ? rest : side.x == 0 ? rest / 2 : 0;
      const Place start = {middle.x - width / 2 + indent, top + kBaseline * lineHeight};
      const LabelBox box = {
          {start.x + line.width / 2, top + lineHeight / 2}, line.width, lineHeight};
      labels_.push_back({line.text, line.kind, start, 0, box});
      top += lineHeight;
    }
    grid_.Occupy({middle, width, height});
    return true;
  }
  return false;
}

void LabelPlacer::AddMark(const Symbol& symbol, bool names, bool codes) {
  const CEgn& point = *symbol.mark->point;
  // A place where not even the shortest name fits, which is most of them in a crowd.
  const double least = TextSize(TextKind::kCode) / 2;
  const bool hasRoom = std::any_of(kSides.begin(), kSides.end(), [&](const Side& side) {
    return grid_.IsFree({BlockMiddle(symbol, side, least, least), least, least});
  });
  if (!hasRoom) return;
  std::vector<Line> lines;
  const auto add = [&](const std::string& text, TextKind kind) {
    if (!text.empty()) lines.push_back({text, kind, width_(text, kind)});
  };
  if (names) add(DrawableText(std::string(point.NameUtf8())), NameKind(symbol.mark->kind));
  if (codes) add(DrawableText(point.GetSecScri().ToUtf8()), TextKind::kCode);
  if (lines.empty() || IsNamedAlready(symbol, lines.front().text)) return;
  const std::string first = lines.front().text;
  bool isPlaced = PlaceBeside(symbol, lines);
  if (!isPlaced && lines.size() > 1) {
    lines.pop_back();
    isPlaced = PlaceBeside(symbol, lines);
  }
  if (isPlaced) named_.emplace_back(symbol.place, first);
}

void LabelPlacer::AddMarks(const std::vector<Symbol>& symbols, MarkKind first, MarkKind last,
                           bool names, bool codes) {
  if (!names && !codes) return;
  for (const Symbol& symbol : symbols) {
    if (symbol.mark->kind >= first && symbol.mark->kind <= last) AddMark(symbol, names, codes);
  }
}

bool LabelPlacer::PlaceOnLine(const Polyline& line, double share, double above,
                              const std::string& text, TextKind kind) {
  // A line that goes on right beside a number would be taken for its sign.
  const double width = width_(text, kind) + (above == 0 ? 2 * kGapInLine : 0);
  const double length = LengthOf(line);
  if (length < width) return false;
  const double middle = std::clamp(share * length, width / 2, length - width / 2);
  const Place from = Along(line, middle - width / 2).place;
  const Place to = Along(line, middle + width / 2).place;
  // Around a bend the text would leave its line.
  if (Distance(from, to) < 0.9 * width) return false;
  const double angle = Upright(std::atan2(to.y - from.y, to.x - from.x));
  const Place centre = Along(line, middle).place;
  return Add(text, kind,
             {{centre.x + above * std::sin(angle), centre.y - above * std::cos(angle)},
              width,
              LineHeight(kind),
              angle});
}

void LabelPlacer::NameRoad(const RoadOnSheet& road) {
  const auto longest = std::max_element(
      road.axis.begin(), road.axis.end(),
      [](const Polyline& a, const Polyline& b) { return LengthOf(a) < LengthOf(b); });
  if (longest == road.axis.end()) return;
  const double above = HalfTick(true) + LineHeight(TextKind::kRoad) / 2 + kGap;
  for (const double side : {above, -above}) {
    for (const double share : {0.5, 0.4, 0.6, 0.3, 0.7, 0.2, 0.8, 0.1, 0.9, 0.0, 1.0}) {
      if (PlaceOnLine(*longest, share, side, road.name, TextKind::kRoad)) return;
    }
  }
}

// Across the road, on its right-hand side or else on the left, beyond the tick.
void LabelPlacer::AddTick(const RoadOnSheet::Tick& tick, int decimals) {
  const std::string text = ChainageText(tick.chainage, decimals);
  const double width = width_(text, TextKind::kChainage);
  for (const double turn : {kPi / 2, -kPi / 2}) {
    const double outwards = tick.direction + turn;
    const double away = HalfTick(true) + kGap + width / 2;
    const Place middle = {tick.place.x + away * std::cos(outwards),
                          tick.place.y + away * std::sin(outwards)};
    if (Add(text, TextKind::kChainage,
            {middle, width, LineHeight(TextKind::kChainage), Upright(outwards)})) {
      return;
    }
  }
}

void LabelPlacer::AddRoads(const std::vector<RoadOnSheet>& roads, int chainageDecimals) {
  for (const RoadOnSheet& road : roads) NameRoad(road);
  for (const RoadOnSheet& road : roads) {
    for (const RoadOnSheet::Tick& tick : road.ticks) {
      if (tick.hasLabel) AddTick(tick, chainageDecimals);
    }
  }
}

void LabelPlacer::AddContours(const std::vector<ContourLine>& contours, int decimals) {
  for (const ContourLine& contour : contours) {
    const double length = contour.isFifth ? LengthOf(contour.line) : 0;
    if (length < kShortestContour) continue;
    const std::string text = FixedText(contour.elevation, decimals);
    const int labels = static_cast<int>(length / kContourLabelEvery) + 1;
    for (int i = 0; i < labels; ++i) {
      for (const double shift : {0.5, 0.35, 0.65, 0.2, 0.8}) {
        if (PlaceOnLine(contour.line, (i + shift) / labels, 0, text, TextKind::kContour)) break;
      }
    }
  }
}

}  // namespace plot
