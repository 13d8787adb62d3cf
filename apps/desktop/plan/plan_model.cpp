#include "apps/desktop/plan/plan_model.h"

#include <algorithm>
#include <array>

#include "apps/desktop/plan/terrain_legs.h"
#include "host/plot/road_lines.h"
#include "services/translate.h"

namespace plan {
namespace {

constexpr double kChordError = 0.01;  // metres

struct MarkLayer {
  plot::MarkKind kind;
  const char* name;
};
constexpr MarkLayer kMarkLayers[] = {
    {plot::MarkKind::kStation, ToXlate("Stations")},
    {plot::MarkKind::kMeasured, ToXlate("Measured points")},
    {plot::MarkKind::kGpsBase, ToXlate("GPS bases")},
    {plot::MarkKind::kGps, ToXlate("GPS points")},
    {plot::MarkKind::kKnown, ToXlate("Known points")},
    {plot::MarkKind::kControl, ToXlate("Control points")},
};

// Known points that stand out and those that do not are one layer.
plot::MarkKind LayerOf(plot::MarkKind kind) {
  return kind == plot::MarkKind::kManyKnown ? plot::MarkKind::kKnown : kind;
}

}  // namespace

Rgb RgbOf(plot::MarkKind kind) {
  switch (kind) {
    case plot::MarkKind::kStation: return 0x0A2E8C;
    case plot::MarkKind::kKnown:
    case plot::MarkKind::kManyKnown: return 0x006138;
    case plot::MarkKind::kControl: return 0x731F85;
    case plot::MarkKind::kGpsBase:
    case plot::MarkKind::kGps: return 0x006B94;
    case plot::MarkKind::kMeasured: break;
  }
  return 0x1F1F24;
}

PlanModel::PlanModel(HostDocument& document) : content_(plot::ContentOf(document, true)) {
  AddPoints();
  AddTexts();
  AddThemes();
  AddDrawings();
  AddTerrain();
  AddRoads();
}

std::vector<const PlanLayer*> PlanModel::FromTheGround() const {
  std::vector<const PlanLayer*> layers;
  for (const PlanLayer& layer : layers_) layers.push_back(&layer);
  std::stable_partition(layers.begin(), layers.end(),
                        [](const PlanLayer* layer) { return layer->kind == LayerKind::kTerrain; });
  return layers;
}

bool PlanModel::IsShown(LayerKind kind, int position) const {
  for (const PlanLayer& layer : layers_) {
    if (layer.kind == kind && layer.position == position) return layer.isVisible;
  }
  return false;
}

void PlanModel::AddPoints() {
  std::vector<MarkAt> places;
  places.reserve(content_.marks.size());
  std::array<bool, plot::kMarkKinds> isThere{};
  for (const plot::Mark& mark : content_.marks) {
    places.push_back({mark.place, static_cast<std::uint32_t>(places.size()), mark.kind});
    extent_.Add(mark.place);
    isThere[static_cast<std::size_t>(LayerOf(mark.kind))] = true;
  }
  places_ = CellGrid<MarkAt>(std::move(places));
  for (const MarkLayer& each : kMarkLayers) {
    if (!isThere[static_cast<std::size_t>(each.kind)]) continue;
    PlanLayer layer{.kind = LayerKind::kPoints, .name = Xlate(each.name).ToUtf8()};
    layer.position = static_cast<int>(each.kind);
    layer.color = RgbOf(each.kind);
    layers_.push_back(std::move(layer));
  }
}

void PlanModel::AddTexts() {
  if (content_.marks.empty()) return;
  layers_.push_back({.kind = LayerKind::kNames, .name = Xlate("Names").ToUtf8()});
  layers_.push_back({.kind = LayerKind::kCodes, .name = Xlate("Codes").ToUtf8()});
}

void PlanModel::Add(PlanLayer layer, const std::vector<Leg>& legs) {
  layer.lines = PlanLines(legs);
  if (!layer.lines.IsEmpty()) {
    extent_.Add({layer.lines.Extent().left, layer.lines.Extent().low});
    extent_.Add({layer.lines.Extent().right, layer.lines.Extent().high});
  }
  layers_.push_back(std::move(layer));
}

void PlanModel::AddThemes() {
  for (plot::LineWork& theme : content_.themes) {
    PlanLayer layer{.kind = LayerKind::kTheme, .name = std::move(theme.name)};
    layer.position = theme.position;
    layer.color = theme.colours.front();
    layer.width = theme.arePoints ? 5 : 1.6;
    Add(std::move(layer), theme.legs);
  }
  content_.themes.clear();
}

void PlanModel::AddDrawings() {
  for (plot::LineWork& drawing : content_.drawings) {
    PlanLayer layer{.kind = LayerKind::kDrawing, .name = std::move(drawing.name)};
    layer.position = drawing.position;
    layer.isVisible = drawing.isVisible;
    layer.colors = std::move(drawing.colours);
    for (const plot::WorkText& text : drawing.texts) extent_.Add(text.at);
    layer.texts = CellGrid<plot::WorkText>(std::move(drawing.texts));
    Add(std::move(layer), drawing.legs);
  }
  content_.drawings.clear();
}

void PlanModel::AddTerrain() {
  for (std::size_t i = 0; i < content_.models.size(); ++i) {
    const CDtmPrj& model = *content_.models[i];
    PlanLayer sides{.kind = LayerKind::kTerrain, .name = model.GetName().ToUtf8()};
    sides.position = static_cast<int>(i);
    sides.color = 0xC2C2C2;
    Add(std::move(sides), TriangleSides(model));
    const std::vector<Leg> lines = Breaklines(model);
    if (lines.empty()) continue;
    PlanLayer breaklines{.kind = LayerKind::kBreaklines, .name = {}};
    breaklines.name = Fill(Xlate("{1}: breaklines"), {model.GetName()}).ToUtf8();
    breaklines.position = static_cast<int>(i);
    breaklines.color = 0x78451A;
    Add(std::move(breaklines), lines);
  }
}

void PlanModel::AddRoads() {
  for (std::size_t i = 0; i < content_.roads.size(); ++i) {
    PlanLayer layer{.kind = LayerKind::kRoad, .name = content_.roads[i]->GetName().ToUtf8()};
    layer.position = static_cast<int>(i);
    layer.color = 0xD11419;
    layer.width = 2;
    std::vector<Leg> legs;
    for (const plot::Polyline& line : plot::AxisOf(*content_.roads[i], kChordError)) {
      for (std::size_t k = 1; k < line.size(); ++k) legs.push_back({line[k - 1], line[k], 0});
    }
    Add(std::move(layer), legs);
  }
}

}  // namespace plan
