// Tables as dBASE can hold them: names, widths, cut texts, the marks in the file.
#include <ctime>

#include "host/gis/dbf_layout.h"
#include "host/gis/field_names.h"
#include "host/gis/set_sizes.h"
#include "host/gis/shp_writer.h"
#include "tests/support/shape_sets.h"

namespace {

using namespace shape_sets;
using shape::ShortNames;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;

using ShapeTableWrite = Sets;

TEST(ShapeFieldNames, AreCutAndMadeUnlikeEachOther) {
  EXPECT_THAT(ShortNames({"DescrizionePunto", "DescrizionePrisma", "descrizion3"}),
              ElementsAre("Descrizion", "Descrizi_1", "descrizi_2"));
}

TEST(ShapeFieldNames, StayWhereTheyCan) {
  EXPECT_THAT(ShortNames({"DescrizionePunto", "DESCRIZION"}),
              ElementsAre("Descrizi_1", "DESCRIZION"));
  EXPECT_THAT(ShortNames({"a", "A", ""}), ElementsAre("a", "A_1", "FIELD"));
}

TEST(ShapeFieldNames, AreNeverCutWithinALetter) {
  EXPECT_THAT(ShortNames({"Proprietàà", "àààààà"}), ElementsAre("Proprietà", "ààààà"));
}

TEST(ShapeFieldNames, OfManyAlikeAreAllDifferent) {
  std::vector<std::string> names(300, "abcdefghijkl");
  std::vector<std::string> made = ShortNames(names);
  for (const std::string& name : made) EXPECT_LE(name.size(), 10U);
  std::sort(made.begin(), made.end());
  EXPECT_EQ(std::adjacent_find(made.begin(), made.end()), made.end());
}

TEST_F(ShapeTableWrite, TellsTheOldNameAndTheNew) {
  ThemeMaker made;
  made.Field("DescrizionePunto", FieldType::kText).Row({std::string_view("x")});
  EXPECT_THAT(Texts(Export(made).notes),
              Contains("field \"DescrizionePunto\" is called \"Descrizion\" in the file"));
}

TEST_F(ShapeTableWrite, CutsTextsAtACharacterAndCountsThem) {
  ThemeMaker made;
  made.Field("T", FieldType::kText);
  made.Row({std::string_view("àèìòùàèìòùàè")}).Row({std::string_view("short")});
  EXPECT_THAT(Texts(Export(made, kShapeAsTheme, 10).notes),
              Contains("texts of field T that were cut: 1"));
  Import("theme.shp");
  EXPECT_EQ(Text(ValueOf(0, 0)), "àèìòùàèìòù");
  EXPECT_EQ(Text(ValueOf(1, 0)), "short");
}

TEST_F(ShapeTableWrite, HasNoTextOfMoreThan254Bytes) {
  ThemeMaker made;
  made.Field("T", FieldType::kText, 300);
  std::string letters;
  for (int i = 0; i < 250; ++i) letters += "è";
  made.Row({std::string_view(letters)});
  const ShapeOutcome written = Export(made);
  EXPECT_TRUE(written.isDone);
  EXPECT_THAT(Texts(written.notes),
              ElementsAre("field T is to have 300 characters, but a text has at most 254 bytes",
                          "texts of field T that were cut: 1"));
  Import("theme.shp");
  EXPECT_EQ(Text(ValueOf(0, 0)), letters.substr(0, 254));
  EXPECT_EQ(Last().GetTable()->GetField(0).width, 254);
}

TEST_F(ShapeTableWrite, AFieldIsNoWiderThanTheMostCharacters) {
  ThemeMaker made;
  made.Field("T", FieldType::kText, 80).Row({std::string_view("abc")});
  Export(made, kShapeAsTheme, 30);
  Import("theme.shp");
  EXPECT_EQ(Last().GetTable()->GetField(0).width, 30);
}

TEST_F(ShapeTableWrite, WritesTodayAndUtf8AndOneEndMark) {
  ThemeMaker made;
  made.Field("T", FieldType::kText).Row({std::string_view("x")});
  Export(made);
  const std::string dbf = ReadBytes(folder.File("theme.dbf"));
  const std::time_t now = std::time(nullptr);
  std::tm today{};
  localtime_r(&now, &today);
  EXPECT_NEAR(static_cast<unsigned char>(dbf[1]), today.tm_year, 1);
  EXPECT_NE(dbf.substr(1, 3), "\x5F\x07\x1A");  // what the library would have written
  EXPECT_EQ(dbf.substr(dbf.size() - 3), " x\x1A");
  EXPECT_EQ(ReadBytes(folder.File("theme.cpg")), "UTF-8");
}

TEST_F(ShapeTableWrite, NumbersHaveAPointUnderAnyLocale) {
  ThemeMaker made;
  made.Field("R", FieldType::kReal, 8, 2).Row({1.75});
  Export(made);
  EXPECT_THAT(ReadBytes(folder.File("theme.dbf")), HasSubstr("     1.75\x1A"));
}

TEST_F(ShapeTableWrite, NumbersHaveTwentyCharactersWhereTheyCanAndMoreIsTold) {
  ThemeMaker made;
  made.Field("R", FieldType::kReal, 6, 2).Field("S", FieldType::kReal);
  made.Row({1e30, -1.7976931348623157e308}).Row({-0.5, 0.1 + 0.2});
  EXPECT_THAT(Texts(Export(made).notes),
              ElementsAre("field S has numbers of more than 20 characters, which some programs "
                          "cannot read"));
  Import("theme.shp");
  EXPECT_EQ(Last().GetTable()->GetField(0).width, 20);
  EXPECT_EQ(Last().GetTable()->GetField(1).width, 24);
  EXPECT_EQ(ValueOf(0, 0), Value(1e30));
  EXPECT_EQ(ValueOf(0, 1), Value(-1.7976931348623157e308));
  EXPECT_EQ(ValueOf(1, 1), Value(0.1 + 0.2));
}

TEST_F(ShapeTableWrite, NullsAreBlanksZerosAndAQuestionMark) {
  ThemeMaker made;
  made.Field("N", FieldType::kInteger, 3).Field("T", FieldType::kText, 2);
  made.Field("D", FieldType::kDate).Field("L", FieldType::kBool).Row({});
  Export(made);
  EXPECT_THAT(ReadBytes(folder.File("theme.dbf")), HasSubstr("\r      00000000?\x1A"));
}

TEST_F(ShapeTableWrite, RefusesMoreThanATableCanHave) {
  ThemeMaker made;
  for (int i = 0; i < 256; ++i) {
    made.Field(("F" + std::to_string(i)).c_str(), FieldType::kInteger);
  }
  const ShapeOutcome written = Export(made);
  EXPECT_FALSE(written.isDone);
  EXPECT_EQ(written.result, kShapeTableFailed);
  EXPECT_THAT(folder.Names(), ElementsAre());
}

TEST_F(ShapeTableWrite, RefusesARecordThatIsTooLong) {
  ThemeMaker made;
  const std::string text(254, 'x');
  std::vector<Value> row;
  for (int i = 0; i < 250; ++i) {
    made.Field(("F" + std::to_string(i)).c_str(), FieldType::kText, 254);
    row.push_back(std::string_view(text));
  }
  made.Row(row);
  EXPECT_TRUE(Export(made).isDone);  // 63,501 bytes
  for (int i = 250; i < 255; ++i) {
    made.Field(("F" + std::to_string(i)).c_str(), FieldType::kText, 254);
  }
  EXPECT_TRUE(Export(made).isDone);  // 64,771
  const shape::DbfLayout tooLong{{}, 65536};
  EXPECT_FALSE(tooLong.Fits());
}

TEST(ShapeFileSize, IsKnownBeforeItIsWritten) {
  const auto point = *shape::KindOf(11);
  EXPECT_EQ(shape::ShpSize(point, true, 3, 0, 3), 100U + 3 * 44);
  EXPECT_GT(shape::ShpSize(point, true, 100'000'000, 0, 100'000'000), shape::kLargestFile);
  const auto line = *shape::KindOf(3);
  EXPECT_EQ(shape::ShpSize(line, false, 1, 2, 5), 100U + 8 + 44 + 2 * 4 + 5 * 16);
}

TEST(ShapeFileSize, OfMoreThanTwoGigabytesIsToldAndOfMoreThanFourRefused) {
  constexpr std::uint64_t kTwo = std::uint64_t{2} << 30;
  constexpr std::uint64_t kFour = std::uint64_t{4} << 30;
  const auto check = [](const shape::SetSizes& sizes, int failed, const std::string& said) {
    shape::Remarks remarks;
    EXPECT_EQ(shape::CheckSizes(sizes, remarks), failed) << sizes.shp << ' ' << sizes.dbf;
    const std::string first = remarks.empty() ? "" : remarks[0].ToUtf8();
    EXPECT_EQ(first.empty(), said.empty());
    EXPECT_THAT(first, HasSubstr(said));
  };
  check({kTwo - 1, kTwo - 1}, 0, "");
  check({kTwo, 0}, 0, "its .shp file has more than 2 GB");
  check({0, kTwo}, 0, "its .dbf file has more than 2 GB");
  check({kFour - 2, 0}, 0, "more than 2 GB");
  check({kFour, 0}, kShapeFileFailed, "a .shp file of more than 4 GB cannot be");
  check({0, kFour}, kShapeTableFailed, "a .dbf file of more than 4 GB cannot be");
  check({0, 0, 50'000'001}, 0, "50 million vertices");
}

TEST_F(ShapeTableWrite, ATableOfMoreThanFourGigabytesIsRefusedBeforeItIsWritten) {
  ThemeMaker made;
  for (int i = 0; i < 255; ++i) {
    made.Field(("F" + std::to_string(i)).c_str(), FieldType::kText, 254);
  }
  for (int i = 0; i < 66'400; ++i) made.Theme().AddFeature();
  const ShapeOutcome written = Export(made, kShapeAsTheme, 254);
  EXPECT_EQ(written.result, kShapeTableFailed);
  EXPECT_THAT(folder.Names(), ElementsAre());
}

TEST_F(ShapeTableWrite, TheSizeThatIsReckonedIsTheFiles) {
  ThemeMaker made("walls", EntityType::kPolygon, /*is3D=*/true, /*hasMeasures=*/true);
  made.Feature({{{0, 0, 1, 2}, {0, 4, 1, 2}, {4, 4, 1, 2}, {0, 0, 1, 2}}}).Feature({});
  Export(made);
  const shape::ShpLayout layout = shape::LayOut(made.Theme(), /*withHeights=*/true);
  EXPECT_GE(layout.size, std::filesystem::file_size(folder.File("walls.shp")));
  shape::Remarks unused;
  const shape::DbfLayout table = shape::LayOut(&made.Table(), 250, unused);
  EXPECT_EQ(table.SizeOf(2), std::filesystem::file_size(folder.File("walls.dbf")));
}

}  // namespace
