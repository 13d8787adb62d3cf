// Shape files through the program: points out and in, themes drawn, what show tells.
#include "run_kalvio.h"

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;

namespace e2e {
namespace {

class Shape : public testing::Test {
 protected:
  Shape() { folder.Write("points.csv", "P1;10;20;5.5;EDGE\nP2;30;40;6.25;WALL\nP3;50;60;7;X\n"); }
  Outcome Run(const std::vector<std::string>& words) { return RunKalvio(words, where); }
  void Convert(const std::vector<std::string>& words) {
    std::vector<std::string> all = {"convert"};
    all.insert(all.end(), words.begin(), words.end());
    const Outcome run = Run(all);
    ASSERT_EQ(run.status, 0) << run.err;
  }
  std::string Bytes(const std::string& name) { return ReadBytes(folder.File(name)); }
  nlohmann::json Json(const std::string& name) { return nlohmann::json::parse(Bytes(name)); }

  TemporaryFolder folder;
  Surroundings where{.folder = folder.Path()};
};

TEST_F(Shape, PointsBecomeAThemeAndItsPointsKnownPointsAgain) {
  Convert({"points.csv", "points.shp"});
  EXPECT_THAT(folder.Names(),
              ElementsAre("points.cpg", "points.csv", "points.dbf", "points.shp", "points.shx"));
  Convert({"points.shp", "back.csv"});
  EXPECT_EQ(Bytes("back.csv"),
            "P1;10.000;20.000;5.500;EDGE;;\nP2;30.000;40.000;6.250;WALL;;\n"
            "P3;50.000;60.000;7.000;X;;\n");
}

TEST_F(Shape, WhatIsChangedOnTheWayIsTold) {
  folder.Write("job.json", R"({"knownGroups": [{"points": [{"name": "A", "x": 1, "y": 2, "z": 3},
      {"name": "B", "x": 4, "y": 5}, {"name": "C", "x": 6}]}]})");
  const Outcome run = Run({"convert", "--job", "job.json", "points.shp"});
  EXPECT_THAT(run.err, AllOf(HasSubstr("vertices without a height, written with height 0: 1"),
                             HasSubstr("1 point without plane coordinates is left out")));
  EXPECT_THAT(run.out, HasSubstr("wrote points.shp: 1 group of known points, 3 known points"));
}

TEST_F(Shape, AnOlderSetIsReplaced) {
  Convert({"points.csv", "points.shp"});
  const std::string before = Bytes("points.shp");
  folder.Write("points.shp", "old");
  Convert({"points.csv", "points.shp"});
  EXPECT_EQ(Bytes("points.shp"), before);
}

TEST_F(Shape, WhoIsKilledWhileWritingLeavesTheOldSet) {
  Convert({"points.csv", "points.shp"});
  std::map<std::string, std::string> before;
  for (const char* const name : {"points.shp", "points.shx", "points.dbf", "points.cpg"}) {
    before[name] = Bytes(name);
  }
  std::string many;
  for (int i = 0; i < 5000; ++i) many += "P" + std::to_string(i) + ";1;2;3;X\n";
  folder.Write("points.csv", many);
  // The system ends a program that writes beyond this size.
  const Outcome run = RunProgram(
      "sh",
      {"-c", "ulimit -c 0; ulimit -f 8; exec \"$0\" convert points.csv points.shp", KALVIO_PROGRAM},
      where);
  EXPECT_NE(run.status, 0);
  for (const auto& [name, bytes] : before) EXPECT_EQ(Bytes(name), bytes) << name;
}

TEST_F(Shape, WhoIsKilledAtAnyTimeLeavesTheOldSet) {
  Convert({"points.csv", "points.shp"});
  std::map<std::string, std::string> before;
  for (const char* const name : {"points.shp", "points.shx", "points.dbf", "points.cpg"}) {
    before[name] = Bytes(name);
  }
  std::string many;
  for (int i = 0; i < 200'000; ++i) many += "P" + std::to_string(i) + ";1;2;3;X\n";
  folder.Write("many.csv", many);
  // As soon as it has begun to write; a slow machine may kill it before, which is no harm.
  const Outcome run = RunProgram(
      "sh",
      {"-c",
       "\"$0\" convert many.csv points.shp & "
       "for i in $(seq 500); do test -z \"$(ls -A | grep part-)\" || break; sleep 0.01; done; "
       "kill -9 $!; wait $!",
       KALVIO_PROGRAM},
      where);
  EXPECT_EQ(run.status, 128 + 9) << run.err;
  for (const auto& [name, bytes] : before) EXPECT_EQ(Bytes(name), bytes) << name;
}

TEST_F(Shape, ThemesWhoseNamesMakeOneFileGetOneEach) {
  folder.Write("job.json", R"({"gis": {"themes": [
      {"name": "a/b", "features": [{"parts": [[[1, 2]]]}]},
      {"name": "A_b", "features": [{"parts": [[[3, 4]]]}, {}]}]}})");
  const Outcome run = Run({"convert", "--job", "job.json", "out.shp"});
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_THAT(run.err, AllOf(HasSubstr("wrote out-a_b.shp"), HasSubstr("wrote out-A_b_1.shp")));
  EXPECT_EQ(Bytes("out-a_b.shp").size(), 128U);
  EXPECT_EQ(Bytes("out-A_b_1.shp").size(), 140U);
  EXPECT_EQ(Json("job.json")["gis"]["themes"][1]["name"], "A_b");
}

TEST_F(Shape, WhatIsToldOfOneOfSeveralThemesNamesItsFile) {
  folder.Write("job.json", R"({"gis": {"themes": [{"name": "a", "features": [{}]},
      {"name": "b", "fields": [{"name": "VeryLongName"}], "features": [{}]}]}})");
  const Outcome run = Run({"convert", "--job", "job.json", "out.shp"});
  EXPECT_THAT(run.err, AllOf(HasSubstr("out.shp: out-a.shp: there are no fields"),
                             HasSubstr("out.shp: out-b.shp: field \"VeryLongName\"")));
}

TEST_F(Shape, AFileThatTheDialogWouldTakeForAnotherIsRefused) {
  Convert({"points.csv", "points.shp"});
  for (const char* const extension : {".shp", ".dbf"}) {
    std::filesystem::copy_file(folder.File(std::string("points") + extension),
                               folder.File(std::string("points.shp.old") + extension));
  }
  const Outcome run = Run({"convert", "points.shp.old.shp", "back.csv"});
  EXPECT_EQ(run.status, 1);
  EXPECT_THAT(run.err, HasSubstr("points.shp.old.shp: rename it"));
}

TEST_F(Shape, AFolderIsNoShapeFile) {
  std::filesystem::create_directory(folder.File("d.shp"));
  const Outcome run = Run({"convert", "d.shp", "back.csv"});
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.err, "kalvio: d.shp: cannot be opened: Is a directory\n");
}

TEST_F(Shape, ExtensionsMayBeInAnyLetters) {
  Convert({"points.csv", "points.shp"});
  std::filesystem::rename(folder.File("points.shp"), folder.File("points.sHp"));
  std::filesystem::rename(folder.File("points.dbf"), folder.File("points.dBF"));
  Convert({"points.sHp", "back.csv"});
  EXPECT_THAT(Bytes("back.csv"), HasSubstr("P1;10.000;20.000;5.500;EDGE"));
}

TEST_F(Shape, TheReferenceSystemIsWrittenBesideIt) {
  Convert({"--crs", "EPSG:32632", "points.csv", "points.shp"});
  EXPECT_THAT(Bytes("points.prj"), HasSubstr("PROJCS[\"WGS_1984_UTM_Zone_32N\""));
  Convert({"points.shp", "copy.shp"});
  EXPECT_EQ(Bytes("copy.prj"), Bytes("points.prj"));
  EXPECT_THAT(Run({"show", "points.shp"}).out,
              HasSubstr("Reference system of theme points: WGS_1984_UTM_Zone_32N"));
}

TEST_F(Shape, AThemeIsDrawnOnALayerOfItsName) {
  Convert({"points.csv", "points.shp"});
  Convert({"points.shp", "drawing.dxf"});
  EXPECT_THAT(Bytes("drawing.dxf"), AllOf(HasSubstr("POINT\n"), HasSubstr("\npoints\n")));
}

TEST_F(Shape, ShowTellsThemesFieldsExtentsAndTheEncoding) {
  Convert({"points.csv", "points.shp"});
  const Outcome run = Run({"show", "points.shp"});
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_THAT(run.out, AllOf(HasSubstr("Themes"),
                             HasSubstr("points  points           3         3         3"),
                             HasSubstr("NAME   text"), HasSubstr("1 theme, 3 features"),
                             HasSubstr("10.000"), HasSubstr("Encoding of the texts: UTF-8")));
}

TEST_F(Shape, AThemeOfTheJobIsWrittenUnderTheNameAskedForAndKeepsItsOwn) {
  folder.Write("job.json", R"({"gis": {"themes": [{"name": "Trees", "fields": [{"name": "N",
      "type": "integer"}], "features": [{"parts": [[[1, 2]]], "values": [7]}]}]}})");
  Convert({"--job", "job.json", "out.shp"});
  EXPECT_THAT(folder.Names(), testing::IsSupersetOf({"out.dbf", "out.shp"}));
  EXPECT_EQ(Json("job.json")["gis"]["themes"][0]["name"], "Trees");
}

TEST_F(Shape, SeveralThemesHaveAFileEach) {
  folder.Write("job.json", R"({"knownGroups": [{"points": [{"name": "P", "x": 1, "y": 2}]}],
      "gis": {"themes": [{"name": "a"}, {"name": "b", "type": "line"}]}})");
  const Outcome run = Run({"convert", "--job", "job.json", "out.shp"});
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_THAT(folder.Names(), testing::IsSupersetOf({"out.shp", "out-a.shp", "out-b.shp"}));
  EXPECT_THAT(run.err, HasSubstr("out-a.shp"));
}

TEST_F(Shape, AJobWithoutPlacesIsRefused) {
  folder.Write("job.json", R"({"knownGroups": [{"points": [{"name": "P"}]}]})");
  const Outcome run = Run({"convert", "--job", "job.json", "out.shp"});
  EXPECT_EQ(run.status, 1);
  EXPECT_THAT(run.err, HasSubstr("out.shp: the job holds no points with plane coordinates"));
  EXPECT_THAT(folder.Names(), ElementsAre("job.json", "points.csv"));
}

TEST_F(Shape, AFileThatBreaksOffIsRefusedWithThePlace) {
  Convert({"points.csv", "points.shp"});
  folder.Write("points.shp", Bytes("points.shp").substr(0, 150));
  const Outcome run = Run({"convert", "points.shp", "back.csv"});
  EXPECT_EQ(run.status, 1);
  EXPECT_THAT(run.err, AllOf(HasSubstr("points.shp: nothing was imported:"),
                             HasSubstr("inconsistent data"), HasSubstr("at byte 144")));
}

TEST_F(Shape, AFolderThatTakesNoFilesIsNamed) {
  const Outcome run = Run({"convert", "points.csv", "none/points.shp"});
  EXPECT_EQ(run.status, 1);
  EXPECT_THAT(run.err, HasSubstr("none/points.shp"));
}

TEST_F(Shape, LinesWithoutATableGiveTheirVertices) {
  folder.Write("job.json", R"({"gis": {"themes": [{"name": "l", "type": "line", "dimension": 3,
      "features": [{"parts": [[[1, 2, 3], [4, 5, 6]]]}]}]}})");
  Convert({"--job", "job.json", "l.shp"});
  std::filesystem::remove(folder.File("l.dbf"));
  Convert({"l.shp", "l.csv"});
  EXPECT_EQ(Bytes("l.csv"), "1;1.000;2.000;3.000;;;\n2;4.000;5.000;6.000;;;\n");
}

TEST_F(Shape, AThemeThatIsThereIsRefusedByName) {
  Convert({"points.csv", "points.shp"});
  folder.Write("job.json", R"({"gis": {"themes": [{"name": "Points"}]}})");
  const Outcome run = Run({"convert", "--job", "job.json", "points.shp", "out.csv"});
  EXPECT_EQ(run.status, 1);
  EXPECT_THAT(run.err, HasSubstr("Theme already present in the GIS data."));
}

}  // namespace
}  // namespace e2e
