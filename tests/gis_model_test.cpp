// The GIS library: tables with nulls, themes with their parts, names that are taken.
#include <gtest/gtest.h>

#include <limits>

#include "model/gis.h"
#include "tests/support/shape_sets.h"

namespace {

using namespace shape_sets;
using gis::CTable;

TEST(GisTable, HoldsEachKindOfValueAndItsNull) {
  CTable table("t");
  table.AddField({"text", FieldType::kText});
  table.AddField({"whole", FieldType::kInteger});
  table.AddField({"real", FieldType::kReal});
  table.AddField({"date", FieldType::kDate});
  table.AddField({"flag", FieldType::kBool});
  const std::vector<Value> row = {std::string_view("Genò"), std::int64_t{-7}, 1.5,
                                  gis::Date{2024, 2, 29}, true};
  table.AddRow(row);
  table.AddRow({});
  for (int i = 0; i < 5; ++i) {
    EXPECT_EQ(table.GetValue(0, i), row[static_cast<std::size_t>(i)]) << i;
    EXPECT_TRUE(gis::IsNull(table.GetValue(1, i))) << i;
    EXPECT_TRUE(gis::IsNull(table.GetValue(2, i))) << i;
  }
}

TEST(GisTable, KeepsNullApartFromEmptyAndZero) {
  CTable table("t");
  table.AddField({"text", FieldType::kText});
  table.AddField({"whole", FieldType::kInteger});
  const std::vector<Value> zero = {std::string_view(""), std::int64_t{0}};
  table.AddRow(zero);
  table.AddRow({});
  EXPECT_EQ(table.GetValue(0, 0), Value(std::string_view("")));
  EXPECT_EQ(table.GetValue(0, 1), Value(std::int64_t{0}));
  EXPECT_TRUE(gis::IsNull(table.GetValue(1, 0)));
  EXPECT_TRUE(gis::IsNull(table.GetValue(1, 1)));
}

TEST(GisTable, TakesWhatIsNoneOfAFieldAsNull) {
  CTable table("t");
  table.AddField({"whole", FieldType::kInteger});
  table.AddField({"real", FieldType::kReal});
  table.AddField({"date", FieldType::kDate});
  const double infinite = std::numeric_limits<double>::infinity();
  table.AddRow(std::vector<Value>{std::string_view("x"), infinite, gis::Date{2023, 2, 29}});
  for (int i = 0; i < 3; ++i) EXPECT_TRUE(gis::IsNull(table.GetValue(0, i))) << i;
}

TEST(GisTable, AFieldAddedLaterHasNulls) {
  CTable table("t");
  table.AddField({"a", FieldType::kInteger});
  table.AddRow(std::vector<Value>{std::int64_t{1}});
  table.AddField({"b", FieldType::kText});
  table.AddRow(std::vector<Value>{std::int64_t{2}, std::string_view("x")});
  EXPECT_TRUE(gis::IsNull(table.GetValue(0, 1)));
  EXPECT_EQ(Text(table.GetValue(1, 1)), "x");
  EXPECT_EQ(table.FindField("B"), 1);
  EXPECT_EQ(table.FindField("c"), -1);
}

TEST(GisTable, WholeNumbersBecomeRealsWithTheirNulls) {
  CTable table("t");
  table.AddField({"a", FieldType::kInteger});
  table.AddRow(std::vector<Value>{std::int64_t{3}});
  table.AddRow({});
  table.MakeReal(0, 2);
  table.AddRow(std::vector<Value>{1.25});
  EXPECT_EQ(table.GetField(0).type, FieldType::kReal);
  EXPECT_EQ(table.GetValue(0, 0), Value(3.0));
  EXPECT_TRUE(gis::IsNull(table.GetValue(1, 0)));
  EXPECT_EQ(table.GetValue(2, 0), Value(1.25));
}

TEST(GisDate, KnowsTheCalendar) {
  EXPECT_TRUE(gis::IsValid({2024, 2, 29}));
  EXPECT_TRUE(gis::IsValid({2000, 2, 29}));
  EXPECT_FALSE(gis::IsValid({1900, 2, 29}));
  EXPECT_FALSE(gis::IsValid({2024, 4, 31}));
  EXPECT_FALSE(gis::IsValid({2024, 13, 1}));
  EXPECT_FALSE(gis::IsValid({0, 1, 1}));
}

TEST(GisTheme, KnowsItsFeaturesPartsAndVertices) {
  ThemeMaker made("lines", EntityType::kLine, /*is3D=*/true, /*hasMeasures=*/true);
  made.Feature({{{1, 2, 3, 4}, {5, 6, 7, 8}}, {{9, 10, 11, 12}}}).Feature({}).Feature({{{13, 14}}});
  const gis::CTheme& theme = made.Theme();
  EXPECT_EQ(theme.GetNumFeatures(), 3);
  EXPECT_EQ(theme.GetNumParts(0), 2);
  EXPECT_EQ(theme.GetNumParts(1), 0);
  EXPECT_EQ(theme.GetPart(0, 1).first, 2U);
  EXPECT_EQ(theme.GetFeature(0).Size(), 3U);
  EXPECT_EQ(theme.GetFeature(1).Size(), 0U);
  EXPECT_EQ(theme.GetVertex(1).m, 8);
  EXPECT_FALSE(IsDefined(theme.GetVertex(3).z));
}

TEST(GisTheme, HasNoHeightsIn2D) {
  ThemeMaker made;
  made.Feature({{{1, 2, 3, 4}}});
  EXPECT_TRUE(made.Theme().Zs().empty());
  EXPECT_FALSE(IsDefined(made.Theme().GetPoint(0).getZ()));
}

TEST(GisLibrary, RefusesANameThatIsTakenInAnyLetters) {
  ThemeMaker made("Points");
  gis::CLibGis& library = made.library;
  const auto theme = [](const char* name) {
    return std::make_unique<gis::CTheme>(name, EntityType::kLine, false, false);
  };
  EXPECT_EQ(library.AddTheme(theme("POINTS"), false), nullptr);
  EXPECT_EQ(library.AddTable(std::make_unique<CTable>("points"), false), nullptr);
  EXPECT_NE(library.AddTheme(theme("lines"), false), nullptr);
  EXPECT_EQ(library.GetNumThemes(), 2);
  EXPECT_EQ(library.GetTheme(2), nullptr);
  EXPECT_EQ(library.FindTheme("LINES"), library.GetTheme(1));
  library.SetThemeTargetDrawing(library.GetTheme(1), 4);
  EXPECT_EQ(library.GetThemeTargetDrawing(library.GetTheme(1)), 4);
}

TEST(GisMerger, GivesATableTheNextFreeNameAndRefusesATheme) {
  ThemeMaker made("points");
  gis::CGisMerger merger(&made.library);
  tdk::WString name = "points";
  EXPECT_TRUE(merger.OnBeforeLoadTable(name));
  EXPECT_EQ(name, "points_1");
  EXPECT_TRUE(merger.OnAfterLoadTable(std::make_unique<CTable>(name)));
  EXPECT_NE(merger.GetTable("points_1"), nullptr);
  name = "points";
  EXPECT_TRUE(merger.OnBeforeLoadTable(name));
  EXPECT_EQ(name, "points_2");
  name = "points";
  EXPECT_FALSE(merger.OnLoadTheme(name));
  name = "lines";
  EXPECT_TRUE(merger.OnLoadTheme(name));
}

}  // namespace
