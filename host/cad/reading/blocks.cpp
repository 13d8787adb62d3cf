#include "host/cad/reading/blocks.h"

#include <utility>

#include "host/cad/reading/block_cycles.h"
#include "platform/letters.h"

namespace cad_reader {
namespace {

// Letter case does not matter in the engine either.
std::string InCapitals(std::string_view name) { return platform::Capital(name); }

// The block that an entity inserts; null when it is no insert.
cad::InsertShape* InsertOf(cad::Entity& entity) {
  return std::get_if<cad::InsertShape>(&entity.shape);
}

}  // namespace

// The two spaces are blocks as well; with numbers behind their names where there are several.
BlockKind KindOf(std::string_view name) {
  const std::string capitals = InCapitals(name);
  if (capitals == "*MODEL_SPACE" || capitals == "$MODEL_SPACE") return BlockKind::kModelSpace;
  const bool isPaper = capitals.starts_with("*PAPER_SPACE") || capitals == "$PAPER_SPACE";
  return isPaper ? BlockKind::kPaperSpace : BlockKind::kUser;
}

int BlockTable::IdOf(std::string_view name) {
  const auto next = static_cast<int>(items_.size());
  const auto [found, isNew] = ids_.emplace(InCapitals(text_.Name(name)), next);
  if (isNew) items_.emplace_back();
  return found->second;
}

void BlockTable::Define(int id, cad::Block block) {
  Item& item = items_[static_cast<std::size_t>(id)];
  if (item.isWaiting || item.position >= 0) return;
  item.block = std::move(block);
  item.isWaiting = true;
}

void BlockTable::Deliver() {
  RemoveCycles();
  std::vector<int> isNew;
  PlaceAll(isNew);
  for (const int id : isNew) FillBlock(items_[static_cast<std::size_t>(id)]);
}

void BlockTable::RemoveCycles() {
  std::vector<std::vector<int>> inserted(items_.size());
  for (std::size_t id = 0; id < items_.size(); ++id) {
    for (cad::Entity& entity : items_[id].block.entities) {
      const cad::InsertShape* const insert = InsertOf(entity);
      if (insert != nullptr) inserted[id].push_back(insert->block);
    }
  }
  const CutInserts cut = FindCutInserts(inserted);
  const auto remove = [&](const std::set<BlockInsert>& inserts, Note note) {
    for (std::size_t id = 0; id < items_.size() && !inserts.empty(); ++id) {
      const auto isCut = [&](cad::Entity& entity) {
        const cad::InsertShape* const insert = InsertOf(entity);
        return insert != nullptr && inserts.contains({static_cast<int>(id), insert->block});
      };
      notes_.Count(note, std::erase_if(items_[id].block.entities, isCut));
    }
  };
  remove(cut.inItself, Note::kBlockInItself);
  remove(cut.tooDeep, Note::kTooDeep);
}

// The engine gets all of them empty at first, so that each has its position.
void BlockTable::PlaceAll(std::vector<int>& isNew) {
  for (std::size_t id = 0; id < items_.size(); ++id) {
    Item& item = items_[id];
    if (!item.isWaiting) continue;
    item.isWaiting = false;
    item.position = engine_.FindBlock(item.block.name);
    if (item.position >= 0) {
      notes_.Count(Note::kTakenBlock);
      item.block = {};
      continue;
    }
    item.position = engine_.AddBlock(
        {item.block.name, item.block.base, {}, std::move(item.block.attributes), false});
    isNew.push_back(static_cast<int>(id));
  }
}

void BlockTable::FillBlock(Item& item) {
  const auto isUnknown = [&](cad::Entity& entity) {
    cad::InsertShape* const insert = InsertOf(entity);
    return insert != nullptr && PositionOf(insert->block) < 0;
  };
  notes_.Count(Note::kUnknownBlock, std::erase_if(item.block.entities, isUnknown));
  for (cad::Entity& entity : item.block.entities) {
    if (cad::InsertShape* const insert = InsertOf(entity))
      insert->block = PositionOf(insert->block);
  }
  engine_.BlockAt(item.position).entities = std::exchange(item.block.entities, {});
}

}  // namespace cad_reader
