#include "host/plot/plan_painter.h"

#include <array>

namespace plot {
namespace {

constexpr Colour kWhite = {1, 1, 1};
constexpr Colour kInk = {0.12, 0.12, 0.14};
constexpr Colour kCodeGrey = {0.52, 0.52, 0.54};
constexpr Colour kStationBlue = {0.04, 0.18, 0.55};
constexpr Colour kKnownGreen = {0.0, 0.38, 0.22};
constexpr Colour kControlPurple = {0.45, 0.12, 0.52};
constexpr Colour kGpsTeal = {0.0, 0.42, 0.58};
constexpr double kSymbolWidth = 0.2;
constexpr double kCrossWidth = 0.15;
constexpr double kGridArm = 1.5;
constexpr double kVeil = 0.75;  // behind labels

Colour ColourOfKind(MarkKind kind) {
  switch (kind) {
    case MarkKind::kStation: return kStationBlue;
    case MarkKind::kKnown:
    case MarkKind::kManyKnown: return kKnownGreen;
    case MarkKind::kControl: return kControlPurple;
    case MarkKind::kGpsBase:
    case MarkKind::kGps: return kGpsTeal;
    case MarkKind::kMeasured: break;
  }
  return kInk;
}

Polyline Triangle(const Place& p, double half) {
  return {{p.x, p.y - half},
          {p.x + half * 0.9, p.y + half * 0.6},
          {p.x - half * 0.9, p.y + half * 0.6},
          {p.x, p.y - half}};
}

Polyline Diamond(const Place& p, double half) {
  return {{p.x, p.y - half},
          {p.x + half, p.y},
          {p.x, p.y + half},
          {p.x - half, p.y},
          {p.x, p.y - half}};
}

void PaintCross(Canvas& canvas, const Place& p, double half, const Colour& colour) {
  canvas.Stroke(std::vector<LineLeg>{{{p.x - half, p.y}, {p.x + half, p.y}},
                                     {{p.x, p.y - half}, {p.x, p.y + half}}},
                kCrossWidth, colour);
}

void PaintGrid(const Scene& scene, Canvas& canvas) {
  std::vector<LineLeg> arms;
  for (const double east : scene.grid.eastings) {
    for (const double north : scene.grid.northings) {
      const Place p = scene.sheet.OnSheet({east, north});
      arms.push_back({{p.x - kGridArm, p.y}, {p.x + kGridArm, p.y}});
      arms.push_back({{p.x, p.y - kGridArm}, {p.x, p.y + kGridArm}});
    }
  }
  for (LineLeg& arm : arms) ClipLeg(scene.sheet.frame, arm.first, arm.second);
  canvas.Stroke(arms, line_style::kGridCross.width, line_style::kGridCross.colour);
}

void PaintTerrain(const TerrainLines& terrain, Canvas& canvas) {
  using namespace line_style;
  canvas.Stroke(terrain.sides, kTriangle.width, kTriangle.colour);
  for (const bool isFifth : {false, true}) {
    const LineStyle& style = isFifth ? kHeavyContour : kContour;
    for (const ContourLine& contour : terrain.contours) {
      if (contour.isFifth == isFifth) canvas.Stroke(contour.line, style.width, style.colour);
    }
  }
  canvas.Stroke(terrain.breaklines, kBreakline.width, kBreakline.colour);
  canvas.Stroke(terrain.outline, kOutline.width, kOutline.colour);
}

void PaintWork(const WorkOnSheet& work, double width, Canvas& canvas) {
  for (const auto& [colour, legs] : work.legs) canvas.Stroke(legs, width, ColourOf(colour));
  for (const auto& [colour, dots] : work.dots) canvas.Fill(dots, ColourOf(colour));
  for (const TextOnSheet& text : work.texts) {
    TextStyle style{text.size, false, ColourOf(text.colour)};
    style.angle = text.angle;
    canvas.Text(text.start, text.text, style);
  }
}

void PaintRoad(const RoadOnSheet& road, Canvas& canvas) {
  canvas.Stroke(road.axis, line_style::kAxis.width, line_style::kAxis.colour);
  std::vector<LineLeg> ticks;
  for (const RoadOnSheet::Tick& tick : road.ticks) {
    const double half = HalfTick(tick.hasLabel);
    const double x = -half * std::sin(tick.direction);
    const double y = half * std::cos(tick.direction);
    ticks.push_back({{tick.place.x - x, tick.place.y - y}, {tick.place.x + x, tick.place.y + y}});
  }
  canvas.Stroke(ticks, line_style::kTick.width, line_style::kTick.colour);
}

Colour Lighter(const Colour& colour, double share) {
  const auto mixed = [&](double part) { return part + share * (1 - part); };
  return {mixed(colour.red), mixed(colour.green), mixed(colour.blue)};
}

// A crowd of points is a ground on which everything else is still seen.
void PaintDots(const MarkSymbols& symbols, Canvas& canvas) {
  constexpr double kLighter = 0.35;
  for (std::size_t kind = symbols.dots.size(); kind-- > 0;) {
    if (symbols.dots[kind].empty()) continue;
    canvas.Fill(symbols.dots[kind], Lighter(ColourOfKind(static_cast<MarkKind>(kind)), kLighter));
  }
}

// What is more important lies above the rest.
void PaintSymbols(const MarkSymbols& symbols, Canvas& canvas) {
  std::vector<LineLeg> crosses;
  for (auto symbol = symbols.symbols.rbegin(); symbol != symbols.symbols.rend(); ++symbol) {
    if (!symbol->IsWhole() || symbol->mark->kind != MarkKind::kMeasured) continue;
    const double half = HalfSymbol(MarkKind::kMeasured);
    const Place& p = symbol->place;
    crosses.push_back({{p.x - half, p.y}, {p.x + half, p.y}});
    crosses.push_back({{p.x, p.y - half}, {p.x, p.y + half}});
  }
  canvas.Stroke(crosses, kCrossWidth, ColourOfKind(MarkKind::kMeasured));
  for (auto symbol = symbols.symbols.rbegin(); symbol != symbols.symbols.rend(); ++symbol) {
    if (!symbol->IsWhole() || symbol->mark->kind == MarkKind::kMeasured) continue;
    PaintSymbol(canvas, symbol->mark->kind, symbol->place);
  }
}

void PaintLabels(const std::vector<Label>& labels, Canvas& canvas) {
  for (const Label& label : labels) {
    const Place& m = label.box.middle;
    const double x = label.box.width / 2;
    const double y = label.box.height / 2;
    canvas.Fill({m.x - x, m.y - y, m.x + x, m.y + y}, label.angle, kWhite, kVeil);
  }
  for (const Label& label : labels) {
    TextStyle style = StyleOf(label.kind);
    style.angle = label.angle;
    canvas.Text(label.start, label.text, style);
  }
}

}  // namespace

TextStyle StyleOf(TextKind kind) {
  TextStyle style{TextSize(kind)};
  switch (kind) {
    case TextKind::kStation:
      style.isBold = true;
      style.colour = kStationBlue;
      break;
    case TextKind::kKnown: style.colour = kKnownGreen; break;
    case TextKind::kName: style.colour = kInk; break;
    case TextKind::kCode: style.colour = kCodeGrey; break;
    case TextKind::kRoad:
      style.isBold = true;
      style.colour = line_style::kAxis.colour;
      break;
    case TextKind::kChainage: style.colour = line_style::kTick.colour; break;
    case TextKind::kContour: style.colour = line_style::kHeavyContour.colour; break;
  }
  return style;
}

void PaintSymbol(Canvas& canvas, MarkKind kind, const Place& place) {
  const double half = HalfSymbol(kind);
  const Colour colour = ColourOfKind(kind);
  switch (kind) {
    case MarkKind::kStation:
      canvas.Fill(Triangle(place, half), kWhite);
      canvas.Stroke(Triangle(place, half), kSymbolWidth * 1.4, colour);
      canvas.Disc(place, 0.2, colour);
      break;
    case MarkKind::kKnown:
    case MarkKind::kManyKnown: canvas.Fill(Triangle(place, half), colour); break;
    case MarkKind::kControl: canvas.Stroke(Diamond(place, half), kSymbolWidth, colour); break;
    case MarkKind::kGpsBase:
      canvas.Circle(place, half, kSymbolWidth * 1.4, colour);
      canvas.Disc(place, 0.4, colour);
      break;
    case MarkKind::kGps: canvas.Circle(place, half, kSymbolWidth, colour); break;
    case MarkKind::kMeasured: PaintCross(canvas, place, half, colour); break;
  }
}

void PaintPlan(const Scene& scene, Canvas& canvas) {
  PaintDots(scene.symbols, canvas);
  for (const WorkOnSheet& theme : scene.themes) PaintWork(theme, line_style::kTheme, canvas);
  for (const TerrainLines& terrain : scene.terrain) PaintTerrain(terrain, canvas);
  for (const WorkOnSheet& layer : scene.drawings) PaintWork(layer, line_style::kDrawing, canvas);
  PaintGrid(scene, canvas);
  for (const RoadOnSheet& road : scene.roads) PaintRoad(road, canvas);
  PaintSymbols(scene.symbols, canvas);
  PaintLabels(scene.labels, canvas);
}

}  // namespace plot
