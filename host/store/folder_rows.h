// Rows of a job's tables, written and read.
#pragma once

#include <array>

#include "host/store/database.h"
#include "host/store/folder_schema.h"

// Inserts rows into one table.
template <class Record>
class Inserter {
 public:
  Inserter(const Database& database, const StoredTable<Record>& table)
      : statement_(database, table.Insert()) {}

  /// `parents`: the positions of the objects that the row belongs to.
  template <class... Parents>
  void Add(const Record& record, Parents... parents) {
    (statement_.Bind(parents), ...);
    statement_.BindFields(record);
    statement_.Finish();
  }

 private:
  Statement statement_;
};

/// The positions of the objects that a row belongs to; 0 where it has none.
using RowParents = std::array<int, kMostParents>;

/// Walks through a table row by row, beside another table.
template <class Record>
class RowCursor {
 public:
  RowCursor(const Database& database, const StoredTable<Record>& table)
      : statement_(database, table.Select()), parents_(table.parents.size()) {
    Next();
  }

  bool IsAtEnd() const { return isAtEnd_; }
  /// Whether there is a row, and it belongs to the object of that position.
  bool IsOf(int parent) const { return !isAtEnd_ && rowParents_[0] == parent; }
  const Record& Row() const { return record_; }
  const RowParents& Parents() const { return rowParents_; }
  void Next() {
    isAtEnd_ = !statement_.Step();
    if (isAtEnd_) return;
    for (std::size_t i = 0; i < parents_; ++i) statement_.Read(rowParents_[i]);
    statement_.ReadFields(record_);
  }

 private:
  Statement statement_;
  std::size_t parents_;
  RowParents rowParents_{};
  Record record_;
  bool isAtEnd_ = false;
};

/// Calls `take` with each row's record and its parents.
template <class Record, class Take>
void ForEachRow(const Database& database, const StoredTable<Record>& table, Take take) {
  Statement statement(database, table.Select());
  Record record;
  RowParents parents{};
  while (statement.Step()) {
    for (std::size_t i = 0; i < table.parents.size(); ++i) statement.Read(parents[i]);
    statement.ReadFields(record);
    take(record, parents);
  }
}
