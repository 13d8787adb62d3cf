#include "host/survey/name_keys.h"

#include <algorithm>
#include <bit>

namespace survey {

namespace {

constexpr int kBitsOfKey = 64;
constexpr std::size_t kSlotsPerKey = 32;
constexpr std::size_t kLeastWords = 64;

struct At {
  ShortKey key;
  std::uint32_t position;
};

// The positions of those of which there are several.
std::vector<std::uint32_t> OfSeveral(std::vector<At> found) {
  std::sort(found.begin(), found.end(), [](const At& a, const At& b) { return a.key < b.key; });
  std::vector<std::uint32_t> positions;
  for (auto first = found.begin(); first != found.end();) {
    const auto last =
        std::find_if(first, found.end(), [&](const At& it) { return it.key != first->key; });
    if (last - first > 1) {
      std::for_each(first, last, [&](const At& it) { positions.push_back(it.position); });
    }
    first = last;
  }
  std::sort(positions.begin(), positions.end());
  return positions;
}

// Over all the bits that a filter looks at.
std::uint64_t Spread(ShortKey key) { return key_detail::Mixed(key, 0); }

}  // namespace

KeyFilter::KeyFilter(std::size_t count) {
  const std::size_t words = std::bit_ceil(std::max(kLeastWords, count * kSlotsPerKey / kBitsOfKey));
  shift_ = kBitsOfKey - std::countr_zero(words);
  words_.resize(words);
}

const std::vector<std::uint64_t>& LaterKeys::Finish() {
  const std::size_t left = std::min(added_, kAhead);
  for (std::size_t i = 0; i < left; ++i) Take(waiting_[(added_ - left + i) % kAhead]);
  return later_;
}

std::vector<std::uint32_t> RepeatedPositions(std::span<const ShortKey> keys,
                                             std::span<const std::uint64_t> later) {
  if (later.empty()) return {};
  KeyFilter filter(later.size());
  for (const std::uint64_t key : later) filter.Add(Spread(ShortOf(key)));
  std::vector<At> found;
  for (std::size_t i = 0; i < keys.size(); ++i) {
    if (filter.Has(Spread(keys[i]))) found.push_back({keys[i], static_cast<std::uint32_t>(i)});
  }
  return OfSeveral(std::move(found));
}

}  // namespace survey
