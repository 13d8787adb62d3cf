#include "host/cad/dxf/read_layers.h"

#include <cstdlib>

namespace dxf_reader {
namespace {

constexpr int kFrozen = 1;
constexpr int kLocked = 4;
constexpr int kWhite = 7;
constexpr int kLastColor = 255;

unsigned ColorOf(const Fields& record) {
  const int color = std::abs(record.Whole(62, kWhite));
  return static_cast<unsigned>(color >= 1 && color <= kLastColor ? color : kWhite);
}

}  // namespace

Layers::Layers(CTcadEng& engine, TextDecoder& text)
    : engine_(engine),
      text_(text),
      isFirstNew_(engine.GetNoDrawings() == 1 && engine.Entities().empty() &&
                  engine.Blocks().empty()) {}

void Layers::Take(const Fields& record) {
  const bool isVisible = record.Whole(62, kWhite) >= 0 && !record.HasFlag(70, kFrozen);
  const bool isLocked = record.HasFlag(70, kLocked);
  const int before = engine_.GetNoDrawings();
  const int id = engine_.AddDrawing(0, tdk::WString(text_.Name(record.Text(2))), isVisible,
                                    isLocked, /*isPrivate=*/false);
  const bool isFirst = id == 1 && isFirstNew_;
  if (engine_.GetNoDrawings() == before && !isFirst) return;
  engine_.SetDrawingColor(id, /*byLayer=*/true, ColorOf(record));
  if (!isFirst) return;
  isFirstNew_ = false;
  engine_.SetDrawingVisible(id, isVisible);
  engine_.SetDrawingLocked(id, isLocked);
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

}  // namespace dxf_reader
