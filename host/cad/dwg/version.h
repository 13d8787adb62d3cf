// The versions of files that are written and read, and what is fixed in them.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

namespace dwg {

/// In the order of time.
enum class Version : std::uint8_t { kR13, kR14, k2000 };

/// Names a record of a file.
using Handle = std::uint64_t;

/// Regions of a file, as its header numbers them.
enum Region : std::uint8_t {
  kVariables = 0,
  kClasses = 1,
  kObjectMap = 2,
  kFreeSpace = 3,
  kTemplate = 4,
  kAuxiliary = 5,
  kRegions = 6
};

/// How a handle is meant where it stands.
enum class Link : std::uint8_t {
  kOwn = 0,
  kSoftOwner = 2,
  kHardOwner = 3,
  kSoftPointer = 4,
  kHardPointer = 5
};

/// What stands in its place when a soft pointer is counted from the record that it stands in.
inline constexpr unsigned kNextOne = 6;
inline constexpr unsigned kOneBefore = 8;
inline constexpr unsigned kBehind = 0xA;
inline constexpr unsigned kBefore = 0xC;

/// Kinds of records.
enum Type : std::uint16_t {
  kText = 1,
  kAttribute = 2,
  kAttributeDefinition = 3,
  kBlockBegin = 4,
  kBlockEnd = 5,
  kSequenceEnd = 6,
  kInsert = 7,
  kInsertArray = 8,
  kFlatVertex = 10,
  kSpaceVertex = 11,
  kMeshVertex = 12,
  kPolyfaceVertex = 13,
  kPolyfaceFace = 14,
  kFlatPolyline = 15,
  kSpacePolyline = 16,
  kArc = 17,
  kCircle = 18,
  kLine = 19,
  kPoint = 27,
  kFace = 28,
  kPolyface = 29,
  kMesh = 30,
  kSolid = 31,
  kTrace = 32,
  kEllipse = 35,
  kSpline = 36,
  kDictionary = 42,
  kMultiText = 44,
  kBlockControl = 48,
  kBlockRecord = 49,
  kLayerControl = 50,
  kLayer = 51,
  kStyleControl = 52,
  kStyle = 53,
  kLineTypeControl = 56,
  kLineType = 57,
  kViewControl = 60,
  kSystemControl = 62,
  kViewportControl = 64,
  kViewport = 65,
  kProgramControl = 66,
  kProgram = 67,
  kDimensionControl = 68,
  kDimensionStyle = 69,
  kViewportHeaderControl = 70,
  kMultiLineStyle = 73,
  kLightPolyline = 77,
  kFirstClass = 500  // those above are numbered by the list of classes
};

/// Sixteen bytes that stand before a region; behind it stand their complements.
using Sentinel = std::array<std::uint8_t, 16>;
inline constexpr Sentinel kVariablesBegin = {0xCF, 0x7B, 0x1F, 0x23, 0xFD, 0xDE, 0x38, 0xA9,
                                             0x5F, 0x7C, 0x68, 0xB8, 0x4E, 0x6D, 0x33, 0x5F};
inline constexpr Sentinel kClassesBegin = {0x8D, 0xA1, 0xC4, 0xB8, 0xC4, 0xA9, 0xF8, 0xC5,
                                           0xC0, 0xDC, 0xF4, 0x5F, 0xE7, 0xCF, 0xB6, 0x8A};
inline constexpr Sentinel kPreviewBegin = {0x1F, 0x25, 0x6D, 0x07, 0xD4, 0x36, 0x28, 0x28,
                                           0x9D, 0x57, 0xCA, 0x3F, 0x9D, 0x44, 0x10, 0x2B};
inline constexpr Sentinel kSecondHeaderBegin = {0xD4, 0x7B, 0x21, 0xCE, 0x28, 0x93, 0x9F, 0xBF,
                                                0x53, 0x24, 0x40, 0x09, 0x12, 0x3C, 0xAA, 0x01};
/// Behind the file header.
inline constexpr Sentinel kFileHeaderEnd = {0x95, 0xA0, 0x4E, 0x28, 0x99, 0x82, 0x1A, 0xE5,
                                            0x5E, 0x41, 0xE0, 0x5F, 0x9D, 0x3A, 0x4D, 0x00};

/// The number of Windows-1252 in file headers.
inline constexpr std::uint16_t kWindows1252 = 30;

}  // namespace dwg
