// Writes the drawing engine's drawings as DXF.
#pragma once

#include <cstdint>

#include "model/cad_files.h"

struct DxfWritten {
  bool isWritten = false;
  /// How many entities are not in the file because a number of theirs is undefined or makes no
  /// shape, because the block that they insert is not there, or because a block would hold itself.
  std::uint64_t leftOut = 0;
};

/// Writes all that is not private: version R12 (AC1009) for TCAD_DXF_R12, 2000 (AC1015) for all
/// others. Private blocks are written when something inserts them. When the file cannot be
/// completed an older one stays as it was.
DxfWritten WriteDxfCounting(const CadSave& how, const CTcadEng& engine);

/// The same; false when the file could not be written.
bool WriteDxf(const CadSave& how, const CTcadEng& engine);
