#include "frame/string_table.h"

#include <array>

#include "services/translate.h"

namespace frame {

std::span<const tdk::StringEntry> StringTable() {
  static constexpr std::array<tdk::StringEntry, 1> kTable = {{
      {kTextNotBuiltYet, ToXlate("{1} files cannot be exchanged by this version yet.")},
  }};
  return kTable;
}

}  // namespace frame
