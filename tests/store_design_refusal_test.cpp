// Terrain models and roads that no job can hold, and what is said of them.
#include <gtest/gtest.h>

#include <sqlite3.h>

#include "support/add_policies.h"
#include "support/stored_designs.h"

namespace {

using stored_jobs::ComplaintOfJson;

/// Of a terrain model, or a road, with these members.
std::string OfModel(const std::string& members) {
  return ComplaintOfJson(R"({"terrain":[{)" + members + "}]}");
}
std::string OfRoad(const std::string& members) {
  return ComplaintOfJson(R"({"roads":[{)" + members + "}]}");
}
std::string OfProfile(const std::string& members) {
  return OfRoad(R"("profile":{)" + members + "}");
}
std::string UnknownKey(const std::string& json) { return ComplaintOfJson<JobKeyError>(json); }

TEST(StoreDesignRefusal, ATriangleOfOtherThanPositionsOfVertices) {
  const auto triangles = [](const std::string& rows) {
    return OfModel(R"("vertices":[[0,0,0],[1,0,0],[0,1,0]],"triangles":)" + rows);
  };
  const std::string expected = "expected three positions of vertices";
  EXPECT_EQ(triangles("[[0,1,2],[2,2,2]]"), "none");
  EXPECT_EQ(triangles("[[0,1,2],[0,1,3]]"), "terrain[0].triangles[1]: " + expected);
  EXPECT_EQ(triangles("[[-1,1,2]]"), "terrain[0].triangles[0]: " + expected);
  EXPECT_EQ(triangles("[[0,0.5,2]]"), "terrain[0].triangles[0]: " + expected);
  EXPECT_EQ(triangles("[[0,1,4294967296]]"), "terrain[0].triangles[0]: " + expected);
  EXPECT_EQ(triangles("[[0,1,2],[0,1,null]]"), "terrain[0].triangles[1]: " + expected);
}

TEST(StoreDesignRefusal, ATriangleOfTheSecondModelIsNamedWithItsPlace) {
  EXPECT_EQ(ComplaintOfJson(R"({"terrain":[{"vertices":[[0,0,0]]},{"triangles":[[0,0,0]]}]})"),
            "terrain[1].triangles[0]: expected three positions of vertices");
}

TEST(StoreDesignRefusal, TrianglesMayStandBeforeTheirVertices) {
  EXPECT_EQ(OfModel(R"("triangles":[[0,1,2]],"vertices":[[0,0,0],[1,0,0],[0,1,0]])"), "none");
  EXPECT_EQ(OfModel(R"("triangles":[[0,1,2]],"vertices":[[0,0,0],[1,0,0]])"),
            "terrain[0].triangles[0]: expected three positions of vertices");
}

TEST(StoreDesignRefusal, ARowOfTooFewNumbers) {
  EXPECT_EQ(OfModel(R"("vertices":[[0,0,0],[1,2]])"),
            "terrain[0].vertices[1]: expected a list of 3");
  EXPECT_EQ(OfModel(R"("vertices":[[]])"), "terrain[0].vertices[0]: expected a list of 3");
  EXPECT_EQ(OfModel(R"("triangles":[[1,2]])"), "terrain[0].triangles[0]: expected a list of 3");
  EXPECT_EQ(OfModel(R"("outer":[[],[[1,2,3],[1,2]]])"),
            "terrain[0].outer[1][1]: expected a list of 3");
  EXPECT_EQ(OfModel(R"("breaklines":[[[1,2],[1,2,3]]])"),
            "terrain[0].breaklines[0][0]: expected a list of 3");
  EXPECT_EQ(OfProfile(R"("sections":[{"terrain":[[1]]}])"),
            "roads[0].profile.sections[0].terrain[0]: expected a list of 2");
  EXPECT_EQ(OfRoad(R"("elements":[{"start":[1]}])"),
            "roads[0].elements[0].start: expected a list of 2");
}

TEST(StoreDesignRefusal, ARowOfTooManyNumbers) {
  EXPECT_EQ(OfModel(R"("vertices":[[1,2,3,4]])"),
            "terrain[0].vertices[0][3]: expected a list of 3, found 4");
  EXPECT_EQ(OfProfile(R"("sections":[{"terrain":[[1,2,3]]}])"),
            "roads[0].profile.sections[0].terrain[0][2]: expected a list of 2, found 3");
}

TEST(StoreDesignRefusal, ARowOfOtherThanNumbers) {
  EXPECT_EQ(OfModel(R"("vertices":[[1,true,3]])"),
            "terrain[0].vertices[0][1]: expected a number or null, found true");
  EXPECT_EQ(OfModel(R"("islands":[[["1",2,3]]])"),
            "terrain[0].islands[0][0][0]: expected a number or null, found \"1\"");
  EXPECT_EQ(OfModel(R"("vertices":[[1,[2],3]])"),
            "terrain[0].vertices[0][1]: a list does not belong here");
  EXPECT_EQ(OfModel(R"("vertices":[[1,{},3]])"),
            "terrain[0].vertices[0][1]: an object does not belong here");
}

TEST(StoreDesignRefusal, ABreaklineOfOtherThanTwoPoints) {
  const std::string reason = ": a breakline has two points";
  EXPECT_EQ(OfModel(R"("breaklines":[[[1,2,3],[4,5,6]],[[1,2,3]]])"),
            "terrain[0].breaklines[1]" + reason);
  EXPECT_EQ(OfModel(R"("breaklines":[[]])"), "terrain[0].breaklines[0]" + reason);
  EXPECT_NE(OfModel(R"("breaklines":[[[1,2,3],[4,5,6],[7,8,9]]])").find(reason), std::string::npos);
  EXPECT_TRUE(OfModel(R"("breaklines":[[[1,2,3],[4,5,6],[7,8,9]]])")
                  .starts_with("terrain[0].breaklines[0]"));
}

TEST(StoreDesignRefusal, AnElementOfAnUnknownType) {
  const std::string reason = "type: expected \"line\", \"arc\", \"clothoid\" or \"other\"";
  EXPECT_EQ(OfRoad(R"("elements":[{"type":"line"},{"type":"spiral"}])"),
            "roads[0].elements[1]." + reason);
  EXPECT_EQ(OfRoad(R"("elements":[{"type":"Line"}])"), "roads[0].elements[0]." + reason);
  EXPECT_EQ(OfRoad(R"("elements":[{}])"), "roads[0].elements[0]." + reason);
}

TEST(StoreDesignRefusal, AKeyThatDoesNotBelongThere) {
  EXPECT_EQ(UnknownKey(R"({"terrain":[{},{"points":[]}]})"), "terrain[1]: unknown key \"points\"");
  EXPECT_EQ(UnknownKey(R"({"roads":[{"length":1}]})"), "roads[0]: unknown key \"length\"");
  EXPECT_EQ(UnknownKey(R"({"roads":[{"elements":[{"constant":1}]}]})"),
            "roads[0].elements[0]: unknown key \"constant\"");
  EXPECT_EQ(UnknownKey(R"({"roads":[{"profile":{"name":""}}]})"),
            "roads[0].profile: unknown key \"name\"");
  EXPECT_EQ(UnknownKey(R"({"roads":[{"profile":{"main":{"code":1}}}]})"),
            "roads[0].profile.main: unknown key \"code\"");
  EXPECT_EQ(UnknownKey(R"({"roads":[{"profile":{"main":{"vertices":[{"curve":{"length":1}}]}}}]})"),
            "roads[0].profile.main.vertices[0].curve: unknown key \"length\"");
  EXPECT_EQ(UnknownKey(R"({"roads":[{"profile":{"sections":[{"sta":1}]}}]})"),
            "roads[0].profile.sections[0]: unknown key \"sta\"");
  EXPECT_EQ(UnknownKey(R"({"roads":[{"profile":{"sections":[{"lines":[{"name":""}]}]}}]})"),
            "roads[0].profile.sections[0].lines[0]: unknown key \"name\"");
}

TEST(StoreDesignRefusal, ANumberWhereAListIsWanted) {
  EXPECT_EQ(ComplaintOfJson(R"({"terrain":5})"), "terrain: expected a list, found 5");
  EXPECT_EQ(ComplaintOfJson(R"({"roads":5})"), "roads: expected a list, found 5");
  EXPECT_EQ(ComplaintOfJson(R"({"terrain":[5]})"), "terrain[0]: expected an object, found 5");
  EXPECT_EQ(OfModel(R"("outer":5)"), "terrain[0].outer: expected a list, found 5");
  EXPECT_EQ(OfModel(R"("outer":[5])"), "terrain[0].outer[0]: expected a list, found 5");
  EXPECT_EQ(OfModel(R"("outer":[[5]])"), "terrain[0].outer[0][0]: expected a list, found 5");
  EXPECT_EQ(OfModel(R"("vertices":[5])"), "terrain[0].vertices[0]: expected a list, found 5");
  EXPECT_EQ(OfRoad(R"("elements":5)"), "roads[0].elements: expected a list, found 5");
  EXPECT_EQ(OfRoad(R"("elements":[{"start":5}])"),
            "roads[0].elements[0].start: expected a list of 2, found 5");
  EXPECT_EQ(OfProfile(R"("sections":[{"terrain":[5]}])"),
            "roads[0].profile.sections[0].terrain[0]: expected a list, found 5");
}

TEST(StoreDesignRefusal, AListOrAnObjectWhereTheOtherIsWanted) {
  EXPECT_EQ(ComplaintOfJson(R"({"terrain":{}})"), "terrain: an object does not belong here");
  EXPECT_EQ(ComplaintOfJson(R"({"roads":[[]]})"), "roads[0]: a list does not belong here");
  EXPECT_EQ(OfModel(R"("vertices":[{}])"),
            "terrain[0].vertices[0]: an object does not belong here");
  EXPECT_EQ(OfModel(R"("outer":{})"), "terrain[0].outer: an object does not belong here");
  EXPECT_EQ(OfRoad(R"("profile":[])"), "roads[0].profile: a list does not belong here");
  EXPECT_EQ(OfProfile(R"("main":[])"), "roads[0].profile.main: a list does not belong here");
  EXPECT_EQ(OfProfile(R"("main":5)"), "roads[0].profile.main: expected an object, found 5");
}

TEST(StoreDesignRefusal, ACodeThatIsNoWholeNumber) {
  EXPECT_EQ(OfProfile(R"("codes":[{"code":2147483647},{"code":-2147483648}])"), "none");
  EXPECT_EQ(OfProfile(R"("codes":[{"code":1.5}])"),
            "roads[0].profile.codes[0].code: expected a whole number from -2147483648 to "
            "2147483647, found 1.5");
  EXPECT_NE(OfProfile(R"("codes":[{"code":2147483648}])"), "none");
  EXPECT_NE(OfProfile(R"("sections":[{"lines":[{"code":null}]}])"), "none");
}

TEST(StoreDesignRefusal, NullInARowIsAnUndefinedValue) {
  HostDocument document;
  stored_jobs::Read(R"({"terrain":[{"vertices":[[1,null,3]]}],
                        "roads":[{"profile":{"sections":[{"terrain":[[null,2]]}]}}]})",
                    document);
  const tdk::geom::PNT_3D& vertex = document.GetLibDtm()->GetPrjAt(0)->GetTris().GetTriVrtAt(0);
  EXPECT_EQ(vertex.getX(), 1);
  EXPECT_FALSE(IsDefined(vertex.getY()));
  EXPECT_EQ(vertex.getZ(), 3);
  const CProfile& section = document.GetLibRoad()->GetRoadAt(0)->GetRoadProfile()->GetSection(0);
  EXPECT_FALSE(IsDefined(section.GetTerrVrt(0).distance));
  EXPECT_EQ(section.GetTerrVrt(0).height, 2);
}

TEST(StoreDesignRefusal, EveryCutOfADesignIsRefused) {
  const TemporaryFolder folder;
  const std::string json = stored_jobs::JobWith(stored_designs::kDesign);
  const std::string path = folder.Write("job.json", json);
  for (std::size_t size = json.size() - 2; size-- > 0;) {
    std::filesystem::resize_file(path, size);
    ASSERT_NE(stored_jobs::ComplaintOfLoad(path), "") << size;
  }
}

TEST(StoreDesignRefusal, AHostThatRefusesAnAdd) {
  const TemporaryFolder folder;
  const std::string path = folder.Write("job.json", R"({"terrain":[{},{}]})");
  HostDocument document;
  RefuseAfter policy(1);
  document.GetLibDtm()->SetAddPolicy(&policy);
  EXPECT_THROW(LoadJob(path, document), JobError);
  folder.Write("job.json", R"({"roads":[{}]})");
  HostDocument other;
  RefuseKinds roads({AddedKind::kRoad});
  other.GetLibRoad()->SetAddPolicy(&roads);
  EXPECT_THROW(LoadJob(path, other), JobError);
}

// ---- In a folder ----

class StoreDesignDamage : public testing::TestWithParam<const char*> {};

TEST_P(StoreDesignDamage, IsNoticed) {
  const TemporaryFolder folder;
  const std::string file = folder.File(kJobDatabaseName);
  HostDocument document;
  stored_jobs::Read(stored_jobs::JobWith(stored_designs::kDesign), document);
  SaveJob(folder.Path(), document);
  sqlite3* database = nullptr;
  ASSERT_EQ(sqlite3_open(file.c_str(), &database), SQLITE_OK);
  EXPECT_EQ(sqlite3_exec(database, GetParam(), nullptr, nullptr, nullptr), SQLITE_OK)
      << sqlite3_errmsg(database);
  sqlite3_close(database);
  EXPECT_EQ(stored_jobs::ComplaintOfLoad(folder.Path()),
            file + ": the job is damaged: a record belongs to nothing");
}

INSTANTIATE_TEST_SUITE_P(
    Each, StoreDesignDamage,
    testing::Values(
        "UPDATE terrain_contours SET parent_model = 2",
        "UPDATE terrain_contour_points SET parent_model = -1",
        "UPDATE terrain_contour_points SET parent_contour = 3",
        "UPDATE terrain_contour_points SET parent_contour = -1",
        "UPDATE terrain_breaklines SET parent_model = 2",
        "UPDATE terrain_vertices SET parent_model = 2",
        "UPDATE terrain_triangles SET parent_model = 1",  // of no vertices
        "UPDATE terrain_triangles SET vertex_c = 5", "UPDATE terrain_triangles SET vertex_a = -1",
        "UPDATE road_elements SET parent_road = 3", "UPDATE road_elements SET type = 'spiral'",
        "UPDATE road_codes SET parent_road = -1", "UPDATE road_sections SET parent_road = 3",
        "UPDATE road_terrain SET parent_section = 2", "UPDATE road_lines SET parent_section = -2",
        "UPDATE road_vertices SET parent_line = 2 WHERE parent_section = 0",
        "UPDATE road_vertices SET parent_road = 1",  // which has no main line
        "DELETE FROM roads"));

}  // namespace
