// Things of the plan, sorted into the cells of a grid: what a view does not show is not looked at.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <span>
#include <vector>

#include "host/plot/plan_extent.h"

namespace plan {

/// `Item` has Where(), the place that says in which cell it lies.
template <class Item>
class CellGrid {
 public:
  CellGrid() = default;

  /// Sorts the items into the cells; within a cell they keep their order.
  explicit CellGrid(std::vector<Item> items) {
    for (const Item& item : items) extent_.Add(item.Where());
    if (items.empty()) return;
    ChooseCells(items.size());
    std::vector<std::uint32_t> cells(items.size());
    starts_.assign(static_cast<std::size_t>(columns_) * static_cast<std::size_t>(rows_) + 1, 0);
    for (std::size_t i = 0; i < items.size(); ++i) {
      cells[i] = CellOf(items[i].Where());
      ++starts_[cells[i] + 1];
    }
    for (std::size_t i = 1; i < starts_.size(); ++i) starts_[i] += starts_[i - 1];
    std::vector<std::uint32_t> next(starts_.begin(), starts_.end() - 1);
    items_.resize(items.size());
    for (std::size_t i = 0; i < items.size(); ++i) items_[next[cells[i]]++] = items[i];
  }

  std::size_t Size() const { return items_.size(); }
  /// The side of a cell, metres.
  double Side() const { return side_; }

  /// How many items the cells have that touch the box.
  std::size_t CountIn(const plot::Box& box) const {
    if (items_.empty()) return 0;
    std::size_t count = 0;
    const int lastRow = RowOf(box.high);
    for (int row = RowOf(box.low); row <= lastRow; ++row) {
      count += starts_[IndexOf(ColumnOf(box.right), row) + 1] -
               starts_[IndexOf(ColumnOf(box.left), row)];
    }
    return count;
  }

  /// Calls visit(box of the cell, items) for each cell with items that touches the box, metres.
  template <class Visit>
  void VisitCells(const plot::Box& box, const Visit& visit) const {
    if (items_.empty()) return;
    const int firstColumn = ColumnOf(box.left);
    const int lastColumn = ColumnOf(box.right);
    const int lastRow = RowOf(box.high);
    for (int row = RowOf(box.low); row <= lastRow; ++row) {
      for (int column = firstColumn; column <= lastColumn; ++column) {
        const std::size_t cell = IndexOf(column, row);
        const std::size_t first = starts_[cell];
        const std::size_t count = starts_[cell + 1] - first;
        if (count > 0) visit(BoxOf(column, row), std::span<const Item>(&items_[first], count));
      }
    }
  }

 private:
  static constexpr double kItemsInACell = 24;
  static constexpr double kMostCells = 1 << 20;

  void ChooseCells(std::size_t count) {
    const double cells = std::clamp(static_cast<double>(count) / kItemsInACell, 1.0, kMostCells);
    const double longer = std::max({extent_.Width(), extent_.Height(), 1e-6});
    const double area =
        std::max(extent_.Width(), longer / cells) * std::max(extent_.Height(), longer / cells);
    side_ = std::sqrt(area / cells);
    columns_ = static_cast<int>(extent_.Width() / side_) + 1;
    rows_ = static_cast<int>(extent_.Height() / side_) + 1;
  }
  static int Clamped(double cell, int count) {
    return static_cast<int>(std::clamp(cell, 0.0, static_cast<double>(count - 1)));
  }
  int ColumnOf(double x) const { return Clamped((x - extent_.left) / side_, columns_); }
  int RowOf(double y) const { return Clamped((y - extent_.low) / side_, rows_); }
  std::size_t IndexOf(int column, int row) const {
    return static_cast<std::size_t>(row) * static_cast<std::size_t>(columns_) +
           static_cast<std::size_t>(column);
  }
  std::uint32_t CellOf(const plot::Place& place) const {
    return static_cast<std::uint32_t>(IndexOf(ColumnOf(place.x), RowOf(place.y)));
  }
  plot::Box BoxOf(int column, int row) const {
    const double left = extent_.left + column * side_;
    const double low = extent_.low + row * side_;
    return {left, low, left + side_, low + side_};
  }

  plot::Box extent_;
  double side_ = 1;
  int columns_ = 1;
  int rows_ = 1;
  std::vector<std::uint32_t> starts_;
  std::vector<Item> items_;
};

}  // namespace plan
