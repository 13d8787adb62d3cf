// What of an engine goes into a file, with what its records have in common.
#pragma once

#include <string>
#include <vector>

#include "host/cad/dxf/write_tags.h"
#include "host/cad/writing/plan.h"

namespace dxf_writer {

using namespace cad_writer;

// Handles of the records that every file of version 2000 has; those of this file's own follow.
inline constexpr Handle kModelSpaceRecord = 0x11;
inline constexpr Handle kPaperSpaceRecord = 0x12;
inline constexpr Handle kLastFixedHandle = 0x20;

/// The record of a block that is written.
inline Handle RecordOf(const PlannedBlock& block) { return kLastFixedHandle + 1 + block.rank; }

class Plan : public cad_writer::Plan {
 public:
  /// Keeps the engine, which has to stay as it is.
  Plan(const CadSave& how, const CTcadEng& engine);

  Version FileVersion() const { return version_; }
  /// The pairs that put an entity on a drawing's layer.
  const std::string& LayerPairs(int drawing) const { return layerPairs_[LayerPosition(drawing)]; }

  Handle FirstFreeHandle() const { return kLastFixedHandle + 1 + BlockOrder().size(); }
  /// Lies above all handles of the file.
  Handle HandleSeed() const { return FirstFreeHandle() + MostRecords(); }

 private:
  Version version_;
  std::vector<std::string> layerPairs_;
};

}  // namespace dxf_writer
