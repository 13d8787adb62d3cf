// The header variables, the list of classes and the dimension style; see entity_records.h. Most
// variables have a value that suits drawings of surveys; what differs from file to file has a name.
#pragma once

#include <cstdint>
#include <string>

#include "host/cad/dwg/place.h"
#include "host/cad/dwg/version.h"

namespace dwg {

/// A day of the Julian calendar and the milliseconds of it.
struct Moment {
  std::uint32_t day = 0;
  std::uint32_t milliseconds = 0;
};

/// The records that the header names. 0: there is none.
struct FixedHandles {
  Handle blocks, layers, styles, lineTypes, views, systems, viewports, programs, dimensions,
      viewportHeaders;
  Handle groups, multiLineStyles, names, layouts, plotSettings, plotStyles;
  Handle layer, style, lineByLayer, lineByBlock, solidLine, dimension, multiLineStyle;
  Handle paperSpace, modelSpace;
};

struct HeaderVariables {
  Handle nextHandle = 0;
  Place least;  ///< of the extent
  Place greatest;
  Moment saved;
  std::string identity;  ///< 38 characters
  FixedHandles handles{};
};

inline constexpr double kNoExtent = 1e20;

template <class S>
// NOLINTNEXTLINE(readability-non-const-parameter): a reader sets it
void DimensionNumbers14(S& s, Handle* style) {
  s.Flags({false, false, true, true, false, false, false, false, false, false, false});
  s.Bytes({2, 0});
  s.Flags({false, false});
  s.Bytes({1, 0, 3});
  s.Flags({false});
  s.Bytes({0, 0, 0, 0});
  s.Shorts({2, 0, 4, 4, 2, 2});
  if (style != nullptr) s.Reference(Link::kHardPointer, *style);
  s.Doubles({1, .18, .0625, .38, .18, 0, 0, 0, 0});
  s.Doubles({.18, .09, 0, 25.4, 1, 0, 1, .09});
  s.Texts({"", "", "", "", ""});
  s.Shorts({0, 0, 0});
}

template <class S>
void DimensionNumbers2000(S& s) {
  s.Texts({"", ""});
  s.Doubles({1, .18, .0625, .38, .18, 0, 0, 0, 0});
  s.Flags({false, false, true, true, false, false});
  s.Shorts({0, 0, 0});
  s.Doubles({.18, .09, 0, 25.4, 1, 0, 1, .09, 0});
  s.Flags({false});
  s.Shorts({2});
  s.Flags({false, false, false, false});
  s.Shorts({0, 0, 0});
  s.Shorts({0, 4, 4, 2, 2, 0, 0, 2, '.', 0, 0});
  s.Flags({false, false});
  s.Shorts({1, 0, 0, 0});
  s.Flags({false});
  s.Shorts({3});
}

inline constexpr std::uint16_t kUsualWidth = 65534;

/// The dimension style "Standard".
struct DimensionStyleRecord {
  std::string name;
  Handle textStyle = 0;
};
template <class S>
void Data(S& s, DimensionStyleRecord& it) {
  s.Text(it.name);
  s.Flags({true});
  s.Shorts({0});
  s.Flags({false});
  if (s.Is2000()) {
    DimensionNumbers2000(s);
    s.Shorts({kUsualWidth, kUsualWidth});
  } else {
    DimensionNumbers14(s, nullptr);
  }
  s.Flags({false});
}
template <class S>
void References(S& s, DimensionStyleRecord& it) {
  s.NoReferences(Link::kHardPointer, 1);
  s.Reference(Link::kHardPointer, it.textStyle);
  if (s.Is2000()) s.NoReferences(Link::kHardPointer, 4);
}

// ---- Header variables, whose handles stand among the values ----

template <class S>
void FlagVariables(S& s) {
  const bool is2000 = s.Is2000();
  s.Flags({true, true});
  if (!is2000) s.Flags({false});
  s.Flags({false, false, true, true, false, true, false});
  if (!is2000) s.Flags({false});
  s.Flags({true, false, false, false});
  if (!is2000) s.Flags({true, true});
  s.Flags({false, true});
  if (!is2000) s.Flags({false});
  s.Flags({true, false, true});
  if (!is2000) s.Flags({true});
  s.Flags({false, false});
}

template <class S>
void ShortVariables(S& s) {
  const bool is2000 = s.Is2000();
  s.Shorts({1});
  if (!is2000) s.Shorts({2});
  s.Shorts({3020, 2, 4, 0, 2});
  if (!is2000) s.Shorts({0});
  s.Shorts({1});
  if (!is2000) s.Shorts({1});
  s.Shorts({0});
  if (!is2000) s.Shorts({1});
  s.Shorts({0, 0, 0, 0, 0});
  s.Shorts({8, 6, 6, 6, 6, 6, 6});
  s.Shorts({3, 70, 0, 64, 4, 0, 50});
}

template <class S>
void DoubleVariables(S& s) {
  s.Doubles({1, 2.5, 1, 1, 0, 0, 0, 0, 0});
  s.Doubles({0, 0, 0, 0, 0});
  s.Doubles({0, 0, 0, 0});
  s.Doubles({0.5, 1, 1});
}

template <class S>
void SpaceVariables(S& s, Place& least, Place& greatest) {
  s.Points({{}});
  s.Point(least);
  s.Point(greatest);
  s.RawDoubles({0, 0, 12, 9});
  s.Doubles({0});
  s.Points({{}, {1, 0, 0}, {0, 1, 0}});
  s.NoReferences(Link::kHardPointer, 1);
  if (!s.Is2000()) return;
  s.NoReferences(Link::kHardPointer, 1);
  s.Shorts({0});
  s.NoReferences(Link::kHardPointer, 1);
  s.Points({{}, {}, {}, {}, {}, {}});
}

template <class S>
void CurrentOnes(S& s, HeaderVariables& it) {
  FixedHandles& handles = it.handles;
  s.Shorts({256});  // colour
  s.Reference(Link::kOwn, it.nextHandle);
  s.Reference(Link::kHardPointer, handles.layer);
  s.Reference(Link::kHardPointer, handles.style);
  s.Reference(Link::kHardPointer, handles.lineByLayer);
  s.Reference(Link::kHardPointer, handles.dimension);
  s.Reference(Link::kHardPointer, handles.multiLineStyle);
}

template <class S>
void TableHandles(S& s, FixedHandles& it) {
  for (Handle* const table :
       {&it.blocks, &it.layers, &it.styles, &it.lineTypes, &it.views, &it.systems, &it.viewports,
        &it.programs, &it.dimensions, &it.viewportHeaders}) {
    s.Reference(Link::kHardOwner, *table);
  }
  s.Reference(Link::kHardPointer, it.groups);
  s.Reference(Link::kHardPointer, it.multiLineStyles);
  s.Reference(Link::kHardOwner, it.names);
}

template <class S>
void Variables2000(S& s, HeaderVariables& it) {
  constexpr std::uint32_t kFlags = 0x2A1D;
  constexpr std::uint16_t kMetres = 6;
  s.Shorts({1, 70});
  s.Texts({"", ""});
  s.Reference(Link::kHardPointer, it.handles.layouts);
  s.Reference(Link::kHardPointer, it.handles.plotSettings);
  s.Reference(Link::kHardPointer, it.handles.plotStyles);
  s.Longs({kFlags});
  s.Shorts({kMetres, 0});
  s.Text(it.identity);
  s.Text(it.identity);
}

template <class S>
void Data(S& s, HeaderVariables& it) {
  Place none{kNoExtent, kNoExtent, kNoExtent};
  Place noneEither{-kNoExtent, -kNoExtent, -kNoExtent};
  s.Doubles({412148564080.0, 1, 1, 1});
  s.Texts({"m", "", "", ""});
  s.Longs({24, 0});
  if (!s.Is2000()) s.Shorts({0});
  s.NoReferences(Link::kHardPointer, 1);
  FlagVariables(s);
  ShortVariables(s);
  DoubleVariables(s);
  s.Texts({"."});
  for (int i = 0; i < 2; ++i) {  // made, and changed
    s.Long(it.saved.day);
    s.Long(it.saved.milliseconds);
  }
  s.Longs({0, 0, 0, 0});
  CurrentOnes(s, it);
  if (s.Is2000()) s.Doubles({0});
  SpaceVariables(s, none, noneEither);  // paper
  SpaceVariables(s, it.least, it.greatest);
  if (s.Is2000()) {
    DimensionNumbers2000(s);
    s.Reference(Link::kHardPointer, it.handles.style);
    s.NoReferences(Link::kHardPointer, 4);
    s.Shorts({kUsualWidth, kUsualWidth});
  } else {
    DimensionNumbers14(s, &it.handles.style);
  }
  TableHandles(s, it.handles);
  if (s.Is2000()) Variables2000(s, it);
  for (Handle* const handle :
       {&it.handles.paperSpace, &it.handles.modelSpace, &it.handles.lineByLayer,
        &it.handles.lineByBlock, &it.handles.solidLine}) {
    s.Reference(Link::kHardPointer, *handle);
  }
  std::uint16_t last = 0xFFFF;
  for (int i = 0; i < 4; ++i) s.FullShort(last);
}

/// An entry of the list of classes, whose numbers begin at kFirstClass.
struct ClassRecord {
  static constexpr std::uint16_t kEntity = 0x1F2;
  static constexpr std::uint16_t kObject = 0x1F3;

  std::uint16_t number = 0;
  std::uint16_t flags = 0;
  std::string program;
  std::string className;
  std::string name;
  std::uint16_t kind = kObject;
};
template <class S>
void Data(S& s, ClassRecord& it) {
  s.Short(it.number);
  s.Short(it.flags);
  s.Text(it.program);
  s.Text(it.className);
  s.Text(it.name);
  s.Flags({false});
  s.Short(it.kind);
}

}  // namespace dwg
