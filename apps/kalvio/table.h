// Tables for people.
#pragma once

#include <string>
#include <vector>

/// Columns as wide as their widest text, two blanks apart, without blanks at the end of a line.
/// Control characters in a text are shown as blanks.
class Table {
 public:
  enum class Align { kLeft, kRight };

  /// Columns that are not named here are aligned to the left. Each line begins with `indent`
  /// blanks.
  explicit Table(std::vector<Align> alignment = {}, std::size_t indent = 0)
      : alignment_(std::move(alignment)), indent_(indent) {}

  void Add(std::vector<std::string> row);
  bool IsEmpty() const { return rows_.empty(); }
  std::string Text() const;

 private:
  std::vector<std::size_t> Widths() const;
  std::string Line(const std::vector<std::string>& row,
                   const std::vector<std::size_t>& widths) const;

  std::vector<Align> alignment_;
  std::size_t indent_;
  std::vector<std::vector<std::string>> rows_;
};
