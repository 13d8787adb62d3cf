// What a file says of how its layers and entities look, as far as the drawings of the engine have
// no such looks.
#pragma once

#include <cstdint>
#include <string_view>

#include "host/cad/reading/notes.h"

namespace cad_reader {

/// Of one layer or entity. Names are as they are in the file, and empty where it has none.
class LostLooks {
 public:
  /// Of its lines: lost unless they are continuous, or those of the layer or the block.
  void TakeLineType(std::string_view name);
  /// Lost unless it is the standard one.
  void TakeTextStyle(std::string_view name);
  /// In any unit; what is not above 0 is that of the layer, the block or the drawing.
  void TakeLineWeight(std::int64_t weight) { hasOwn_ = hasOwn_ || weight > 0; }
  /// The thickness of something flat, or the width of a polyline; in metres.
  void TakeExtent(double extent) { hasOwn_ = hasOwn_ || extent != 0; }
  /// How wide the letters of a text are, by their usual width, and how slanted, in any unit.
  void TakeLetters(double width, double slant) { hasOwn_ = hasOwn_ || width != 1 || slant != 0; }
  /// A true colour, or that something can be seen through it.
  void TakeTrueColor() { hasOwn_ = true; }
  /// All that was taken there.
  void Take(const LostLooks& other);

  /// Counts the layer or entity, once for its lines and once for the rest.
  void CountInto(Notes& notes) const;

 private:
  bool hasPattern_ = false;
  bool hasOwn_ = false;
};

}  // namespace cad_reader
