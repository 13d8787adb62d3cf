#include "host/plot/plan_scene.h"

#include "host/plot/nice_numbers.h"

namespace plot {
namespace {

constexpr double kChordErrorInPixels = 0.1;
constexpr double kTickBreadth = 0.2;

// Of round chainages, those that are multiples of the larger step are labelled.
bool IsMultiple(double value, double step) {
  return std::abs(std::remainder(value, step)) < step * 1e-6;
}

RoadOnSheet OnSheet(const CRoad& road, const Sheet& sheet, const ChainageSteps& steps) {
  RoadOnSheet result;
  result.name = DrawableText(road.GetName().ToUtf8());
  const double chordError = sheet.MetresOf(sheet.pixel * kChordErrorInPixels);
  for (const Polyline& line : AxisOf(road, chordError)) {
    Polyline onSheet;
    onSheet.reserve(line.size());
    for (const Place& place : line) onSheet.push_back(sheet.OnSheet(place));
    for (Polyline& part : ClipLine(sheet.frame, onSheet, 0)) {
      result.axis.push_back(std::move(part));
    }
  }
  for (const ChainageMark& mark : ChainageMarks(road, steps.marks)) {
    const Place place = sheet.OnSheet(mark.place);
    if (!sheet.frame.Holds(place)) continue;
    result.ticks.push_back(
        {mark.chainage, place, -mark.direction, IsMultiple(mark.chainage, steps.labels)});
  }
  return result;
}

void AddTerrain(const PlanContent& content, Scene& scene) {
  const Elevations elevations = ElevationsOf(content.models);
  if (elevations.IsThere()) {
    scene.contourInterval = ContourInterval(elevations.most - elevations.least);
  }
  for (const CDtmPrj* const model : content.models) {
    scene.terrain.push_back(TerrainLinesOf(*model, scene.sheet, scene.contourInterval));
  }
}

void OccupyRoads(const std::vector<RoadOnSheet>& roads, LabelGrid& grid) {
  for (const RoadOnSheet& road : roads) {
    for (const Polyline& line : road.axis) grid.OccupyLine(line);
    for (const RoadOnSheet::Tick& tick : road.ticks) {
      const double half = HalfTick(tick.hasLabel);
      grid.Occupy({tick.place, kTickBreadth, 2 * half, tick.direction});
    }
  }
}

// Their width is a guess: what is drawn by others need not be avoided to the letter.
void OccupyTexts(const std::vector<TextOnSheet>& texts, LabelGrid& grid) {
  constexpr double kLetterWidth = 0.55;  // of the size
  for (const TextOnSheet& text : texts) {
    const double half = kLetterWidth * text.size * static_cast<double>(text.text.size()) / 2;
    const double x = half * std::cos(text.angle);
    const double y = half * std::sin(text.angle);
    grid.Occupy({{text.start.x + x, text.start.y + y}, 2 * half, text.size, text.angle});
  }
}

// What is more important first: the later ones take what place is left.
void AddLabels(const PlanOptions& options, const ChainageSteps& steps, const TextWidth& width,
               Scene& scene) {
  LabelGrid grid(scene.sheet.frame);
  OccupySymbols(scene.symbols, grid);
  OccupyRoads(scene.roads, grid);
  for (const WorkOnSheet& drawing : scene.drawings) OccupyTexts(drawing.texts, grid);
  LabelPlacer placer(grid, width);
  const std::vector<Symbol>& symbols = scene.symbols.symbols;
  placer.AddMarks(symbols, MarkKind::kStation, MarkKind::kGpsBase, options.names, false);
  placer.AddMarks(symbols, MarkKind::kKnown, MarkKind::kControl, options.names, options.codes);
  placer.AddRoads(scene.roads, DecimalsOf(steps.labels));
  for (const TerrainLines& terrain : scene.terrain) {
    placer.AddContours(terrain.contours, DecimalsOf(scene.contourInterval));
  }
  placer.AddMarks(symbols, MarkKind::kGps, MarkKind::kMeasured, options.names, options.codes);
  scene.labels = std::move(placer.Labels());
}

}  // namespace

Scene SceneOf(const PlanContent& content, const PlanOptions& options, const TextWidth& width) {
  Scene scene;
  scene.sheet = LayOut(ExtentOf(content), options);
  scene.grid = GridOf(scene.sheet);
  AddTerrain(content, scene);
  const ChainageSteps steps = ChainageStepsOf(scene.sheet);
  for (const CRoad* const road : content.roads) {
    scene.roads.push_back(OnSheet(*road, scene.sheet, steps));
  }
  for (const LineWork& theme : content.themes) scene.themes.push_back(OnSheet(theme, scene.sheet));
  for (const LineWork& drawing : content.drawings) {
    scene.drawings.push_back(OnSheet(drawing, scene.sheet));
  }
  scene.symbols = SymbolsOf(content.marks, scene.sheet);
  AddLabels(options, steps, width, scene);
  return scene;
}

}  // namespace plot
