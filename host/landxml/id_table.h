// From the ids of a surface's points to their positions.
#pragma once

#include <cstdint>
#include <optional>
#include <unordered_map>

namespace landxml_load {

/// Most files number the points one after the other; nothing is stored for those.
class IdTable {
 public:
  /// The next point has this id. False when another point has it already.
  bool Add(std::int64_t id);
  std::optional<int> Find(std::int64_t id) const;

 private:
  /// How far behind the first id.
  std::uint64_t Beyond(std::int64_t id) const;
  void StoreAll();

  std::int64_t first_ = 0;
  int count_ = 0;
  bool isStored_ = false;  // else ids follow one another from first_
  std::unordered_map<std::int64_t, int> positions_;
};

}  // namespace landxml_load
