#include "host/plot/bit_grid.h"

#include <algorithm>

namespace plot {
namespace {

constexpr int kBits = 64;
constexpr std::uint64_t kAll = ~std::uint64_t{0};

// The bits of one word that are those of cells first..last.
std::uint64_t MaskOf(int word, int first, int last) {
  const int from = std::max(first - word * kBits, 0);
  const int to = std::min(last - word * kBits, kBits - 1);
  return (kAll << from) & (kAll >> (kBits - 1 - to));
}

int CellsOver(double length, double cell) {
  return std::max(1, static_cast<int>(std::ceil(length / cell)));
}

}  // namespace

BitGrid::BitGrid(const Box& area, double cell)
    : area_(area),
      cell_(cell),
      columns_(CellsOver(area.Width(), cell)),
      rows_(CellsOver(area.Height(), cell)),
      stride_(static_cast<std::size_t>((columns_ + kBits - 1) / kBits)),
      words_(stride_ * static_cast<std::size_t>(rows_)) {}

int BitGrid::ToCell(double distance) const {
  constexpr double kFar = 1e9;
  return static_cast<int>(std::floor(std::clamp(distance / cell_, -kFar, kFar)));
}

bool BitGrid::Insert(const Place& place) {
  const int column = ColumnOf(place.x);
  const int row = RowOf(place.y);
  if (column < 0 || column >= columns_ || row < 0 || row >= rows_) return false;
  std::uint64_t& word = RowAt(row)[column / kBits];
  const std::uint64_t bit = std::uint64_t{1} << (column % kBits);
  const bool isNew = (word & bit) == 0;
  word |= bit;
  return isNew;
}

bool BitGrid::Has(int column, int row) const {
  if (column < 0 || column >= columns_ || row < 0 || row >= rows_) return false;
  return ((RowAt(row)[column / kBits] >> (column % kBits)) & 1) != 0;
}

bool BitGrid::HasAny(int row, int first, int last) const {
  if (row < 0 || row >= rows_) return false;
  first = std::max(first, 0);
  last = std::min(last, columns_ - 1);
  if (first > last) return false;
  const std::uint64_t* const words = RowAt(row);
  for (int word = first / kBits; word <= last / kBits; ++word) {
    if ((words[word] & MaskOf(word, first, last)) != 0) return true;
  }
  return false;
}

void BitGrid::SetRun(int row, int first, int last) {
  if (row < 0 || row >= rows_) return;
  first = std::max(first, 0);
  last = std::min(last, columns_ - 1);
  if (first > last) return;
  std::uint64_t* const words = RowAt(row);
  for (int word = first / kBits; word <= last / kBits; ++word) {
    words[word] |= MaskOf(word, first, last);
  }
}

std::vector<Box> Runs(const BitGrid& grid) {
  std::vector<Box> runs;
  for (int row = 0; row < grid.Rows(); ++row) {
    for (int column = 0; column < grid.Columns(); ++column) {
      if (!grid.Has(column, row)) continue;
      const int first = column;
      while (grid.Has(column, row)) ++column;
      const double low = grid.Area().low + row * grid.Cell();
      runs.push_back({grid.Area().left + first * grid.Cell(), low,
                      grid.Area().left + column * grid.Cell(), low + grid.Cell()});
    }
  }
  return runs;
}

}  // namespace plot
