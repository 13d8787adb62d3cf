// What of an engine goes into a file, and under which names.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "host/cad/dxf/write_extent.h"
#include "host/cad/dxf/write_names.h"
#include "host/cad/dxf/write_tags.h"
#include "model/cad_files.h"

namespace dxf_writer {

// Handles of the records that every file of version 2000 has; those of this file's own follow.
inline constexpr Handle kModelSpaceRecord = 0x11;
inline constexpr Handle kPaperSpaceRecord = 0x12;
inline constexpr Handle kLastFixedHandle = 0x20;

/// Instead of the position of a block.
inline constexpr int kInNoBlock = -1;

/// A drawing of the engine.
struct PlannedLayer {
  std::string name;   ///< in the code page of the file
  std::string pairs;  ///< that put an entity on it
  bool isVisible = true;
  bool isLocked = false;
  int color = 7;
};

struct PlannedBlock {
  std::string name;  ///< in the code page of the file
  bool isWritten = false;
  /// Place among the blocks that are written, each of which comes after those that it inserts.
  std::size_t rank = 0;
  Handle record = 0;
  Extent extent;
};

enum class Fate : std::uint8_t {
  kWritten,
  kHidden,  ///< private, or on a layer that is not to be seen
  kBroken   ///< cannot be written
};

class Plan {
 public:
  /// Keeps the engine, which has to stay as it is.
  Plan(const CadSave& how, const CTcadEng& engine);

  const CTcadEng& Engine() const { return engine_; }
  Version FileVersion() const { return version_; }

  const std::vector<PlannedLayer>& Layers() const { return layers_; }
  /// That of the first drawing where there is none of that id.
  const PlannedLayer& LayerOf(int drawing) const;

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
  Handle FirstFreeHandle() const { return kLastFixedHandle + 1 + order_.size(); }
  /// Lies above all handles of the file.
  Handle HandleSeed() const { return FirstFreeHandle() + handles_; }

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
  bool CanBeInserted(int position) const;
  void Measure(const std::vector<cad::Entity>& entities, int block, Extent& extent);
  void MeasureBlock(int position);
  void IncludeInserted(Extent& extent, const cad::Entity& entity) const;

  const CTcadEng& engine_;
  Version version_;
  bool onlyVisible_;
  std::vector<PlannedLayer> layers_;  // by the ids of their drawings, less one
  std::vector<PlannedBlock> blocks_;
  std::vector<int> order_;
  Extent extent_;
  std::uint64_t leftOut_ = 0;
  bool takesAll_ = true;
  Handle handles_ = 0;  // as many at most
};

}  // namespace dxf_writer
