#include "host/gis/field_names.h"

#include <cstdint>
#include <set>
#include <string_view>

#include "platform/character_set.h"
#include "platform/letters.h"
#include "platform/numbers.h"

namespace shape {
namespace {

constexpr std::size_t kLongestName = 10;

// "Descriz_1": cut so that the number has room.
std::string FreeName(const std::string& name, const std::set<std::string>& taken) {
  std::string free(platform::CutUtf8(name.empty() ? "FIELD" : name, kLongestName));
  for (int i = 1; taken.contains(platform::Capital(free)); ++i) {
    std::string number = "_";
    platform::AppendWhole(number, i);
    free = std::string(
               platform::CutUtf8(name.empty() ? "FIELD" : name, kLongestName - number.size())) +
           number;
  }
  return free;
}

}  // namespace

std::vector<std::string> ShortNames(const std::vector<std::string>& names) {
  std::vector<std::string> shortened(names.size());
  std::set<std::string> taken;
  for (std::size_t i = 0; i < names.size(); ++i) {
    const bool fits = !names[i].empty() && names[i].size() <= kLongestName;
    if (fits && taken.insert(platform::Capital(names[i])).second) shortened[i] = names[i];
  }
  for (std::size_t i = 0; i < names.size(); ++i) {
    if (!shortened[i].empty()) continue;
    shortened[i] = FreeName(names[i], taken);
    taken.insert(platform::Capital(shortened[i]));
  }
  return shortened;
}

}  // namespace shape
