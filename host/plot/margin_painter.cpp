#include "host/plot/margin_painter.h"

#include <algorithm>
#include <functional>

#include "host/plot/nice_numbers.h"
#include "host/plot/plan_painter.h"
#include "host/plot/plan_words.h"
#include "services/translate.h"

namespace plot {
namespace {

constexpr double kHalfPi = 1.57079632679489661923;
constexpr Colour kInk = {0.12, 0.12, 0.14};
constexpr Colour kGrey = {0.40, 0.40, 0.42};
constexpr Colour kWhite = {1, 1, 1};
constexpr double kFrameWidth = 0.25;
constexpr double kTick = 1;  // of a coordinate, outwards from the frame
constexpr double kCoordinateSize = 1.9;
constexpr double kTitleSize = 4;
constexpr double kFactsSize = 2.3;
constexpr double kLeastFactsSize = 1.2;
constexpr double kArrowRoom = 14;
constexpr int kScaleBarParts = 4;

Polyline Outline(const Box& box) {
  return {{box.left, box.low},
          {box.right, box.low},
          {box.right, box.high},
          {box.left, box.high},
          {box.left, box.low}};
}

// In letters of the given size, or of smaller ones where it would be too wide; what would be too
// small to be read is cut off.
void FittingText(Canvas& canvas, const Place& place, std::string text, TextStyle style,
                 double widest) {
  const double width = canvas.WidthOf(text, style.size, style.isBold);
  if (width > widest) style.size = std::max(kLeastFactsSize, style.size * widest / width);
  while (!text.empty() && canvas.WidthOf(text + "…", style.size, style.isBold) > widest &&
         canvas.WidthOf(text, style.size, style.isBold) > widest) {
    do {
      text.pop_back();
    } while (!text.empty() && (static_cast<unsigned char>(text.back()) & 0xC0) == 0x80);
    // The first byte of a character whose others are gone.
    if (!text.empty() && static_cast<unsigned char>(text.back()) >= 0xC0) text.pop_back();
  }
  canvas.Text(place, text, style);
}

void PaintTitle(const Sheet& sheet, const MarginTexts& texts, Canvas& canvas) {
  const double left = sheet.frame.left;
  const double widest = sheet.frame.Width() - kArrowRoom;
  FittingText(canvas, {left, 8}, texts.title, {kTitleSize, true, kInk}, widest);
  FittingText(canvas, {left, 12.4}, texts.counts, {kFactsSize, false, kGrey}, widest);
  FittingText(canvas, {left, 16.2}, texts.extent, {kFactsSize, false, kGrey}, widest);
}

void PaintNorthArrow(const Sheet& sheet, Canvas& canvas) {
  const double x = sheet.frame.right - 4;
  const double top = 6.5;
  const double foot = 16.5;
  canvas.Fill(Polyline{{x, top}, {x - 2.6, foot}, {x, foot - 2.4}}, kInk);
  canvas.Stroke(Polyline{{x, top}, {x + 2.6, foot}, {x, foot - 2.4}, {x, top}}, 0.15, kInk);
  canvas.Text({x, top - 0.8}, Xlate("N").ToUtf8(), {3, true, kInk, 0.5});
}

// A label that would reach into its neighbour or past the frame is left out.
void PaintCoordinates(const Scene& scene, Canvas& canvas) {
  const Box& frame = scene.sheet.frame;
  const double distance = scene.sheet.MillimetresOf(scene.grid.step);
  std::vector<LineLeg> ticks;
  for (const double east : scene.grid.eastings) {
    const double x = scene.sheet.OnSheet({east, 0}).x;
    ticks.push_back({{x, frame.high}, {x, frame.high + kTick}});
    const std::string text = FixedText(east, scene.grid.decimals);
    const double width = canvas.WidthOf(text, kCoordinateSize, false);
    if (width > 0.9 * distance || x + width / 2 > scene.sheet.width - 1) continue;
    canvas.Text({x, frame.high + 3.2}, text, {kCoordinateSize, false, kInk, 0.5});
  }
  for (const double north : scene.grid.northings) {
    const double y = scene.sheet.OnSheet({0, north}).y;
    ticks.push_back({{frame.left, y}, {frame.left - kTick, y}});
    const std::string text = FixedText(north, scene.grid.decimals);
    const double width = canvas.WidthOf(text, kCoordinateSize, false);
    if (width > 0.9 * distance || y + width / 2 > frame.high + 8) continue;
    canvas.Text({frame.left - 1.6, y}, text, {kCoordinateSize, false, kInk, 0.5, -kHalfPi});
  }
  canvas.Stroke(ticks, 0.15, kInk);
}

// Parts in turn dark and light; the first begins at 0.
void PaintScaleBar(const Scene& scene, const std::string& scale, Canvas& canvas) {
  const double length = ScaleBarLength(scene.sheet);
  const double width = scene.sheet.MillimetresOf(length);
  const Place start = {scene.sheet.frame.left, scene.sheet.frame.high + 8.8};
  constexpr double kHeight = 1.3;
  for (int i = 0; i < kScaleBarParts; ++i) {
    const double left = start.x + i * width / kScaleBarParts;
    const Box part = {left, start.y, left + width / kScaleBarParts, start.y + kHeight};
    canvas.Fill(std::vector<Box>{part}, i % 2 == 0 ? kInk : kWhite);
    canvas.Stroke(Outline(part), 0.12, kInk);
  }
  const double base = start.y - 0.8;
  const std::string half = LengthText(length / 2);
  canvas.Text({start.x, base}, "0", {kCoordinateSize, false, kInk, 0.5});
  if (canvas.WidthOf(half, kCoordinateSize, false) < 0.4 * width) {
    canvas.Text({start.x + width / 2, base}, half, {kCoordinateSize, false, kInk, 0.5});
  }
  canvas.Text({start.x + width, base}, LengthText(length), {kCoordinateSize, false, kInk, 0.5});
  canvas.Text({start.x + width + 10, start.y + kHeight + 0.3}, scale, {3.4, true, kInk});
}

struct LegendEntry {
  std::string text;
  std::function<void(const Place&)> paint;
};

void AddLine(std::vector<LegendEntry>& entries, Canvas& canvas, const std::string& text,
             const LineStyle& style) {
  entries.push_back(
      {text, [&canvas, style](const Place& p) {
         canvas.Stroke(Polyline{{p.x - 2, p.y}, {p.x + 2, p.y}}, style.width, style.colour);
       }});
}

void AddTerrain(const Scene& scene, Canvas& canvas, std::vector<LegendEntry>& entries) {
  const auto any = [&](auto has) {
    return std::any_of(scene.terrain.begin(), scene.terrain.end(), has);
  };
  using namespace line_style;
  if (any([](const TerrainLines& lines) { return !lines.sides.empty(); })) {
    AddLine(entries, canvas, Xlate("triangles").ToUtf8(), {kTriangle.width * 2, kTriangle.colour});
  }
  if (any([](const TerrainLines& lines) { return !lines.contours.empty(); })) {
    const std::string interval = LengthText(scene.contourInterval);
    AddLine(entries, canvas, Fill(Xlate("contours every {1}"), {tdk::WString(interval)}).ToUtf8(),
            kHeavyContour);
  }
  if (any([](const TerrainLines& lines) { return !lines.breaklines.empty(); })) {
    AddLine(entries, canvas, Xlate("breaklines").ToUtf8(), kBreakline);
  }
}

void AddThemes(const Scene& scene, Canvas& canvas, std::vector<LegendEntry>& entries) {
  for (const WorkOnSheet& theme : scene.themes) {
    if (theme.IsEmpty() || theme.name.empty()) continue;
    const Colour colour = ColourOf(theme.colour);
    if (!theme.arePoints) {
      AddLine(entries, canvas, theme.name, {line_style::kTheme, colour});
      continue;
    }
    entries.push_back(
        {theme.name, [&canvas, colour](const Place& p) {
           canvas.Fill(std::vector<Box>{{p.x - 0.4, p.y - 0.4, p.x + 0.4, p.y + 0.4}}, colour);
         }});
  }
}

std::vector<LegendEntry> LegendOf(const Scene& scene, Canvas& canvas) {
  std::vector<LegendEntry> entries;
  for (int i = 0; i < kMarkKinds; ++i) {
    const auto kind = static_cast<MarkKind>(i);
    const auto& symbols = scene.symbols.symbols;
    if (std::none_of(symbols.begin(), symbols.end(),
                     [&](const Symbol& symbol) { return symbol.mark->kind == kind; })) {
      continue;
    }
    entries.push_back(
        {NameOfKind(kind), [&canvas, kind](const Place& p) { PaintSymbol(canvas, kind, p); }});
  }
  AddTerrain(scene, canvas, entries);
  if (std::any_of(scene.roads.begin(), scene.roads.end(),
                  [](const RoadOnSheet& road) { return !road.axis.empty(); })) {
    AddLine(entries, canvas, Xlate("road axis").ToUtf8(), line_style::kAxis);
  }
  AddThemes(scene, canvas, entries);
  return entries;
}

// In two rows at most.
void PaintLegend(const Scene& scene, Canvas& canvas) {
  constexpr TextStyle kStyle = {2.1, false, kGrey};
  const double left = scene.sheet.frame.left;
  const double lastRow = scene.sheet.height - 3.5;
  Place place = {left, lastRow - 4.5};
  for (const LegendEntry& entry : LegendOf(scene, canvas)) {
    const double width = 5.2 + canvas.WidthOf(entry.text, kStyle.size, kStyle.isBold);
    if (place.x + width > scene.sheet.frame.right && place.x > left) {
      place = {left, place.y + 4.5};
      if (place.y > lastRow + 0.1) return;
    }
    entry.paint({place.x + 2, place.y - 0.7});
    canvas.Text({place.x + 5.2, place.y}, entry.text, kStyle);
    place.x += width + 5;
  }
}

}  // namespace

void PaintMargins(const Scene& scene, const MarginTexts& texts, Canvas& canvas) {
  canvas.Stroke(Outline(scene.sheet.frame), kFrameWidth, kInk);
  PaintCoordinates(scene, canvas);
  PaintTitle(scene.sheet, texts, canvas);
  PaintNorthArrow(scene.sheet, canvas);
  PaintScaleBar(scene, texts.scale, canvas);
  PaintLegend(scene, canvas);
}

}  // namespace plot
