#include "apps/desktop/plan/plan_model.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "apps/desktop/plan/terrain_legs.h"
#include "host/plot/road_lines.h"
#include "model/gis.h"
#include "services/translate.h"

namespace plan {
namespace {

constexpr double kChordError = 0.01;  // metres
constexpr Rgb kThemeColors[] = {0x2E7D6B, 0x6A4FA3, 0xA3562E, 0x2E6AA3, 0x7D7A2E};

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

std::vector<Leg> LegsOf(const gis::CTheme& theme) {
  std::vector<Leg> legs;
  legs.reserve(theme.GetNumVertices());
  const auto place = [&](std::size_t i) { return plot::Place{theme.Xs()[i], theme.Ys()[i]}; };
  for (int feature = 0; feature < theme.GetNumFeatures(); ++feature) {
    const auto source = static_cast<std::uint32_t>(feature);
    for (int part = 0; part < theme.GetNumParts(feature); ++part) {
      const gis::VertexRange range = theme.GetPart(feature, part);
      if (theme.GetType() == gis::EntityType::kPoint) {
        for (std::size_t i = range.first; i < range.last; ++i) {
          legs.push_back({place(i), place(i), source});
        }
        continue;
      }
      for (std::size_t i = range.first + 1; i < range.last; ++i) {
        legs.push_back({place(i - 1), place(i), source});
      }
    }
  }
  return legs;
}

}  // namespace

Rgb RgbOf(std::uint16_t colorIndex) {
  constexpr std::array<Rgb, 10> kFirst = {0x000000, 0xE00000, 0xA89B00, 0x008F00, 0x008F9B,
                                          0x0000E0, 0xC000C0, 0x000000, 0x696969, 0x9B9B9B};
  if (colorIndex < kFirst.size()) return kFirst[colorIndex];
  if (colorIndex < 250) return HueOf(colorIndex);
  const double grey = std::min(0.2 + (colorIndex - 250) * 0.13, 0.85);
  return OnPaper(grey, grey, grey);
}

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
  AddThemes(document);
  AddDrawings(document);
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

void PlanModel::AddThemes(HostDocument& document) {
  const gis::CLibGis& library = *document.GetLibGis();
  for (int i = 0; i < library.GetNumThemes(); ++i) {
    const gis::CTheme& theme = *library.GetTheme(i);
    PlanLayer layer{.kind = LayerKind::kTheme, .name = theme.GetName().ToUtf8()};
    layer.position = i;
    layer.color = kThemeColors[static_cast<std::size_t>(i) % std::size(kThemeColors)];
    layer.width = theme.GetType() == gis::EntityType::kPoint ? 5 : 1.6;
    Add(std::move(layer), LegsOf(theme));
  }
}

void PlanModel::AddDrawings(HostDocument& document) {
  const CTcadEng& engine = *document.GetCadEngine();
  std::vector<DrawingParts> drawings = PartsOf(engine);
  for (std::size_t id = 1; id < drawings.size(); ++id) {
    DrawingParts& parts = drawings[id];
    if (parts.colors.empty()) continue;
    PlanLayer layer{.kind = LayerKind::kDrawing, .name = {}};
    layer.position = static_cast<int>(id);
    layer.name = engine.GetDrawingName(layer.position).ToUtf8();
    layer.isVisible = engine.IsDrawingVisible(layer.position);
    layer.colors = std::move(parts.colors);
    for (const PlanText& text : parts.texts) extent_.Add(text.at);
    layer.texts = CellGrid<PlanText>(std::move(parts.texts));
    Add(std::move(layer), parts.legs);
  }
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
