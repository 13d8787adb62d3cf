#include "host/cad/reading/looks.h"

#include <algorithm>

namespace cad_reader {
namespace {

// Names differ in more than the case of their letters.
bool IsName(std::string_view name, std::string_view capitals) {
  const auto isSame = [](char c, char capital) {
    return (c >= 'a' && c <= 'z' ? c - 'a' + 'A' : c) == capital;
  };
  return std::equal(name.begin(), name.end(), capitals.begin(), capitals.end(), isSame);
}

}  // namespace

void LostLooks::TakeLineType(std::string_view name) {
  const bool isPlain = name.empty() || IsName(name, "CONTINUOUS") || IsName(name, "BYLAYER") ||
                       IsName(name, "BYBLOCK");
  hasPattern_ = hasPattern_ || !isPlain;
}

void LostLooks::TakeTextStyle(std::string_view name) {
  hasOwn_ = hasOwn_ || !(name.empty() || IsName(name, "STANDARD"));
}

void LostLooks::Take(const LostLooks& other) {
  hasPattern_ = hasPattern_ || other.hasPattern_;
  hasOwn_ = hasOwn_ || other.hasOwn_;
}

void LostLooks::CountInto(Notes& notes) const {
  if (hasPattern_) notes.Count(Note::kLineType);
  if (hasOwn_) notes.Count(Note::kLooks);
}

}  // namespace cad_reader
