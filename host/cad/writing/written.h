// What came of a drawing file.
#pragma once

#include <cstdint>

struct CadWritten {
  bool isWritten = false;
  /// How many entities are not in the file because a number of theirs is undefined or makes no
  /// shape, because the file has no room for their text, because the block that they insert is not
  /// there, or because a block would hold itself.
  std::uint64_t leftOut = 0;
  /// How many polylines have straight legs in place of arcs: their points are not equally high.
  std::uint64_t straightened = 0;
  /// How many entities are not in the file because their layer is not displayed.
  std::uint64_t hidden = 0;
};
