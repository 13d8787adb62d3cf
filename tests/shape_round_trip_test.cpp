// What a theme holds comes back from its files: every kind of shape, dimension and value.
#include "tests/support/shape_sets.h"

namespace {

using namespace shape_sets;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::IsSupersetOf;
using testing::Not;

using ShapeRoundTrip = Sets;

void ExpectSameShapes(const gis::CTheme& a, const gis::CTheme& b) {
  EXPECT_EQ(a.GetType(), b.GetType());
  EXPECT_EQ(a.Is3D(), b.Is3D());
  EXPECT_EQ(a.HasMeasures(), b.HasMeasures());
  ASSERT_EQ(a.GetNumFeatures(), b.GetNumFeatures());
  for (int f = 0; f < a.GetNumFeatures(); ++f) {
    ASSERT_EQ(a.GetNumParts(f), b.GetNumParts(f)) << f;
    for (int p = 0; p < a.GetNumParts(f); ++p) {
      EXPECT_EQ(a.GetPart(f, p).Size(), b.GetPart(f, p).Size()) << f << ' ' << p;
    }
  }
  EXPECT_EQ(a.Xs(), b.Xs());
  EXPECT_EQ(a.Ys(), b.Ys());
  EXPECT_EQ(a.Zs(), b.Zs());
  EXPECT_EQ(a.Ms(), b.Ms());
}

struct Kind {
  EntityType type;
  bool is3D;
  bool hasMeasures;
};

class ShapeKinds : public Sets, public testing::WithParamInterface<Kind> {};

TEST_P(ShapeKinds, ComeBackWithNullShapesAndParts) {
  const auto [type, is3D, hasMeasures] = GetParam();
  ThemeMaker made("kinds", type, is3D, hasMeasures);
  made.Field("ID", FieldType::kInteger);
  const auto vertex = [](double n) { return gis::Vertex{n, n + 0.25, n + 0.5, n + 0.75}; };
  if (type == EntityType::kPoint) {
    made.Feature({{vertex(1)}}).Feature({}).Feature({{vertex(-7.125)}});
  } else if (type == EntityType::kLine) {
    made.Feature({{vertex(1), vertex(2)}, {vertex(5), vertex(4), vertex(3)}}).Feature({});
  } else {
    made.Feature({Square(0, 0, 10), Square(2, 2, 3, /*isClockwise=*/false), Square(20, 0, 5)});
  }
  if (type == EntityType::kPolygon && is3D) {
    GTEST_SKIP() << "squares have no heights";
  }
  if (type == EntityType::kPolygon && hasMeasures) GTEST_SKIP() << "nor measures";
  ExpectSameShapes(Again(made), made.Theme());
}

INSTANTIATE_TEST_SUITE_P(
    All, ShapeKinds,
    testing::Values(Kind{EntityType::kPoint, false, false}, Kind{EntityType::kPoint, true, false},
                    Kind{EntityType::kPoint, false, true}, Kind{EntityType::kPoint, true, true},
                    Kind{EntityType::kLine, false, false}, Kind{EntityType::kLine, true, false},
                    Kind{EntityType::kLine, false, true}, Kind{EntityType::kLine, true, true},
                    Kind{EntityType::kPolygon, false, false}));

TEST_F(ShapeRoundTrip, PolygonsInSpaceKeepTheirHeightsWhenTheyAreTurned) {
  ThemeMaker made("walls", EntityType::kPolygon, /*is3D=*/true);
  made.Feature({{{0, 0, 1}, {4, 0, 2}, {4, 4, 3}, {0, 0, 1}}});  // counter-clockwise
  const gis::CTheme& again = Again(made);
  EXPECT_THAT(again.Xs(), ElementsAre(0, 4, 4, 0));
  EXPECT_THAT(again.Zs(), ElementsAre(1, 3, 2, 1));
}

TEST_F(ShapeRoundTrip, SeveralPointsInAFeatureMakeAFileOfThem) {
  ThemeMaker made("groups", EntityType::kPoint, /*is3D=*/true);
  made.Feature({{{1, 2, 3}, {4, 5, 6}}}).Feature({{{7, 8, 9}}});
  ExpectSameShapes(Again(made), made.Theme());
}

TEST_F(ShapeRoundTrip, EveryKindOfValueComesBackAndItsNull) {
  ThemeMaker made;
  made.Field("TEXT", FieldType::kText, 20).Field("WHOLE", FieldType::kInteger, 6);
  made.Field("REAL", FieldType::kReal, 12, 3).Field("DAY", FieldType::kDate);
  made.Field("FLAG", FieldType::kBool);
  const std::vector<Value> row = {std::string_view("città"), std::int64_t{-12345}, -1234.5,
                                  gis::Date{1899, 12, 31}, false};
  made.Row(row).Row({}).Row(
      {std::string_view(" x"), std::int64_t{0}, 0.0, gis::Date{1, 1, 1}, true});
  const gis::CTable& table = *Again(made).GetTable();
  ASSERT_EQ(table.GetNumFields(), 5);
  for (int i = 0; i < 5; ++i) {
    EXPECT_EQ(table.GetField(i).type, made.Table().GetField(i).type) << i;
    EXPECT_EQ(table.GetField(i).name, made.Table().GetField(i).name) << i;
    EXPECT_EQ(table.GetValue(0, i), row[static_cast<std::size_t>(i)]) << i;
    EXPECT_TRUE(gis::IsNull(table.GetValue(1, i))) << i;
    EXPECT_EQ(table.GetValue(2, i), made.Table().GetValue(2, i)) << i;
  }
  EXPECT_EQ(table.GetField(0).width, 20);
  EXPECT_EQ(table.GetField(2).decimals, 3);
}

TEST_F(ShapeRoundTrip, RealsWithoutDecimalsOfTheirOwnComeBackToTheLastBit) {
  ThemeMaker made;
  made.Field("R", FieldType::kReal);
  const std::vector<double> numbers = {
      0.1 + 0.2, 1e-300, -1.7976931348623157e308, 123456.789, 5e-324, 1e22, -0.5};
  for (const double number : numbers) made.Row({number});
  const gis::CTable& table = *Again(made).GetTable();
  for (int i = 0; i < table.GetNumRows(); ++i) {
    EXPECT_EQ(table.GetValue(i, 0), Value(numbers[static_cast<std::size_t>(i)])) << i;
  }
}

TEST_F(ShapeRoundTrip, NumbersWidenTheirField) {
  ThemeMaker made;
  made.Field("W", FieldType::kInteger, 3).Field("R", FieldType::kReal, 6, 2);
  made.Row({std::int64_t{123456}, 123456.78}).Row({std::int64_t{-123456}, -1e15});
  const gis::CTable& table = *Again(made).GetTable();
  EXPECT_EQ(table.GetValue(0, 0), Value(std::int64_t{123456}));
  EXPECT_EQ(table.GetValue(1, 0), Value(std::int64_t{-123456}));
  EXPECT_EQ(table.GetValue(0, 1), Value(123456.78));
  EXPECT_EQ(table.GetValue(1, 1), Value(-1e15));
  EXPECT_EQ(table.GetField(0).width, 7);
}

TEST_F(ShapeRoundTrip, TheLargestWholeNumbersStayWhole) {
  ThemeMaker made;
  made.Field("W", FieldType::kInteger);
  constexpr std::int64_t kMost = std::numeric_limits<std::int64_t>::max();
  made.Row({kMost}).Row({-kMost}).Row({std::int64_t{999999999999999999}});
  const gis::CTable& table = *Again(made).GetTable();
  for (int i = 0; i < 3; ++i) EXPECT_EQ(table.GetValue(i, 0), made.Table().GetValue(i, 0)) << i;
}

TEST_F(ShapeRoundTrip, TheReferenceSystemComesBackAsItIs) {
  ThemeMaker made;
  made.Row({});
  made.Theme().SetReferenceSystem("PROJCS[\"x\"]\n");
  EXPECT_EQ(Again(made).GetReferenceSystem(), "PROJCS[\"x\"]\n");
}

TEST_F(ShapeRoundTrip, FlatFilesHaveNoHeightsAndFilesInSpaceHaveThem) {
  ThemeMaker made("z", EntityType::kPoint, /*is3D=*/true);
  made.Feature({{{1, 2, 3}}});
  EXPECT_FALSE(Again(made, kShape2D).Is3D());
  ThemeMaker flat("flat");
  flat.Feature({{{1, 2}}});
  const ShapeOutcome written = Export(flat, kShape3D);
  EXPECT_THAT(Texts(written.notes),
              Contains("vertices without a height, written with height 0: 1"));
  Import("flat.shp");
  EXPECT_TRUE(Last().Is3D());
  EXPECT_EQ(Last().GetVertex(0).z, 0);
}

TEST_F(ShapeRoundTrip, FeaturesWithoutCoordinatesAreNullShapes) {
  ThemeMaker made;
  made.Feature({{{UndefinedValue, 2}}}).Feature({{{1, 2}}});
  const ShapeOutcome written = Export(made);
  EXPECT_THAT(Texts(written.notes),
              Contains("features without coordinates, written as null shapes: 1"));
  Import("theme.shp");
  EXPECT_EQ(Last().GetNumParts(0), 0);
  EXPECT_EQ(Last().GetNumParts(1), 1);
}

TEST_F(ShapeRoundTrip, AnEmptyThemeIsAnEmptyFile) {
  ThemeMaker made("empty", EntityType::kLine);
  made.Field("A", FieldType::kText);
  const gis::CTheme& again = Again(made);
  EXPECT_EQ(again.GetNumFeatures(), 0);
  EXPECT_EQ(again.GetType(), EntityType::kLine);
  EXPECT_EQ(again.GetTable()->GetNumFields(), 1);
}

TEST_F(ShapeRoundTrip, AThemeWithoutFieldsIsNumbered) {
  ThemeMaker made;
  made.Row({}).Row({});
  const gis::CTable& table = *Again(made).GetTable();
  ASSERT_EQ(table.GetNumFields(), 1);
  EXPECT_EQ(table.GetField(0).name, "ID");
  EXPECT_EQ(table.GetValue(1, 0), Value(std::int64_t{2}));
}

}  // namespace
