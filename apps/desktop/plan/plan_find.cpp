#include "apps/desktop/plan/plan_find.h"

#include <cmath>
#include <limits>

#include "host/plot/nice_numbers.h"
#include "services/translate.h"

namespace plan {
namespace {

constexpr double kReach = 9;  // pixels
constexpr int kMillimetres = 3;

std::string Number(double value) {
  return IsDefined(value) ? plot::FixedText(value, kMillimetres) : "–";
}

const char* KindName(plot::MarkKind kind) {
  switch (kind) {
    case plot::MarkKind::kStation: return ToXlate("Station {1}");
    case plot::MarkKind::kGpsBase: return ToXlate("GPS base {1}");
    case plot::MarkKind::kGps: return ToXlate("GPS point {1}");
    case plot::MarkKind::kKnown:
    case plot::MarkKind::kManyKnown: return ToXlate("Known point {1}");
    case plot::MarkKind::kControl: return ToXlate("Control point {1}");
    case plot::MarkKind::kMeasured: break;
  }
  return ToXlate("Measured point {1}");
}

std::string TextOf(const plot::Mark& mark) {
  const CEgn& point = *mark.point;
  std::string text = Fill(Xlate(KindName(mark.kind)), {point.GetNome()}).ToUtf8();
  const std::string code = point.GetSecScri().ToUtf8();
  if (!code.empty()) text += " · " + code;
  return text + "\n" +
         Fill(Xlate("E {1}  N {2}  H {3}"),
              {tdk::WString(Number(point.GetCoordX())), tdk::WString(Number(point.GetCoordY())),
               tdk::WString(Number(point.GetCoordZ()))})
             .ToUtf8();
}

std::optional<Found> PointAt(const PlanModel& model, const plot::Box& around) {
  const plot::Place middle = around.Middle();
  const plot::Mark* best = nullptr;
  double least = around.Width() / 2;
  model.Places().VisitCells(around, [&](const plot::Box&, auto places) {
    for (const MarkAt& each : places) {
      const double distance = plot::Distance(each.at, middle);
      const plot::Mark& mark = model.Marks()[each.mark];
      const plot::MarkKind layer =
          mark.kind == plot::MarkKind::kManyKnown ? plot::MarkKind::kKnown : mark.kind;
      if (distance > least || !model.IsShown(LayerKind::kPoints, static_cast<int>(layer))) continue;
      if (best != nullptr && distance == least && mark.kind > best->kind) continue;
      best = &mark;
      least = distance;
    }
  });
  if (best == nullptr) return std::nullopt;
  return Found{LayerKind::kPoints, static_cast<int>(best->kind), best->point, TextOf(*best)};
}

double DistanceTo(const Leg& leg, const plot::Place& place) {
  const double dx = leg.to.x - leg.from.x;
  const double dy = leg.to.y - leg.from.y;
  const double square = dx * dx + dy * dy;
  double share = 0;
  if (square > 0) {
    share = ((place.x - leg.from.x) * dx + (place.y - leg.from.y) * dy) / square;
  }
  return plot::Distance(plot::Between(leg.from, leg.to, std::clamp(share, 0.0, 1.0)), place);
}

const char* LayerName(LayerKind kind) {
  switch (kind) {
    case LayerKind::kTheme: return ToXlate("Theme {1}");
    case LayerKind::kDrawing: return ToXlate("Drawing layer {1}");
    case LayerKind::kTerrain: return ToXlate("Terrain model {1}");
    case LayerKind::kRoad: return ToXlate("Road {1}");
    default: return "{1}";
  }
}

double NearestLeg(const PlanLines& lines, const plot::Box& around) {
  double least = std::numeric_limits<double>::infinity();
  const plot::Place middle = around.Middle();
  // As if a pixel were very small: nothing is a crowd.
  lines.Visit(
      around, around.Width() * 1e-6,
      [&](const Leg& leg) { least = std::min(least, DistanceTo(leg, middle)); },
      [](auto, double) {});
  return least;
}

// What is drawn last is seen, and so found, first.
std::optional<Found> LineAt(const PlanModel& model, const plot::Box& around) {
  const std::vector<const PlanLayer*> layers = model.FromTheGround();
  for (auto each = layers.rbegin(); each != layers.rend(); ++each) {
    const PlanLayer& layer = **each;
    if (!layer.isVisible || NearestLeg(layer.lines, around) > around.Width() / 2) continue;
    return Found{layer.kind, layer.position, nullptr,
                 Fill(Xlate(LayerName(layer.kind)), {tdk::WString(layer.name)}).ToUtf8()};
  }
  return std::nullopt;
}

}  // namespace

std::optional<Found> FindAt(const PlanModel& model, const ViewWindow& view,
                            const plot::Place& pixels) {
  const double reach = kReach * view.MetresPerPixel();
  plot::Box around;
  around.Add(view.ToMetres(pixels));
  around = around.Grown(reach);
  std::optional<Found> found = PointAt(model, around);
  return found ? found : LineAt(model, around);
}

}  // namespace plan
