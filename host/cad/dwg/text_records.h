// The records of texts, blocks and inserts; see entity_records.h.
#pragma once

#include <cstdint>
#include <string>

#include "host/cad/dwg/place.h"
#include "host/cad/dwg/version.h"

namespace dwg {

struct TextRecord {
  double elevation = 0;
  Place at;         ///< where it begins; flat
  Place alignment;  ///< what it is aligned with; flat
  bool hasAlignment = false;
  Place direction = kUp;
  double thickness = 0;
  double slant = 0;
  double rotation = 0;
  double height = 0;
  double width = 1;
  std::string text;
  std::uint16_t mirroring = 0;
  std::uint16_t across = 0;  ///< left, centred, right, aligned, middle, fitted
  std::uint16_t up = 0;      ///< at the base line, bottom, middle, top
  Handle style = 0;
};

// Values that are not there have their usual value.
namespace text_absent {
inline constexpr unsigned kElevation = 0x01;
inline constexpr unsigned kAlignment = 0x02;
inline constexpr unsigned kSlant = 0x04;
inline constexpr unsigned kRotation = 0x08;
inline constexpr unsigned kWidth = 0x10;
inline constexpr unsigned kMirroring = 0x20;
inline constexpr unsigned kAcross = 0x40;
inline constexpr unsigned kUpward = 0x80;
}  // namespace text_absent

inline std::uint8_t AbsentOf(const TextRecord& it) {
  using namespace text_absent;
  return static_cast<std::uint8_t>(
      (it.elevation == 0 ? kElevation : 0) | (it.hasAlignment ? 0 : kAlignment) |
      (it.slant == 0 ? kSlant : 0) | (it.rotation == 0 ? kRotation : 0) |
      (it.width == 1 ? kWidth : 0) | (it.mirroring == 0 ? kMirroring : 0) |
      (it.across == 0 ? kAcross : 0) | (it.up == 0 ? kUpward : 0));
}

template <class S>
void Data2000(S& s, TextRecord& it) {
  using namespace text_absent;
  std::uint8_t absent = AbsentOf(it);
  s.Byte(absent);
  const auto has = [&](unsigned value) { return (absent & value) == 0; };
  if (has(kElevation)) s.RawDouble(it.elevation);
  s.RawFlat(it.at);
  it.hasAlignment = has(kAlignment);
  if (it.hasAlignment) {
    s.Near(it.alignment.x, it.at.x);
    s.Near(it.alignment.y, it.at.y);
  }
  s.Extrusion(it.direction);
  s.Thickness(it.thickness);
  if (has(kSlant)) s.RawDouble(it.slant);
  if (has(kRotation)) s.RawDouble(it.rotation);
  s.RawDouble(it.height);
  if (has(kWidth)) s.RawDouble(it.width);
  s.Text(it.text);
  if (has(kMirroring)) s.Short(it.mirroring);
  if (has(kAcross)) s.Short(it.across);
  if (has(kUpward)) s.Short(it.up);
}

template <class S>
void Data(S& s, TextRecord& it) {
  if (s.Is2000()) {
    Data2000(s, it);
    return;
  }
  s.Double(it.elevation);
  s.RawFlat(it.at);
  s.RawFlat(it.alignment);
  s.Extrusion(it.direction);
  s.Thickness(it.thickness);
  s.Double(it.slant);
  s.Double(it.rotation);
  s.Double(it.height);
  s.Double(it.width);
  s.Text(it.text);
  s.Short(it.mirroring);
  s.Short(it.across);
  s.Short(it.up);
  it.hasAlignment = it.across != 0 || it.up != 0;
}
template <class S>
void References(S& s, TextRecord& it) {
  s.Reference(Link::kHardPointer, it.style);
}

struct AttributeRecord {
  TextRecord text;
  std::string tag;
  std::uint8_t flags = 0;
};

template <class S>
void Data(S& s, AttributeRecord& it) {
  Data(s, it.text);
  s.Text(it.tag);
  s.Shorts({0});  // length of its field
  s.Byte(it.flags);
}
template <class S>
void References(S& s, AttributeRecord& it) {
  References(s, it.text);
}

struct AttributeDefinitionRecord {
  AttributeRecord attribute;
  std::string prompt;
};
template <class S>
void Data(S& s, AttributeDefinitionRecord& it) {
  Data(s, it.attribute);
  s.Text(it.prompt);
}
template <class S>
void References(S& s, AttributeDefinitionRecord& it) {
  References(s, it.attribute);
}

struct MultiTextRecord {
  Place at;
  Place direction = kUp;
  Place along{1, 0, 0};  ///< the lines
  double height = 0;
  std::uint16_t attachment = 1;  ///< 1 to 9, from the top left to the bottom right
  std::string text;
  double spacing = 1;
  std::uint16_t spacingKind = 1;
  Handle style = 0;
};
template <class S>
void Data(S& s, MultiTextRecord& it) {
  s.Point(it.at);
  s.Point(it.direction);
  s.Point(it.along);
  s.Doubles({0});  // the width at which lines are broken
  s.Double(it.height);
  s.Short(it.attachment);
  s.Shorts({1});      // from left to right
  s.Doubles({0, 0});  // its extent
  s.Text(it.text);
  if (!s.Is2000()) return;
  s.Short(it.spacingKind);
  s.Double(it.spacing);
  s.Flags({false});
}
template <class S>
void References(S& s, MultiTextRecord& it) {
  s.Reference(Link::kHardPointer, it.style);
}

struct BlockBeginRecord {
  std::string name;
};
template <class S>
void Data(S& s, BlockBeginRecord& it) {
  s.Text(it.name);
}

/// The end of a block, or of the records that belong to an entity.
struct EndRecord {};
template <class S>
void Data(S& /*s*/, EndRecord& /*it*/) {}

struct InsertRecord {
  Place at;
  Place scale{1, 1, 1};
  double rotation = 0;
  Place direction = kUp;
  bool hasAttributes = false;
  Handle block = 0;  ///< its record
  Handle first = 0;  ///< attribute
  Handle last = 0;
  Handle end = 0;
};

template <class S>
void Scale2000(S& s, Place& scale) {
  constexpr unsigned kEach = 0;
  constexpr unsigned kXIsOne = 1;
  constexpr unsigned kAllAreOne = 3;
  constexpr unsigned kAllAreX = 2;
  const bool isEven = scale.x == scale.y && scale.x == scale.z;
  unsigned kind = scale.x == 1 ? (isEven ? kAllAreOne : kXIsOne) : (isEven ? kAllAreX : kEach);
  s.TwoBits(kind);
  if constexpr (S::kReads) scale = {1, 1, 1};
  if (kind == kEach || kind == kAllAreX) s.RawDouble(scale.x);
  if (kind == kEach || kind == kXIsOne) {
    s.Near(scale.y, scale.x);
    s.Near(scale.z, scale.x);
  }
  if (kind == kAllAreX) scale = {scale.x, scale.x, scale.x};
}

template <class S>
void Data(S& s, InsertRecord& it) {
  s.Point(it.at);
  if (s.Is2000()) {
    Scale2000(s, it.scale);
  } else {
    s.Point(it.scale);
  }
  s.Double(it.rotation);
  s.Point(it.direction);
  s.Flag(it.hasAttributes);
}
template <class S>
void References(S& s, InsertRecord& it) {
  s.Reference(Link::kHardPointer, it.block);
  if (!it.hasAttributes) return;
  s.Reference(Link::kSoftPointer, it.first);
  s.Reference(Link::kSoftPointer, it.last);
  s.Reference(Link::kHardOwner, it.end);
}

struct InsertArrayRecord {
  InsertRecord insert;
  std::uint16_t columns = 1;
  std::uint16_t rows = 1;
  double columnWidth = 0;
  double rowHeight = 0;
};
template <class S>
void Data(S& s, InsertArrayRecord& it) {
  Data(s, it.insert);
  s.Short(it.columns);
  s.Short(it.rows);
  s.Double(it.columnWidth);
  s.Double(it.rowHeight);
}
template <class S>
void References(S& s, InsertArrayRecord& it) {
  References(s, it.insert);
}

}  // namespace dwg
