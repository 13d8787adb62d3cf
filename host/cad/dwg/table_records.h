// The records of tables and of what else a file has to have; see entity_records.h.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "host/cad/dwg/entity_records.h"
#include "host/cad/dwg/place.h"
#include "host/cad/dwg/version.h"

namespace dwg {

/// What all records have that are no entities.
struct ObjectHead {
  Handle owner = 0;
  std::uint32_t reactors = 0;
  Handle reactor = 0;  ///< the only one, where there is one
};
template <class S>
void Data(S& s, ObjectHead& it) {
  s.Long(it.reactors);
}
template <class S>
void References(S& s, ObjectHead& it) {
  s.Reference(Link::kSoftPointer, it.owner);
  if (!S::kReads && it.reactors == 1) {
    s.Reference(Link::kSoftPointer, it.reactor);
    Followers(s, 0);
  } else {
    Followers(s, it.reactors);
  }
}

/// What the records of tables begin with.
template <class S>
void TableName(S& s, std::string& name) {
  s.Text(name);
  s.Flags({true});   // something refers to it
  s.Shorts({0});     // number of the file that it is from
  s.Flags({false});  // that it is from another file
}

/// A table: what is in it.
struct ControlRecord {
  Type type = kLayerControl;
  std::vector<Handle> entries;
  std::vector<Handle> fixed;  ///< that are not counted: the two spaces, the two line types
};
template <class S>
void Data(S& s, ControlRecord& it) {
  s.Long(static_cast<std::uint32_t>(it.entries.size()));
  if (it.type == kDimensionControl && s.Is2000()) s.Bytes({0});
}
template <class S>
void References(S& s, ControlRecord& it) {
  for (const Handle entry : it.entries) s.Reference(Link::kSoftOwner, entry);
  for (const Handle entry : it.fixed) s.Reference(Link::kHardOwner, entry);
}

struct BlockRecord {
  std::string name;  ///< of nameless blocks only how it begins
  bool isNameless = false;
  bool hasDefinitions = false;  ///< of attributes
  bool isOtherFile = false;
  bool isOverlaid = false;
  Place base;
  Handle begin = 0;
  Handle first = 0;  ///< entity
  Handle last = 0;
  Handle end = 0;
  std::vector<Handle> inserts;  ///< of it; not read
  std::uint32_t insertCount = 0;
  Handle layout = 0;
};

template <class S>
void InsertCount(S& s, BlockRecord& it) {
  std::uint8_t more = 1;
  if constexpr (S::kReads) {
    for (it.insertCount = 0; s.Byte(more), more != 0; ++it.insertCount) {
    }
  } else {
    for (std::size_t i = 0; i < it.inserts.size(); ++i) s.Byte(more);
    s.Byte(0);
  }
}

template <class S>
void Data(S& s, BlockRecord& it) {
  TableName(s, it.name);
  s.Flag(it.isNameless);
  s.Flag(it.hasDefinitions);
  s.Flag(it.isOtherFile);
  s.Flag(it.isOverlaid);
  if (s.Is2000()) s.Flags({false});  // that another file is loaded
  s.Point(it.base);
  s.Texts({""});  // path of another file
  if (!s.Is2000()) return;
  InsertCount(s, it);
  s.Texts({""});  // description
  std::uint32_t preview = 0;
  s.Count(preview, 8);
  s.Zeros(preview);
}
template <class S>
void References(S& s, BlockRecord& it) {
  s.NoReferences(Link::kHardPointer, 1);
  s.Reference(Link::kHardOwner, it.begin);
  if (!it.isOtherFile && !it.isOverlaid) {
    s.Reference(Link::kSoftPointer, it.first);
    s.Reference(Link::kSoftPointer, it.last);
  }
  s.Reference(Link::kHardOwner, it.end);
  if (!s.Is2000()) return;
  if constexpr (S::kReads) {
    s.NeedRoomForReferences(it.insertCount);
    s.NoReferences(Link::kSoftPointer, it.insertCount);
  } else {
    for (const Handle insert : it.inserts) s.Reference(Link::kSoftPointer, insert);
  }
  s.Reference(Link::kHardPointer, it.layout);
}

struct LayerRecord {
  std::string name;
  bool isFrozen = false;
  bool isOff = false;
  bool isLocked = false;
  std::uint16_t color = 7;
  std::uint8_t lineWeight = kUsualWeight;
  Handle plotStyle = 0;
  Handle lineType = 0;
};

template <class S>
void LayerState2000(S& s, LayerRecord& it) {
  constexpr unsigned kFrozen = 1;
  constexpr unsigned kOff = 2;
  constexpr unsigned kLocked = 8;
  constexpr unsigned kPlotted = 16;
  constexpr unsigned kWeightShift = 5;
  constexpr unsigned kWeightBits = 31;
  auto state = static_cast<std::uint16_t>((it.isFrozen ? kFrozen : 0) | (it.isOff ? kOff : 0) |
                                          (it.isLocked ? kLocked : 0) | kPlotted |
                                          static_cast<unsigned>(it.lineWeight) << kWeightShift);
  s.Short(state);
  it.isFrozen = (state & kFrozen) != 0;
  it.isOff = (state & kOff) != 0;
  it.isLocked = (state & kLocked) != 0;
  it.lineWeight = static_cast<std::uint8_t>(state >> kWeightShift & kWeightBits);
}

template <class S>
void Data(S& s, LayerRecord& it) {
  TableName(s, it.name);
  if (s.Is2000()) {
    LayerState2000(s, it);
  } else {
    s.Flag(it.isFrozen);
    s.Flag(it.isOff);
    s.Flags({false});  // frozen in new views
    s.Flag(it.isLocked);
  }
  s.Short(it.color);
}
template <class S>
void References(S& s, LayerRecord& it) {
  s.NoReferences(Link::kHardPointer, 1);
  if (s.Is2000()) s.Reference(Link::kHardPointer, it.plotStyle);
  s.Reference(Link::kHardPointer, it.lineType);
}

/// The text style "Standard" and the like.
struct StyleRecord {
  std::string name;
  std::string font;
};
template <class S>
void Data(S& s, StyleRecord& it) {
  TableName(s, it.name);
  s.Flags({false, false});  // upright; a file of shapes
  s.Doubles({0, 1, 0});     // height, width, slant
  s.Bytes({0});
  s.Doubles({2.5});  // height last used
  s.Text(it.font);
  s.Texts({""});
}
template <class S>
void References(S& s, StyleRecord& /*it*/) {
  s.NoReferences(Link::kHardPointer, 1);
}

/// A line type without dashes.
struct LineTypeRecord {
  std::string name;
  std::string description;
};
template <class S>
void Data(S& s, LineTypeRecord& it) {
  constexpr std::size_t kTextArea = 256;
  TableName(s, it.name);
  s.Text(it.description);
  s.Doubles({0});
  s.Bytes({'A', 0});
  s.Zeros(kTextArea);
}
template <class S>
void References(S& s, LineTypeRecord& /*it*/) {
  s.NoReferences(Link::kHardPointer, 1);
}

/// A view of the drawing from above.
struct ViewportRecord {
  std::string name;
  double height = 1;
  double width = 1;
  Place center;
};
template <class S>
void Data(S& s, ViewportRecord& it) {
  TableName(s, it.name);
  s.Double(it.height);
  s.Double(it.width);
  s.RawFlat(it.center);
  s.Points({{}, kUp});       // what is looked at, and from where
  s.Doubles({0, 50, 0, 0});  // turn, lens, front, back
  s.Flags({false, false, false, true});
  if (s.Is2000()) s.Bytes({0});
  s.RawDoubles({0, 0, 1, 1});  // its place on the screen
  s.Flags({false});
  s.Shorts({1000});             // chords of a circle
  s.Flags({true, true, true});  // fast zooms, sign of the axes
  s.Flags({false});             // grid
  s.RawDoubles({1, 1});
  s.Flags({false, false});  // snap
  s.Shorts({0});
  s.Doubles({0});
  s.RawDoubles({0, 0, 1, 1});
  if (!s.Is2000()) return;
  s.Flags({false, true});
  s.Points({{}, {1, 0, 0}, {0, 1, 0}});
  s.Doubles({0});
  s.Shorts({0});
}
template <class S>
void References(S& s, ViewportRecord& /*it*/) {
  s.NoReferences(Link::kHardPointer, s.Is2000() ? 3 : 1);
}

/// The name of a program that may add values of its own.
struct ProgramRecord {
  std::string name;
};
template <class S>
void Data(S& s, ProgramRecord& it) {
  TableName(s, it.name);
  s.Bytes({0});
}
template <class S>
void References(S& s, ProgramRecord& /*it*/) {
  s.NoReferences(Link::kHardPointer, 1);
}

/// Names of other objects. In alphabetical order.
struct DictionaryRecord {
  struct Item {
    std::string key;
    Handle handle;
  };
  std::vector<Item> items;
  Handle otherwise = 0;  ///< what stands for all other names, where there is such
};
template <class S>
void Data(S& s, DictionaryRecord& it) {
  s.Long(static_cast<std::uint32_t>(it.items.size()));
  if (s.Is2000()) {
    s.Shorts({1});
    s.Bytes({0});
  } else if (!s.IsR13()) {
    s.Bytes({0});
  }
  for (auto& item : it.items) s.Text(item.key);
}
template <class S>
void References(S& s, DictionaryRecord& it) {
  for (auto& item : it.items) s.Reference(Link::kSoftOwner, item.handle);
  if (it.otherwise != 0) s.Reference(Link::kHardPointer, it.otherwise);
}

/// Something that only has to be there.
struct PlaceholderRecord {};
template <class S>
void Data(S& /*s*/, PlaceholderRecord& /*it*/) {}

/// The style of multiple lines that every file has.
struct MultiLineStyleRecord {
  std::string name;
};
template <class S>
void Data(S& s, MultiLineStyleRecord& it) {
  constexpr double kRightAngle = 1.57079632679489661923;
  constexpr std::uint16_t kByLayer = 256;
  constexpr std::uint16_t kLineByLayer = 32767;
  s.Text(it.name);
  s.Texts({""});
  s.Shorts({0, kByLayer});
  s.Doubles({kRightAngle, kRightAngle});
  s.Bytes({2});
  for (const double offset : {0.5, -0.5}) {
    s.Doubles({offset});
    s.Shorts({kByLayer, kLineByLayer});
  }
}

/// How one of the two spaces comes onto paper.
struct LayoutRecord {
  std::string name;
  bool isModel = false;
  std::uint32_t position = 0;  ///< among the layouts
  Handle block = 0;            ///< the record of its space
};
template <class S>
void PlotSettings(S& s, const LayoutRecord& it) {
  s.Texts({"", "none_device"});
  s.Shorts({static_cast<std::uint16_t>(it.isModel ? 1712 : 688)});
  s.Doubles({0, 0, 0, 0, 0, 0});  // margins and size
  s.Texts({""});
  s.Doubles({0, 0});
  s.Shorts({0, 0, static_cast<std::uint16_t>(it.isModel ? 0 : 5)});
  s.Doubles({0, 0, 0, 0});
  s.Texts({""});
  s.Doubles({1, 1});
  s.Texts({""});
  s.Shorts({static_cast<std::uint16_t>(it.isModel ? 0 : 16)});
  s.Doubles({1, 0, 0});
}
template <class S>
void Data(S& s, LayoutRecord& it) {
  PlotSettings(s, it);
  s.Text(it.name);
  s.Long(it.position);
  s.Shorts({1});
  s.Points({{}});
  s.RawDoubles({0, 0, 12, 9});
  s.Points({{}, {1, 0, 0}, {0, 1, 0}});
  s.Doubles({0});
  s.Shorts({0});
  s.Points({{}, {}});
}
template <class S>
void References(S& s, LayoutRecord& it) {
  s.Reference(Link::kSoftPointer, it.block);
  s.NoReferences(Link::kSoftPointer, 1);
  s.NoReferences(Link::kHardPointer, 2);
}

}  // namespace dwg
