// Writes the drawing engine's drawings as DWG.
#pragma once

#include <cstdint>

#include "model/cad_files.h"

struct DwgWritten {
  bool isWritten = false;
  /// How many entities are not in the file because a number of theirs is undefined or makes no
  /// shape, because their text is too long, because the block that they insert is not there, or
  /// because a block would hold itself.
  std::uint64_t leftOut = 0;
};

/// Writes all that is not private: version R14 (AC1014) for TCAD_DWG_R14, 2000 (AC1015) for all
/// others. Private blocks are written when something inserts them. When the file cannot be
/// completed an older one stays as it was.
DwgWritten WriteDwgCounting(const CadSave& how, const CTcadEng& engine);
