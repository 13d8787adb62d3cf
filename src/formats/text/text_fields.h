// What columns of text and CSV files may hold, and which points such a file may carry.
#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "services/translate.h"
#include "tdk/wstring.h"

namespace text {

/// Of which library the points are.
enum TextDataKind : std::int32_t {
  kKnownPoints = 0,    ///< groups of known points
  kControlPoints = 1,  ///< the one list of control records
  kTotalStation = 2,   ///< stations of jobs
  kGpsGroups = 3
};
inline constexpr int kKindCount = 4;
inline constexpr std::array<const char*, kKindCount> kKindLabels = {
    ToXlate("Known Points"), ToXlate("Control points"), ToXlate("TS"), ToXlate("Gps groups")};

/// Columns of the basic layout; the number is what settings store.
enum BasicField : std::int32_t {
  kName = 0,
  kNorth = 1,
  kEast = 2,
  kElev = 3,
  kDescr = 4,
  kDate = 5,
  kTime = 6,
  kNothing = 7
};
inline constexpr int kBasicFieldCount = 8;
inline constexpr std::array<const char*, kBasicFieldCount> kBasicFieldLabels = {
    ToXlate("Name"),   ToXlate("North"), ToXlate("East"), ToXlate("Elev."),
    ToXlate("Descr."), ToXlate("Date"),  ToXlate("Time"), "-----"};

constexpr bool IsCoordinate(int field) { return field >= kNorth && field <= kElev; }

inline constexpr int kBasicColumns = 6;
inline constexpr int kMostHeaderRows = 100;
inline constexpr int kLeastWidth = 1;
inline constexpr int kMostWidth = 100;
inline constexpr int kLeastCoordinateWidth = 12;
inline constexpr int kCoordinateDecimals = 3;

/// In place of an index: every unit there is.
inline constexpr std::int32_t kAllUnits = 999999;

/// Separators of delimited text files by the number that settings store; CSV files always have the
/// semicolon.
inline constexpr std::array<char, 3> kSeparators = {' ', ',', '\t'};
inline constexpr char kCsvSeparator = ';';

/// What one exchange is about; the dialogs fill it, readers and writers follow it.
struct TextExchangeSettings {
  std::int32_t kind = kKnownPoints;
  tdk::WString filePath;
  std::int32_t jobIndex = 0;   ///< of a station; kAllUnits
  std::int32_t unitIndex = 0;  ///< of a station within its job, or of a group; kAllUnits
  std::int32_t headerRows = 0;
  std::array<std::int32_t, kBasicColumns> fieldCode{kNothing, kNothing, kNothing,
                                                    kNothing, kNothing, kNothing};
  std::array<std::int32_t, kBasicColumns> fieldLength{12, 12, 12, 12, 12, 12};
  char16_t separator = u' ';
  bool fixedLength = false;
  bool quoteNames = false;

  bool IsAllUnits() const { return jobIndex == kAllUnits || unitIndex == kAllUnits; }
};

}  // namespace text
