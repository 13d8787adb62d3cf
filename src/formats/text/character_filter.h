// What of a line's characters a point file may hold.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace text {

/// Folds accented letters to plain ones and drops what is no ASCII text, and counts both.
class CharacterFilter {
 public:
  /// The line in ASCII. Line ends and `kept` (0: none) stay; with `cutAtNul` the line ends at its
  /// first NUL. Valid until the next call or as long as `utf8`.
  std::string_view Filter(std::string_view utf8, char kept, bool cutAtNul);

  /// Whether the last line may hold a quote or a carriage return.
  bool HasMarks() const { return hasMarks_; }
  std::uint64_t Removed() const { return removed_; }
  std::uint64_t Replaced() const { return replaced_; }

 private:
  void Take(char32_t character, char kept);

  std::string line_;
  bool hasMarks_ = false;
  std::uint64_t removed_ = 0;
  std::uint64_t replaced_ = 0;
};

}  // namespace text
