// Blocks that contain themselves.
#pragma once

#include <set>
#include <utility>
#include <vector>

namespace cad_reader {

/// That a block (first) inserts another (second).
using BlockInsert = std::pair<int, int>;

struct CutInserts {
  std::set<BlockInsert> inItself;
  std::set<BlockInsert> tooDeep;
};

/// Which inserts have to go so that no block contains itself, and none is nested deeper than can be
/// drawn. `inserted`: the blocks that each block inserts.
CutInserts FindCutInserts(const std::vector<std::vector<int>>& inserted);

}  // namespace cad_reader
