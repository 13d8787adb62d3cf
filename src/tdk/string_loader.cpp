#include "tdk/string_loader.h"

#include <algorithm>
#include <map>

namespace tdk {
namespace {

std::map<const void*, std::span<const StringEntry>>& Tables() {
  static std::map<const void*, std::span<const StringEntry>> tables;
  return tables;
}

}  // namespace

void CStringLoader::Init(const void* instance, std::span<const StringEntry> table) {
  Tables().insert_or_assign(instance, table);
}

void CStringLoader::Remove(const void* instance) { Tables().erase(instance); }

WString CStringLoader::Load(unsigned id) {
  for (const auto& [instance, table] : Tables()) {
    const auto found = std::find_if(table.begin(), table.end(),
                                    [id](const StringEntry& entry) { return entry.id == id; });
    if (found != table.end()) return found->text;
  }
  return {};
}

}  // namespace tdk
