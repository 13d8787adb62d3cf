// Files that other programs made: read as the field's own tool reads them, and written again the
// same to it; and what we write is read by a library that is none of ours.
#include <algorithm>
#include <sstream>

#include "tests/run_kalvio.h"
#include "tests/support/shape_sets.h"

namespace {

using namespace shape_sets;
using testing::HasSubstr;

const std::string kReal = KALVIO_REAL_DATA "/shape";

// What the tool says of a file, feature by feature. Its metadata have the day of the last change,
// its first lines the name of the file.
std::string OgrText(const std::string& path) {
  const e2e::Outcome run =
      e2e::RunProgram("ogrinfo", {"-ro", "-al", "--config", "SHAPE_RESTORE_SHX", "YES", path}, {});
  EXPECT_EQ(run.status, 0) << run.err;
  std::istringstream lines(run.out);
  std::string text;
  for (std::string line; std::getline(lines, line);) {
    const bool isAboutTheFile = line.starts_with("INFO:") || line.starts_with("      using") ||
                                line.starts_with("Metadata") || line.starts_with("  DBF_DATE") ||
                                line.starts_with("Layer name");
    if (!isAboutTheFile) text += line + "\n";
  }
  return text;
}

class ShapeRealFiles : public Sets, public testing::WithParamInterface<const char*> {
 protected:
  void SetUp() override {
    if (!std::filesystem::exists(kReal)) GTEST_SKIP() << "no files of other programs";
    // A copy, for the tool may write beside what it reads.
    for (const auto& entry : std::filesystem::directory_iterator(kReal)) {
      if (entry.path().stem() != GetParam()) continue;
      const auto copy = folder.File(entry.path().filename().string());
      std::filesystem::copy_file(entry.path(), copy);
      std::filesystem::permissions(copy, std::filesystem::perms::owner_all);
    }
  }
};

// Yes and no may be written with four letters each.
std::string WithOneLetterEach(std::string text) {
  constexpr std::string_view kBefore = "foo (String) = ";
  for (std::size_t at = text.find(kBefore); at != text.npos; at = text.find(kBefore, at + 1)) {
    char& letter = text[at + kBefore.size()];
    if (std::string_view("Yyt").find(letter) != std::string_view::npos) letter = 'T';
    if (std::string_view("Nnf").find(letter) != std::string_view::npos) letter = 'F';
  }
  return text;
}

// The number behind a word, at the start of a line.
int CountIn(const std::string& text, const std::string& word) {
  const std::size_t at = text.find(word);
  return at == std::string::npos ? -1 : std::stoi(text.substr(at + word.size()));
}

TEST_P(ShapeRealFiles, AreReadAsTheToolReadsThem) {
  const std::string text = OgrText(folder.File(std::string(GetParam()) + ".shp"));
  const ShapeOutcome read = Import(std::string(GetParam()) + ".shp");
  ASSERT_TRUE(read.isDone) << testing::PrintToString(Texts(read.notes));
  EXPECT_EQ(Last().GetNumFeatures(), CountIn(text, "Feature Count: "));
  for (int i = 0; i < Last().GetTable()->GetNumFields(); ++i) {
    const gis::Field& field = Last().GetTable()->GetField(i);
    EXPECT_THAT(text, HasSubstr("\n" + field.name.ToUtf8() + ": ")) << text.substr(0, 600);
  }
}

TEST_P(ShapeRealFiles, WrittenAgainAreTheSameToTheTool) {
  const std::string name = GetParam();
  const std::string before = OgrText(folder.File(name + ".shp"));
  ASSERT_TRUE(Import(name + ".shp").isDone);
  if (name == "multipatch") GTEST_SKIP() << "surfaces become polygons in space";
  const bool hadTable = std::filesystem::exists(folder.File(name + ".dbf"));
  TemporaryFolder out;
  ASSERT_TRUE(
      files.Export({&Last(), tdk::WString(out.Path() + "/"), 254, kShapeAsTheme, &yes}).isDone);
  std::string after = OgrText(out.File(name + ".shp"));
  if (!hadTable) {  // the numbers that a file without fields gets
    std::istringstream lines(after);
    after.clear();
    for (std::string line; std::getline(lines, line);) {
      if (!line.starts_with("ID: ") && !line.starts_with("  ID (")) after += line + "\n";
    }
  }
  EXPECT_EQ(after, name == "boolean-property" ? WithOneLetterEach(before) : before);
}

// Each file of the set cut at some 60 places: all of it or nothing is read, and a cut is told.
TEST_P(ShapeRealFiles, CutAnywhereAreRefusedOrTold) {
  constexpr std::size_t kCuts = 60;
  const std::string name = GetParam();
  for (const char* const extension : {".shp", ".dbf", ".shx"}) {
    const std::string path = folder.File(name + extension);
    if (!std::filesystem::exists(path)) continue;
    const std::string bytes = ReadBytes(path);
    const std::size_t step = std::max<std::size_t>(1, bytes.size() / kCuts);
    for (std::size_t size = 0; size + 1 < bytes.size(); size += step) {
      folder.Write(name + extension, bytes.substr(0, size));
      gis::CLibGis fresh;
      const ShapeOutcome read =
          files.Import({&fresh, tdk::WString(folder.File(name + ".shp")), nullptr, nullptr, {}});
      EXPECT_EQ(fresh.GetNumThemes(), read.isDone ? 1 : 0);
      EXPECT_FALSE(read.notes.empty()) << extension << " cut at " << size;
      EXPECT_FALSE(read.isDone && extension == std::string_view(".shp")) << size;
    }
    folder.Write(name + extension, bytes);
  }
}

INSTANTIATE_TEST_SUITE_P(All, ShapeRealFiles,
                         testing::Values("boolean-property", "brklinz", "date-property",
                                         "latin1-property", "linez", "masspntz", "mexico_cities",
                                         "multipatch", "null", "number-null-property", "points",
                                         "pointz", "polygon_hole", "polygons", "polygonz",
                                         "polylines", "utf8-property"),
                         [](const auto& test) {
                           std::string name = test.param;
                           std::replace(name.begin(), name.end(), '-', '_');
                           return name;
                         });

class ShapeForOthers : public Sets {
 protected:
  void WriteAll() {
    ThemeMaker points("points", EntityType::kPoint, /*is3D=*/true);
    points.Field("NAME", FieldType::kText).Field("H", FieldType::kReal, 8, 3);
    points.Field("N", FieldType::kInteger).Field("DAY", FieldType::kDate);
    points.Field("OK", FieldType::kBool);
    points.Feature({{{1.5, 2.5, 3.5}}},
                   {std::string_view("Genò"), 1.25, std::int64_t{7}, gis::Date{2024, 2, 29}, true});
    points.Feature({});
    Export(points);
    ThemeMaker lake("lake", EntityType::kPolygon);
    lake.Field("ID", FieldType::kInteger);
    lake.Feature({Square(0, 0, 10, false), Square(2, 2, 6, true)}, {std::int64_t{1}});
    Export(lake);
  }
};

TEST_F(ShapeForOthers, ThePythonLibraryReadsWhatWeWrite) {
  WriteAll();
  const char* const kProgram = R"(
import sys, shapefile
r = shapefile.Reader(sys.argv[1] + "/points")
print(r.shapeTypeName, len(r), [f[0] for f in r.fields[1:]])
print(list(r.shape(0).points[0]), r.shape(0).z[0], list(r.record(0)), list(r.record(1)), r.shape(1).shapeType)
r = shapefile.Reader(sys.argv[1] + "/lake")
print(r.shape(0).__geo_interface__)
)";
  e2e::Outcome run;
  for (const char* const python : {"python3", "/usr/bin/python3"}) {
    run = e2e::RunProgram(python, {"-B", "-c", kProgram, folder.Path()}, {});
    if (run.err.find("No module named") == std::string::npos) break;
  }
  if (run.err.find("No module named") != std::string::npos) GTEST_SKIP() << "no pyshp";
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(run.out,
            "POINTZ 2 ['NAME', 'H', 'N', 'DAY', 'OK']\n"
            "[1.5, 2.5] 3.5 ['Genò', 1.25, 7, datetime.date(2024, 2, 29), True] ['', None, None, "
            "None, None] 0\n"
            "{'type': 'Polygon', 'coordinates': [[(0.0, 0.0), (0.0, 10.0), (10.0, 10.0), (10.0, "
            "0.0), (0.0, 0.0)], [(2.0, 2.0), (8.0, 2.0), (8.0, 8.0), (2.0, 8.0), (2.0, 2.0)]]}\n");
}

TEST_F(ShapeForOthers, TheToolReadsWhatWeWrite) {
  WriteAll();
  const std::string text = OgrText(folder.File("points.shp"));
  for (const char* const part :
       {"Geometry: 3D Point\n", "Feature Count: 2", "NAME: String (5.0)", "H: Real (8.3)",
        "DAY: Date (10.0)", "NAME (String) = Genò", "DAY (Date) = 2024/02/29",
        "POINT Z (1.5 2.5 3.5)", "H (Real) = (null)"}) {
    EXPECT_THAT(text, HasSubstr(part));
  }
  EXPECT_THAT(OgrText(folder.File("lake.shp")),
              HasSubstr("POLYGON ((0 0,0 10,10 10,10 0,0 0),(2 2,8 2,8 8,2 8,2 2))"));
}

}  // namespace
