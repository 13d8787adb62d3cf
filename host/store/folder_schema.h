// The tables of a job's database.
#pragma once

#include <cstdint>

#include "host/store/cadastre_records.h"
#include "host/store/database.h"
#include "host/store/drawing_records.h"
#include "host/store/fields.h"
#include "host/store/gis_records.h"
#include "host/store/records.h"
#include "host/store/road_records.h"
#include "host/store/stored_table.h"

/// Marks the file as ours ("KLVJ"), and the layout of its tables.
inline constexpr std::int64_t kApplicationId = 0x4B4C564A;
inline constexpr std::int64_t kSchemaVersion = 4;
/// The first layout with terrain and roads.
inline constexpr std::int64_t kVersionWithDesign = 2;
/// The first layout with a drawing.
inline constexpr std::int64_t kVersionWithDrawing = 3;

/// Whether there is a job in the database; false for one that is new. Fails when it is something
/// else, or a job that a newer version wrote.
bool HoldsJob(const Database& database);
/// Whether the job was written with tables of terrain and roads.
bool HoldsDesign(const Database& database);
/// The same of a drawing.
bool HoldsDrawing(const Database& database);
/// Whether the job was written with a table of that name.
bool HoldsTable(const Database& database, const char* name);

inline constexpr std::array<std::string_view, 2> kOfStation = {"parent_job", "parent_station"};
inline constexpr Parents kOfJob = std::span(kOfStation).first(1);
inline constexpr std::array<std::string_view, 1> kOfGroup = {"parent_group"};
inline constexpr std::array<std::string_view, 2> kOfContour = {"parent_model", "parent_contour"};
inline constexpr Parents kOfModel = std::span(kOfContour).first(1);
inline constexpr std::array<std::string_view, kMostParents> kOfLine = {
    "parent_road", "parent_section", "parent_line"};
inline constexpr Parents kOfRoad = std::span(kOfLine).first(1);
inline constexpr Parents kOfSection = std::span(kOfLine).first(2);

inline constexpr std::array<std::string_view, kMostParents> kOfPart = {
    "parent_theme", "parent_feature", "parent_part"};
inline constexpr Parents kOfTheme = std::span(kOfPart).first(1);

inline constexpr std::array<std::string_view, 1> kOfBlock = {"parent_block"};
inline constexpr std::array<std::string_view, 1> kOfEntity = {"parent_entity"};

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
    return std::tuple_cat(VertexRecord::Fields(), std::tuple{Field{"has_curve", &R::hasCurve},
                                                             Field{"curve_start", &R::curveStart},
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

/// The block of an entity that is in the drawing itself.
inline constexpr int kNoBlock = -1;

struct EntityPointRecord {
  SpaceRecord place{};
  double bulge = 0;

  static constexpr auto Fields() {
    using R = EntityPointRecord;
    return std::tuple{Field{"place", &R::place, kAxes}, Field{"bulge", &R::bulge}};
  }
};

struct AttributeRecord {
  std::string tag;
  std::string text;

  static constexpr auto Fields() {
    using R = AttributeRecord;
    return std::tuple{Field{"tag", &R::tag}, Field{"text", &R::text}};
  }
};

inline constexpr StoredTable<LayerRecord> kLayerTable{"drawing_layers"};
inline constexpr StoredTable<BlockRecord> kBlockTable{"drawing_blocks"};
inline constexpr StoredTable<AttributeDefinitionRecord> kDefinitionTable{"drawing_attributes",
                                                                         kOfBlock};
// Those of the blocks come first, block by block; who belongs to an entity has its position among
// all of them.
inline constexpr StoredTable<EntityRecord> kEntityTable{"drawing_entities", kOfBlock};
inline constexpr StoredTable<EntityPointRecord> kEntityPointTable{"drawing_points", kOfEntity};
inline constexpr StoredTable<AttributeRecord> kAttributeTable{"drawing_insert_attributes",
                                                              kOfEntity};

struct FeatureVertexRecord {
  std::array<double, 3> place{};
  double measure = UndefinedValue;

  static constexpr auto Fields() {
    using R = FeatureVertexRecord;
    return std::tuple{Field{"place", &R::place, kAxes}, Field{"measure", &R::measure}};
  }
};

inline constexpr StoredTable<StoredThemeRecord> kThemeTable{"gis_themes"};
inline constexpr StoredTable<GisFieldRecord> kThemeFieldTable{"gis_fields", kOfTheme};
inline constexpr StoredTable<FeatureRecord> kFeatureTable{"gis_features", kOfTheme};
inline constexpr StoredTable<FeatureVertexRecord> kFeatureVertexTable{"gis_vertices", kOfPart};

/// The name of a point or parcel.
struct NameRecord {
  std::string name;

  static constexpr auto Fields() { return std::tuple{Field{"name", &NameRecord::name}}; }
};

struct TraverseRecord {
  int vertices = 0;

  static constexpr auto Fields() {
    return std::tuple{Field{"vertices", &TraverseRecord::vertices}};
  }
};

inline constexpr std::array<std::string_view, 1> kOfTraverse = {"parent_traverse"};
inline constexpr std::array<std::string_view, 1> kOfContourLine = {"parent_contour"};

inline constexpr StoredTable<CadastreRecord> kCadastreTable{"cadastre"};
inline constexpr StoredTable<NameRecord> kParcelTable{"cadastre_parcels"};
inline constexpr StoredTable<TraverseRecord> kTraverseTable{"cadastre_traverses"};
inline constexpr StoredTable<NameRecord> kTraverseVertexTable{"cadastre_traverse_vertices",
                                                              kOfTraverse};
inline constexpr StoredTable<ContourLineRecord> kContourLineTable{"cadastre_contours"};
inline constexpr StoredTable<NameRecord> kContourVertexTable{"cadastre_contour_vertices",
                                                             kOfContourLine};
inline constexpr StoredTable<FiducialRecord> kFiducialTable{"cadastre_fiducials"};

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
  visit(kLayerTable);
  visit(kBlockTable);
  visit(kDefinitionTable);
  visit(kEntityTable);
  visit(kEntityPointTable);
  visit(kAttributeTable);
  visit(kThemeTable);
  visit(kThemeFieldTable);
  visit(kFeatureTable);
  visit(kFeatureVertexTable);
  visit(kCadastreTable);
  visit(kParcelTable);
  visit(kTraverseTable);
  visit(kTraverseVertexTable);
  visit(kContourLineTable);
  visit(kContourVertexTable);
  visit(kFiducialTable);
}
