// The tables of a job's database, made from the tables of fields.
#pragma once

#include <string>

#include "host/store/fields.h"
#include "host/store/records.h"

/// Marks the file as ours ("KLVJ"), and the layout of its tables.
inline constexpr std::int64_t kApplicationId = 0x4B4C564A;
inline constexpr std::int64_t kSchemaVersion = 1;

/// Columns that say which object a row belongs to, by its position. Rows are read in the order of their writing.
namespace parent {
inline constexpr const char* kNone = "";
inline constexpr const char* kJob = "parent_job";
inline constexpr const char* kStation = "parent_job, parent_station";
inline constexpr const char* kGroup = "parent_group";
}  // namespace parent

/// One table: its name, the columns of the parent, the record that its rows hold.
template <class Record>
struct StoredTable {
  const char* name;
  const char* parents;

  /// "parent_job, name, desc2, …, geocentric_x, …"
  std::string Columns() const {
    std::string columns = parents;
    const auto add = [&](const std::string& column) {
      columns += (columns.empty() ? "\"" : ", \"") + column + "\"";
    };
    ForEachField<Record>([&](const auto& field) {
      if (field.parts.empty()) add(std::string(field.key));
      for (const std::string_view part : field.parts) add(std::string(field.key) + "_" + std::string(part));
    });
    return columns;
  }
  std::string Create() const {
    return std::string("CREATE TABLE IF NOT EXISTS ") + name + " (" + Columns() + ")";
  }
  std::string Clear() const { return std::string("DELETE FROM ") + name; }
  std::string Insert() const {
    std::string marks = "?";
    const std::string columns = Columns();
    for (const char c : columns) {
      if (c == ',') marks += ",?";
    }
    return std::string("INSERT INTO ") + name + " (" + columns + ") VALUES (" + marks + ")";
  }
  std::string Select() const {
    return "SELECT " + Columns() + " FROM " + std::string(name) + " ORDER BY rowid";
  }
};

inline constexpr StoredTable<JobRecord> kJobTable{"jobs", parent::kNone};
inline constexpr StoredTable<StationRecord> kStationTable{"stations", parent::kJob};
inline constexpr StoredTable<ObservationRecord> kPointTable{"points", parent::kStation};
inline constexpr StoredTable<GpsGroupRecord> kGpsGroupTable{"gps_groups", parent::kNone};
inline constexpr StoredTable<GpsPointRecord> kGpsPointTable{"gps_points", parent::kGroup};
inline constexpr StoredTable<KnownGroupRecord> kKnownGroupTable{"known_groups", parent::kNone};
inline constexpr StoredTable<PointRecord> kKnownPointTable{"known_points", parent::kGroup};
inline constexpr StoredTable<PointRecord> kControlTable{"control_points", parent::kNone};
inline constexpr StoredTable<TargetsRecord> kTargetsTable{"targets", parent::kNone};
inline constexpr StoredTable<CurrentRecord> kCurrentTable{"current", parent::kNone};

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
