// The layouts that settings keep between exchanges.
#pragma once

#include <array>

#include "formats/text/text_fields.h"

namespace text {

/// Section "Importazione": the basic layout, one for both directions.
struct BasicLayout {
  int headerRows = 0;
  int separator = 0;  ///< index into kSeparators
  std::array<int, kBasicColumns> fields{};
  std::array<int, kBasicColumns> lengths{};
  bool quoteNames = false;
};

/// What is stored out of its range reads as the default; a field code above the last is the last.
BasicLayout LoadBasicLayout();
/// Each stores only what its dialog shows. CSV files have no choice of a separator.
void StoreDelimitedLayout(const BasicLayout& layout, bool withSeparator);
void StoreFixedLayout(const BasicLayout& layout);

inline constexpr int kFullColumns = 18;
inline constexpr int kFullFieldCount = 22;
inline constexpr int kFullNothing = 21;
inline constexpr int kMostDecimals = 15;
inline constexpr int kAngleFormatCount = 6;
inline constexpr std::array<char, 4> kFullSeparators = {' ', ',', ';', '\t'};

/// Sections of the two full exports.
inline constexpr char kGpsSection[] = "Esportazione";
inline constexpr char kTotalStationSection[] = "EsportazioneCel";

/// All columns of a full export.
struct FullLayout {
  std::array<int, kFullColumns> fields{};
  std::array<int, kFullColumns> decimals{};
  int separator = 0;  ///< index into kFullSeparators
  bool quoteNames = false;
  int angleFormat = 0;
};

/// Brings a layout that an older version stored up to the present catalogue, once, and loads it.
FullLayout LoadFullLayout(const char* section);
void StoreFullLayout(const char* section, const FullLayout& layout);

/// The name of the last file that a full export wrote.
void StoreLastFullExport(const tdk::WString& name);

/// Main dialog: the kind of points (TextDataKind) and whether columns have fixed widths.
int LoadLastKind();
bool LoadLastIsFixed();
void StoreLastKind(int kind);
void StoreLastIsFixed(bool isFixed);

}  // namespace text
