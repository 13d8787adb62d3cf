// Which names of a job tie its set-ups together.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

namespace survey {

/// Tells names that were added once from those that were added more often. It may take a name that
/// was added once for a shared one, seldom, but never the other way round: a million names take a
/// few megabytes and no search.
class SharedNames {
 public:
  /// `count`: about how many names there will be.
  explicit SharedNames(std::size_t count);

  /// What the other operations know a name by.
  static std::uint64_t KeyOf(std::string_view name);

  void Add(std::uint64_t key) {
    std::uint8_t& four = counters_[SlotOf(key) / 4];
    const unsigned shift = ShiftOf(key);
    // None, once, more often.
    if (((four >> shift) & 2) == 0) four = static_cast<std::uint8_t>(four + (1U << shift));
  }
  void AddShared(std::uint64_t key) {
    Add(key);
    Add(key);
  }
  bool IsShared(std::uint64_t key) const {
    return ((counters_[SlotOf(key) / 4] >> ShiftOf(key)) & 2) != 0;
  }

 private:
  std::size_t SlotOf(std::uint64_t key) const { return static_cast<std::size_t>(key >> shift_); }
  unsigned ShiftOf(std::uint64_t key) const { return static_cast<unsigned>(SlotOf(key) % 4) * 2; }

  int shift_;
  std::vector<std::uint8_t> counters_;  // two bits each
};

}  // namespace survey
