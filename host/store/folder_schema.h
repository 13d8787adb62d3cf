// The tables of a job's database, made from the tables of fields.
#pragma once

#include <concepts>
#include <cstdint>
#include <string>
#include <type_traits>

#include "host/store/database.h"
#include "host/store/fields.h"
#include "host/store/records.h"

/// Marks the file as ours ("KLVJ"), and the layout of its tables.
inline constexpr std::int64_t kApplicationId = 0x4B4C564A;
inline constexpr std::int64_t kSchemaVersion = 1;

/// Whether there is a job in the database; false for one that is new. Fails when it is something
/// else, or a job that a newer version wrote.
bool HoldsJob(const Database& database);

/// Which object a row belongs to: the columns with its position, and its parent's.
enum class Parents { kNone, kJob, kStation, kGroup };

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
  Parents parents = Parents::kNone;

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
    const auto ofParent = [&](const char* column) {
      columns.Add(column, declared ? Declaration<int>() : "");
    };
    if (parents == Parents::kJob || parents == Parents::kStation) ofParent("parent_job");
    if (parents == Parents::kStation) ofParent("parent_station");
    if (parents == Parents::kGroup) ofParent("parent_group");
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

inline constexpr StoredTable<JobRecord> kJobTable{"jobs"};
inline constexpr StoredTable<StationRecord> kStationTable{"stations", Parents::kJob};
inline constexpr StoredTable<ObservationRecord> kPointTable{"points", Parents::kStation};
inline constexpr StoredTable<GpsGroupRecord> kGpsGroupTable{"gps_groups"};
inline constexpr StoredTable<GpsPointRecord> kGpsPointTable{"gps_points", Parents::kGroup};
inline constexpr StoredTable<KnownGroupRecord> kKnownGroupTable{"known_groups"};
inline constexpr StoredTable<PointRecord> kKnownPointTable{"known_points", Parents::kGroup};
inline constexpr StoredTable<PointRecord> kControlTable{"control_points"};
inline constexpr StoredTable<TargetsRecord> kTargetsTable{"targets"};
inline constexpr StoredTable<CurrentRecord> kCurrentTable{"current"};

/// Calls `visit` with each table.
template <class Visit>
void ForEachTable(Visit visit) {
  visit(kJobTable);
  visit(kStationTable);
  visit(kPointTable);
  visit(kGpsGroupTable);
  visit(kGpsPointTable);
  visit(kKnownGroupTable);
  visit(kKnownPointTable);
  visit(kControlTable);
  visit(kTargetsTable);
  visit(kCurrentTable);
}
