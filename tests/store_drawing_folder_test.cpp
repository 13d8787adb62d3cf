// The drawing of a job in a folder.
#include <gtest/gtest.h>

#include <sqlite3.h>

#include "support/stored_designs.h"
#include "support/stored_drawings.h"

namespace {

using stored_drawings::JobWith;
using stored_drawings::kDrawing;
using stored_jobs::JsonOf;
using stored_jobs::JsonOfStored;
using stored_jobs::Read;

constexpr const char* kDrawingTables[] = {"drawing_layers",   "drawing_blocks",
                                          "drawing_points",   "drawing_attributes",
                                          "drawing_entities", "drawing_insert_attributes"};
constexpr const char* kDesignTables[] = {"terrain_models",
                                         "terrain_contours",
                                         "terrain_contour_points",
                                         "terrain_breaklines",
                                         "terrain_vertices",
                                         "terrain_triangles",
                                         "roads",
                                         "road_elements",
                                         "road_codes",
                                         "road_sections",
                                         "road_terrain",
                                         "road_lines",
                                         "road_vertices"};

struct StoreDrawingFolder : testing::Test {
  TemporaryFolder folder;

  void RunSql(const std::string& sql) {
    sqlite3* database = nullptr;
    ASSERT_EQ(sqlite3_open(folder.File(kJobDatabaseName).c_str(), &database), SQLITE_OK);
    EXPECT_EQ(sqlite3_exec(database, sql.c_str(), nullptr, nullptr, nullptr), SQLITE_OK)
        << sqlite3_errmsg(database);
    sqlite3_close(database);
  }
  void SaveDrawing() {
    HostDocument document;
    Read(JobWith(kDrawing), document);
    SaveJob(folder.Path(), document);
  }
  template <std::size_t count>
  void Drop(const char* const (&tables)[count]) {
    for (const char* table : tables) RunSql(std::string("DROP TABLE ") + table);
  }
  // Saves a job as it was before there was a drawing.
  void SaveWithoutDrawing(std::string_view json) {
    HostDocument document;
    Read(json, document);
    SaveJob(folder.Path(), document);
    Drop(kDrawingTables);
    RunSql("PRAGMA user_version = 2");
  }
  /// What is said of the stored drawing after it was changed so.
  std::string ComplaintAfter(const std::string& sql) {
    SaveDrawing();
    RunSql(sql);
    const std::string file = folder.File(kJobDatabaseName) + ": ";
    const std::string complaint = stored_jobs::ComplaintOfLoad(folder.Path());
    return complaint.starts_with(file) ? complaint.substr(file.size()) : complaint;
  }
};

TEST_F(StoreDrawingFolder, IsTheSameInAFolder) {
  SaveDrawing();
  EXPECT_EQ(JsonOfStored(folder.Path()), JobWith(kDrawing));
}

TEST_F(StoreDrawingFolder, IsGoneWhenAJobWithoutItIsSavedOverIt) {
  SaveDrawing();
  HostDocument empty;
  SaveJob(folder.Path(), empty);
  EXPECT_EQ(JsonOfStored(folder.Path()), JsonOf(empty));
}

TEST_F(StoreDrawingFolder, IsEmptyInAJobWithTerrainAndRoadsOnly) {
  const std::string design = stored_jobs::JobWith(stored_designs::kDesign);
  SaveWithoutDrawing(design);
  EXPECT_EQ(JsonOfStored(folder.Path()), design);
  HostDocument copy;
  LoadJob(folder.Path(), copy, [](std::uint64_t /*done*/, std::uint64_t /*total*/) {});
  EXPECT_EQ(copy.GetCadEngine()->GetNoDrawings(), 1);
}

TEST_F(StoreDrawingFolder, IsEmptyInAJobOfTheOldestLayout) {
  SaveWithoutDrawing(stored_jobs::kFullJob);
  Drop(kDesignTables);
  RunSql("PRAGMA user_version = 1");
  EXPECT_EQ(JsonOfStored(folder.Path()), stored_jobs::kFullJob);
}

TEST_F(StoreDrawingFolder, MayBeSavedOverAJobOfAnOlderLayout) {
  SaveWithoutDrawing(stored_jobs::kFullJob);
  SaveDrawing();
  EXPECT_EQ(JsonOfStored(folder.Path()), JobWith(kDrawing));
}

TEST_F(StoreDrawingFolder, WhatDoesNotFitTogetherIsRefused) {
  const std::string reason = "the job is damaged: a record of the drawing does not fit there";
  EXPECT_EQ(ComplaintAfter("UPDATE drawing_layers SET name = 'WALLS' WHERE rowid = 3"), reason);
  EXPECT_EQ(ComplaintAfter("UPDATE drawing_blocks SET name = 'CROSS' WHERE rowid = 1"), reason);
  EXPECT_EQ(ComplaintAfter("UPDATE drawing_attributes SET parent_block = 3"), reason);
  EXPECT_EQ(ComplaintAfter("UPDATE drawing_attributes SET parent_block = -1"), reason);
  EXPECT_EQ(ComplaintAfter("UPDATE drawing_entities SET parent_block = 3 WHERE rowid = 1"), reason);
  EXPECT_EQ(ComplaintAfter("UPDATE drawing_entities SET parent_block = -2 WHERE rowid = 1"),
            reason);
  EXPECT_EQ(ComplaintAfter("UPDATE drawing_entities SET type = 'spline' WHERE rowid = 1"), reason);
  EXPECT_EQ(ComplaintAfter("UPDATE drawing_entities SET block = 'x' WHERE type = 'insert'"),
            reason);
  EXPECT_EQ(ComplaintAfter("UPDATE drawing_entities SET color = 257"), reason);
  EXPECT_EQ(ComplaintAfter("UPDATE drawing_points SET parent_entity = -1 WHERE rowid = 1"), reason);
  EXPECT_EQ(ComplaintAfter("UPDATE drawing_points SET parent_entity = 18 WHERE rowid = 16"),
            reason);
  EXPECT_EQ(ComplaintAfter("DELETE FROM drawing_points WHERE parent_entity = 17"), reason);
  EXPECT_EQ(ComplaintAfter("UPDATE drawing_insert_attributes SET parent_entity = 99"), reason);
}

TEST_F(StoreDrawingFolder, AnotherKindOfValueIsRefused) {
  EXPECT_EQ(ComplaintAfter("UPDATE drawing_entities SET radius = 'wide'"),
            "the job is damaged: a value of \"radius\" does not fit there");
  EXPECT_EQ(ComplaintAfter("UPDATE drawing_entities SET color = -1"),
            "the job is damaged: a value of \"color\" does not fit there");
}

TEST_F(StoreDrawingFolder, ProgressCountsEntities) {
  HostDocument document;
  CTcadEng& engine = *document.GetCadEngine();
  engine.AddBlock({"B", {}, std::vector<cad::Entity>(4'000), {}});
  for (int i = 0; i < 6'000; ++i) engine.Add({});
  engine.Add({1, cad::kByLayer, /*isPrivate=*/true, cad::Origin::kUser, {}});
  std::vector<std::pair<std::uint64_t, std::uint64_t>> told;
  const auto progress = [&](std::uint64_t done, std::uint64_t total) {
    told.emplace_back(done, total);
  };
  const std::vector<std::pair<std::uint64_t, std::uint64_t>> expected = {{4096, 10'000},
                                                                         {8192, 10'000}};
  SaveJob(folder.Path(), document, progress);
  EXPECT_EQ(told, expected);
  told.clear();
  HostDocument copy;
  LoadJob(folder.Path(), copy, progress);
  EXPECT_EQ(told, expected);
  told.clear();
  SaveJob(folder.File("job.json"), document, progress);
  EXPECT_EQ(told, expected);
}

}  // namespace
