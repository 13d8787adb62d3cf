// Alignments of LandXML files as roads: stations, lines, points by their names, what is told.
#include "tests/support/landxml_load.h"

using namespace landxml_test;
using tdk::WString;
using tdk::geom::PNT_2D;

namespace {

class LandXmlLoadRoad : public LandXmlLoad {
 protected:
  /// Chainages of the elements of a road.
  std::vector<double> Chainages(int road = 0) {
    std::vector<double> chainages;
    for (const CPlaniElem* const element : Elements(road)) chainages.push_back(element->GetProg());
    return chainages;
  }
  void ExpectLine(std::size_t i, const PNT_2D& start, const PNT_2D& end) {
    const auto elements = Elements();
    ASSERT_LT(i, elements.size());
    EXPECT_EQ(elements[i]->GetType(), CPlaniElem::kStraight);
    ExpectAt(elements[i]->GetStartPnt(), start.getX(), start.getY());
    ExpectAt(EndOf(*elements[i]), end.getX(), end.getY());
  }
};

TEST_F(LandXmlLoadRoad, HasItsNameAndGoesFromNorthingEastingToNorthingEasting) {
  Load(Alignment(Line("2000 1000", "2004 1003 99")));
  ASSERT_EQ(RoadCount(), 1);
  EXPECT_EQ(Road().GetName(), WString("A"));
  EXPECT_EQ(Kinds(), "S");
  ExpectLine(0, {1000, 2000}, {1003, 2004});
  EXPECT_DOUBLE_EQ(Elements()[0]->GetLength(), 5);
  EXPECT_TRUE(remarks.empty()) << remarks[0];
}

TEST_F(LandXmlLoadRoad, HasItsElementsInTheOrderOfTheFile) {
  Load(Alignment(Line("0 0", "0 10", "staStart=\"50\"") + Line("0 10", "0 15", "staStart=\"20\"")));
  EXPECT_EQ(Kinds(), "SS");
  ExpectLine(0, {0, 0}, {10, 0});
  ExpectLine(1, {10, 0}, {15, 0});
  EXPECT_EQ(Chainages(), (std::vector<double>{50, 20}));
}

TEST_F(LandXmlLoadRoad, RunsOnFromItsStartWhereElementsHaveNoStation) {
  Load(Alignment(Line("0 0", "0 10") + Line("0 10", "0 15") + Line("0 15", "0 35"),
                 "staStart=\"100\""));
  EXPECT_EQ(Chainages(), (std::vector<double>{100, 110, 115}));
  EXPECT_EQ(Road().GetStartProg(), 100);
  EXPECT_EQ(Road().GetEndProg(), 135);
}

TEST_F(LandXmlLoadRoad, StartsAtZeroWithoutAStation) {
  Load(Alignment(Line("0 0", "0 10")));
  EXPECT_EQ(Road().GetStartProg(), 0);
  EXPECT_EQ(Chainages(), (std::vector<double>{0}));
}

TEST_F(LandXmlLoadRoad, HasItsStationsAndLengthsInMetres) {
  Load(Alignment(Line("0 0", "0 1000"), "staStart=\"100\" length=\"1000\""), kFeet);
  EXPECT_NEAR(Road().GetStartProg(), 30.48, 1e-9);
  EXPECT_NEAR(Road().GetEndProg(), 335.28, 1e-9);
  ExpectLine(0, {0, 0}, {304.8, 0});
}

TEST_F(LandXmlLoadRoad, KeepsGapsBetweenItsElements) {
  Load(Alignment(Line("0 0", "0 10") + Line("0.0005 10.0007", "0 20")));
  ExpectLine(0, {0, 0}, {10, 0});
  ExpectLine(1, {10.0007, 0.0005}, {20, 0});
}

TEST_F(LandXmlLoadRoad, SkipsElementsWithoutLengthButNotTheirPlaceInTheStations) {
  Load(Alignment(
      Line("0 0", "0 10") + Line("0 10", "0 10") +
          "<Curve rot=\"cw\" radius=\"50\" length=\"0\"><Start>0 10</Start><Center>50 10</Center>"
          "<End>0 10</End></Curve>"
          "<Curve rot=\"cw\" radius=\"0\"><Start>0 10</Start><Center>0 10</Center>"
          "<End>0 10</End></Curve>"
          "<Spiral rot=\"cw\" length=\"0\" radiusStart=\"INF\" radiusEnd=\"50\" "
          "spiType=\"clothoid\">"
          "<Start>0 10</Start><PI>0 10</PI><End>0 10</End></Spiral>" +
          Line("0 10", "0 30"),
      "staStart=\"5\""));
  EXPECT_EQ(Kinds(), "SS");
  EXPECT_EQ(Chainages(), (std::vector<double>{5, 15}));
  EXPECT_TRUE(remarks.empty()) << remarks[0];
}

TEST_F(LandXmlLoadRoad, IgnoresDirections) {
  Load(Alignment(
      Line("0 0", "0 10", "dir=\"1.25\"") +
      "<Curve rot=\"ccw\" dirStart=\"1\" dirEnd=\"2\"><Start>0 100</Start><Center>0 0</Center>"
      "<End>100 0</End></Curve>"));
  ExpectDirection(Elements()[0]->GetStartTg(), 0);
  ExpectDirection(Elements()[1]->GetStartTg(), std::acos(-1) / 2);
}

TEST_F(LandXmlLoadRoad, MayHaveAStartOfItsOwn) {
  Load("<Alignments><Alignment name=\"A\"><Start>5 5</Start><CoordGeom>" + Line("0 0", "0 10") +
       "</CoordGeom></Alignment></Alignments>");
  ExpectLine(0, {0, 0}, {10, 0});
  EXPECT_TRUE(remarks.empty()) << remarks[0];
}

TEST_F(LandXmlLoadRoad, IsOneOfSeveral) {
  Load("<Alignments><Alignment name=\"A\"><CoordGeom>" + Line("0 0", "0 10") +
       "</CoordGeom></Alignment><Alignment name=\"B\"><CoordGeom>" + Line("0 0", "10 0") +
       Line("10 0", "20 0") + "</CoordGeom></Alignment></Alignments>");
  ASSERT_EQ(RoadCount(), 2);
  EXPECT_EQ(Road(1).GetName(), WString("B"));
  EXPECT_EQ(Kinds(0), "S");
  EXPECT_EQ(Kinds(1), "SS");
}

// ---- Chains of lines ----

TEST_F(LandXmlLoadRoad, IrregularLineIsAChainOfLines) {
  Load(
      Alignment("<IrregularLine><Start>0 0</Start><End>10 30</End>"
                "<PntList2D>0 10 \n 0 20 10 20</PntList2D></IrregularLine>"));
  EXPECT_EQ(Kinds(), "SSSS");
  ExpectLine(0, {0, 0}, {10, 0});
  ExpectLine(1, {10, 0}, {20, 0});
  ExpectLine(2, {20, 0}, {20, 10});
  ExpectLine(3, {20, 10}, {30, 10});
  EXPECT_EQ(Chainages(), (std::vector<double>{0, 10, 20, 30}));
}

TEST_F(LandXmlLoadRoad, IrregularLineMayHaveElevationsAndItsEndsInItsList) {
  Load(
      Alignment("<IrregularLine><Start>0 0</Start><PntList3D>0 0 5 0 10 6 10 10 7</PntList3D>"
                "<End>10 10</End></IrregularLine>"));
  EXPECT_EQ(Kinds(), "SS");
  ExpectLine(0, {0, 0}, {10, 0});
  ExpectLine(1, {10, 0}, {10, 10});
}

const std::string kPoints =
    "<CgPoints><CgPoint name=\"p\">0 0</CgPoint><CgPoint name=\"q\">0 10 7</CgPoint>"
    "<CgPoints name=\"inner\"><CgPoint name=\"r\">10 10</CgPoint></CgPoints></CgPoints>";

TEST_F(LandXmlLoadRoad, ChainIsALineFromPointToPoint) {
  Load(kPoints + Alignment("<Chain>p q\n r</Chain>"));
  EXPECT_EQ(Kinds(), "SS");
  ExpectLine(0, {0, 0}, {10, 0});
  ExpectLine(1, {10, 0}, {10, 10});
}

TEST_F(LandXmlLoadRoad, ChainWithAPointThatIsNotThereIsToldAndLeftOutWhole) {
  Load(kPoints + Alignment("<Chain>p q nobody</Chain>" + Line("0 0", "0 10")));
  EXPECT_EQ(Kinds(), "S");
  EXPECT_TRUE(Told({"line 3", "Chain", "nobody"}));
}

// ---- Points by their names ----

const std::string kByName =
    "<Line><Start pntRef=\"p\"/><End pntRef=\"q\"></End></Line>"
    "<Line><Start pntRef=\"q\"> \n </Start><End pntRef=\"r\"/></Line>";

TEST_F(LandXmlLoadRoad, PointsMayBeNamed) {
  Load(kPoints + Alignment(kByName));
  EXPECT_EQ(Kinds(), "SS");
  ExpectLine(0, {0, 0}, {10, 0});
  ExpectLine(1, {10, 0}, {10, 10});
}

TEST_F(LandXmlLoadRoad, PointsMayBeNamedBeforeTheyCome) {
  Load(Alignment(kByName) + kPoints);
  EXPECT_EQ(Kinds(), "SS");
  ExpectLine(1, {10, 0}, {10, 10});
}

TEST_F(LandXmlLoadRoad, PointsThatAreNamesOfOthersMayBeNamed) {
  Load(
      "<CgPoints><CgPoint name=\"p\" pntRef=\"late\"/><CgPoint name=\"late\">0 0</CgPoint>"
      "<CgPoint name=\"q\">0 10</CgPoint></CgPoints>" +
      Alignment("<Line><Start pntRef=\"p\"/><End pntRef=\"q\"/></Line>"));
  EXPECT_EQ(Kinds(), "S");
  ExpectLine(0, {0, 0}, {10, 0});
}

TEST_F(LandXmlLoadRoad, PointsOfASurveyMayBeNamed) {
  Load("<Survey><SurveyHeader name=\"S\"/>" + kPoints + "</Survey>" + Alignment(kByName));
  EXPECT_EQ(Kinds(), "SS");
  ExpectLine(1, {10, 0}, {10, 10});
}

TEST_F(LandXmlLoadRoad, TextOfAPointWinsOverItsName) {
  Load(kPoints + Alignment("<Line><Start pntRef=\"r\">1 2</Start><End pntRef=\"q\"/></Line>"));
  ExpectLine(0, {2, 1}, {10, 0});
}

TEST_F(LandXmlLoadRoad, LineToAPointThatIsNotThereIsTold) {
  Load(kPoints + Alignment("<Line><Start pntRef=\"p\"/><End pntRef=\"nobody\"/></Line>" +
                           Line("0 0", "0 10")));
  EXPECT_EQ(Kinds(), "S");
  EXPECT_TRUE(Told({"line 3", "Line"}));
}

// ---- What is told ----

TEST_F(LandXmlLoadRoad, WithoutGeometryIsToldAndNotLoaded) {
  Load(
      "<Alignments>\n<Alignment name=\"A\"><Profile><ProfAlign><PVI>0 1</PVI><PVI>9 2</PVI>"
      "</ProfAlign></Profile></Alignment>\n<Alignment name=\"B\"><CoordGeom/></Alignment>"
      "</Alignments>");
  EXPECT_EQ(RoadCount(), 0);
  EXPECT_TRUE(Told({"line 3", "\"A\"", "geometry"}));
  EXPECT_TRUE(Told({"line 4", "\"B\"", "geometry"}));
}

TEST_F(LandXmlLoadRoad, WithTangentPointsAloneIsToldAndNotLoaded) {
  Load(
      "<Alignments><Alignment name=\"A\"><AlignPIs><AlignPI><PI>0 0</PI></AlignPI></AlignPIs>"
      "</Alignment></Alignments>");
  EXPECT_EQ(RoadCount(), 0);
  EXPECT_TRUE(Told({"line 2", "AlignPIs"}));
  EXPECT_TRUE(Told({"line 2", "\"A\"", "geometry"}));
}

TEST_F(LandXmlLoadRoad, StationEquationsAreToldAndNotApplied) {
  Load(Alignment(Line("0 0", "0 10") + Line("0 10", "0 20"), "staStart=\"100\"",
                 "<StaEquation staInternal=\"105\" staBack=\"NaN\" staAhead=\"500\"/>"
                 "<StaEquation staInternal=\"112\" staAhead=\"900\"/>"));
  EXPECT_EQ(Chainages(), (std::vector<double>{100, 110}));
  EXPECT_TRUE(Told({"line 2", "\"A\"", "equations", "(2)"}));
}

TEST_F(LandXmlLoadRoad, ElementWithoutEndsIsToldAndTheRestIsLoaded) {
  Load(Alignment("<Line><Start>0 0</Start></Line>\n<Curve rot=\"cw\"><PI>5 5</PI></Curve>\n" +
                 Line("0 0", "0 north") + '\n' + Line("0 0", "0 10")));
  EXPECT_EQ(Kinds(), "S");
  EXPECT_TRUE(Told({"line 3", "Line"}));
  EXPECT_TRUE(Told({"line 4", "Curve"}));
  EXPECT_TRUE(Told({"line 5", "Line"}));
}

TEST_F(LandXmlLoadRoad, NumbersThatAreNoneLeaveStationsOut) {
  Load(Alignment(Line("0 0", "0 10", "staStart=\"NaN\"") + Line("0 10", "0 20", "staStart=\"\""),
                 "staStart=\"INF\" length=\"1e999\""));
  EXPECT_EQ(Chainages(), (std::vector<double>{0, 10}));
  EXPECT_EQ(Road().GetEndProg(), 20);
}

}  // namespace
