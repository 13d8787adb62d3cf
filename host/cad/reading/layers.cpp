#include "host/cad/reading/layers.h"

namespace cad_reader {
namespace {

constexpr int kWhite = 7;
constexpr int kLastColor = 255;

unsigned ColorOf(int color) {
  return static_cast<unsigned>(color >= 1 && color <= kLastColor ? color : kWhite);
}

}  // namespace

Layers::Layers(CTcadEng& engine, TextDecoder& text)
    : engine_(engine),
      text_(text),
      isFirstNew_(engine.GetNoDrawings() == 1 && engine.Entities().empty() &&
                  engine.Blocks().empty()) {}

int Layers::Take(std::string_view name, const LayerState& state) {
  const int before = engine_.GetNoDrawings();
  const int id = engine_.AddDrawing(0, tdk::WString(text_.Name(name)), state.isVisible,
                                    state.isLocked, /*isPrivate=*/false);
  const bool isFirst = id == 1 && isFirstNew_;
  if (engine_.GetNoDrawings() == before && !isFirst) return id;
  engine_.SetDrawingColor(id, /*byLayer=*/true, ColorOf(state.color));
  if (!isFirst) return id;
  isFirstNew_ = false;
  engine_.SetDrawingVisible(id, state.isVisible);
  engine_.SetDrawingLocked(id, state.isLocked);
  return id;
}

int Layers::Find(std::string_view name) {
  auto found = ids_.find(name);
  if (found == ids_.end()) {
    const int id = name.empty() ? 1
                                : engine_.AddDrawing(0, tdk::WString(text_.Name(name)),
                                                     /*visible=*/true, /*locked=*/false,
                                                     /*isPrivate=*/false);
    found = ids_.emplace(name, id).first;
  }
  lastName_ = name;
  lastId_ = found->second;
  return lastId_;
}

}  // namespace cad_reader
