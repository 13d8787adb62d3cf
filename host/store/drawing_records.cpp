#include "host/store/drawing_records.h"

#include <algorithm>

namespace {

const cad::Block* BlockOf(const CTcadEng& engine, const cad::InsertShape& insert) {
  const auto position = static_cast<std::size_t>(insert.block);
  const bool isThere = insert.block >= 0 && position < engine.Blocks().size();
  return isThere ? &engine.Blocks()[position] : nullptr;
}

bool HasFewPoints(const std::vector<cad::Point>& points) {
  return points.size() == 3 || points.size() == 4;
}

// Entities of no drawing that there is lie on the first.
int StoredDrawing(const CTcadEng& engine, int id) {
  return id >= 1 && id <= engine.GetNoDrawings() ? id : 1;
}

bool IsAsMade(const LayerRecord& layer) {
  const LayerRecord made;
  return layer.color == made.color && layer.byLayerColor && layer.visible && !layer.locked;
}

}  // namespace

SpaceRecord Parts(const cad::Point& point) { return {point.getX(), point.getY(), point.getZ()}; }
cad::Point PointOf(const SpaceRecord& parts) { return {parts[0], parts[1], parts[2]}; }

bool HasDrawing(const CTcadEng& engine) {
  return engine.GetNoDrawings() > 1 || !IsAsMade(LayerOf(engine, 1)) ||
         engine.GetNoBlocksNotPriv() > 0 ||
         std::any_of(engine.Entities().begin(), engine.Entities().end(),
                     [&](const cad::Entity& entity) { return IsStored(engine, entity); });
}

bool IsStored(const CTcadEng& engine, const cad::Entity& entity) {
  if (entity.isPrivate || entity.origin != cad::Origin::kUser) return false;
  if (const auto* const insert = std::get_if<cad::InsertShape>(&entity.shape)) {
    const cad::Block* const block = BlockOf(engine, *insert);
    return block != nullptr && !block->isPrivate;
  }
  if (const auto* const face = std::get_if<cad::FaceShape>(&entity.shape)) {
    return HasFewPoints(face->points);
  }
  const auto* const solid = std::get_if<cad::SolidShape>(&entity.shape);
  return solid == nullptr || HasFewPoints(solid->points);
}

std::uint64_t CountStored(const CTcadEng& engine) {
  const auto countIn = [&](const std::vector<cad::Entity>& entities) {
    return static_cast<std::uint64_t>(
        std::count_if(entities.begin(), entities.end(),
                      [&](const cad::Entity& entity) { return IsStored(engine, entity); }));
  };
  std::uint64_t count = countIn(engine.Entities());
  for (const cad::Block& block : engine.Blocks()) {
    if (!block.isPrivate) count += countIn(block.entities);
  }
  return count;
}

LayerRecord LayerOf(const CTcadEng& engine, int id) {
  LayerRecord record;
  record.name = engine.GetDrawingName(id).ToUtf8();
  engine.GetDrawingColor(id, record.byLayerColor, record.color);
  record.visible = engine.IsDrawingVisible(id);
  record.locked = engine.IsDrawingLocked(id);
  return record;
}

BlockRecord RecordOf(const cad::Block& block) { return {block.name, Parts(block.base)}; }

AttributeDefinitionRecord RecordOf(const cad::AttributeDefinition& definition) {
  return {definition.tag, Parts(definition.at), definition.height};
}
cad::AttributeDefinition DefinitionOf(const AttributeDefinitionRecord& record) {
  return {record.tag, PointOf(record.at), record.height};
}

EntityRecord RecordOf(const CTcadEng& engine, const cad::Entity& entity) {
  EntityRecord record = RecordOf(entity.shape);
  record.layer = engine.GetDrawingName(StoredDrawing(engine, entity.drawing)).ToUtf8();
  record.color = std::min(entity.color, cad::kByLayer);  // there are no more
  if (const auto* const insert = std::get_if<cad::InsertShape>(&entity.shape)) {
    if (const cad::Block* const block = BlockOf(engine, *insert)) record.block = block->name;
  }
  return record;
}
