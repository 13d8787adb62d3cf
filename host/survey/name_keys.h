// Names by 64-bit keys: a million of them are compared without a search.
#pragma once

#include <array>
#include <cstdint>
#include <cstring>
#include <span>
#include <string_view>
#include <vector>

namespace survey {

namespace key_detail {

template <class Number>
std::uint64_t Load(const char* at) {
  Number number;
  std::memcpy(&number, at, sizeof number);
  return number;
}

// At most eight bytes, all of them in the result; the loads may overlap.
inline std::uint64_t Word(const char* at, std::size_t size) {
  if (size >= 4) return Load<std::uint32_t>(at) | Load<std::uint32_t>(at + size - 4) << 32;
  if (size == 0) return 0;
  const auto byte = [&](std::size_t i) { return Load<std::uint8_t>(at + i); };
  return byte(0) | byte(size / 2) << 8 | byte(size - 1) << 16;
}

inline std::uint64_t Mixed(std::uint64_t key, std::uint64_t word) {
  constexpr std::uint64_t kFactor = 0x9E3779B97F4A7C15;
  key = (key ^ word) * kFactor;
  return key ^ (key >> 32);
}

}  // namespace key_detail

/// The same for the same name; two names of a job have the same key about once in 10^7 jobs of a
/// million points.
inline std::uint64_t KeyOf(std::string_view name) {
  using namespace key_detail;
  std::uint64_t key = Mixed(name.size(), 0);
  while (name.size() > sizeof key) {
    key = Mixed(key, Load<std::uint64_t>(name.data()));
    name.remove_prefix(sizeof key);
  }
  key = Mixed(key, Word(name.data(), name.size()));
  return Mixed(key, 0);
}

/// A set of keys in a few bits each. It may take a key for one of its own that is not, at most
/// about one in four hundred, but never the other way round.
class KeyFilter {
 public:
  /// `count`: about how many keys there will be.
  explicit KeyFilter(std::size_t count);

  /// False when the key, or one like it, was there already.
  bool Add(std::uint64_t key) {
    std::uint64_t& word = words_[WordOf(key)];
    const std::uint64_t bits = BitsOf(key);
    const bool isNew = (word & bits) != bits;
    word |= bits;
    return isNew;
  }
  bool Has(std::uint64_t key) const {
    const std::uint64_t bits = BitsOf(key);
    return (words_[WordOf(key)] & bits) == bits;
  }
  /// To be called some time before Add or Has, which need not wait for the memory then.
  void Expect(std::uint64_t key) const { __builtin_prefetch(&words_[WordOf(key)], 1); }

 private:
  std::size_t WordOf(std::uint64_t key) const { return static_cast<std::size_t>(key >> shift_); }
  // Three of the word's 64, by the key's low bits; the word is found by its high ones.
  static std::uint64_t BitsOf(std::uint64_t key) {
    return std::uint64_t{1} << (key & 63) | std::uint64_t{1} << (key >> 6 & 63) |
           std::uint64_t{1} << (key >> 12 & 63);
  }

  int shift_;
  std::vector<std::uint64_t> words_;
};

/// Takes keys one by one and remembers those that came after one like it: every repeated key, and
/// a few by chance.
class LaterKeys {
 public:
  explicit LaterKeys(std::size_t count) : seen_(count) { waiting_.fill(0); }

  void Add(std::uint64_t key) {
    seen_.Expect(key);
    // Its turn comes when the memory is there.
    std::uint64_t& place = waiting_[added_++ % kAhead];
    if (added_ > kAhead) Take(place);
    place = key;
  }
  /// To be called once, at the end.
  const std::vector<std::uint64_t>& Finish();

 private:
  static constexpr std::size_t kAhead = 32;

  void Take(std::uint64_t key) {
    if (!seen_.Add(key)) later_.push_back(key);
  }

  KeyFilter seen_;
  std::array<std::uint64_t, kAhead> waiting_;
  std::size_t added_ = 0;
  std::vector<std::uint64_t> later_;
};

/// Half a key is enough to tell nearly all names apart, and takes half the memory.
using ShortKey = std::uint32_t;
inline ShortKey ShortOf(std::uint64_t key) { return static_cast<ShortKey>(key >> 16); }

/// The positions, in order, of the keys that occur more than once, and of a few others by chance.
/// `later` are LaterKeys of them.
std::vector<std::uint32_t> RepeatedPositions(std::span<const ShortKey> keys,
                                             std::span<const std::uint64_t> later);

}  // namespace survey
