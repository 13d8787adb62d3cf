// Roads in LandXML: which parts an alignment has.
#include <string>

#include "tests/support/exchange_landxml.h"
#include "tests/support/exchange_roads.h"

using namespace exchange_test;
using tdk::geom::PNT_2D;
using tdk::geom::VECTOR_2D;

namespace {

class LandXmlAlignment : public testing::Test {
 protected:
  LandXmlAlignment() {
    road.SetName("Via Roma");
    road.SetProgs(100, 350);
  }

  std::string Written() const { return AlignmentText(road); }
  /// The line with the start of the alignment.
  std::string Start() const { return LineThatBegins(Written(), "\t\t\t<Start "); }

  CRoad road;
};

std::string StartLine(const std::string& place) {
  return "\t\t\t<Start name=\"Start_Via Roma\" state=\"existing\">" + place + "</Start>\n";
}

const std::string kStraight =
    "\t\t\t<CoordGeom name=\"CoordGeom_Via Roma\" state=\"existing\">\n"
    "\t\t\t\t<Line length=\"100.000000\" dir=\"0.000000\" staStart=\"100.000000\">\n"
    "\t\t\t\t\t<Start>2000.000000 1000.000000</Start>\n"
    "\t\t\t\t\t<End>2000.000000 1100.000000</End>\n"
    "\t\t\t\t</Line>\n"
    "\t\t\t</CoordGeom>\n";

TEST_F(LandXmlAlignment, IsWrittenWholeInItsOrder) {
  AddStraight(road);
  AddMainLine(road, {{0, 10}, Curved(150, 25, 120, 180), {300, 10}});
  CProfile& section = AddSection(road, "S1", 125);
  section.AddTerrVrt({-5, 10});
  section.AddTerrVrt({5, 11});
  EXPECT_EQ(Written(),
            "\t\t<Alignment name=\"Via Roma\" length=\"250.000000\" staStart=\"100.000000\""
            " state=\"existing\">\n" +
                StartLine("2000.000000 1000.000000 20.000000") + kStraight +
                "\t\t\t<Profile>\n"
                "\t\t\t\t<ProfAlign name=\"Profile_Via Roma\" state=\"existing\">\n"
                "\t\t\t\t\t<PVI>0.000000 10.000000</PVI>\n"
                "\t\t\t\t\t<ParaCurve length=\"60.000000\">150.000000 25.000000</ParaCurve>\n"
                "\t\t\t\t\t<PVI>300.000000 10.000000</PVI>\n"
                "\t\t\t\t</ProfAlign>\n"
                "\t\t\t</Profile>\n"
                "\t\t\t<CrossSects state=\"existing\">\n"
                "\t\t\t\t<CrossSect sta=\"125.000000\" name=\"S1\">\n"
                "\t\t\t\t\t<CrossSectSurf name=\"GROUND\">\n"
                "\t\t\t\t\t\t<PntList2D>-5.000000 10.000000 5.000000 11.000000 </PntList2D>\n"
                "\t\t\t\t\t</CrossSectSurf>\n"
                "\t\t\t\t</CrossSect>\n"
                "\t\t\t</CrossSects>\n"
                "\t\t</Alignment>\n");
}

TEST_F(LandXmlAlignment, IsAsLongAsItsChainagesWhateverItsElementsAddUpTo) {
  AddStraight(road);
  AddStraight(road);
  AddStraight(road);
  EXPECT_EQ(LineThatBegins(Written(), "\t\t<Alignment "),
            "\t\t<Alignment name=\"Via Roma\" length=\"250.000000\" staStart=\"100.000000\""
            " state=\"existing\">\n");
}

TEST_F(LandXmlAlignment, MayRunFromANegativeChainage) {
  road.SetProgs(-50.25, 100);
  EXPECT_EQ(LineThatBegins(Written(), "\t\t<Alignment "),
            "\t\t<Alignment name=\"Via Roma\" length=\"150.250000\" staStart=\"-50.250000\""
            " state=\"existing\">\n");
}

TEST_F(LandXmlAlignment, WithoutAMainLineStartsAtHeightZeroAndHasNoProfile) {
  AddStraight(road);
  EXPECT_EQ(Written(),
            "\t\t<Alignment name=\"Via Roma\" length=\"250.000000\" staStart=\"100.000000\""
            " state=\"existing\">\n" +
                StartLine("2000.000000 1000.000000 0.000000") + kStraight + "\t\t</Alignment>\n");
}

TEST_F(LandXmlAlignment, WithAnEmptyMainLineStartsAtHeightZeroAndHasNoProfile) {
  AddStraight(road);
  AddMainLine(road, {});
  EXPECT_EQ(Start(), StartLine("2000.000000 1000.000000 0.000000"));
  EXPECT_EQ(Written().find("Profile"), std::string::npos);
}

TEST_F(LandXmlAlignment, TakesItsStartHeightFromTheMainLine) {
  AddStraight(road);
  AddMainLine(road, {{0, 10}, {200, 30}});
  EXPECT_EQ(Start(), StartLine("2000.000000 1000.000000 20.000000"));
}

TEST_F(LandXmlAlignment, StartsAtHeightZeroWhereTheMainLineDoesNotReach) {
  AddStraight(road);
  AddMainLine(road, {{101, 10}, {200, 30}});
  EXPECT_EQ(Start(), StartLine("2000.000000 1000.000000 0.000000"));
  EXPECT_EQ(CountOf(Written(), "<Profile>"), 1);
}

TEST_F(LandXmlAlignment, ThatIsEmptyHasNoGeometryButTheStartOfItsFirstElement) {
  AddStraight(road);
  road.MarkEmpty(true);
  ASSERT_TRUE(road.IsEmpty());
  EXPECT_EQ(Start(), StartLine("2000.000000 1000.000000 0.000000"));
  EXPECT_EQ(Written().find("CoordGeom"), std::string::npos);
}

TEST_F(LandXmlAlignment, ThatIsEmptyKeepsItsProfileAndSections) {
  AddStraight(road);
  AddMainLine(road, {{0, 10}, {200, 30}});
  AddSection(road, "S1", 125);
  road.MarkEmpty(true);
  const std::string text = Written();
  EXPECT_EQ(CountOf(text, "<Profile>"), 1);
  EXPECT_EQ(CountOf(text, "<CrossSects "), 1);
}

TEST_F(LandXmlAlignment, WithoutElementsHasNoGeometry) {
  const std::string text = Written();
  EXPECT_EQ(text.find("CoordGeom"), std::string::npos);
  EXPECT_TRUE(text.ends_with("\t\t</Alignment>\n"));
}

TEST_F(LandXmlAlignment, WithoutSectionsHasNoCrossSections) {
  AddStraight(road);
  EXPECT_EQ(Written().find("CrossSect"), std::string::npos);
}

TEST_F(LandXmlAlignment, HasItsNameUnescapedInUtf8InEachPart) {
  road.SetName("A & <è>");
  AddStraight(road);
  AddMainLine(road, {{0, 0}});
  const std::string text = Written();
  for (const char* prefix : {"", "Start_", "CoordGeom_", "Profile_"}) {
    EXPECT_EQ(CountOf(text, std::string(" name=\"") + prefix + "A & <\xc3\xa8>\""), 1) << prefix;
  }
}

// ---- Its elements ----

TEST_F(LandXmlAlignment, HasItsElementsInTheOrderOfDriving) {
  const PNT_2D place(0, 0);
  const VECTOR_2D east(1, 0);
  AddElement<CLinePlaniElem>(road, 1.0, place, PNT_2D(1, 1));
  AddElement<CClotPlaniElem>(road, 2.0, place, east, 50.0, 50.0, true, true);
  AddElement<CArcPlaniElem>(road, 3.0, place, east, 50.0, 1.0, true);
  AddElement<CClotPlaniElem>(road, 4.0, place, east, 50.0, 50.0, false, true);
  AddElement<CLinePlaniElem>(road, 0.5, place, PNT_2D(1, 1));  // not by its chainage
  std::string order;
  const std::string text = Written();
  for (auto at = text.find("\n\t\t\t\t<"); at != std::string::npos;
       at = text.find("\n\t\t\t\t<", at + 1)) {
    if (text[at + 6] != '/') order += text.substr(at + 6, text.find(' ', at) - at - 6) + ' ';
  }
  EXPECT_EQ(order, "Line Spiral Curve Spiral Line ");
  EXPECT_TRUE(text.find(" staStart=\"4.000000\"") < text.find(" staStart=\"0.500000\"")) << text;
}

TEST_F(LandXmlAlignment, LeavesElementsOfOtherKindsOut) {
  AddElement<COtherPlaniElem>(road, 0.0, PNT_2D(0, 0), PNT_2D(1000, 2000));
  AddStraight(road);
  AddElement<COtherPlaniElem>(road, 200.0, PNT_2D(1100, 2000), PNT_2D(1200, 2000));
  EXPECT_NE(Written().find(kStraight), std::string::npos) << Written();
}

TEST_F(LandXmlAlignment, StartsAtItsFirstElementOfWhateverKind) {
  AddElement<COtherPlaniElem>(road, 0.0, PNT_2D(7, 8), PNT_2D(1000, 2000));
  AddStraight(road);
  EXPECT_EQ(Start(), StartLine("8.000000 7.000000 0.000000"));
}

TEST_F(LandXmlAlignment, WithOtherElementsOnlyHasAnEmptyGeometry) {
  AddElement<COtherPlaniElem>(road, 0.0, PNT_2D(0, 0), PNT_2D(1, 1));
  EXPECT_NE(Written().find("\t\t\t<CoordGeom name=\"CoordGeom_Via Roma\" state=\"existing\">\n"
                           "\t\t\t</CoordGeom>\n"),
            std::string::npos);
}

// ---- The document ----

TEST_F(LandXmlAlignment, StandsAloneInADocumentWithoutSurfaces) {
  AddStraight(road);
  const TempFolder folder;
  landxml::LandXmlSelection selection;
  selection.roads = {&road};
  selection.path = tdk::WString(folder.Path("out.xml"));
  landxml::WriteLandXmlDocument(selection);
  const std::string text = ReadFile(folder.Path("out.xml"));
  const std::string header = SectionText(
      [&](platform::OutputFile& file) { landxml::WriteLandXmlHeader(file, selection.path); });
  EXPECT_EQ(text, header + "\t<Alignments>\n" + Written() + "\t</Alignments>\n</LandXML>\n");
}

TEST_F(LandXmlAlignment, IsWrittenWithOthersInTheOrderOfTheList) {
  CRoad second;
  second.SetName("second");
  const TempFolder folder;
  landxml::LandXmlSelection selection;
  selection.roads = {&second, &road};
  selection.path = tdk::WString(folder.Path("out.xml"));
  landxml::WriteLandXmlDocument(selection);
  EXPECT_NE(ReadFile(folder.Path("out.xml"))
                .find("\t<Alignments>\n" + AlignmentText(second) + Written() + "\t</Alignments>\n"),
            std::string::npos);
}

}  // namespace
