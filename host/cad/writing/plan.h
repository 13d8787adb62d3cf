// What of an engine goes into a file, and under which names.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "host/cad/writing/extent.h"
#include "host/cad/writing/names.h"
#include "model/cad_files.h"

namespace cad_writer {

/// Instead of the position of a block.
inline constexpr int kInNoBlock = -1;

/// A drawing of the engine.
struct PlannedLayer {
  std::string name;  ///< as the file has it
  bool isVisible = true;
  bool isLocked = false;
  int color = 7;
};

struct PlannedBlock {
  std::string name;  ///< as the file has it
  bool isWritten = false;
  /// Place among the blocks that are written, each of which comes after those that it inserts.
  std::size_t rank = 0;
  Extent extent;
};

enum class Fate : std::uint8_t {
  kWritten,
  kHidden,  ///< private, or on a layer that is not to be seen
  kBroken   ///< cannot be written
};

/// What a file can have.
struct PlanRules {
  NameRule names = NameRule::kLong;
  /// A UTF-8 text as the file has it.
  std::string (*textOf)(std::string_view utf8) = nullptr;
  /// Whether a shape that is sound has room in the file; null: always.
  bool (*fits)(const cad::Shape& shape) = nullptr;
};

class Plan {
 public:
  /// Keeps the engine, which has to stay as it is.
  Plan(const CadSave& how, const CTcadEng& engine, const PlanRules& rules);

  const CTcadEng& Engine() const { return engine_; }

  const std::vector<PlannedLayer>& Layers() const { return layers_; }
  /// The position of a drawing's layer; of the first where there is none of that id.
  std::size_t LayerPosition(int drawing) const;

  /// Positions of the blocks that are written.
  const std::vector<int>& BlockOrder() const { return order_; }
  const PlannedBlock& BlockAt(int position) const {
    return blocks_[static_cast<std::size_t>(position)];
  }
  /// What becomes of an entity. `block`: the position of the one that it is in.
  Fate FateOf(const cad::Entity& entity, int block) const;

  /// Whether nothing of the engine is left out.
  bool TakesAll() const { return takesAll_; }

  const Extent& DrawingExtent() const { return extent_; }
  std::uint64_t LeftOut() const { return leftOut_; }
  /// How many polylines lose their arcs.
  std::uint64_t Straightened() const { return straightened_; }
  /// Entities on layers that are not displayed, where those are not asked for.
  std::uint64_t Hidden() const { return hidden_; }
  /// How many records the layers, the blocks and all entities make at most.
  std::uint64_t MostRecords() const { return records_; }

 private:
  struct OpenBlock {
    int position;
    std::size_t next;  // the entity to look at
  };
  void PlanLayers();
  void NameBlocks();
  void OrderBlocks();
  void OrderFrom(int position);
  int NextInserted(OpenBlock& block) const;
  int InsertedBlock(const cad::Entity& entity, int block) const;
  bool IsShown(const cad::Entity& entity, int block) const;
  bool IsWritable(const cad::Shape& shape) const;
  bool CanBeInserted(int position) const;
  void Measure(const std::vector<cad::Entity>& entities, int block, Extent& extent);
  void MeasureBlock(int position);
  void IncludeInserted(Extent& extent, const cad::Entity& entity) const;

  const CTcadEng& engine_;
  PlanRules rules_;
  bool onlyVisible_;
  std::vector<PlannedLayer> layers_;  // by the ids of their drawings, less one
  std::vector<PlannedBlock> blocks_;
  std::vector<int> order_;
  Extent extent_;
  std::uint64_t leftOut_ = 0;
  std::uint64_t straightened_ = 0;
  std::uint64_t hidden_ = 0;
  bool takesAll_ = true;
  std::uint64_t records_ = 0;
};

}  // namespace cad_writer
