// GIS themes of a job: what each key means, and that nothing changes on the way.
#include <gtest/gtest.h>

#include <sqlite3.h>

#include "support/stored_jobs.h"
#include "tests/support/shape_sets.h"

namespace {

using namespace shape_sets;
using stored_jobs::JsonOf;
using stored_jobs::JsonOfStored;
using stored_jobs::Read;

std::string JobWith(std::string_view themes) {
  return stored_jobs::JobWith(std::string(stored_jobs::kNoDesign) + "  \"gis\": {\n" +
                              std::string(themes) + "  },\n");
}

constexpr std::string_view kThemes = R"(    "themes": [
      {
        "name": "Walls",
        "type": "line",
        "dimension": 3,
        "table": "Walls_1",
        "referenceSystem": "PROJCS[\"x\"]",
        "targetDrawing": 2,
        "fields": [
          {"name": "NAME", "type": "text", "width": 12, "decimals": 0},
          {"name": "N", "type": "integer", "width": 4, "decimals": 0},
          {"name": "H", "type": "real", "width": 8, "decimals": 2},
          {"name": "DAY", "type": "date", "width": 8, "decimals": 0},
          {"name": "OK", "type": "bool", "width": 1, "decimals": 0}
        ],
        "features": [
          {"parts": [[[1, 2, 3], [4, 5, null, 7.5]], [[6, 7, -0.0]]], "values": ["a:b;\n", -5, 1.25, "2024-02-29", true]},
          {"parts": [], "values": [null, null, null, null, null]},
          {"parts": [[[null, 2, 3]]], "values": ["", 9223372036854775807, 0.1, "0001-01-01", false]}
        ]
      },
      {
        "name": "Points",
        "type": "point",
        "dimension": 2,
        "fields": [],
        "features": [
          {"parts": [[[1, 2, null]]], "values": []}
        ]
      },
      {
        "name": "empty",
        "type": "polygon",
        "dimension": 2,
        "fields": [],
        "features": []
      }
    ]
)";

struct StoreGis : testing::Test {
  HostDocument document;
  TemporaryFolder folder;

  void ReadThemes() { Read(JobWith(kThemes), document); }
  const gis::CTheme& Theme(int i = 0) { return *document.GetLibGis()->GetTheme(i); }
  std::string ComplaintAfter(const std::string& sql) {
    HostDocument fresh;
    Read(JobWith(kThemes), fresh);
    SaveJob(folder.Path(), fresh);
    sqlite3* database = nullptr;
    EXPECT_EQ(sqlite3_open(folder.File(kJobDatabaseName).c_str(), &database), SQLITE_OK);
    EXPECT_EQ(sqlite3_exec(database, sql.c_str(), nullptr, nullptr, nullptr), SQLITE_OK)
        << sqlite3_errmsg(database);
    sqlite3_close(database);
    return stored_jobs::ComplaintOfLoad(folder.Path());
  }
};

TEST_F(StoreGis, IsWrittenAsItWasReadByteForByte) {
  ReadThemes();
  EXPECT_EQ(JsonOf(document), JobWith(kThemes));
}

TEST_F(StoreGis, AFolderHoldsTheSame) {
  ReadThemes();
  SaveJob(folder.Path(), document);
  EXPECT_EQ(JsonOfStored(folder.Path()), JobWith(kThemes));
}

TEST_F(StoreGis, ReadsThemes) {
  ReadThemes();
  ASSERT_EQ(document.GetLibGis()->GetNumThemes(), 3);
  EXPECT_EQ(Theme().GetType(), EntityType::kLine);
  EXPECT_TRUE(Theme().Is3D());
  EXPECT_TRUE(Theme().HasMeasures());
  EXPECT_EQ(Theme().GetNumParts(0), 2);
  EXPECT_EQ(Theme().GetVertex(1).m, 7.5);
  EXPECT_FALSE(IsDefined(Theme().GetVertex(0).m));
  EXPECT_EQ(Theme().GetTable()->GetValue(0, 3), Value(gis::Date{2024, 2, 29}));
  EXPECT_EQ(Theme().GetTable()->GetName(), "Walls_1");
  EXPECT_EQ(document.GetLibGis()->GetThemeTargetDrawing(&Theme()), 2);
  EXPECT_FALSE(Theme(1).Is3D());
  EXPECT_EQ(Theme(2).GetType(), EntityType::kPolygon);
}

TEST_F(StoreGis, EveryKeyMayBeLeftOutAndStandInAnyOrder) {
  Read(R"({"gis": {"themes": [{"features": [{"values": [1], "parts": [[[1, 2]]]}, {}],
       "fields": [{"name": "N", "type": "integer"}], "name": "x"}]}})",
       document);
  EXPECT_EQ(Theme().GetType(), EntityType::kPoint);
  EXPECT_FALSE(Theme().Is3D());
  EXPECT_EQ(Theme().GetNumFeatures(), 2);
  EXPECT_EQ(Theme().GetTable()->GetValue(0, 0), Value(std::int64_t{1}));
  EXPECT_TRUE(gis::IsNull(Theme().GetTable()->GetValue(1, 0)));
}

TEST_F(StoreGis, TellsWhatIsWrongAndWhere) {
  const auto complaint = [](const std::string& theme) -> std::string {
    HostDocument fresh;
    try {
      Read(R"({"gis": {"themes": [)" + theme + "]}}", fresh);
    } catch (const std::exception& error) {
      return error.what();
    }
    return "none";
  };
  using testing::HasSubstr;
  EXPECT_THAT(complaint(R"({"type": "cloud"})"),
              HasSubstr("gis.themes[0].type: expected \"point\", \"line\" or \"polygon\""));
  EXPECT_THAT(complaint(R"({"dimension": 4})"), HasSubstr("themes[0].dimension: expected 2 or 3"));
  EXPECT_THAT(complaint(R"({"fields": [{"type": "blob"}]})"),
              HasSubstr("themes[0].fields[0].type: expected \"text\""));
  EXPECT_THAT(
      complaint(R"({"fields": [{"type": "date"}], "features": [{"values": ["2023-02-29"]}]})"),
      HasSubstr("themes[0].features[0].values[0]: expected a date"));
  EXPECT_THAT(complaint(R"({"fields": [{"type": "integer"}], "features": [{"values": [1.5]}]})"),
              HasSubstr("expected a whole number or null, found 1.5"));
  EXPECT_THAT(complaint(R"({"features": [{"values": [1]}]})"),
              HasSubstr("values[0]: there are fewer fields"));
  EXPECT_THAT(complaint(R"({"features": [{"parts": [[[1]]]}]})"), HasSubstr("expected a list of"));
  EXPECT_THAT(complaint(R"({"features": [{"parts": [[[1, 2, 3, 4, 5]]]}]})"),
              HasSubstr("expected a list of 4"));
  EXPECT_THAT(complaint(R"({"features": [{"values": [[1]]}]})"),
              HasSubstr("a list does not belong here"));
  EXPECT_THAT(complaint(R"({"name": "a"}, {"name": "A"})"),
              HasSubstr("themes[1].name: there is a theme of that name already"));
  EXPECT_THAT(complaint(R"({"colour": 1})"), HasSubstr("unknown key \"colour\""));
}

TEST_F(StoreGis, AFolderFromBeforeThereWereThemesIsRead) {
  HostDocument old;
  SaveJob(folder.Path(), old);
  sqlite3* database = nullptr;
  ASSERT_EQ(sqlite3_open(folder.File(kJobDatabaseName).c_str(), &database), SQLITE_OK);
  sqlite3_exec(database,
               "DROP TABLE gis_themes; DROP TABLE gis_fields; DROP TABLE gis_features; DROP TABLE "
               "gis_vertices; PRAGMA user_version = 3",
               nullptr, nullptr, nullptr);
  sqlite3_close(database);
  LoadJob(folder.Path(), document);
  EXPECT_EQ(document.GetLibGis()->GetNumThemes(), 0);
}

TEST_F(StoreGis, AFolderWhoseRowsDoNotFitIsRefused) {
  using testing::HasSubstr;
  const auto doesNotFit = HasSubstr("a record of a theme does not fit there");
  EXPECT_THAT(ComplaintAfter("UPDATE gis_features SET row = '99:x' WHERE rowid = 1"), doesNotFit);
  EXPECT_THAT(ComplaintAfter("UPDATE gis_features SET parent_theme = 7"), doesNotFit);
  EXPECT_THAT(ComplaintAfter("UPDATE gis_vertices SET parent_part = 2147483647"), doesNotFit);
  EXPECT_THAT(ComplaintAfter("UPDATE gis_vertices SET parent_feature = 9"), doesNotFit);
  EXPECT_THAT(ComplaintAfter("UPDATE gis_themes SET type = 'cloud'"), doesNotFit);
  EXPECT_THAT(ComplaintAfter("UPDATE gis_themes SET name = 'x'"), doesNotFit);
  EXPECT_THAT(ComplaintAfter("UPDATE gis_fields SET parent_theme = -1"), doesNotFit);
  EXPECT_THAT(ComplaintAfter("DELETE FROM gis_features WHERE rowid = 3"), doesNotFit);
}

}  // namespace
