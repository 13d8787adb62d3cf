// Terrain models and roads of a job in a folder.
#include <gtest/gtest.h>

#include <sqlite3.h>

#include "support/stored_designs.h"

namespace {

using stored_designs::kDesign;
using stored_jobs::JobWith;
using stored_jobs::JsonOf;
using stored_jobs::JsonOfStored;
using stored_jobs::Read;

void RunSql(const TemporaryFolder& folder, const std::string& sql) {
  sqlite3* database = nullptr;
  ASSERT_EQ(sqlite3_open(folder.File(kJobDatabaseName).c_str(), &database), SQLITE_OK);
  EXPECT_EQ(sqlite3_exec(database, sql.c_str(), nullptr, nullptr, nullptr), SQLITE_OK)
      << sqlite3_errmsg(database);
  sqlite3_close(database);
}

void ExpectAt(const tdk::geom::PNT_3D& place, double x, double y, double z) {
  EXPECT_EQ(place.getX(), x);
  EXPECT_EQ(place.getY(), y);
  EXPECT_EQ(place.getZ(), z);
}

struct StoreDesignFolder : testing::Test {
  TemporaryFolder folder;

  void SaveDesign() {
    HostDocument document;
    Read(JobWith(kDesign), document);
    SaveJob(folder.Path(), document);
  }
};

TEST_F(StoreDesignFolder, IsTheSameInAFolder) {
  SaveDesign();
  EXPECT_EQ(JsonOfStored(folder.Path()), JobWith(kDesign));
}

TEST_F(StoreDesignFolder, TakesContoursOfBothKindsInTurns) {
  SaveDesign();
  // The second outer contour becomes an island, and the island that follows it an outer one.
  RunSql(folder,
         "UPDATE terrain_contours SET island = 1 WHERE rowid = 2;"
         "UPDATE terrain_contours SET island = 0 WHERE rowid = 3");
  HostDocument copy;
  LoadJob(folder.Path(), copy);
  const CDtmPrj& model = *copy.GetLibDtm()->GetPrjAt(0);
  ASSERT_EQ(model.GetOuterCnts().GetNoCnts(), 2);
  ASSERT_EQ(model.GetIslandCnts().GetNoCnts(), 1);
  ExpectAt(model.GetOuterCnts().GetCntAt(0).GetVrt(0), 1, 2, 3);
  ASSERT_EQ(model.GetOuterCnts().GetCntAt(1).GetNoVrts(), 2);
  ExpectAt(model.GetOuterCnts().GetCntAt(1).GetVrt(0), 11, 12, 13);
  ASSERT_EQ(model.GetIslandCnts().GetCntAt(0).GetNoVrts(), 1);
  ExpectAt(model.GetIslandCnts().GetCntAt(0).GetVrt(0), 10, 20, 30);
}

// Leaves a job in `folder` as it was written before there were terrain models and roads.
void SaveInOlderLayout(const TemporaryFolder& folder) {
  HostDocument full;
  Read(stored_jobs::kFullJob, full);
  SaveJob(folder.Path(), full);
  for (const char* table :
       {"terrain_models", "terrain_contours", "terrain_contour_points", "terrain_breaklines",
        "terrain_vertices", "terrain_triangles", "roads", "road_elements", "road_codes",
        "road_sections", "road_terrain", "road_lines", "road_vertices"}) {
    RunSql(folder, std::string("DROP TABLE ") + table);
  }
  RunSql(folder, "PRAGMA user_version = 1");
}

TEST_F(StoreDesignFolder, IsEmptyInAJobOfTheOlderLayout) {
  SaveInOlderLayout(folder);
  EXPECT_EQ(JsonOfStored(folder.Path()), stored_jobs::kFullJob);
  HostDocument copy;
  LoadJob(folder.Path(), copy, [](std::uint64_t /*done*/, std::uint64_t /*total*/) {});
  EXPECT_EQ(copy.GetLibDtm()->GetPrjArSize(), 0);
  EXPECT_EQ(copy.GetLibRoad()->GetRoadArSize(), 0);
}

TEST_F(StoreDesignFolder, MayBeSavedOverAJobOfTheOlderLayout) {
  SaveInOlderLayout(folder);
  SaveDesign();
  EXPECT_EQ(JsonOfStored(folder.Path()), JobWith(kDesign));
}

TEST_F(StoreDesignFolder, IsGoneWhenAJobWithoutItIsSavedOverIt) {
  SaveDesign();
  HostDocument empty;
  SaveJob(folder.Path(), empty);
  EXPECT_EQ(JsonOfStored(folder.Path()), JsonOf(empty));
}

}  // namespace
