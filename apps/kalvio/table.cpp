#include "table.h"

#include <algorithm>

#include "layout.h"

void Table::Add(std::vector<std::string> row) {
  for (std::string& text : row) text = Printable(text);
  rows_.push_back(std::move(row));
}

std::string Table::Text() const {
  const auto widths = Widths();
  std::string text;
  for (const auto& row : rows_) text += Line(row, widths);
  return text;
}

std::vector<std::size_t> Table::Widths() const {
  std::vector<std::size_t> widths;
  for (const auto& row : rows_) {
    widths.resize(std::max(widths.size(), row.size()));
    for (std::size_t i = 0; i < row.size(); ++i) {
      widths[i] = std::max(widths[i], DisplayWidth(row[i]));
    }
  }
  return widths;
}

std::string Table::Line(const std::vector<std::string>& row,
                        const std::vector<std::size_t>& widths) const {
  std::string line(indent_, ' ');
  for (std::size_t i = 0; i < row.size(); ++i) {
    const std::string filling(widths[i] - DisplayWidth(row[i]), ' ');
    const bool right = i < alignment_.size() && alignment_[i] == Align::kRight;
    line.append(i == 0 ? "" : "  ").append(right ? filling : "").append(row[i]);
    if (!right) line += filling;
  }
  return line.erase(line.find_last_not_of(' ') + 1) + '\n';
}
