#include "host/plot/mark_symbols.h"

#include <algorithm>
#include <cstdint>
#include <optional>

namespace plot {
namespace {

// Marks of one kind are counted in cells of one and a half symbols. More than so many in a cell are
// drawn as dots.
constexpr double kCellInHalfSymbols = 3;
constexpr std::uint32_t kMostStations = 6;
constexpr std::uint32_t kMostLarge = 2;
constexpr std::uint32_t kMostSmall = 3;
// Dots cover no more than so much of a cell, unless they are pixels already.
constexpr double kLargestDot = 0.45;
constexpr double kLargestShare = 0.3;

std::size_t IndexOf(MarkKind kind) { return static_cast<std::size_t>(kind); }

std::uint32_t MostWhole(MarkKind kind) {
  switch (kind) {
    case MarkKind::kStation:
    case MarkKind::kGpsBase: return kMostStations;
    case MarkKind::kKnown:
    case MarkKind::kControl: return kMostLarge;
    case MarkKind::kGps:
    case MarkKind::kManyKnown:
    case MarkKind::kMeasured: break;
  }
  return kMostSmall;
}

// How many marks of a kind lie in each cell of the frame.
class Crowds {
 public:
  explicit Crowds(const Box& area) : area_(area) {}
  void Add(const Symbol& symbol) { ++At(symbol); }
  /// As Symbol::dotSide.
  double DotSide(const Symbol& symbol, double pixel) {
    const MarkKind kind = symbol.mark->kind;
    const std::uint32_t count = At(symbol);
    if (count <= MostWhole(kind)) return 0;
    const double cell = kCellInHalfSymbols * HalfSymbol(kind);
    return std::clamp(cell * std::sqrt(kLargestShare / count), pixel, kLargestDot);
  }

 private:
  struct Cells {
    BitGrid grid;
    std::vector<std::uint32_t> counts;
  };

  std::uint32_t& At(const Symbol& symbol) {
    auto& cells = cells_[IndexOf(symbol.mark->kind)];
    if (!cells) {
      const BitGrid grid(area_, kCellInHalfSymbols * HalfSymbol(symbol.mark->kind));
      const auto count =
          static_cast<std::size_t>(grid.Columns()) * static_cast<std::size_t>(grid.Rows());
      cells.emplace(Cells{grid, std::vector<std::uint32_t>(count)});
    }
    const BitGrid& grid = cells->grid;
    const int column = std::min(grid.ColumnOf(symbol.place.x), grid.Columns() - 1);
    const int row = std::min(grid.RowOf(symbol.place.y), grid.Rows() - 1);
    return cells->counts[static_cast<std::size_t>(row) * static_cast<std::size_t>(grid.Columns()) +
                         static_cast<std::size_t>(column)];
  }

  Box area_;
  std::array<std::optional<Cells>, kMarkKinds> cells_;
};

// The pixels of each kind that has any.
class PixelsByKind {
 public:
  explicit PixelsByKind(const Sheet& sheet) : sheet_(sheet) {}
  bool Insert(MarkKind kind, const Place& place) {
    auto& pixels = pixels_[IndexOf(kind)];
    if (!pixels) pixels.emplace(sheet_.frame, sheet_.pixel);
    return pixels->Insert(place);
  }
  std::array<std::vector<Box>, kMarkKinds> AsRuns() const {
    std::array<std::vector<Box>, kMarkKinds> runs;
    for (std::size_t kind = 0; kind < runs.size(); ++kind) {
      if (pixels_[kind]) runs[kind] = Runs(*pixels_[kind]);
    }
    return runs;
  }

 private:
  const Sheet& sheet_;
  std::array<std::optional<BitGrid>, kMarkKinds> pixels_;
};

void AddDots(Crowds& crowds, const Sheet& sheet, MarkSymbols& result) {
  PixelsByKind pixels(sheet);
  for (Symbol& symbol : result.symbols) {
    symbol.dotSide = crowds.DotSide(symbol, sheet.pixel);
    if (symbol.dotSide == sheet.pixel) pixels.Insert(symbol.mark->kind, symbol.place);
  }
  result.dots = pixels.AsRuns();
  for (const Symbol& symbol : result.symbols) {
    if (symbol.dotSide <= sheet.pixel) continue;
    const Place& p = symbol.place;
    result.dots[IndexOf(symbol.mark->kind)].push_back(
        Box{p.x, p.y, p.x, p.y}.Grown(symbol.dotSide / 2));
  }
}

}  // namespace

double HalfSymbol(MarkKind kind) {
  switch (kind) {
    case MarkKind::kStation: return 1.5;
    case MarkKind::kGpsBase:
    case MarkKind::kKnown: return 1.2;
    case MarkKind::kControl: return 1.0;
    case MarkKind::kGps:
    case MarkKind::kManyKnown: return 0.7;
    case MarkKind::kMeasured: break;
  }
  return 0.6;
}

MarkSymbols SymbolsOf(const std::vector<Mark>& marks, const Sheet& sheet) {
  MarkSymbols result;
  PixelsByKind pixels(sheet);
  Crowds crowds(sheet.frame);
  for (const Mark& mark : marks) {
    const Symbol symbol{sheet.OnSheet(mark.place), &mark};
    if (!sheet.frame.Holds(symbol.place)) {
      ++result.beyondSheet;
    } else if (pixels.Insert(mark.kind, symbol.place)) {
      result.symbols.push_back(symbol);
      crowds.Add(symbol);
    }
  }
  AddDots(crowds, sheet, result);
  return result;
}

double HalfSizeOf(const Symbol& symbol) {
  return symbol.IsWhole() ? HalfSymbol(symbol.mark->kind) : symbol.dotSide / 2;
}

void OccupySymbols(const MarkSymbols& symbols, LabelGrid& grid) {
  for (const Symbol& symbol : symbols.symbols) {
    const double side = 2 * HalfSizeOf(symbol);
    grid.Occupy({symbol.place, side, side});
  }
}

}  // namespace plot
