// The host's answer to an import: its codes, names that are taken, and the points that it creates.
#include "host/gis/link_points.h"
#include "tests/support/shape_sets.h"

namespace {

using namespace shape_sets;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class ShapeImports : public Sets {
 protected:
  ShapeImports() {
    folder.Write("points.shp", ShpFile(1, {PointContent(10, 20), PointContent(30, 40)}));
    folder.Write("points.dbf", DbfFile({{"NAME", 'C', 4}, {"CODE", 'N', 3}, {"DAY", 'D', 8}},
                                       {" P1   7 20240229", " P2   8 00000000"}));
  }
  ~ShapeImports() override { IShapeFiles::SetCurrent(nullptr); }

  /// Through the host's function, as the module calls it.
  bool Call(gis::IGisMerger* itsMerger, gis::ILinkImportedEnt* receiver = nullptr) {
    IShapeFiles::SetCurrent(&files);
    tdk::WString path(folder.File("points.shp"));
    return FImportFileShape(&library, path, name, &result, receiver, itsMerger, options);
  }
  /// The known points as "name code x y z".
  std::vector<std::string> Points(int group) {
    std::vector<std::string> points;
    for (int i = 0; i < known.GetPtnArSize(group); ++i) {
      const CPunPnt& point = *known.GetPtnAt(group, i);
      points.push_back(point.GetNome().ToUtf8() + " " + point.GetSecScri().ToUtf8() + " " +
                       std::to_string(static_cast<int>(point.GetCoordX())) + " " +
                       std::to_string(static_cast<int>(point.GetCoordY())) + " " +
                       (IsDefined(point.GetCoordZ()) ? "z" : "-"));
    }
    return points;
  }

  CLibPnt known;
  KnownPointLink link{known};
  gis::CGisMerger merger{&library};
  TOpzImportShape options;
  tdk::WString name;
  int result = -7;
};

TEST_F(ShapeImports, Answers0AndTheNameOfTheFile) {
  EXPECT_TRUE(Call(&merger));
  EXPECT_EQ(result, kShapeImported);
  EXPECT_EQ(name, "points");
  EXPECT_EQ(library.GetThemeName(library.GetTheme(0)), "points");
  EXPECT_EQ(library.GetTheme(0)->GetTable(), library.FindTable("points"));
}

TEST_F(ShapeImports, Answers1AndThePathForAFileThatIsNotThere) {
  std::filesystem::remove(folder.File("points.shp"));
  EXPECT_FALSE(Call(&merger));
  EXPECT_EQ(result, kShapeFileNotFound);
  EXPECT_EQ(name, tdk::WString(folder.File("points.shp")));
}

TEST_F(ShapeImports, Answers3ForATableThatCannotBeRead) {
  folder.Write("points.dbf", "rubbish");
  EXPECT_FALSE(Call(&merger));
  EXPECT_EQ(result, kShapeInconsistent);
  EXPECT_EQ(library.GetNumThemes(), 0);
  EXPECT_EQ(library.GetNumTables(), 0);
}

TEST_F(ShapeImports, Answers4AndTheNewNameForATableWhoseNameIsTaken) {
  library.AddTable(std::make_unique<gis::CTable>("POINTS"), false);
  EXPECT_TRUE(Call(&merger));
  EXPECT_EQ(result, kShapeTableRenamed);
  EXPECT_EQ(name, "points_1");
  EXPECT_EQ(library.GetTheme(0)->GetTable()->GetName(), "points_1");
}

TEST_F(ShapeImports, Answers6WithoutAMergerForATableWhoseNameIsTaken) {
  library.AddTable(std::make_unique<gis::CTable>("points"), false);
  EXPECT_FALSE(Call(nullptr));
  EXPECT_EQ(result, kShapeTablePresent);
  EXPECT_EQ(library.GetNumThemes(), 0);
}

TEST_F(ShapeImports, Answers8ForAThemeWhoseNameIsTaken) {
  EXPECT_TRUE(Call(&merger));
  EXPECT_FALSE(Call(&merger));
  EXPECT_EQ(result, kShapeThemePresent);
  EXPECT_EQ(library.GetNumThemes(), 1);
  EXPECT_EQ(library.GetNumTables(), 1);
}

TEST_F(ShapeImports, AThemeThatTheHostRefusesLeavesNothing) {
  struct NoThemes : AddPolicy {
    bool MayAdd(AddedKind kind) override { return kind != AddedKind::kGisTheme; }
  } policy;
  library.SetAddPolicy(&policy);
  EXPECT_FALSE(Call(&merger));
  EXPECT_EQ(library.GetNumThemes(), 0);
  EXPECT_EQ(library.GetNumTables(), 0);
}

TEST_F(ShapeImports, WithoutATableThereAreNoValues) {
  std::filesystem::remove(folder.File("points.dbf"));
  EXPECT_TRUE(Call(&merger));
  EXPECT_EQ(library.GetTheme(0)->GetNumFeatures(), 2);
  EXPECT_THAT(Lines(files.TakeNotes()),
              Contains("points.shp: there is no table (.dbf); the features have no values"));
}

TEST_F(ShapeImports, FilesMayHaveCapitalExtensionsAndDotsInTheirNames) {
  for (const char* const extension : {"shp", "dbf"}) {
    std::filesystem::rename(
        folder.File(std::string("points.") + extension),
        folder.File(std::string("rilievo 1.2.") + (extension[0] == 's' ? "SHP" : "DBF")));
  }
  for (const char* const asked : {"rilievo 1.2.shp", "rilievo 1.2.SHP"}) {
    gis::CLibGis fresh;
    gis::CGisMerger its(&fresh);
    EXPECT_TRUE(files.Import({&fresh, tdk::WString(folder.File(asked)), nullptr, &its, {}}).isDone);
    EXPECT_EQ(fresh.GetThemeName(fresh.GetTheme(0)), "rilievo 1.2");
    EXPECT_EQ(fresh.GetTheme(0)->GetTable()->GetNumFields(), 3);
  }
}

TEST_F(ShapeImports, PointsGoIntoAGroupNamedAfterTheFile) {
  options = {true, 0, 1};
  EXPECT_TRUE(Call(&merger, &link));
  ASSERT_EQ(known.GetGrpArSize(), 1);
  EXPECT_EQ(known.GetGrpAt(0)->GetNome(), "points");
  EXPECT_THAT(Points(0), ElementsAre("P1 7 10 20 -", "P2 8 30 40 -"));
}

TEST_F(ShapeImports, WithoutFieldsPointsAreNumbered) {
  options = {true, -1, -1};
  Call(&merger, &link);
  EXPECT_THAT(Points(0), ElementsAre("1  10 20 -", "2  30 40 -"));
}

TEST_F(ShapeImports, FieldsThatAreNotThereAndDatesAreNoTrouble) {
  options = {true, 99, 2};
  Call(&merger, &link);
  EXPECT_THAT(Points(0), ElementsAre("1 2024-02-29 10 20 -", "2  30 40 -"));
}

TEST_F(ShapeImports, NoPointsUnlessTheyAreWanted) {
  EXPECT_TRUE(Call(&merger, &link));
  EXPECT_EQ(known.GetGrpArSize(), 0);
  options.createPoints = true;
  library.RemoveTheme(library.GetTheme(0));
  EXPECT_TRUE(Call(&merger, nullptr));
}

TEST_F(ShapeImports, VerticesOfPolygonsBecomePointsOnceEach) {
  ThemeMaker made("walls", EntityType::kPolygon);
  made.Field("NAME", FieldType::kText).Feature({Square(0, 0, 10)}, {std::string_view("x")});
  Export(made);
  Import("walls.shp", {true, 0, 0}, &link);
  EXPECT_EQ(known.GetPtnArSize(0), 4);
  EXPECT_EQ(Points(0)[3], "4  10 0 -");
}

TEST_F(ShapeImports, PointsThatTheHostRefusesAreCounted) {
  struct NoPoints : AddPolicy {
    bool MayAdd(AddedKind kind) override { return kind != AddedKind::kKnownPoint; }
  } policy;
  known.SetAddPolicy(&policy);
  options = {true, 0, 1};
  EXPECT_TRUE(Call(&merger, &link));
  EXPECT_THAT(Lines(files.TakeNotes()), Contains("points.shp: points that the host refused: 2"));
}

TEST_F(ShapeImports, WithoutFilesOfTheHostNothingIsRead) {
  IShapeFiles::SetCurrent(nullptr);
  tdk::WString path(folder.File("points.shp"));
  EXPECT_FALSE(FImportFileShape(&library, path, name, &result, nullptr, &merger, options));
  EXPECT_EQ(FGetEntTypeFromFileShp(path), -1);
  std::vector<tdk::WString> fields;
  EXPECT_FALSE(FGetFieldFromFileDbf(&library, path, fields));
  int failed = 0;
  EXPECT_FALSE(FExportFileShape(&library, nullptr, "", 10, 0, nullptr, failed));
  EXPECT_EQ(failed, kShapeFileFailed | kShapeTableFailed);
}

}  // namespace
