// Which marks are drawn as symbols and which, where they crowd, as dots.
#pragma once

#include <array>
#include <vector>

#include "host/plot/label_grid.h"
#include "host/plot/plan_content.h"
#include "host/plot/plan_layout.h"

namespace plot {

/// Half the side of a kind's symbol, millimetres.
double HalfSymbol(MarkKind kind);

struct Symbol {
  Place place;  ///< on the sheet
  const Mark* mark = nullptr;
  double dotSide = 0;  ///< millimetres; 0: it is no dot but the whole symbol

  bool IsWhole() const { return dotSide == 0; }
};

struct MarkSymbols {
  /// One for each pixel and kind, in the order of the marks.
  std::vector<Symbol> symbols;
  /// The dots and pixels of each kind, pixels beside each other as one rectangle.
  std::array<std::vector<Box>, kMarkKinds> dots;
  std::uint64_t beyondSheet = 0;  ///< marks outside of the frame
};

/// Marks of one kind in the same pixel are drawn once; where many of a kind lie within the size of
/// a few symbols they become dots, the smaller the more there are. `marks` must stay.
MarkSymbols SymbolsOf(const std::vector<Mark>& marks, const Sheet& sheet);

/// Half the side of what is drawn, millimetres.
double HalfSizeOf(const Symbol& symbol);

/// Takes the places of all symbols.
void OccupySymbols(const MarkSymbols& symbols, LabelGrid& grid);

}  // namespace plot
