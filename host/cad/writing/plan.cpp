#include "host/cad/writing/plan.h"

#include <algorithm>

#include "host/cad/writing/geometry.h"
#include "host/cad/writing/soundness.h"

namespace cad_writer {
namespace {

constexpr int kFirstDrawing = 1;
constexpr std::size_t kRecordsOfBlock = 3;
constexpr std::size_t kRecordsOfEntity = 2;  // itself and the end of what belongs to it

std::size_t RecordsOf(const cad::Entity& entity) {
  if (const auto* const polyline = std::get_if<cad::PolylineShape>(&entity.shape)) {
    return kRecordsOfEntity + polyline->points.size();
  }
  if (const auto* const insert = std::get_if<cad::InsertShape>(&entity.shape)) {
    return kRecordsOfEntity + insert->attributes.size();
  }
  return kRecordsOfEntity;
}

// Only polylines that lie flat have arcs in a file.
bool LosesArcs(const cad::Shape& shape) {
  const auto* const polyline = std::get_if<cad::PolylineShape>(&shape);
  return polyline != nullptr && !IsFlat(*polyline) &&
         std::any_of(polyline->bulges.begin(), polyline->bulges.end(),
                     [](double bulge) { return bulge != 0; });
}

}  // namespace

Plan::Plan(const CadSave& how, const CTcadEng& engine, const PlanRules& rules)
    : engine_(engine), rules_(rules), onlyVisible_(how.OnlyVisible()) {
  PlanLayers();
  NameBlocks();
  OrderBlocks();
  for (const int position : order_) MeasureBlock(position);
  Measure(engine_.Entities(), kInNoBlock, extent_);
}

void Plan::PlanLayers() {
  NameTable names(rules_.names);
  for (int id = kFirstDrawing; id <= engine_.GetNoDrawings(); ++id) {
    PlannedLayer layer;
    layer.name = rules_.textOf(names.Add(engine_.GetDrawingName(id).ToUtf8()));
    layer.isVisible = engine_.IsDrawingVisible(id);
    layer.isLocked = engine_.IsDrawingLocked(id);
    bool isByLayer = false;
    unsigned color = 0;
    engine_.GetDrawingColor(id, isByLayer, color);
    if (color >= 1 && color <= 255) layer.color = static_cast<int>(color);
    layers_.push_back(std::move(layer));
  }
  records_ += layers_.size();
}

std::size_t Plan::LayerPosition(int drawing) const {
  const bool isThere =
      drawing >= kFirstDrawing && static_cast<std::size_t>(drawing) <= layers_.size();
  return isThere ? static_cast<std::size_t>(drawing - kFirstDrawing) : 0;
}

// Some programs keep what lies on paper in blocks of these names.
void Plan::NameBlocks() {
  NameTable names(rules_.names);
  for (const char* const reserved : {"$MODEL_SPACE", "$PAPER_SPACE"}) names.Add(reserved);
  blocks_.resize(engine_.Blocks().size());
  for (std::size_t i = 0; i < blocks_.size(); ++i) {
    blocks_[i].name = rules_.textOf(names.Add(engine_.Blocks()[i].name));
  }
}

bool Plan::CanBeInserted(int position) const {
  const std::vector<cad::Block>& blocks = engine_.Blocks();
  return position >= 0 && static_cast<std::size_t>(position) < blocks.size() &&
         IsPlace(blocks[static_cast<std::size_t>(position)].base);
}

bool Plan::IsWritable(const cad::Shape& shape) const {
  return IsSound(shape) && (rules_.fits == nullptr || rules_.fits(shape));
}

// What lies on the first drawing in a block is shown wherever the block is.
bool Plan::IsShown(const cad::Entity& entity, int block) const {
  if (entity.isPrivate) return false;
  if (!onlyVisible_ || (block >= 0 && entity.drawing == kFirstDrawing)) return true;
  return engine_.IsDrawingVisible(entity.drawing);
}

Fate Plan::FateOf(const cad::Entity& entity, int block) const {
  if (!IsShown(entity, block)) return Fate::kHidden;
  if (!IsWritable(entity.shape)) return Fate::kBroken;
  const auto* const insert = std::get_if<cad::InsertShape>(&entity.shape);
  if (insert == nullptr) return Fate::kWritten;
  if (!CanBeInserted(insert->block)) return Fate::kBroken;
  const bool holdsItself = block >= 0 && BlockAt(insert->block).rank >= BlockAt(block).rank;
  return holdsItself ? Fate::kBroken : Fate::kWritten;
}

// Negative: none. Used before it is known which blocks would hold themselves.
int Plan::InsertedBlock(const cad::Entity& entity, int block) const {
  const auto* const insert = std::get_if<cad::InsertShape>(&entity.shape);
  if (insert == nullptr || !IsShown(entity, block) || !IsWritable(entity.shape)) return -1;
  return CanBeInserted(insert->block) ? insert->block : -1;
}

void Plan::OrderBlocks() {
  for (int i = 0; i < static_cast<int>(blocks_.size()); ++i) {
    if (!engine_.Blocks()[static_cast<std::size_t>(i)].isPrivate && CanBeInserted(i)) OrderFrom(i);
  }
  for (const cad::Entity& entity : engine_.Entities()) {
    const int inserted = InsertedBlock(entity, kInNoBlock);
    if (inserted >= 0) OrderFrom(inserted);
  }
}

int Plan::NextInserted(OpenBlock& block) const {
  const std::vector<cad::Entity>& entities =
      engine_.Blocks()[static_cast<std::size_t>(block.position)].entities;
  while (block.next < entities.size()) {
    const int inserted = InsertedBlock(entities[block.next++], block.position);
    if (inserted >= 0) return inserted;
  }
  return -1;
}

// Depth first, without recursion: a file may have nested blocks as deeply as it likes. A block that
// is reached again while it is open gets a rank above that of the one which inserts it.
void Plan::OrderFrom(int position) {
  std::vector<OpenBlock> path;
  const auto open = [&](int block) {
    PlannedBlock& planned = blocks_[static_cast<std::size_t>(block)];
    if (planned.isWritten) return;
    planned.isWritten = true;
    path.push_back({block, 0});
  };
  open(position);
  while (!path.empty()) {
    const int inserted = NextInserted(path.back());
    if (inserted >= 0) {
      open(inserted);
      continue;
    }
    PlannedBlock& done = blocks_[static_cast<std::size_t>(path.back().position)];
    done.rank = order_.size();
    order_.push_back(path.back().position);
    path.pop_back();
  }
}

void Plan::Measure(const std::vector<cad::Entity>& entities, int block, Extent& extent) {
  for (const cad::Entity& entity : entities) {
    const Fate fate = FateOf(entity, block);
    if (fate == Fate::kBroken) ++leftOut_;
    if (fate == Fate::kHidden && !entity.isPrivate) ++hidden_;
    if (fate != Fate::kWritten) {
      takesAll_ = false;
      continue;
    }
    Include(extent, entity.shape);
    IncludeInserted(extent, entity);
    records_ += RecordsOf(entity);
    if (LosesArcs(entity.shape)) ++straightened_;
  }
}

void Plan::IncludeInserted(Extent& extent, const cad::Entity& entity) const {
  const auto* const insert = std::get_if<cad::InsertShape>(&entity.shape);
  if (insert == nullptr) return;
  const cad::Block& block = engine_.Blocks()[static_cast<std::size_t>(insert->block)];
  extent.Include(BlockAt(insert->block).extent, InsertPlacing(*insert, block.base));
}

void Plan::MeasureBlock(int position) {
  const cad::Block& block = engine_.Blocks()[static_cast<std::size_t>(position)];
  Measure(block.entities, position, blocks_[static_cast<std::size_t>(position)].extent);
  leftOut_ += static_cast<std::uint64_t>(
      std::count_if(block.attributes.begin(), block.attributes.end(),
                    [](const cad::AttributeDefinition& it) { return !IsSound(it); }));
  records_ += kRecordsOfBlock + block.attributes.size();
}

}  // namespace cad_writer
