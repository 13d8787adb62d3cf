// The tables of a job's database, made from the tables of fields.
#pragma once

#include <concepts>
#include <cstdint>
#include <string>
#include <type_traits>

#include "host/store/database.h"
#include "host/store/fields.h"
#include "host/store/records.h"
#include "host/store/road_records.h"

/// Marks the file as ours ("KLVJ"), and the layout of its tables.
inline constexpr std::int64_t kApplicationId = 0x4B4C564A;
inline constexpr std::int64_t kSchemaVersion = 2;
/// The first layout with terrain and roads.
inline constexpr std::int64_t kVersionWithDesign = 2;

/// Whether there is a job in the database; false for one that is new. Fails when it is something
/// else, or a job that a newer version wrote.
bool HoldsJob(const Database& database);
/// Whether the job was written with tables of terrain and roads.
bool HoldsDesign(const Database& database);

/// Which object a row belongs to: the columns with its position, after those of its own parents.
using Parents = std::span<const std::string_view>;
inline constexpr std::size_t kMostParents = 3;
inline constexpr std::array<std::string_view, 2> kOfStation = {"parent_job", "parent_station"};
inline constexpr Parents kOfJob = std::span(kOfStation).first(1);
inline constexpr std::array<std::string_view, 1> kOfGroup = {"parent_group"};
inline constexpr std::array<std::string_view, 2> kOfContour = {"parent_model", "parent_contour"};
inline constexpr Parents kOfModel = std::span(kOfContour).first(1);
inline constexpr std::array<std::string_view, kMostParents> kOfLine = {
    "parent_road", "parent_section", "parent_line"};
inline constexpr Parents kOfRoad = std::span(kOfLine).first(1);
inline constexpr Parents kOfSection = std::span(kOfLine).first(2);

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

inline constexpr StoredTable<JobRecord> kJobTable{"jobs"};
inline constexpr StoredTable<StationRecord> kStationTable{"stations", kOfJob};
inline constexpr StoredTable<ObservationRecord> kPointTable{"points", kOfStation};
inline constexpr StoredTable<GpsGroupRecord> kGpsGroupTable{"gps_groups"};
inline constexpr StoredTable<GpsPointRecord> kGpsPointTable{"gps_points", kOfGroup};
inline constexpr StoredTable<KnownGroupRecord> kKnownGroupTable{"known_groups"};
inline constexpr StoredTable<PointRecord> kKnownPointTable{"known_points", kOfGroup};
inline constexpr StoredTable<PointRecord> kControlTable{"control_points"};
inline constexpr StoredTable<TargetsRecord> kTargetsTable{"targets"};
inline constexpr StoredTable<CurrentRecord> kCurrentTable{"current"};

/// A contour of a terrain model; its points follow in a table of their own.
struct ContourRecord {
  bool island = false;

  static constexpr auto Fields() { return std::tuple{Field{"island", &ContourRecord::island}}; }
};

struct SpacePointRecord {
  std::array<double, 3> place{};

  static constexpr auto Fields() {
    return std::tuple{Field{"place", &SpacePointRecord::place, kAxes}};
  }
};

struct BreaklineRecord {
  std::array<double, 3> start{};
  std::array<double, 3> end{};

  static constexpr auto Fields() {
    return std::tuple{Field{"start", &BreaklineRecord::start, kAxes},
                      Field{"end", &BreaklineRecord::end, kAxes}};
  }
};

inline constexpr std::array<std::string_view, 3> kCorners = {"a", "b", "c"};

struct TriangleRecord {
  std::array<int, 3> vertices{};

  static constexpr auto Fields() {
    return std::tuple{Field{"vertex", &TriangleRecord::vertices, kCorners}};
  }
};

/// The main height line of a road is a line of no section.
inline constexpr int kNoSection = -1;

/// A vertex with its vertical curve, if it has one.
struct StoredVertexRecord : VertexRecord {
  bool hasCurve = false;
  double curveStart = UndefinedValue;
  double curveEnd = UndefinedValue;

  static constexpr auto Fields() {
    using R = StoredVertexRecord;
    return std::tuple_cat(
        VertexRecord::Fields(),
        std::tuple{Field{"has_curve", &R::hasCurve}, Field{"curve_start", &R::curveStart},
                   Field{"curve_end", &R::curveEnd}});
  }
};

inline constexpr StoredTable<TerrainRecord> kTerrainTable{"terrain_models"};
inline constexpr StoredTable<ContourRecord> kContourTable{"terrain_contours", kOfModel};
inline constexpr StoredTable<SpacePointRecord> kContourPointTable{"terrain_contour_points",
                                                                  kOfContour};
inline constexpr StoredTable<BreaklineRecord> kBreaklineTable{"terrain_breaklines", kOfModel};
inline constexpr StoredTable<SpacePointRecord> kVertexTable{"terrain_vertices", kOfModel};
inline constexpr StoredTable<TriangleRecord> kTriangleTable{"terrain_triangles", kOfModel};
inline constexpr StoredTable<RoadRecord> kRoadTable{"roads"};
inline constexpr StoredTable<ElementRecord> kElementTable{"road_elements", kOfRoad};
inline constexpr StoredTable<CodeRecord> kCodeTable{"road_codes", kOfRoad};
inline constexpr StoredTable<SectionRecord> kSectionTable{"road_sections", kOfRoad};
inline constexpr StoredTable<VertexRecord> kSectionTerrainTable{"road_terrain", kOfSection};
inline constexpr StoredTable<LineRecord> kLineTable{"road_lines", kOfSection};
inline constexpr StoredTable<StoredVertexRecord> kLineVertexTable{"road_vertices", kOfLine};

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
  visit(kTerrainTable);
  visit(kContourTable);
  visit(kContourPointTable);
  visit(kBreaklineTable);
  visit(kVertexTable);
  visit(kTriangleTable);
  visit(kRoadTable);
  visit(kElementTable);
  visit(kCodeTable);
  visit(kSectionTable);
  visit(kSectionTerrainTable);
  visit(kLineTable);
  visit(kLineVertexTable);
}
