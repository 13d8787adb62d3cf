#include "drawing_report.h"

#include <algorithm>
#include <array>

#include "console.h"
#include "extents.h"
#include "model/tcad_eng.h"
#include "services/number_text.h"
#include "services/translate.h"
#include "table.h"

namespace {

constexpr int kShown = 20;
constexpr std::size_t kIndent = 2;
using Align = Table::Align;

std::string Text(const tdk::WString& text) { return text.ToUtf8(); }
std::string Number(std::size_t value) { return console::Number(value); }

void ReportLayers(const CTcadEng& engine, bool all) {
  std::vector<std::size_t> entities(static_cast<std::size_t>(engine.GetNoDrawings()) + 1, 0);
  for (const cad::Entity& entity : engine.Entities()) {
    ++entities[static_cast<std::size_t>(entity.drawing)];
  }
  Table table({Align::kLeft, Align::kRight, Align::kLeft, Align::kLeft, Align::kRight}, kIndent);
  table.Add({Text(Xlate("layer")), Text(Xlate("colour")), Text(Xlate("visible")),
             Text(Xlate("locked")), Text(Xlate("entities"))});
  const auto word = [](bool is) { return Text(is ? Xlate("yes") : Xlate("no")); };
  const int shown = all ? engine.GetNoDrawings() : std::min(engine.GetNoDrawings(), kShown);
  for (int id = 1; id <= shown; ++id) {
    bool byLayer = true;
    unsigned color = 0;
    engine.GetDrawingColor(id, byLayer, color);
    table.Add({Text(engine.GetDrawingName(id)), Number(color), word(engine.IsDrawingVisible(id)),
               word(engine.IsDrawingLocked(id)), Number(entities[static_cast<std::size_t>(id)])});
  }
  console::Out(Text(Xlate("Drawing")) + "\n" + table.Text());
  if (shown == engine.GetNoDrawings()) return;
  console::Out(std::string(kIndent, ' ') +
               console::Count(static_cast<std::uint64_t>(engine.GetNoDrawings() - shown),
                              Xlate("… and {1} more layer (--all shows it)"),
                              Xlate("… and {1} more layers (--all shows them)")) +
               "\n");
}

struct Kind {
  const char* one;
  const char* many;
};

// In the order of cad::Shape.
constexpr std::array<Kind, std::variant_size_v<cad::Shape>> kKinds = {
    {{ToXlate("{1} point"), ToXlate("{1} points")},
     {ToXlate("{1} line"), ToXlate("{1} lines")},
     {ToXlate("{1} polyline"), ToXlate("{1} polylines")},
     {ToXlate("{1} circle"), ToXlate("{1} circles")},
     {ToXlate("{1} arc"), ToXlate("{1} arcs")},
     {ToXlate("{1} ellipse"), ToXlate("{1} ellipses")},
     {ToXlate("{1} text"), ToXlate("{1} texts")},
     {ToXlate("{1} insert"), ToXlate("{1} inserts")},
     {ToXlate("{1} 3D face"), ToXlate("{1} 3D faces")},
     {ToXlate("{1} solid"), ToXlate("{1} solids")}}};

void ReportKinds(const CTcadEng& engine) {
  std::array<std::size_t, kKinds.size()> counts{};
  for (const cad::Entity& entity : engine.Entities()) ++counts[entity.shape.index()];
  std::string line;
  for (std::size_t i = 0; i < kKinds.size(); ++i) {
    if (counts[i] == 0) continue;
    line += (line.empty() ? "" : ", ") +
            console::Count(counts[i], Xlate(kKinds[i].one), Xlate(kKinds[i].many));
  }
  if (const std::size_t blocks = engine.Blocks().size(); blocks > 0) {
    line += (line.empty() ? "" : "; ") +
            console::Count(blocks, Xlate("{1} block"), Xlate("{1} blocks"));
  }
  if (!line.empty()) console::Out(std::string(kIndent, ' ') + line + "\n");
}

}  // namespace

void ReportDrawing(const CTcadEng& engine, bool all) {
  if (engine.Entities().empty() && engine.Blocks().empty() && engine.GetNoDrawings() == 1) return;
  ReportLayers(engine, all);
  ReportKinds(engine);
}
