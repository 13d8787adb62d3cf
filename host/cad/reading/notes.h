// What is read and cannot be held, for the user.
#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "tdk/wstring.h"

namespace cad_reader {

/// What is told with a number, in the order in which it is told.
enum class Note : std::uint8_t {
  kPaperSpace,
  kInvisible,
  kLineType,
  kLooks,
  kSpline,
  kTiltedCurve,
  kTiltedText,
  kTiltedInsert,
  kUnknownBlock,
  kBlockInItself,
  kTooDeep,
  kArray,
  kTakenBlock,
  kBadFace,
  kNoShape,
  kNoLayer,
  kNoOwner,
  kDamaged,
  kChecksum,
  kCount
};

class Notes {
 public:
  /// A kind of entity that is not read.
  void CountNotRead(std::string_view kind);
  void Count(Note note, std::uint64_t times = 1) {
    counts_[static_cast<std::size_t>(note)] += times;
  }
  void Add(const tdk::WString& line) { lines_.push_back(line); }

  /// All of them, a line each.
  std::vector<tdk::WString> Lines() const;

 private:
  std::vector<tdk::WString> lines_;
  std::map<std::string, std::uint64_t, std::less<>> notRead_;
  std::uint64_t otherKinds_ = 0;
  std::array<std::uint64_t, static_cast<std::size_t>(Note::kCount)> counts_{};
};

}  // namespace cad_reader
