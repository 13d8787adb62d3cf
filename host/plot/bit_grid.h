// A rectangle of the sheet as rows of cells, each of which is set or not.
#pragma once

#include <cstdint>
#include <vector>

#include "host/plot/plan_extent.h"

namespace plot {

class BitGrid {
 public:
  /// Cells of a side of `cell` over the area, both in millimetres.
  BitGrid(const Box& area, double cell);

  int Columns() const { return columns_; }
  int Rows() const { return rows_; }
  double Cell() const { return cell_; }
  const Box& Area() const { return area_; }

  /// The column and row of a place, which may lie outside of the grid.
  int ColumnOf(double x) const { return ToCell(x - area_.left); }
  int RowOf(double y) const { return ToCell(y - area_.low); }

  /// Sets the cell of a place; false when it was set already, or the place is outside.
  bool Insert(const Place& place);
  bool Has(int column, int row) const;
  /// Whether a cell of columns first..last of a row is set; what lies outside is not.
  bool HasAny(int row, int first, int last) const;
  void SetRun(int row, int first, int last);

 private:
  int ToCell(double distance) const;
  std::uint64_t* RowAt(int row) { return words_.data() + static_cast<std::size_t>(row) * stride_; }
  const std::uint64_t* RowAt(int row) const {
    return words_.data() + static_cast<std::size_t>(row) * stride_;
  }

  Box area_;
  double cell_;
  int columns_;
  int rows_;
  std::size_t stride_;  // words of a row
  std::vector<std::uint64_t> words_;
};

/// The set cells of a grid as rectangles, those beside each other as one.
std::vector<Box> Runs(const BitGrid& grid);

}  // namespace plot
