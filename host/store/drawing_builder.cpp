#include "host/store/drawing_builder.h"

#include <utility>

int NumberedNames::NumberOf(const std::string& name) {
  const auto [found, isNew] = numbers_.try_emplace(name, static_cast<int>(all_.size()));
  if (isNew) all_.push_back(name);
  return found->second;
}

bool DrawingBuilder::AddLayer(const LayerRecord& record) {
  constexpr int kFirst = 1;
  const int before = engine_.GetNoDrawings();
  const tdk::WString name{std::string_view(record.name)};
  const int id = engine_.AddDrawing(0, name, record.visible, record.locked, /*isPrivate=*/false);
  if (id != kFirst && engine_.GetNoDrawings() == before) return false;
  engine_.SetDrawingColor(id, record.byLayerColor, record.color);
  engine_.SetDrawingVisible(id, record.visible);
  engine_.SetDrawingLocked(id, record.locked);
  return true;
}

bool DrawingBuilder::AddBlock(cad::Block block) {
  if (engine_.FindBlock(block.name) >= 0) return false;
  engine_.AddBlock(std::move(block));
  return true;
}

std::optional<EntityTrouble> DrawingBuilder::Make(const EntityRecord& record, cad::Entity& entity) {
  if (record.color > cad::kByLayer) return EntityTrouble{"color", "a colour index from 0 to 256"};
  if (std::optional<EntityTrouble> trouble = MakeShape(record, entity.shape)) return trouble;
  entity.drawing = layers_.NumberOf(record.layer);
  entity.color = record.color;
  if (auto* const insert = std::get_if<cad::InsertShape>(&entity.shape)) {
    insert->block = blocks_.NumberOf(record.block);
  }
  return std::nullopt;
}

std::optional<std::size_t> DrawingBuilder::Finish() {
  FindLayers();
  if (const std::optional<std::size_t> missing = FindBlocks()) return missing;
  for (int block = 0; block < static_cast<int>(engine_.Blocks().size()); ++block) {
    for (cad::Entity& entity : engine_.BlockAt(block).entities) Place(entity);
  }
  engine_.Reserve(entities_.size());
  for (cad::Entity& entity : entities_) {
    Place(entity);
    engine_.Add(std::move(entity));
  }
  entities_ = {};
  return std::nullopt;
}

void DrawingBuilder::FindLayers() {
  for (const std::string& name : layers_.All()) {
    drawings_.push_back(engine_.AddDrawing(0, tdk::WString(std::string_view(name)),
                                           /*visible=*/true, /*locked=*/false,
                                           /*isPrivate=*/false));
  }
}

std::optional<std::size_t> DrawingBuilder::FindBlocks() {
  for (const std::string& name : blocks_.All()) {
    positions_.push_back(engine_.FindBlock(name));
    if (positions_.back() < 0) return positions_.size() - 1;
  }
  return std::nullopt;
}

void DrawingBuilder::Place(cad::Entity& entity) const {
  entity.drawing = drawings_[static_cast<std::size_t>(entity.drawing)];
  if (auto* const insert = std::get_if<cad::InsertShape>(&entity.shape)) {
    insert->block = positions_[static_cast<std::size_t>(insert->block)];
  }
}
