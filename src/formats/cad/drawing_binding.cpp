#include "formats/cad/drawing_binding.h"

#include "platform/numbers.h"
#include "services/translate.h"

namespace cad {
namespace {

struct DrawingState {
  bool isLocked;
  bool isVisible;
  bool isByLayer;
  unsigned color;

  bool operator==(const DrawingState&) const = default;
};

DrawingState StateOf(const CTcadEng& engine, int drawing) {
  DrawingState state{engine.IsDrawingLocked(drawing), engine.IsDrawingVisible(drawing), true, 0};
  engine.GetDrawingColor(drawing, state.isByLayer, state.color);
  return state;
}

// "CAD", "CAD_name", "CAD_name2", "CAD_name3", …
tdk::WString Candidate(int n, const tdk::WString& name) {
  if (n == 0) return Xlate("CAD");
  std::string number;
  if (n > 1) platform::AppendWhole(number, n);
  return Fill("CAD_{1}{2}", {name, tdk::WString(number)});
}

}  // namespace

int CompatibleDrawing(const CTcadEng& source, int drawing, CTcadEng& engine) {
  if (drawing == 0) return 0;
  const DrawingState state = StateOf(source, drawing);
  const tdk::WString name = source.GetDrawingName(drawing);
  for (int n = 0;; ++n) {
    const tdk::WString candidate = Candidate(n, name);
    const int there = engine.GetDrawingFromName(0, candidate);
    if (there != 0 && StateOf(engine, there) == state) return there;
    if (there != 0) continue;
    const int made = engine.AddDrawing(0, candidate, state.isVisible, state.isLocked, false);
    engine.SetDrawingColor(made, state.isByLayer, state.color);
    return made;
  }
}

DrawingBinding::DrawingBinding(ExchangeContext& document, CTcadEng& engine)
    : document_(document), engine_(engine) {
  BindLibraries();
  BindObjects();
}

DrawingBinding::~DrawingBinding() {
  for (const auto& restore : restore_) restore();
}

template <class Object>
void DrawingBinding::Bind(Object* object) {
  if (object == nullptr) return;
  const int drawing = object->GetTargetDrawing();
  restore_.emplace_back([object, drawing] { object->SetTargetDrawing(drawing); });
  object->SetTargetDrawing(CompatibleDrawing(*document_.GetCadEngine(), drawing, engine_));
}

void DrawingBinding::BindLibraries() {
  Bind(document_.GetLibCmp());
  Bind(document_.GetLibGps());
  Bind(document_.GetCts());
  Bind(document_.GetLibPnt());
  Bind(document_.GetLibGis());
  Bind(document_.GetLibProfile());
}

void DrawingBinding::BindThemes(gis::CLibGis& library) {
  for (int i = 0; i < library.GetNumThemes(); ++i) {
    gis::CTheme* const theme = library.GetTheme(i);
    const int drawing = library.GetThemeTargetDrawing(theme);
    restore_.emplace_back(
        [&library, theme, drawing] { library.SetThemeTargetDrawing(theme, drawing); });
    library.SetThemeTargetDrawing(theme,
                                  CompatibleDrawing(*document_.GetCadEngine(), drawing, engine_));
  }
}

void DrawingBinding::BindObjects() {
  if (const CLibCmp* const jobs = document_.GetLibCmp()) {
    for (int i = 0; i < jobs->GetJobArSize(); ++i) Bind(jobs->GetJobAt(i));
  }
  if (const CLibGps* const gps = document_.GetLibGps()) {
    for (int i = 0; i < gps->GetGrpArSize(); ++i) Bind(gps->GetGrpAt(i));
  }
  if (const CLibPnt* const known = document_.GetLibPnt()) {
    for (int i = 0; i < known->GetGrpArSize(); ++i) Bind(known->GetGrpAt(i));
  }
  if (const CLibRoad* const roads = document_.GetLibRoad()) {
    for (int i = 0; i < roads->GetRoadArSize(); ++i) Bind(roads->GetRoadAt(i));
  }
  if (gis::CLibGis* const themes = document_.GetLibGis()) BindThemes(*themes);
}

}  // namespace cad
