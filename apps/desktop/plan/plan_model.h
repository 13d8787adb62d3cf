// What the plan shows: the job's points, lines and texts, sorted by place.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "apps/desktop/plan/plan_lines.h"
#include "host/plot/plan_content.h"

namespace plan {

using plot::Rgb;

Rgb RgbOf(plot::MarkKind kind);

/// A point of the job: its place, its position among the marks, and its kind, so that dots are
/// drawn without a look at the marks, which lie in another order.
struct MarkAt {
  plot::Place at;
  std::uint32_t mark = 0;
  plot::MarkKind kind = {};

  const plot::Place& Where() const { return at; }
};

enum class LayerKind { kNames, kCodes, kPoints, kTheme, kDrawing, kTerrain, kBreaklines, kRoad };

/// Something that can be shown or not.
struct PlanLayer {
  LayerKind kind;
  std::string name = {};  ///< for the user
  bool isVisible = true;
  int position = 0;  ///< in its library; of points: the kind of mark; of a drawing: its id
  Rgb color = 0;
  double width = 1;  ///< of lines, pixels
  PlanLines lines = {};
  std::vector<Rgb> colors = {};  ///< of a drawing, as a plot::LineWork has them
  CellGrid<plot::WorkText> texts = {};

  Rgb ColorOf(std::uint32_t source) const {
    return colors.empty() ? color : colors[colors.size() == 1 ? 0 : source];
  }
};

class PlanModel {
 public:
  /// An empty plan.
  PlanModel() = default;
  /// Keeps pointers to the document's points; ask anew when the document has lost some.
  explicit PlanModel(HostDocument& document);

  /// In the order in which a list of them shows them.
  const std::vector<PlanLayer>& Layers() const { return layers_; }
  /// The same in the order in which they are drawn, terrain first.
  std::vector<const PlanLayer*> FromTheGround() const;
  void SetVisible(std::size_t layer, bool visible) { layers_[layer].isVisible = visible; }
  bool IsShown(LayerKind kind, int position = 0) const;

  const std::vector<plot::Mark>& Marks() const { return content_.marks; }
  const CellGrid<MarkAt>& Places() const { return places_; }
  /// How far all of it reaches, metres; empty for a job with nothing in it that has a place.
  const plot::Box& Extent() const { return extent_; }
  std::uint64_t WithoutPlace() const { return content_.withoutPlace; }

 private:
  void AddPoints();
  void AddTexts();
  void AddThemes();
  void AddDrawings();
  void AddTerrain();
  void AddRoads();
  void Add(PlanLayer layer, const std::vector<Leg>& legs);

  plot::PlanContent content_;
  CellGrid<MarkAt> places_;
  std::vector<PlanLayer> layers_;
  plot::Box extent_;
};

}  // namespace plan
