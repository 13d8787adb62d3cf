// Indexes that are missing or wrong, files that break off or lie: never a crash, never half a
// theme.
#include <random>

#include "host/gis/dbf_reader.h"
#include "tests/support/random.h"
#include "tests/support/shape_sets.h"

namespace {

using namespace shape_sets;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class ShapeDamage : public Sets {
 protected:
  /// A set of lines in space with a table, and its bytes.
  void WriteGood() {
    ThemeMaker made("good", EntityType::kLine, /*is3D=*/true);
    made.Field("NAME", FieldType::kText, 8).Field("N", FieldType::kReal, 8, 2);
    for (int i = 0; i < 5; ++i) {
      made.Feature({{{1.0 * i, 2, 3}, {4, 5.0 * i, 6}}, {{7, 8, 9}, {1, 1, 1.0 * i}}},
                   {std::string_view("wall"), 1.5 * i});
    }
    ASSERT_TRUE(Export(made).isDone);
    shp = ReadBytes(folder.File("good.shp"));
    dbf = ReadBytes(folder.File("good.dbf"));
    shx = ReadBytes(folder.File("good.shx"));
  }
  ShapeOutcome ReadWith(const std::string& newShp, const std::string& newDbf) {
    gis::CLibGis fresh;
    TemporaryFolder place;
    const std::string path = place.Write("x.shp", newShp);
    place.Write("x.dbf", newDbf);
    const ShapeOutcome read =
        files.Import({&fresh, tdk::WString(path), nullptr, nullptr, {true, 0, 1}});
    EXPECT_EQ(fresh.GetNumThemes(), read.isDone ? 1 : 0);
    EXPECT_EQ(fresh.GetNumTables(), read.isDone ? 1 : 0);
    EXPECT_EQ(read.result, read.isDone ? kShapeImported : kShapeInconsistent);
    return read;
  }

  std::string shp;
  std::string dbf;
  std::string shx;
};

TEST_F(ShapeDamage, AnIndexIsRebuiltWhenItIsMissingShortOrWrong) {
  WriteGood();
  const std::string bad[] = {"", "x", shx.substr(0, 108), std::string(shx.size(), '\xFF'),
                             shx.substr(0, 100) + std::string(40, '\0')};
  std::filesystem::remove(folder.File("good.shx"));
  for (const std::string& index : bad) {
    gis::CLibGis fresh;
    const ShapeOutcome read =
        files.Import({&fresh, tdk::WString(folder.File("good.shp")), nullptr, nullptr, {}});
    ASSERT_TRUE(read.isDone);
    EXPECT_EQ(fresh.GetTheme(0)->GetNumFeatures(), 5);
    EXPECT_THAT(Texts(read.notes), Contains(HasSubstr("(.shx)")));
    folder.Write("good.shx", index);
  }
}

TEST_F(ShapeDamage, AGoodIndexIsUsedAndNotMentioned) {
  WriteGood();
  EXPECT_THAT(Import("good.shp").notes, IsEmpty());
}

TEST_F(ShapeDamage, AnIndexInAnOrderOfItsOwnIsFollowed) {
  WriteGood();
  std::string turned = shx.substr(0, 100);
  for (int i = 4; i >= 0; --i) turned += shx.substr(100 + 8 * static_cast<std::size_t>(i), 8);
  folder.Write("good.shx", turned);
  EXPECT_TRUE(Import("good.shp").isDone);
  EXPECT_EQ(Last().GetVertex(0).x, 4);
}

TEST_F(ShapeDamage, AShapeFileCutAnywhereIsRefusedWhole) {
  WriteGood();
  for (std::size_t size = 0; size < shp.size(); size += 3) {
    EXPECT_FALSE(ReadWith(shp.substr(0, size), dbf).isDone) << size;
  }
}

TEST_F(ShapeDamage, ATableCutAnywhereIsRefusedOrItsEndIsMissedAndTold) {
  WriteGood();
  for (std::size_t size = 0; size + 1 < dbf.size(); ++size) {
    const ShapeOutcome read = ReadWith(shp, dbf.substr(0, size));
    if (read.isDone) {
      EXPECT_THAT(Texts(read.notes), Contains(HasSubstr("the table says that it has 5"))) << size;
    }
  }
}

TEST_F(ShapeDamage, WhateverBytesAreChangedItIsReadOrRefused) {
  WriteGood();
  Random random;
  std::mt19937_64 engine(random.Bits());
  for (int round = 0; round < 2000; ++round) {
    std::string newShp = shp;
    std::string newDbf = dbf;
    for (int i = 0; i < 4; ++i) {
      std::string& bytes = engine() % 2 == 0 ? newShp : newDbf;
      bytes[engine() % bytes.size()] = static_cast<char>(engine());
    }
    ReadWith(newShp, newDbf);
  }
}

TEST_F(ShapeDamage, CountsThatLieCostNoMemory) {
  std::string content;
  PutLittle(content, 3);
  content.append(32, '\0');
  PutLittle(content, 0x7FFFFFFF);  // parts
  PutLittle(content, 0x7FFFFFFF);  // vertices
  EXPECT_FALSE(ReadWith(ShpFile(3, {content}), DbfFile({{"A", 'C', 1}}, {" x"})).isDone);
}

TEST_F(ShapeDamage, VerticesBeforeTheFirstPartAreDamageAndNotLost) {
  std::string content;
  PutLittle(content, 3);
  content.append(32, '\0');
  PutLittle(content, 1);
  PutLittle(content, 3);
  PutLittle(content, 1);  // the part begins at the second vertex
  for (const double number : {1, 2, 3, 4, 5, 6}) PutDouble(content, number);
  EXPECT_THAT(Texts(ReadWith(ShpFile(3, {content}), DbfFile({{"A", 'C', 1}}, {" x"})).notes),
              Contains("shape 1 is damaged"));
}

TEST_F(ShapeDamage, ARecordThatCannotBeReadIsNoDeletedOne) {
  // A disk that fails behind the first record.
  struct Failing : shape::MemoryStream {
    using MemoryStream::MemoryStream;
    std::size_t Read(char* bytes, std::size_t size) override {
      return place > 100 ? 0 : MemoryStream::Read(bytes, size);
    }
  };
  const std::string bytes = DbfFile({{"A", 'C', 50}}, {std::string(51, ' '), std::string(51, ' ')});
  Failing stream(bytes);
  const auto reader = shape::DbfReader::Open(stream, "");
  ASSERT_NE(reader, nullptr);
  gis::CTable table("t");
  table.AddField(reader->Fields()[0]);
  EXPECT_EQ(reader->RowCount(), 2);
  EXPECT_EQ(reader->ReadRow(0, table), shape::RowState::kRead);
  EXPECT_EQ(reader->ReadRow(1, table), shape::RowState::kUnreadable);
  EXPECT_EQ(table.GetNumRows(), 1);
}

TEST_F(ShapeDamage, ARecordOfAnotherKindIsEmptyAndCounted) {
  const std::string line = [] {
    std::string content;
    PutLittle(content, 3);
    content.append(32, '\0');
    PutLittle(content, 1);
    PutLittle(content, 2);
    PutLittle(content, 0);
    for (const double number : {1, 2, 3, 4}) PutDouble(content, number);
    return content;
  }();
  const ShapeOutcome read =
      ReadWith(ShpFile(1, {PointContent(1, 2), line}), DbfFile({{"A", 'C', 1}}, {" x", " y"}));
  EXPECT_TRUE(read.isDone);
  EXPECT_THAT(Texts(read.notes), Contains("shapes of another kind than the file's, left empty: 1"));
}

TEST_F(ShapeDamage, CoordinatesThatAreNoNumbersAreNowhere) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  const ShapeOutcome read = ReadWith(ShpFile(1, {PointContent(nan, 2), PointContent(1, 1e300)}),
                                     DbfFile({{"A", 'C', 1}}, {" x", " y"}));
  EXPECT_THAT(Texts(read.notes),
              Contains("shapes with coordinates that are no numbers, left empty: 2"));
}

TEST_F(ShapeDamage, AnOpenRingIsClosedAndTold) {
  std::string content;
  PutLittle(content, 5);
  content.append(32, '\0');
  PutLittle(content, 1);
  PutLittle(content, 3);
  PutLittle(content, 0);
  for (const double number : {0, 0, 0, 4, 4, 4}) PutDouble(content, number);
  folder.Write("r.shp", ShpFile(5, {content}));
  EXPECT_THAT(Texts(Import("r.shp").notes), Contains("rings that were open, now closed: 1"));
  EXPECT_THAT(Last().Xs(), ElementsAre(0, 0, 4, 0));
}

TEST_F(ShapeDamage, WhatIsNoShapeFileIsRefusedAndSoIsItsType) {
  EXPECT_EQ(ReadWith("hello", "").result, kShapeInconsistent);
  EXPECT_THAT(Texts(ReadWith(ShpFile(2, {}), "").notes),
              Contains("it holds shapes of a kind that is not known"));
  const auto typeOf = [&](const std::string& bytes) {
    return files.EntityTypeOf(tdk::WString(folder.Write("t.shp", bytes)));
  };
  EXPECT_EQ(typeOf("hello"), -1);
  EXPECT_EQ(typeOf(ShpFile(0, {})), -1);
  EXPECT_EQ(typeOf(ShpFile(2, {})), -1);
  EXPECT_EQ(typeOf(ShpFile(1, {})), 1);
  EXPECT_EQ(typeOf(ShpFile(28, {})), 1);
  EXPECT_EQ(typeOf(ShpFile(13, {})), 2);
  EXPECT_EQ(typeOf(ShpFile(25, {})), 3);
  EXPECT_EQ(typeOf(ShpFile(31, {})), 3);
  EXPECT_EQ(files.EntityTypeOf(tdk::WString(folder.File("none.shp"))), -1);
}

TEST_F(ShapeDamage, AnIndexOrReferenceSystemOfGigabytesIsNotRead) {
  WriteGood();
  for (const char* const name : {"good.shx", "good.prj"}) {
    folder.Write(name, "x");
    std::filesystem::resize_file(folder.File(name), std::uintmax_t{1} << 40);
  }
  const ShapeOutcome read = Import("good.shp");
  EXPECT_TRUE(read.isDone);
  EXPECT_THAT(Texts(read.notes), Contains("its reference system (.prj) cannot be read"));
  EXPECT_EQ(Last().GetNumFeatures(), 5);
}

}  // namespace
