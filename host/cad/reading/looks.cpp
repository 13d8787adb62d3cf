#include "host/cad/reading/looks.h"

#include "platform/letters.h"

namespace cad_reader {

void LostLooks::TakeLineType(std::string_view name) {
  const bool isPlain = name.empty() || platform::AreSameInAnyLetters(name, "CONTINUOUS") ||
                       platform::AreSameInAnyLetters(name, "BYLAYER") ||
                       platform::AreSameInAnyLetters(name, "BYBLOCK");
  hasPattern_ = hasPattern_ || !isPlain;
}

void LostLooks::TakeTextStyle(std::string_view name) {
  hasOwn_ = hasOwn_ || !(name.empty() || platform::AreSameInAnyLetters(name, "STANDARD"));
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
