// Terrain models in LandXML, byte for byte.
#include <string>

#include "host/document/host_document.h"
#include "services/translate.h"
#include "tests/support/exchange_landxml.h"

using namespace exchange_test;
using tdk::geom::LINE_3D;
using tdk::geom::PNT_3D;

namespace {

/// A model without anything in it, apart from what is given for its elements.
std::string Surface(const std::string& name, const std::string& boundaries,
                    const std::string& breaklines, const std::string& points,
                    const std::string& faces) {
  return "\t\t<Surface name=\"" + name +
         "\">\n"
         "\t\t\t<SourceData>\n"
         "\t\t\t\t<Boundaries>\n" +
         boundaries +
         "\t\t\t\t</Boundaries>\n"
         "\t\t\t\t<Breaklines>\n" +
         breaklines +
         "\t\t\t\t</Breaklines>\n"
         "\t\t\t</SourceData>\n"
         "\t\t\t<Definition surfType=\"TIN\">\n"
         "\t\t\t\t<Pnts>\n" +
         points +
         "\t\t\t\t</Pnts>\n"
         "\t\t\t\t<Faces>\n" +
         faces +
         "\t\t\t\t</Faces>\n"
         "\t\t\t</Definition>\n"
         "\t\t</Surface>\n";
}

class LandXmlSurface : public testing::Test {
 protected:
  LandXmlSurface() { model.SetName("Hill"); }
  ~LandXmlSurface() override { SetLanguage("en"); }

  static void AddContour(CCnts& contours, std::initializer_list<PNT_3D> vertices) {
    CCnt& contour = contours.AddCnt();
    for (const PNT_3D& vertex : vertices) contour.AddVrt(vertex);
  }
  /// Vertices along a line, in which vertex k has the easting k.
  void AddVertices(int count) {
    for (int k = 0; k < count; ++k) model.GetTris().AddTriVrt({static_cast<double>(k), 0, 0});
  }
  std::string Written() const { return SurfaceText(model); }

  CDtmPrj model;
};

TEST_F(LandXmlSurface, OfAnEmptyModelHasAllItsElementsEmpty) {
  EXPECT_EQ(Written(), Surface("Hill", "", "", "", ""));
}

TEST_F(LandXmlSurface, WritesBoundariesAsStored) {
  AddContour(model.GetOuterCnts(), {{1, 2, 3}, {4, 5, 6}, {7, 8, 9}});
  AddContour(model.GetOuterCnts(), {{0.5, -0.25, 100}, {10, 20, 30}});
  AddContour(model.GetIslandCnts(), {{11, 12, 13}, {14, 15, 16}, {11, 12, 13}});
  EXPECT_EQ(
      Written(),
      Surface("Hill",
              "\t\t\t\t\t<Boundary bndType=\"outer\" edgeTrim=\"true\" name=\"ExtBoundary0\">\n"
              "\t\t\t\t\t\t<PntList3D>2.000000 1.000000 3.000000 5.000000 4.000000 6.000000 "
              "8.000000 7.000000 9.000000 </PntList3D>\n"
              "\t\t\t\t\t</Boundary>\n"
              "\t\t\t\t\t<Boundary bndType=\"outer\" edgeTrim=\"true\" name=\"ExtBoundary1\">\n"
              "\t\t\t\t\t\t<PntList3D>-0.250000 0.500000 100.000000 20.000000 10.000000 30.000000 "
              "</PntList3D>\n"
              "\t\t\t\t\t</Boundary>\n"
              "\t\t\t\t\t<Boundary bndType=\"island\" edgeTrim=\"true\" name=\"IntBoundary0\">\n"
              "\t\t\t\t\t\t<PntList3D>12.000000 11.000000 13.000000 15.000000 14.000000 16.000000 "
              "12.000000 11.000000 13.000000 </PntList3D>\n"
              "\t\t\t\t\t</Boundary>\n",
              "", "", ""));
}

TEST_F(LandXmlSurface, CountsOuterBoundariesAndIslandsEachFromZero) {
  for (int i = 0; i < 2; ++i) AddContour(model.GetOuterCnts(), {{1, 2, 3}});
  AddContour(model.GetIslandCnts(), {{1, 2, 3}});
  const std::string text = Written();
  const auto first = text.find("name=\"ExtBoundary0\"");
  const auto second = text.find("name=\"ExtBoundary1\"");
  const auto island = text.find("name=\"IntBoundary0\"");
  ASSERT_NE(island, std::string::npos) << text;
  EXPECT_LT(first, second);
  EXPECT_LT(second, island);
  EXPECT_EQ(CountOf(text, "<Boundary "), 3);
}

TEST_F(LandXmlSurface, WritesIslandsAfterOuterBoundariesHoweverTheyWereAdded) {
  AddContour(model.GetIslandCnts(), {{1, 2, 3}});
  AddContour(model.GetOuterCnts(), {{4, 5, 6}});
  const std::string text = Written();
  EXPECT_LT(text.find("ExtBoundary0"), text.find("IntBoundary0"));
}

TEST_F(LandXmlSurface, EndsTheListOfABoundaryWithABlank) {
  AddContour(model.GetOuterCnts(), {{1000, 2000, 50}});
  EXPECT_NE(Written().find("<PntList3D>2000.000000 1000.000000 50.000000 </PntList3D>\n"),
            std::string::npos);
}

TEST_F(LandXmlSurface, WritesABoundaryWithoutVertices) {
  AddContour(model.GetIslandCnts(), {});
  EXPECT_NE(Written().find("\t\t\t\t\t\t<PntList3D></PntList3D>\n"), std::string::npos);
}

TEST_F(LandXmlSurface, WritesEachBreaklineWithItsTwoPoints) {
  model.GetVncs().AddVnc(LINE_3D({1, 2, 3}, {4, 5, 6}));
  model.GetVncs().AddVnc(LINE_3D({4, 5, 6}, {7, 8, -9}));  // joins the one before
  EXPECT_EQ(Written(),
            Surface("Hill", "",
                    "\t\t\t\t\t<Breakline name=\"breakline0\">\n"
                    "\t\t\t\t\t\t<PntList3D>2.000000 1.000000 3.000000 5.000000 4.000000 "
                    "6.000000</PntList3D>\n"
                    "\t\t\t\t\t</Breakline>\n"
                    "\t\t\t\t\t<Breakline name=\"breakline1\">\n"
                    "\t\t\t\t\t\t<PntList3D>5.000000 4.000000 6.000000 8.000000 7.000000 "
                    "-9.000000</PntList3D>\n"
                    "\t\t\t\t\t</Breakline>\n",
                    "", ""));
}

TEST_F(LandXmlSurface, NumbersItsVerticesFromZeroAndWritesUnusedOnesToo) {
  CTris& triangulation = model.GetTris();
  triangulation.AddTriVrt({1000, 2000, 50});
  triangulation.AddTriVrt({1, 2, 3});
  triangulation.AddTriVrt({1234567.1234567, -0.5, -12.000001});
  triangulation.AddTriVrt({4, 5, 6});  // of no triangle
  ASSERT_TRUE(triangulation.AddTri(0, 1, 2));
  EXPECT_EQ(Written(), Surface("Hill", "", "",
                               "\t\t\t\t\t<P id=\"0\">2000.000000 1000.000000 50.000000</P>\n"
                               "\t\t\t\t\t<P id=\"1\">2.000000 1.000000 3.000000</P>\n"
                               "\t\t\t\t\t<P id=\"2\">-0.500000 1234567.123457 -12.000001</P>\n"
                               "\t\t\t\t\t<P id=\"3\">5.000000 4.000000 6.000000</P>\n",
                               "\t\t\t\t\t<F>0 1 2</F>\n"));
}

TEST_F(LandXmlSurface, KeepsTheOrderOfATrianglesVertices) {
  AddVertices(8);
  ASSERT_TRUE(model.GetTris().AddTri(4, 7, 2));
  ASSERT_TRUE(model.GetTris().AddTri(2, 7, 4));
  EXPECT_NE(Written().find("\t\t\t\t<Faces>\n"
                           "\t\t\t\t\t<F>4 7 2</F>\n"
                           "\t\t\t\t\t<F>2 7 4</F>\n"
                           "\t\t\t\t</Faces>\n"),
            std::string::npos);
}

TEST_F(LandXmlSurface, NumbersManyVerticesWithoutGaps) {
  AddVertices(20'000);  // more than one piece of the file
  ASSERT_TRUE(model.GetTris().AddTri(0, 10'000, 19'999));
  const std::string text = Written();
  EXPECT_EQ(CountOf(text, "<P id="), 20'000);
  EXPECT_EQ(CountOf(text, "<P id=\"19999\">0.000000 19999.000000 0.000000</P>\n"), 1);
  EXPECT_EQ(CountOf(text, "<F>0 10000 19999</F>\n"), 1);
}

TEST_F(LandXmlSurface, HasItsNameUnescapedInUtf8) {
  model.SetName("A & \"B\" <è> %s");
  EXPECT_EQ(Written(), Surface("A & \"B\" <\xc3\xa8> %s", "", "", "", ""));
}

TEST_F(LandXmlSurface, NamesItsElementsInTheLanguageOfTheUser) {
  AddContour(model.GetOuterCnts(), {{1, 2, 3}});
  AddContour(model.GetIslandCnts(), {{1, 2, 3}});
  model.GetVncs().AddVnc({});
  ASSERT_TRUE(SetLanguage("it"));
  const std::string text = Written();
  EXPECT_EQ(CountOf(text, " name=\"ContornoEsterno0\">\n"), 1);
  EXPECT_EQ(CountOf(text, " name=\"ContornoInterno0\">\n"), 1);
  EXPECT_EQ(CountOf(text,
                    "<Breakline name=\"linea di discontinuit\xc3\xa0"
                    "0\">\n"),
            1);
}

TEST_F(LandXmlSurface, StandsWithOthersInOneElementAtTheEndOfTheDocument) {
  const TempFolder folder;
  HostDocument document;
  CGrpPnt* const group = document.GetLibPnt()->AddGrp(true);
  group->SetLabels("K", "", "", "");
  CDtmPrj second;
  second.SetName("Valley");
  landxml::LandXmlSelection selection;
  selection.pointLibrary = document.GetLibPnt();
  selection.pointGroups = {group};
  selection.surfaces = {&second, &model};
  selection.path = tdk::WString(folder.Path("out.xml"));
  landxml::WriteLandXmlDocument(selection);
  const std::string text = ReadFile(folder.Path("out.xml"));
  EXPECT_TRUE(text.ends_with("\t</CgPoints>\n\t<Surfaces>\n" + SurfaceText(second) + Written() +
                             "\t</Surfaces>\n</LandXML>\n"))
      << text;
  EXPECT_EQ(text.find("Alignments"), std::string::npos);
}

}  // namespace
