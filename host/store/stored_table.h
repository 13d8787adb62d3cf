// One table of a job's database, made from a table of fields.
#pragma once

#include <array>
#include <concepts>
#include <span>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>

#include "host/store/fields.h"

/// Which object a row belongs to: the columns with its position, after those of its own parents.
using Parents = std::span<const std::string_view>;
inline constexpr std::size_t kMostParents = 3;

/// Writes lists of columns, each with `suffix` behind its name.
class ColumnList {
 public:
  void Add(std::string_view name, std::string_view suffix = {}) {
    text_.append(text_.empty() ? "\"" : ", \"").append(name).append("\"").append(suffix);
    ++count_;
  }
  const std::string& Text() const { return text_; }
  std::size_t Count() const { return count_; }

 private:
  std::string text_;
  std::size_t count_ = 0;
};

/// How a column of values of that type is declared. Numbers with decimals go into columns of any
/// type, for one of type REAL would store -0.0 as 0.
template <class Value>
constexpr std::string_view Declaration() {
  if (std::is_same_v<Value, std::string>) return " TEXT NOT NULL";
  return std::integral<Value> ? " INTEGER NOT NULL" : " ANY";
}
template <class Value>
struct PartOf {
  using Type = Value;
};
template <class Part, std::size_t size>
struct PartOf<std::array<Part, size>> {
  using Type = Part;
};

/// One table: its name, what its rows belong to, and the record that they hold. The order of its
/// rows is the order in which they were written.
template <class Record>
struct StoredTable {
  const char* name;
  Parents parents = {};

  std::string Drop() const { return std::string("DROP TABLE IF EXISTS ") + name; }
  std::string Create() const {
    return std::string("CREATE TABLE ") + name + " (" + Columns(/*declared=*/true).Text() +
           ") STRICT";
  }
  std::string Insert() const {
    const ColumnList columns = Columns();
    std::string values = "?";
    for (std::size_t i = 1; i < columns.Count(); ++i) values += ",?";
    return std::string("INSERT INTO ") + name + " (" + columns.Text() + ") VALUES (" + values + ")";
  }
  std::string Select() const {
    return "SELECT " + Columns().Text() + " FROM " + name + " ORDER BY rowid";
  }

 private:
  ColumnList Columns(bool declared = false) const {
    ColumnList columns;
    for (const std::string_view column : parents) {
      columns.Add(column, declared ? Declaration<int>() : "");
    }
    ForEachField<Record>([&](const auto& field) {
      using Value = std::remove_cvref_t<decltype(std::declval<Record&>().*field.member)>;
      const std::string_view suffix = declared ? Declaration<typename PartOf<Value>::Type>() : "";
      if (field.parts.empty()) columns.Add(field.key, suffix);
      for (const std::string_view part : field.parts) {
        columns.Add(std::string(field.key).append("_").append(part), suffix);
      }
    });
    return columns;
  }
};
