#include "frame/string_table.h"

#include <array>

namespace frame {

std::span<const tdk::StringEntry> StringTable() {
  static constexpr std::array<tdk::StringEntry, 1> kTable = {{
      {kTextNotBuiltYet, "{1} files cannot be exchanged by this version yet."},
  }};
  return kTable;
}

}  // namespace frame
