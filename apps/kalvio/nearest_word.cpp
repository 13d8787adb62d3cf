#include "nearest_word.h"

#include <algorithm>
#include <numeric>
#include <vector>

#include "platform/letters.h"
#include "services/translate.h"

namespace {

constexpr std::size_t kMostDifferences = 2;
constexpr std::size_t kLongestWord = 40;

// How many letters must be put in, taken out or changed to make one word the other, letter case
// ignored.
std::size_t Distance(std::string_view first, std::string_view second) {
  using platform::Small;
  std::vector<std::size_t> row(second.size() + 1);
  std::iota(row.begin(), row.end(), std::size_t{0});
  for (std::size_t i = 0; i < first.size(); ++i) {
    std::size_t diagonal = row[0]++;
    for (std::size_t j = 0; j < second.size(); ++j) {
      const std::size_t changed = diagonal + (Small(first[i]) == Small(second[j]) ? 0 : 1);
      diagonal = row[j + 1];
      row[j + 1] = std::min({changed, row[j] + 1, row[j + 1] + 1});
    }
  }
  return row.back();
}

}  // namespace

std::string SuggestedWord(std::string_view word, std::span<const std::string_view> known) {
  std::string_view nearest;
  std::size_t least = kMostDifferences + 1;
  if (word.size() > kLongestWord) return {};
  for (const std::string_view each : known) {
    const std::size_t distance = Distance(word, each);
    if (distance >= least || distance >= each.size()) continue;
    least = distance;
    nearest = each;
  }
  if (nearest.empty()) return {};
  return "; " + Fill(Xlate("did you mean \"{1}\"?"), {tdk::WString(nearest)}).ToUtf8();
}
