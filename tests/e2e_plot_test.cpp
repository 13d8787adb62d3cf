// kalvio plot: pictures of the plan of a job.
#include <algorithm>
#include <filesystem>

#include "run_kalvio.h"

using testing::AllOf;
using testing::ContainsRegex;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

namespace e2e {
namespace {

constexpr const char* kPoints =
    "one;1000;2000;101;TREE\ntwo;1080;2000;108;TREE\nthree;1080;2060;103;WALL\n"
    "four;1000;2060;104;WALL\n<&>;1040;2030;109;\n";

constexpr const char* kRoad = R"(<?xml version="1.0"?>
<LandXML version="1.2">
 <Units><Metric linearUnit="meter"/></Units>
 <Application name="other"/>
 <Alignments>
  <Alignment name="valley road" staStart="100" length="150">
   <CoordGeom><Line><Start>2000 1000</Start><End>2000 1150</End></Line></CoordGeom>
  </Alignment>
 </Alignments>
</LandXML>
)";

// One element of the text layer of an SVG picture.
std::string Text(const std::string& text) { return ">" + text + "</text>"; }

std::uint32_t BigEndian(const std::string& bytes, std::size_t place) {
  std::uint32_t value = 0;
  for (std::size_t i = place; i < place + 4; ++i) {
    value = value << 8 | static_cast<unsigned char>(bytes[i]);
  }
  return value;
}

class PlanPicture : public testing::Test {
 protected:
  PlanPicture() { folder.Write("points.csv", kPoints); }
  Outcome Run(std::vector<std::string> words) {
    words.insert(words.begin(), "plot");
    return RunKalvio(words, where);
  }
  std::string Bytes(const std::string& name) { return ReadBytes(folder.File(name)); }
  /// The picture of a run that must succeed and say nothing on standard error.
  std::string Svg(std::vector<std::string> words) {
    words.emplace_back("plan.svg");
    const Outcome run = Run(words);
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(run.err, "");
    return Bytes("plan.svg");
  }

  TemporaryFolder folder;
  Surroundings where{.folder = folder.Path()};
};

TEST_F(PlanPicture, ThreeKindsOfPicturesComeOut) {
  const Outcome svg = Run({"points.csv", "plan.svg"});
  EXPECT_EQ(svg.status, 0) << svg.err;
  EXPECT_EQ(svg.out, "wrote plan.svg: 5 points; 297 × 210 mm, 1:400\n");
  EXPECT_THAT(Bytes("plan.svg"), StartsWith("<?xml"));
  const Outcome pdf = Run({"points.csv", "plan.PDF"});
  EXPECT_EQ(pdf.out, "wrote plan.PDF: 5 points; 297 × 210 mm, 1:400\n");
  EXPECT_THAT(Bytes("plan.PDF"), StartsWith("%PDF-"));
  const Outcome png = Run({"points.csv", "plan.png"});
  EXPECT_EQ(png.out, "wrote plan.png: 5 points; 2000 × 1414 pixels\n");
  EXPECT_THAT(Bytes("plan.png"), StartsWith("\x89PNG"));
  EXPECT_EQ(folder.Names(),
            (std::vector<std::string>{"plan.PDF", "plan.png", "plan.svg", "points.csv"}));
}

TEST_F(PlanPicture, SvgHoldsNamesCoordinatesScaleAndNorthArrow) {
  const std::string svg = Svg({"points.csv"});
  for (const char* text : {"one", "three", "TREE", "&lt;&amp;&gt;", "points.csv", "5 known points",
                           "known point", "1:400", "0", "20 m", "N", "1020", "2040"}) {
    EXPECT_THAT(svg, HasSubstr(Text(text))) << text;
  }
  EXPECT_THAT(svg, HasSubstr("<title>points.csv</title>"));
  EXPECT_THAT(svg, HasSubstr(Text("easting 1000.000 to 1080.000 m, northing 2000.000 to "
                                  "2060.000 m, elevation 101.000 to 109.000 m")));
}

// Whatever the locale, numbers have points.
TEST_F(PlanPicture, SvgIsWellFormedInNumbers) {
  const std::string svg = Svg({"points.csv"});
  EXPECT_THAT(svg, HasSubstr("<text x=\"13.00\" y=\"8.00\""));
  EXPECT_THAT(svg, Not(ContainsRegex(" d=\"[^\"]*,")));
  EXPECT_THAT(svg, testing::EndsWith("</svg>\n"));
}

TEST_F(PlanPicture, OptionsLeaveNamesCodesAndTerrainOut) {
  EXPECT_THAT(Svg({"points.csv", "--no-names"}),
              AllOf(Not(HasSubstr(Text("one"))), HasSubstr(Text("TREE"))));
  EXPECT_THAT(Svg({"points.csv", "--no-codes"}),
              AllOf(HasSubstr(Text("one")), Not(HasSubstr(Text("TREE")))));
  ASSERT_EQ(
      RunKalvio({"terrain", "points.csv", "--name", "ground", "--save", "j.json"}, where).status,
      0);
  EXPECT_THAT(Svg({"j.json"}),
              AllOf(HasSubstr(Text("contours every 0.5 m")), HasSubstr(Text("triangles")),
                    HasSubstr(Text("105.0")), HasSubstr("1 terrain model")));
  EXPECT_THAT(Svg({"j.json", "--no-terrain"}),
              AllOf(Not(HasSubstr("contours every")), Not(HasSubstr("terrain model")),
                    HasSubstr(Text("one"))));
}

TEST_F(PlanPicture, RoadHasItsNameAndChainages) {
  folder.Write("road.xml", kRoad);
  EXPECT_THAT(Svg({"road.xml"}), AllOf(HasSubstr(Text("valley road")), HasSubstr(Text("0+200")),
                                       HasSubstr(Text("road axis"))));
}

TEST_F(PlanPicture, StationsAndTheirPointsAreThere) {
  folder.Write("small.jb2", SmallJb2());
  const Outcome run = Run({"small.jb2", "plan.svg"});
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_THAT(Bytes("plan.svg"), AllOf(HasSubstr(Text("S1")), HasSubstr(Text("station"))));
}

TEST_F(PlanPicture, SeveralInputsAreOnePlan) {
  folder.Write("more.csv", "five;1010;2010;100;X\n");
  EXPECT_THAT(Svg({"points.csv", "more.csv"}),
              AllOf(HasSubstr(Text("one")), HasSubstr(Text("five"))));
}

TEST_F(PlanPicture, SizeAndScaleAreAsAskedFor) {
  const Outcome run = Run({"points.csv", "plan.pdf", "--size", "420x297", "--scale", "1:250"});
  EXPECT_EQ(run.out, "wrote plan.pdf: 5 points; 420 × 297 mm, 1:250\n");
  EXPECT_THAT(Svg({"points.csv", "--size", "420x297"}),
              AllOf(HasSubstr("width=\"1190.55"), HasSubstr("height=\"841.88")));
}

TEST_F(PlanPicture, PngHasItsPixelsAndItsSizeOnPaper) {
  EXPECT_EQ(Run({"points.csv", "plan.png", "--size", "1200x800"}).status, 0);
  const std::string png = Bytes("plan.png");
  EXPECT_EQ(BigEndian(png, 16), 1200U);
  EXPECT_EQ(BigEndian(png, 20), 800U);
  const std::size_t resolution = png.find("pHYs");
  ASSERT_NE(resolution, std::string::npos);
  EXPECT_EQ(BigEndian(png, resolution + 4), 6734U);
}

TEST_F(PlanPicture, PointsBeyondTheSheetAreTold) {
  const Outcome run = Run({"points.csv", "plan.svg", "--scale", "1:100"});
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.out, "wrote plan.svg: 1 point; 297 × 210 mm, 1:100\n");
  EXPECT_EQ(run.err, "kalvio: plan.svg: 4 points lie beyond the sheet at this scale\n");
}

TEST_F(PlanPicture, PointsWithoutCoordinatesAreTold) {
  folder.Write("small.jb2", SmallJb2() + PointWithoutDistance());
  const Outcome run = Run({"small.jb2", "plan.svg"});
  EXPECT_EQ(run.status, 0);
  EXPECT_THAT(run.err,
              HasSubstr("kalvio: plan.svg: 3 points without plane coordinates are left out\n"));
}

TEST_F(PlanPicture, NamesThatWouldCollideAreThinnedOut) {
  std::string points;
  for (int i = 0; i < 2000; ++i) {
    points += "name" + std::to_string(i) + ";" + std::to_string(i % 50) + ";" +
              std::to_string(i / 50) + ";0;\n";
  }
  folder.Write("many.csv", points);
  const std::string svg = Svg({"many.csv"});
  std::size_t names = 0;
  for (std::size_t at = svg.find(">name"); at != std::string::npos;
       at = svg.find(">name", at + 1)) {
    ++names;
  }
  EXPECT_GT(names, 20U);
  EXPECT_LT(names, 1000U);
}

TEST_F(PlanPicture, ADrawingIsDrawn) {
  ASSERT_EQ(RunKalvio({"convert", "points.csv", "points.dxf", "--explode"}, where).status, 0);
  const Outcome run = Run({"points.dxf", "plan.svg", "--size", "841x594"});
  EXPECT_THAT(run.out, ContainsRegex("^wrote plan.svg: [0-9]+ drawn entities; "));
  const std::string svg = Bytes("plan.svg");
  EXPECT_THAT(svg,
              AllOf(HasSubstr(Text("one")), HasSubstr(Text("WALL")), HasSubstr("drawn entities")));
}

TEST_F(PlanPicture, ThemesAreDrawnAndNamed) {
  folder.Write("job.json", R"({"gis":{"themes":[{"name":"Parcels","type":"polygon","dimension":2,
"fields":[],"features":[{"parts":[[[0,0],[0,40],[60,40],[60,0],[0,0]]],"values":[]}]}]}})");
  const Outcome run = Run({"job.json", "plan.svg"});
  EXPECT_EQ(run.err, "");
  EXPECT_THAT(run.out, StartsWith("wrote plan.svg: 1 theme; "));
  EXPECT_THAT(Bytes("plan.svg"), AllOf(HasSubstr(Text("Parcels")), HasSubstr("stroke")));
}

TEST_F(PlanPicture, OnlyPointsOfShapeFilesHaveNames) {
  folder.Write("job.json", R"({"gis":{"themes":[{"name":"Walls","type":"line","dimension":2,
"fields":[{"name":"NAME","type":"text","width":9,"decimals":0}],
"features":[{"parts":[[[0,0],[40,10],[60,40]]],"values":["wall"]}]},
{"name":"Trees","type":"point","dimension":2,
"fields":[{"name":"NAME","type":"text","width":9,"decimals":0}],
"features":[{"parts":[[[30,30]]],"values":["oak"]}]}]}})");
  ASSERT_EQ(RunKalvio({"convert", "--job", "job.json", "out.shp"}, where).status, 0);
  EXPECT_THAT(Run({"out-Walls.shp", "plan.svg"}).out, StartsWith("wrote plan.svg: 1 theme; "));
  EXPECT_THAT(Run({"out-Trees.shp", "plan.svg"}).out,
              StartsWith("wrote plan.svg: 1 point, 1 theme; "));
  EXPECT_THAT(Bytes("plan.svg"), HasSubstr(Text("oak")));
}

TEST_F(PlanPicture, NothingToDrawFailsAndLeavesAnOlderPicture) {
  folder.Write("empty.json", "{}");
  folder.Write("plan.svg", "older");
  const Outcome run = Run({"empty.json", "plan.svg"});
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.out, "");
  EXPECT_EQ(run.err,
            "kalvio: empty.json: there is nothing to draw: no points, no terrain, no roads, no "
            "themes, no drawing\n");
  folder.Write("nowhere.json", R"({"knownGroups":[{"points":[{"name":"A"},{"name":"B"}]}]})");
  EXPECT_EQ(Run({"nowhere.json", "plan.svg"}).err,
            "kalvio: nowhere.json: there is nothing to draw: none of its 2 points has plane "
            "coordinates\n");
  EXPECT_EQ(Bytes("plan.svg"), "older");
}

TEST_F(PlanPicture, PictureThatCannotBeWrittenFails) {
  std::filesystem::create_directory(folder.File("plan.svg"));
  const Outcome run = Run({"points.csv", "plan.svg"});
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.out, "");
  EXPECT_THAT(run.err, AllOf(StartsWith("kalvio: plan.svg: "), HasSubstr("Is a directory")));
  EXPECT_THAT(Run({"points.csv", "nowhere/plan.svg"}).err, HasSubstr("No such file or directory"));
  std::filesystem::create_symlink("/dev/full", folder.File("full.png"));
  const Outcome full = Run({"points.csv", "full.png"});
  EXPECT_EQ(full.status, 1);
  EXPECT_THAT(full.err, HasSubstr("No space left on device"));
}

TEST_F(PlanPicture, InputThatIsNotThereFails) {
  const Outcome run = Run({"nonesuch.csv", "plan.svg"});
  EXPECT_EQ(run.status, 1);
  EXPECT_THAT(run.err, StartsWith("kalvio: nonesuch.csv: "));
}

TEST_F(PlanPicture, BadUsageNamesTheWord) {
  const std::vector<std::pair<std::vector<std::string>, std::string>> cases = {
      {{"points.csv"}, "plot"},
      {{"points.csv", "plan.bmp"}, "plan.bmp"},
      {{"points.csv", "plan"}, "plan"},
      {{"points.csv", "p.svg", "--size", "420"}, "\"420\""},
      {{"points.csv", "p.svg", "--size", "20x20"}, "millimetres"},
      {{"points.csv", "p.svg", "--size", "420x-297"}, "--size"},
      {{"points.csv", "p.png", "--size", "420x297"}, "pixels"},
      {{"points.csv", "p.png", "--size", "1000.5x1000"}, "pixels"},
      {{"points.csv", "p.svg", "--scale", "500"}, "--scale"},
      {{"points.csv", "p.svg", "--scale", "1:0"}, "--scale"},
      {{"points.csv", "p.svg", "--scale", "1:"}, "--scale"},
      {{"points.csv", "p.svg", "--scale", "1:500x"}, "\"1:500x\""}};
  for (const auto& [words, word] : cases) {
    const Outcome run = Run(words);
    EXPECT_EQ(run.status, 2) << word;
    EXPECT_THAT(run.err, HasSubstr(word));
    EXPECT_EQ(Lines(run.err).size(), 1U) << run.err;
  }
  EXPECT_EQ(folder.Names(), std::vector<std::string>{"points.csv"});
}

TEST_F(PlanPicture, SpeaksItalian) {
  const Outcome run = Run({"points.csv", "plan.svg", "--lang", "it"});
  EXPECT_EQ(run.out, "scritto plan.svg: 5 punti; 297 × 210 mm, 1:400\n");
  EXPECT_THAT(Bytes("plan.svg"),
              AllOf(HasSubstr(Text("5 punti noti")), HasSubstr(Text("punto noto")),
                    HasSubstr("est da 1000.000 a 1080.000 m")));
  folder.Write("empty.json", "{}");
  EXPECT_THAT(Run({"empty.json", "plan.svg", "--lang", "it"}).err,
              HasSubstr("non c'è nulla da disegnare"));
}

TEST_F(PlanPicture, LeavesTheJobAsItWas) {
  folder.Write("job.json", R"({"controlPoints":[{"name":"C","x":1,"y":2}]})");
  const std::string before = Bytes("job.json");
  EXPECT_THAT(Svg({"job.json"}), AllOf(HasSubstr(Text("C")), HasSubstr(Text("control point"))));
  EXPECT_EQ(Bytes("job.json"), before);
}

TEST_F(PlanPicture, OtherCommandsDoNotLoadWhatDraws) {
  where.variables = {{"LD_DEBUG", "files"}};
  EXPECT_THAT(RunKalvio({"show", "points.csv"}, where).err, Not(HasSubstr("libcairo")));
  EXPECT_THAT(Run({"points.csv", "plan.svg"}).err, HasSubstr("libcairo"));
}

}  // namespace
}  // namespace e2e
