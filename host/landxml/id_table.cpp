#include "host/landxml/id_table.h"

namespace landxml_load {

// Unsigned, for no id may overflow.
std::uint64_t IdTable::Beyond(std::int64_t id) const {
  return static_cast<std::uint64_t>(id) - static_cast<std::uint64_t>(first_);
}

bool IdTable::Add(std::int64_t id) {
  if (count_ == 0) first_ = id;
  if (!isStored_ && Beyond(id) != static_cast<std::uint64_t>(count_)) StoreAll();
  const int position = count_++;
  return !isStored_ || positions_.emplace(id, position).second;
}

std::optional<int> IdTable::Find(std::int64_t id) const {
  if (isStored_) {
    const auto found = positions_.find(id);
    return found == positions_.end() ? std::nullopt : std::optional(found->second);
  }
  if (Beyond(id) >= static_cast<std::uint64_t>(count_)) return std::nullopt;
  return static_cast<int>(Beyond(id));
}

void IdTable::StoreAll() {
  isStored_ = true;
  for (int i = 0; i < count_; ++i) positions_.emplace(first_ + i, i);
}

}  // namespace landxml_load
