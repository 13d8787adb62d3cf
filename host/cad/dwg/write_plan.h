// What of an engine goes into a file, under which names and handles.
#pragma once

#include <string>
#include <string_view>

#include "host/cad/dwg/header_records.h"
#include "host/cad/dwg/version.h"
#include "host/cad/writing/plan.h"

namespace dwg {

/// Handles of the records that every file has, as the programs that make them use to give them.
namespace fixed {
inline constexpr Handle kBlocks = 0x1;
inline constexpr Handle kLayers = 0x2;
inline constexpr Handle kStyles = 0x3;
inline constexpr Handle kLineTypes = 0x5;
inline constexpr Handle kViews = 0x6;
inline constexpr Handle kSystems = 0x7;
inline constexpr Handle kViewports = 0x8;
inline constexpr Handle kPrograms = 0x9;
inline constexpr Handle kDimensions = 0xA;
inline constexpr Handle kViewportHeaders = 0xB;
inline constexpr Handle kNames = 0xC;
inline constexpr Handle kGroups = 0xD;
inline constexpr Handle kPlotStyles = 0xE;
inline constexpr Handle kPlotStyle = 0xF;
inline constexpr Handle kFirstLayer = 0x10;
inline constexpr Handle kStyle = 0x11;
inline constexpr Handle kProgram = 0x12;
inline constexpr Handle kLineByBlock = 0x14;
inline constexpr Handle kLineByLayer = 0x15;
inline constexpr Handle kSolidLine = 0x16;
inline constexpr Handle kMultiLineStyles = 0x17;
inline constexpr Handle kMultiLineStyle = 0x18;
inline constexpr Handle kPlotSettings = 0x19;
inline constexpr Handle kLayouts = 0x1A;
inline constexpr Handle kPaperSpace = 0x1B;
inline constexpr Handle kPaperBegin = 0x1C;
inline constexpr Handle kPaperEnd = 0x1D;
inline constexpr Handle kPaperLayout = 0x1E;
inline constexpr Handle kModelSpace = 0x1F;
inline constexpr Handle kModelBegin = 0x20;
inline constexpr Handle kModelEnd = 0x21;
inline constexpr Handle kModelLayout = 0x22;
inline constexpr Handle kDimension = 0x27;
inline constexpr Handle kViewport = 0x29;
inline constexpr Handle kFirstOfOwn = 0x30;
}  // namespace fixed

/// The records of a block.
struct BlockHandles {
  Handle record;
  Handle begin;
  Handle end;
};

class FilePlan : public cad_writer::Plan {
 public:
  /// Keeps the engine, which has to stay as it is.
  FilePlan(const CadSave& how, const CTcadEng& engine);

  Version FileVersion() const { return version_; }
  Handle LayerHandle(std::size_t position) const {
    return position == 0 ? fixed::kFirstLayer : fixed::kFirstOfOwn + position - 1;
  }
  BlockHandles HandlesOf(const cad_writer::PlannedBlock& block) const;
  /// The handle of the first entity.
  Handle FirstEntity() const;
  /// Lies above all handles of the file.
  Handle NextHandle() const { return FirstEntity() + MostRecords(); }

 private:
  Version version_;
};

/// A text as a record has it, on one line.
std::string PlainText(std::string_view utf8);
/// A text of several lines.
std::string MultiText(std::string_view utf8);

}  // namespace dwg
