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
