// The symbols of points.
#pragma once

#include <array>
#include <string_view>

#include "model/tcad_eng.h"

enum class Symbol { kPoint, kStation, kGpsPoint, kGpsBase, kKnownPoint };
inline constexpr std::size_t kSymbols = 5;

namespace display {

/// Sizes on the ground, metres: legible in a plan of 1:500.
inline constexpr double kTextHeight = 0.5;
inline constexpr double kSymbolSize = 0.5;

/// Where a text stands beside its point, as shares of the symbol's size.
struct TextPlace {
  double right;
  double up;
};
inline constexpr TextPlace kNamePlace{0.8, 0.6};
inline constexpr TextPlace kCodePlace{0.8, -0.6};
inline constexpr TextPlace kHeightPlace{0.8, -1.8};

/// Whether blocks of that name stand for symbols; letter case does not matter.
bool IsFieldBookBlock(std::string_view name);

/// The lines of a symbol, about its point, of size 1; nothing for a plain point.
std::vector<cad::PolylineShape> SymbolLines(Symbol symbol);

}  // namespace display

/// The blocks of an engine that stand for symbols, made when one is first asked for. Their
/// attributes are NAME, CODE and HEIGHT.
class CDocSymbolManager {
 public:
  /// Not owned.
  explicit CDocSymbolManager(CTcadEng* engine);

  CTcadEng* Engine() const { return engine_; }
  /// Symbols of the user's own take the place of the usual ones: blocks of their names.
  void CopyUserSymbolsFrom(const CDocSymbolManager& source);
  /// Position of the symbol's block.
  int BlockOf(Symbol symbol);

 private:
  CTcadEng* engine_;
  std::array<int, kSymbols> blocks_;
};
