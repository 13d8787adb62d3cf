// Tables of other programs: encodings, numbers as they write them, records that are not there.
#include "tests/support/shape_sets.h"

namespace {

using namespace shape_sets;
using testing::Contains;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

class ShapeTableRead : public Sets {
 protected:
  /// A set of as many points as the table has records.
  void Write(const std::string& dbf, int points, const char* label = nullptr) {
    std::vector<std::string> contents(static_cast<std::size_t>(points), PointContent(1, 2));
    folder.Write("s.shp", ShpFile(1, contents));
    folder.Write("s.dbf", dbf);
    if (label != nullptr) folder.Write("s.cpg", label);
  }
  ShapeOutcome Read() { return Import("s.shp"); }
  /// One text in these bytes, and what it is read as.
  std::string Converted(const std::string& bytes, int language, const char* label = nullptr) {
    Write(DbfFile({{"T", 'C', static_cast<int>(bytes.size())}}, {" " + bytes}, language), 1, label);
    gis::CLibGis other;
    outcome = files.Import({&other, tdk::WString(folder.File("s.shp")), nullptr, nullptr, {}});
    std::filesystem::remove(folder.File("s.cpg"));
    return outcome.isDone ? Text(other.GetTheme(0)->GetTable()->GetValue(0, 0)) : "(not read)";
  }
  /// One number in a field of that kind and these decimals.
  Value Number(const std::string& text, int decimals = 0) {
    Write(DbfFile({{"N", 'N', static_cast<int>(text.size()), decimals}}, {" " + text}), 1);
    gis::CLibGis other;
    outcome = files.Import({&other, tdk::WString(folder.File("s.shp")), nullptr, nullptr, {}});
    return outcome.isDone ? Copy(other.GetTheme(0)->GetTable()->GetValue(0, 0))
                          : Value(gis::Date());
  }
  static Value Copy(const Value& value) { return value.index() == 1 ? Value() : value; }

  ShapeOutcome outcome;
};

TEST_F(ShapeTableRead, GoesByTheLabelThenTheLanguageByteThenTheText) {
  EXPECT_EQ(Converted("\xE8", 0x57), "è");          // Windows-1252
  EXPECT_EQ(Converted("\x8A", 0x02), "è");          // 850
  EXPECT_EQ(Converted("\xE8", 0xC9), "и");          // Windows-1251
  EXPECT_EQ(Converted("\xE8", 0x02, "1252"), "è");  // the label wins
  EXPECT_EQ(Converted("\xE8", 0, "ISO 88591"), "è");
  EXPECT_EQ(Converted("\xE8", 0, "ANSI 1252\r\n"), "è");
  EXPECT_EQ(Converted("\xC3\xA8", 0x57, "UTF-8"), "è");

  EXPECT_EQ(Converted("\xC3\xA8", 0x57, "65001"), "è");
  EXPECT_EQ(Converted("\xC3\xA8", 0), "è");  // nothing tells: it is UTF-8
  EXPECT_EQ(Converted("\xE8", 0), "è");      // and this is none
}

TEST_F(ShapeTableRead, ALabelMayBeRubbish) {
  EXPECT_EQ(Converted("\x8A", 0x02, "%&//TRANSLIT"), "è");
  EXPECT_THAT(Texts(outcome.notes), Contains("the .cpg file names no encoding that is known"));
  EXPECT_EQ(Converted("\x8A", 0x02, "no such encoding"), "è");
  EXPECT_EQ(Converted("\x8A", 0x02, ""), "è");
}

TEST_F(ShapeTableRead, ALabelOfMuchRubbishIsToldAndAByteOrderMarkIsNone) {
  const std::string rubbish(5000, 'x');
  EXPECT_EQ(Converted("\x8A", 0x02, rubbish.c_str()), "è");
  EXPECT_THAT(Texts(outcome.notes), Contains("the .cpg file names no encoding that is known"));
  EXPECT_EQ(Converted("\xC3\xA8", 0x57, "\xEF\xBB\xBFUTF-8\r\n"), "è");
  EXPECT_EQ(outcome.encoding, "UTF-8");
}

TEST_F(ShapeTableRead, TextThatIsNoUtf8IsTakenAsWindows1252AndCounted) {
  EXPECT_EQ(Converted("caff\xE8", 0, "UTF-8"), "caffè");
  EXPECT_THAT(Texts(outcome.notes), Contains("texts that are no UTF-8, taken as Windows-1252: 1"));
}

TEST_F(ShapeTableRead, NumbersMayHaveACommaOrAnExponentOrAPlus) {
  EXPECT_EQ(Number("  1,75", 2), Value(1.75));
  EXPECT_EQ(Number("1.75  ", 2), Value(1.75));
  EXPECT_EQ(Number(" 1.75E+02", 2), Value(175.0));
  EXPECT_EQ(Number("+12"), Value(std::int64_t{12}));
  EXPECT_EQ(Number("12.00"), Value(std::int64_t{12}));
  EXPECT_EQ(Number("0012"), Value(std::int64_t{12}));
}

TEST_F(ShapeTableRead, ANumberThatIsNoneIsNullAndCounted) {
  for (const char* const text : {"nan", "inf", "1e999", "9e199", "0x10", "1 2", "-", "."}) {
    EXPECT_TRUE(gis::IsNull(Number(text, 2))) << text;
    EXPECT_THAT(Texts(outcome.notes),
                Contains("field N has values that are none of its kind, left empty: 1"))
        << text;
  }
}

TEST_F(ShapeTableRead, NullsAreBlanksAndStars) {
  for (const char* const text : {"    ", "****"}) {
    EXPECT_TRUE(gis::IsNull(Number(text)));
    EXPECT_THAT(Texts(outcome.notes), Not(Contains(HasSubstr("none of its kind"))));
  }
  EXPECT_EQ(Number("0"), Value(std::int64_t{0}));
}

TEST_F(ShapeTableRead, WholeNumbersThatAreNoneMakeTheFieldOneOfReals) {
  Write(DbfFile({{"N", 'N', 4}}, {"   12", "  1.5", "     "}), 3);
  ASSERT_TRUE(Read().isDone);
  EXPECT_EQ(Last().GetTable()->GetField(0).type, FieldType::kReal);
  EXPECT_EQ(ValueOf(0, 0), Value(12.0));
  EXPECT_EQ(ValueOf(1, 0), Value(1.5));
  EXPECT_TRUE(gis::IsNull(ValueOf(2, 0)));
}

TEST_F(ShapeTableRead, DatesAndFlags) {
  Write(DbfFile({{"D", 'D', 8}, {"L", 'L', 1}}, {" 20240229T", " 20230229f", " 00000000?",
                                                 "          ", " 2024010Xx", " 18991231y"}),
        6);
  const ShapeOutcome read = Read();
  EXPECT_EQ(ValueOf(0, 0), Value(gis::Date{2024, 2, 29}));
  EXPECT_EQ(ValueOf(0, 1), Value(true));
  EXPECT_EQ(ValueOf(1, 1), Value(false));
  for (int row = 1; row < 5; ++row) EXPECT_TRUE(gis::IsNull(ValueOf(row, 0))) << row;
  EXPECT_EQ(ValueOf(5, 0), Value(gis::Date{1899, 12, 31}));
  EXPECT_THAT(Texts(read.notes),
              Contains("field D has values that are none of its kind, left empty: 2"));
  EXPECT_THAT(Texts(read.notes),
              Contains("field L has values that are none of its kind, left empty: 1"));
}

TEST_F(ShapeTableRead, BinaryNumbersOfYoungerTables) {
  std::string record(" ");
  PutLittle(record, static_cast<std::uint32_t>(-5));
  PutDouble(record, 2.5);
  Write(DbfFile({{"I", 'I', 4}, {"O", 'O', 8}}, {record}), 1);
  Read();
  EXPECT_EQ(ValueOf(0, 0), Value(std::int64_t{-5}));
  EXPECT_EQ(ValueOf(0, 1), Value(2.5));
}

TEST_F(ShapeTableRead, AKindThatIsNotKnownIsTextAndTold) {
  Write(DbfFile({{"M", 'M', 10}}, {"         12"}), 1);
  EXPECT_THAT(Texts(Read().notes),
              Contains("field M is of a kind that is not known (M), taken as text"));
  EXPECT_EQ(Text(ValueOf(0, 0)), "        12");
}

TEST_F(ShapeTableRead, ATableThatLiesAboutItsRecordsCostsNothing) {
  Write(DbfFile({{"A", 'C', 1}}, {" x"}, 0, 2147483647U), 1);
  EXPECT_THAT(Texts(Read().notes),
              Contains("the table says that it has 2147483647 records, but there are 1"));
  EXPECT_EQ(Last().GetNumFeatures(), 1);
}

TEST_F(ShapeTableRead, ShapesAndRecordsAreJoinedByPositionAndTheSurplusIsTold) {
  const std::string dbf = DbfFile({{"A", 'C', 1}}, {" x", " y"});
  Write(dbf, 3);
  EXPECT_THAT(Texts(Read().notes), Contains("shapes without a record in the table: 1"));
  EXPECT_EQ(Last().GetNumFeatures(), 3);
  EXPECT_TRUE(gis::IsNull(ValueOf(2, 0)));
  folder.Write("t.shp", ShpFile(1, {PointContent(1, 2)}));
  folder.Write("t.dbf", dbf);
  EXPECT_THAT(Texts(Import("t.shp").notes), Contains("records of the table without a shape: 1"));
  EXPECT_EQ(Last().GetNumFeatures(), 2);
  EXPECT_EQ(Last().GetNumParts(1), 0);
  EXPECT_EQ(Text(ValueOf(1, 0)), "y");
}

TEST_F(ShapeTableRead, DeletedRecordsGoWithTheirShapes) {
  folder.Write("s.shp", ShpFile(1, {PointContent(1, 1), PointContent(2, 2), PointContent(3, 3)}));
  folder.Write("s.dbf", DbfFile({{"A", 'C', 1}}, {" x", "*y", " z"}));
  EXPECT_THAT(Texts(Read().notes), Contains("records marked as deleted, left out: 1"));
  ASSERT_EQ(Last().GetNumFeatures(), 2);
  EXPECT_EQ(Last().GetVertex(1).x, 3);
  EXPECT_EQ(Text(ValueOf(1, 0)), "z");
}

TEST_F(ShapeTableRead, TheFieldsOfATableAreTold) {
  const std::string path =
      folder.Write("t.dbf", DbfFile({{"Et\x82", 'C', 1}, {"N", 'N', 3}}, {}, 1));
  std::vector<tdk::WString> fields;
  EXPECT_TRUE(files.FieldsOf(tdk::WString(path), fields));
  EXPECT_THAT(Texts(fields), testing::ElementsAre("Eté", "N"));
  fields.clear();
  EXPECT_FALSE(files.FieldsOf(tdk::WString(folder.File("none.dbf")), fields));
  EXPECT_FALSE(files.FieldsOf(tdk::WString(folder.Write("bad.dbf", "x")), fields));
  EXPECT_THAT(fields, IsEmpty());
}

}  // namespace
