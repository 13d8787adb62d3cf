// kalvio terrain, and what kalvio convert does with terrain, roads and chosen parts of a job.
#include "run_kalvio.h"

using testing::AllOf;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

namespace e2e {
namespace {

constexpr const char* kPoints =
    "1;0;0;1;EDGE\n2;10;0;2;EDGE\n3;10;10;3;EDGE\n4;0;10;4;TREE\n5;5;5;9;TREE\n";

constexpr const char* kRoad = R"(<?xml version="1.0"?>
<LandXML version="1.2">
 <Units><Metric linearUnit="meter"/></Units>
 <Application name="other"/>
 <Alignments>
  <Alignment name="main" staStart="100" length="50">
   <CoordGeom><Line><Start>2000 1000</Start><End>2000 1050</End></Line></CoordGeom>
   <Profile><ProfAlign name="p"><PVI>100 10</PVI><PVI>150 15</PVI></ProfAlign></Profile>
  </Alignment>
 </Alignments>
 <CgPoints name="marks"><CgPoint name="A">20 10 5</CgPoint></CgPoints>
</LandXML>
)";

class Terrain : public testing::Test {
 protected:
  Terrain() {
    folder.Write("points.csv", kPoints);
    folder.Write("road.xml", kRoad);
  }
  Outcome Run(const std::vector<std::string>& words) { return RunKalvio(words, where); }
  std::string Bytes(const std::string& name) { return ReadBytes(folder.File(name)); }
  bool IsThere(const std::string& name) { return std::filesystem::exists(folder.File(name)); }

  TemporaryFolder folder;
  Surroundings where{.folder = folder.Path()};
};

TEST_F(Terrain, ModelIsAddedToAJobFolder) {
  std::filesystem::create_directory(folder.File("job"));
  const Outcome first =
      Run({"terrain", "job", "points.csv", "--name", "ground", "--codes", "EDGE"});
  EXPECT_EQ(first.status, 0) << first.err;
  EXPECT_EQ(first.err, "");
  EXPECT_EQ(first.out, "ground: 5 vertices, 4 triangles, 1 outer contour, 1 breakline\n");
  const Outcome show = Run({"show", "job"});
  EXPECT_THAT(show.out, testing::ContainsRegex("ground +5 +4 +1 +2\n"));
  EXPECT_THAT(show.out, HasSubstr("In all: 1 group of known points, 5 known points, "
                                  "1 terrain model, 4 triangles\n"));
  // What a job folder holds is found again by the export.
  EXPECT_EQ(Run({"convert", "--job", "job", "points.csv", "out.xml"}).status, 0);
  EXPECT_THAT(Bytes("out.xml"), AllOf(HasSubstr("<Surface name=\"ground\">"),
                                      HasSubstr("<P id=\"4\">5.000000 5.000000 9.000000</P>")));
}

TEST_F(Terrain, NameIsRequiredAndTakenOnce) {
  EXPECT_EQ(Run({"terrain", "points.csv", "--save", "j.json"}).status, 2);
  std::filesystem::create_directory(folder.File("job"));
  EXPECT_EQ(Run({"terrain", "job", "points.csv", "--name", "a"}).status, 0);
  const Outcome again = Run({"terrain", "job", "--name", "a"});
  EXPECT_EQ(again.status, 1);
  EXPECT_THAT(again.err, HasSubstr("a: the job has a terrain model of that name already"));
}

TEST_F(Terrain, OnlyAFolderKeepsWhatIsNotSaved) {
  const Outcome run = Run({"terrain", "points.csv", "--name", "a"});
  EXPECT_EQ(run.status, 2);
  EXPECT_THAT(run.err, HasSubstr("--save"));
  EXPECT_EQ(Run({"terrain", "points.csv", "--name", "a", "--save", "j.json"}).status, 0);
  EXPECT_THAT(Bytes("j.json"), HasSubstr("\"triangles\": ["));
}

TEST_F(Terrain, LimitLeavesTrianglesOutAndSaysSo) {
  folder.Write("far.csv", std::string(kPoints) + "6;100;5;0;TREE\n");
  const Outcome run =
      Run({"terrain", "far.csv", "--name", "a", "--max-edge", "12", "--save", "j.json"});
  EXPECT_EQ(run.status, 0);
  EXPECT_THAT(run.out, StartsWith("a: 6 vertices, 4 triangles"));
  EXPECT_THAT(run.err, HasSubstr("with a side longer than --max-edge"));
}

TEST_F(Terrain, ChoicesThatCannotBeAreBadUsage) {
  for (const std::vector<std::string>& words : {std::vector<std::string>{"--max-edge", "0"},
                                                {"--max-edge", "x"},
                                                {"--max-edge", "1,5"},
                                                {"--points", "ts,other"},
                                                {"--points", ","}}) {
    std::vector<std::string> all = {"terrain", "points.csv", "--name", "a", "--save", "j.json"};
    all.insert(all.end(), words.begin(), words.end());
    const Outcome run = Run(all);
    EXPECT_EQ(run.status, 2) << words[1];
    EXPECT_THAT(run.err, HasSubstr(words[0]));
  }
}

TEST_F(Terrain, PointsThatMakeNoTriangleFail) {
  folder.Write("two.csv", "1;0;0;1;A\n2;1;1;1;A\n");
  const Outcome run = Run({"terrain", "two.csv", "--name", "a", "--save", "j.json"});
  EXPECT_EQ(run.status, 1);
  EXPECT_THAT(run.err, testing::EndsWith("the points make no triangle\n"));
  EXPECT_FALSE(IsThere("j.json"));
  EXPECT_EQ(
      Run({"terrain", "points.csv", "--points", "ts", "--name", "a", "--save", "j.json"}).status,
      1);
}

TEST_F(Terrain, ConvertMakesOneOnTheWay) {
  const Outcome run = Run({"convert", "--terrain", "points.csv", "out.xml"});
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_THAT(run.out, HasSubstr("made terrain model \"terrain\": 5 vertices, 4 triangles"));
  EXPECT_THAT(Bytes("out.xml"), HasSubstr("<Surface name=\"terrain\">"));
  EXPECT_EQ(Run({"convert", "points.csv", "plain.xml"}).status, 0);
  EXPECT_THAT(Bytes("plain.xml"), Not(HasSubstr("<Surface")));
}

TEST_F(Terrain, OptionsOfTerrainGoWithIt) {
  const Outcome run = Run({"convert", "--max-edge", "5", "points.csv", "out.xml"});
  EXPECT_EQ(run.status, 2);
  EXPECT_THAT(run.err, HasSubstr("--max-edge goes with --terrain"));
}

TEST_F(Terrain, RoadGoesThrough) {
  const Outcome run = Run({"convert", "road.xml", "out.xml"});
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(run.err, "");
  EXPECT_THAT(run.out, HasSubstr("1 group of known points, 1 known point, 1 road"));
  EXPECT_THAT(Bytes("out.xml"),
              AllOf(HasSubstr("<Alignment name=\"main\" length=\"50.000000\" "
                              "staStart=\"100.000000\" state=\"existing\">"),
                    HasSubstr("<Start name=\"Start_main\" state=\"existing\">2000.000000 "
                              "1000.000000 10.000000</Start>"),
                    HasSubstr("<PVI>150.000000 15.000000</PVI>")));
  // Its own export is read again.
  EXPECT_EQ(Run({"convert", "out.xml", "again.xml"}).status, 0);
  const auto body = [](const std::string& text) { return text.substr(text.find("\t<Units>")); };
  EXPECT_EQ(body(Bytes("again.xml")), body(Bytes("out.xml")));
}

TEST_F(Terrain, SelectWritesTheChosenPartsOnly) {
  EXPECT_EQ(Run({"convert", "--select", "roads", "road.xml", "roads.xml"}).status, 0);
  EXPECT_THAT(Bytes("roads.xml"), AllOf(HasSubstr("<Alignment "), Not(HasSubstr("<CgPoints"))));
  const Outcome points = Run({"convert", "--select", "points,surfaces", "road.xml", "points.xml"});
  EXPECT_THAT(points.out, AllOf(HasSubstr("wrote points.xml: 1 group of known points"),
                                Not(HasSubstr("wrote points.xml: 1 group of known points, 1 "
                                              "known point, 1 road"))));
  EXPECT_THAT(Bytes("points.xml"), AllOf(HasSubstr("<CgPoints"), Not(HasSubstr("<Alignment"))));
}

TEST_F(Terrain, SelectIsForLandXmlAndKnowsItsWords) {
  EXPECT_EQ(Run({"convert", "--select", "roads", "road.xml", "out.csv"}).status, 2);
  const Outcome run = Run({"convert", "--select", "roads,ponts", "road.xml", "out.xml"});
  EXPECT_EQ(run.status, 2);
  EXPECT_THAT(run.err, HasSubstr("\"ponts\""));
}

TEST_F(Terrain, RoadsAndTerrainThatAFormatCannotHoldAreTold) {
  const Outcome run = Run({"convert", "road.xml", "out.csv"});
  EXPECT_EQ(run.status, 0);
  EXPECT_THAT(run.err, HasSubstr("left out, for such a file cannot hold it: 1 road"));
}

TEST_F(Terrain, ShowTellsOfARoad) {
  const Outcome run = Run({"show", "road.xml"});
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_THAT(run.out, testing::ContainsRegex("main +100.000 +150.000 +1 +2 +0\n"));
  EXPECT_THAT(run.out, HasSubstr("Extents in metres of all that there is"));
}

TEST_F(Terrain, WhatALandXmlFileHasNotIsTold) {
  folder.Write("nothing.xml",
               "<LandXML><Alignments><Alignment name=\"x\"/></Alignments></LandXML>");
  const Outcome run = Run({"convert", "nothing.xml", "out.xml"});
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.err,
            "kalvio: nothing.xml: nothing was imported: line 1: road \"x\" is left out: it has no "
            "geometry\n");
}

TEST_F(Terrain, ABrokenFileIsNamedWithItsLine) {
  folder.Write("broken.xml", std::string(kRoad).substr(0, 300));
  const Outcome run = Run({"show", "broken.xml"});
  EXPECT_EQ(run.status, 1);
  EXPECT_THAT(run.err, testing::ContainsRegex("^kalvio: broken.xml: line [0-9]+: the file ends "
                                              "too early\n$"));
}

TEST_F(Terrain, ElementsWithoutAPlaceInTheFormatAreTold) {
  std::string egg = kRoad;
  const std::string end = "</CoordGeom>";
  egg.insert(egg.find(end),
             "<Spiral length=\"10\" radiusStart=\"50\" radiusEnd=\"30\" rot=\"cw\" "
             "spiType=\"clothoid\"><Start>2000 1050</Start><PI>2000 1055</PI>"
             "<End>1999 1060</End></Spiral>");
  folder.Write("egg.xml", egg);
  const Outcome run = Run({"convert", "egg.xml", "out.xml"});
  EXPECT_EQ(run.status, 0);
  EXPECT_THAT(run.err, AllOf(HasSubstr("egg.xml: line 7: Spiral keeps only its ends"),
                             HasSubstr("out.xml: road \"main\": elements that the format does not "
                                       "have are left out (1)")));
}

TEST_F(Terrain, SecondOneOnTheWayHasANameOfItsOwn) {
  std::filesystem::create_directory(folder.File("job"));
  EXPECT_EQ(Run({"convert", "--job", "job", "--terrain", "points.csv", "one.xml"}).status, 0);
  const Outcome again = Run({"convert", "--job", "job", "--terrain", "points.csv", "two.xml"});
  EXPECT_EQ(again.status, 0) << again.err;
  EXPECT_THAT(again.out, HasSubstr("made terrain model \"terrain 2\""));
}

TEST_F(Terrain, CodesThatNoPointHasAreTold) {
  const Outcome run =
      Run({"terrain", "points.csv", "--name", "a", "--codes", "EDGE, KERB", "--save", "j.json"});
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.err, "kalvio: a: no point has the code \"KERB\"\n");
  EXPECT_EQ(
      Run({"terrain", "points.csv", "--name", "a", "--codes", " ,", "--save", "j.json"}).status, 2);
}

TEST_F(Terrain, NamesThatAreMarkupAreTold) {
  folder.Write("odd.csv", "A&B;0;0;1;EDGE\n2;10;0;2;EDGE\n");
  const Outcome run = Run({"convert", "odd.csv", "out.xml"});
  EXPECT_EQ(run.status, 0);
  EXPECT_THAT(run.err, HasSubstr("out.xml: names with &, < or \" go out as they are"));
}

TEST_F(Terrain, FolderInPlaceOfAFileIsNamedOnce) {
  std::filesystem::create_directory(folder.File("dir.xml"));
  folder.Write("dir.xml/x", "");
  const Outcome run = Run({"convert", "dir.xml", "out.xml"});
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.err, "kalvio: dir.xml: cannot be opened: Is a directory\n");
}

TEST_F(Terrain, AFileWithNothingInItSaysSo) {
  folder.Write("empty.xml", "<LandXML/>");
  const Outcome run = Run({"convert", "empty.xml", "out.xml"});
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.err, "kalvio: empty.xml: nothing was imported: no LandXML record in it\n");
}

}  // namespace
}  // namespace e2e
