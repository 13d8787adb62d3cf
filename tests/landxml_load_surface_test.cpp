// Surfaces of LandXML files as terrain models.
#include <ostream>

#include "tests/support/landxml_load.h"

using namespace landxml_test;
using tdk::WString;

namespace {

// The surface stands on line 2.
std::string SurfaceOf(const std::string& parts, const std::string& name = "hill") {
  return "<Surfaces><Surface name=\"" + name + "\">" + parts + "</Surface></Surfaces>";
}
std::string Definition(const std::string& points, const std::string& faces) {
  return "<Definition surfType=\"TIN\"><Pnts>" + points + "</Pnts><Faces>" + faces +
         "</Faces></Definition>";
}
std::string P(const std::string& id, const std::string& text) {
  return "<P id=\"" + id + "\">" + text + "</P>";
}

// A square with the ids 1 to 4.
const std::string kSquare =
    P("1", "0 0 5") + P("2", "0 10 6") + P("3", "10 10 7") + P("4", "10 0 8");

class LandXmlLoadSurface : public LandXmlLoad {
 protected:
  void LoadTriangulation(const std::string& points, const std::string& faces) {
    Load(SurfaceOf(Definition(points, faces)));
  }
  void LoadSource(const std::string& source) {
    Load(SurfaceOf("<SourceData>" + source + "</SourceData>"));
  }

  /// "0 1 2, 2 3 0": positions of the corners.
  std::string Triangles(int surface = 0) {
    std::string text;
    const CTris& triangles = Surface(surface).GetTris();
    for (int i = 0; i < triangles.GetNoTris(); ++i) {
      if (i > 0) text += ", ";
      for (int k = 0; k < 3; ++k) {
        if (k > 0) text += ' ';
        text += std::to_string(triangles.GetTriAt(i).GetVerIndex(k));
      }
    }
    return text;
  }
  int VertexCount() { return Surface().GetTris().GetNoTriVrts(); }
};

// ---- Points and their ids ----

TEST_F(LandXmlLoadSurface, PointsAreNorthingEastingElevation) {
  LoadTriangulation(P("1", "10 20 30"), "");
  ASSERT_EQ(SurfaceCount(), 1);
  EXPECT_EQ(Surface().GetName(), WString("hill"));
  ASSERT_EQ(VertexCount(), 1);
  ExpectAt(Surface().GetTris().GetTriVrtAt(0), 20, 10, 30);
  EXPECT_TRUE(remarks.empty()) << remarks[0];
}

TEST_F(LandXmlLoadSurface, IdsMayCountFromOne) {
  LoadTriangulation(kSquare, "<F>1 2 3</F><F>1 3 4</F>");
  EXPECT_EQ(Triangles(), "0 1 2, 0 2 3");
}

TEST_F(LandXmlLoadSurface, IdsMayCountFromZero) {
  LoadTriangulation(P("0", "0 0 5") + P("1", "0 10 6") + P("2", "10 10 7"), "<F>0 1 2</F>");
  EXPECT_EQ(Triangles(), "0 1 2");
}

TEST_F(LandXmlLoadSurface, IdsMayHaveGapsAndAnyOrder) {
  LoadTriangulation(P("7", "0 0 5") + P("100", "0 10 6") + P("3", "10 10 7"), "<F>100 3 7</F>");
  EXPECT_EQ(Triangles(), "1 2 0");
}

TEST_F(LandXmlLoadSurface, IdsMayBeTheLargestThatThereAre) {
  LoadTriangulation(P("9223372036854775805", "0 0 5") + P("9223372036854775806", "0 10 6") +
                        P("9223372036854775807", "10 10 7"),
                    "<F>9223372036854775805 9223372036854775806 9223372036854775807</F>");
  EXPECT_EQ(Triangles(), "0 1 2");
}

TEST_F(LandXmlLoadSurface, IdsOfAnotherSurfaceAreOthers) {
  Load("<Surfaces><Surface name=\"a\">" + Definition(kSquare, "<F>2 3 4</F>") +
       "</Surface><Surface name=\"b\">" +
       Definition(P("4", "0 0 0") + P("3", "1 0 0") + P("2", "1 1 0"), "<F>2 3 4</F>") +
       "</Surface></Surfaces>");
  ASSERT_EQ(SurfaceCount(), 2);
  EXPECT_EQ(Triangles(0), "1 2 3");
  EXPECT_EQ(Triangles(1), "2 1 0");
}

TEST_F(LandXmlLoadSurface, PointsWithoutAnElevationAreToldAndLieAtZero) {
  LoadTriangulation(P("1", "0 0 5") + P("2", "0 10") + P("3", "10 10"), "<F>1 2 3</F>");
  EXPECT_EQ(Triangles(), "0 1 2");
  ExpectAt(Surface().GetTris().GetTriVrtAt(1), 10, 0, 0);
  EXPECT_TRUE(Told({"line 2", "hill", "elevation", "(2)"}));
}

TEST_F(LandXmlLoadSurface, PointsThatAreNoneAreToldAndTheRestIsLoaded) {
  LoadTriangulation(kSquare + P("5", "1 2 three") + P("6", "1") + P("x", "1 2 3") + "<P>1 2 3</P>",
                    "<F>1 2 3</F>");
  EXPECT_EQ(VertexCount(), 4);
  EXPECT_EQ(Triangles(), "0 1 2");
  EXPECT_TRUE(Told({"line 2", "hill", "points", "(4)"}));
}

// ---- Faces ----

TEST_F(LandXmlLoadSurface, FacesKeepTheOrderOfTheirCorners) {
  LoadTriangulation(kSquare, "<F>3 2 1</F><F>2 3 1</F>");
  EXPECT_EQ(Triangles(), "2 1 0, 1 2 0");
}

TEST_F(LandXmlLoadSurface, InvisibleFacesAreDroppedAndTold) {
  LoadTriangulation(kSquare, R"(<F i="1">1 2 3</F><F i="0">1 3 4</F><F n="0 2 7" i="1">2 3 4</F>)");
  EXPECT_EQ(Triangles(), "0 2 3");
  EXPECT_TRUE(Told({"line 2", "hill", "invisible", "(2)"}));
}

TEST_F(LandXmlLoadSurface, FacesWithFourCornersAreTwoTriangles) {
  LoadTriangulation(kSquare, "<F>1 2 3 4</F>");
  EXPECT_EQ(Triangles(), "0 1 2, 0 2 3");
}

TEST_F(LandXmlLoadSurface, NeighboursAndBreaklineSidesAreIgnored) {
  LoadTriangulation(kSquare, R"(<F n="9 9 9" b="1 0 1">1 2 3</F>)");
  EXPECT_EQ(Triangles(), "0 1 2");
}

TEST_F(LandXmlLoadSurface, FacesMayStandInCapitals) {
  Load(SurfaceOf("<Definition surfType=\"TIN\"><Pnts>" + kSquare +
                 "</Pnts><FACES><F>1 2 3</F></FACES></Definition>"));
  EXPECT_EQ(Triangles(), "0 1 2");
}

TEST_F(LandXmlLoadSurface, FacesWithoutThreeKnownCornersAreTold) {
  LoadTriangulation(kSquare, "<F>1 2 9</F><F>1 2</F><F>1 2 three</F><F></F><F>1 2 3</F>");
  EXPECT_EQ(Triangles(), "0 1 2");
  EXPECT_TRUE(Told({"line 2", "hill", "faces", "(4)"}));
}

// ---- Source data ----

TEST_F(LandXmlLoadSurface, SourceDataAloneIsAModelWithoutTriangles) {
  LoadSource(
      "<Breaklines><Breakline><PntList3D>0 0 1 0 9 2</PntList3D></Breakline></Breaklines>"
      "<DataPoints><PntList3D>1 2 3</PntList3D></DataPoints>");
  ASSERT_EQ(SurfaceCount(), 1);
  EXPECT_EQ(VertexCount(), 0);
  EXPECT_EQ(Surface().GetVncs().GetNoVncs(), 1);
  EXPECT_TRUE(Told({"DataPoints"}));
}

TEST_F(LandXmlLoadSurface, OuterBoundariesAreApartFromVoidsAndIslands) {
  LoadSource(R"(<Boundaries>
      <Boundary bndType="outer"><PntList3D>0 0 1 0 9 2 9 9 3</PntList3D></Boundary>
      <Boundary bndType="void"><PntList3D>1 1 4 1 2 5 2 2 6 2 1 7</PntList3D></Boundary>
      <Boundary bndType="island"><PntList3D>3 3 4 3 4 5 4 4 6</PntList3D></Boundary>
      </Boundaries>)");
  const CCnts& outer = Surface().GetOuterCnts();
  const CCnts& islands = Surface().GetIslandCnts();
  ASSERT_EQ(outer.GetNoCnts(), 1);
  ASSERT_EQ(outer.GetCntAt(0).GetNoVrts(), 3);
  ExpectAt(outer.GetCntAt(0).GetVrt(1), 9, 0, 2);
  ASSERT_EQ(islands.GetNoCnts(), 2);
  ASSERT_EQ(islands.GetCntAt(0).GetNoVrts(), 4);
  ExpectAt(islands.GetCntAt(0).GetVrt(3), 1, 2, 7);
  EXPECT_EQ(islands.GetCntAt(1).GetNoVrts(), 3);
  EXPECT_TRUE(remarks.empty()) << remarks[0];
}

TEST_F(LandXmlLoadSurface, BoundariesWithoutElevationsLieAtZero) {
  LoadSource(R"(<Boundaries>
      <Boundary bndType="outer"><PntList2D>0 0 0 9 9 9</PntList2D></Boundary>
      <Boundary bndType="void"><PntList2D>1 1 1 2 2 2</PntList2D></Boundary></Boundaries>)");
  ASSERT_EQ(Surface().GetOuterCnts().GetNoCnts(), 1);
  ExpectAt(Surface().GetOuterCnts().GetCntAt(0).GetVrt(1), 9, 0, 0);
  ASSERT_EQ(Surface().GetIslandCnts().GetNoCnts(), 1);
  EXPECT_EQ(Surface().GetIslandCnts().GetCntAt(0).GetNoVrts(), 3);
  EXPECT_TRUE(Told({"hill", "elevation", "(6)"}));
}

TEST_F(LandXmlLoadSurface, BreaklineOfFourPointsIsThreeSegments) {
  LoadSource(
      "<Breaklines><Breakline><PntList3D>\n0 0 1\n0 9 2\n9 9 3\n9 0 4\n</PntList3D></Breakline>"
      "</Breaklines>");
  const CVncs& segments = Surface().GetVncs();
  ASSERT_EQ(segments.GetNoVncs(), 3);
  ExpectAt(segments.GetVncAt(0).GetCoords().getStart(), 0, 0, 1);
  ExpectAt(segments.GetVncAt(0).GetCoords().getEnd(), 9, 0, 2);
  ExpectAt(segments.GetVncAt(2).GetCoords().getStart(), 9, 9, 3);
  ExpectAt(segments.GetVncAt(2).GetCoords().getEnd(), 0, 9, 4);
}

TEST_F(LandXmlLoadSurface, BadListsAreToldAndTheRestIsLoaded) {
  Load(
      SurfaceOf("<SourceData><Boundaries>\n"
                "<Boundary bndType=\"outer\"><PntList3D>0 0 1 0 9</PntList3D></Boundary>\n"
                "<Boundary bndType=\"void\"><PntList2D>0 0 north 9</PntList2D></Boundary>\n"
                "<Boundary bndType=\"outer\"><PntList2D>0 0 0 9 9 9</PntList2D></Boundary>\n"
                "</Boundaries><Breaklines>\n"
                "<Breakline><PntList3D>1 2 3 4</PntList3D></Breakline>\n"
                "<Breakline><PntList3D>1 2 3 4 5 6</PntList3D></Breakline>\n"
                "</Breaklines></SourceData>" +
                Definition(kSquare, "<F>1 2 3</F>")));
  EXPECT_TRUE(Told({"line 3", "list"}));
  EXPECT_TRUE(Told({"line 4", "list"}));
  EXPECT_TRUE(Told({"line 7", "list"}));
  EXPECT_EQ(Surface().GetOuterCnts().GetNoCnts(), 1);
  EXPECT_EQ(Surface().GetIslandCnts().GetNoCnts(), 0);
  EXPECT_EQ(Surface().GetVncs().GetNoVncs(), 1);
  EXPECT_EQ(Triangles(), "0 1 2");
}

// ---- Units ----

struct Unit {
  const char* name;
  const char* system;
  const char* numbers;
  double east, north, elevation;  // metres
};
void PrintTo(const Unit& unit, std::ostream* out) { *out << unit.name; }

class LandXmlLoadUnit : public LandXmlLoadSurface, public testing::WithParamInterface<Unit> {};

TEST_P(LandXmlLoadUnit, IsMetresInTheJobElevationsToo) {
  const std::string numbers = GetParam().numbers;
  Load(SurfaceOf("<SourceData><Boundaries><Boundary bndType=\"outer\"><PntList3D>" + numbers +
                 "</PntList3D></Boundary></Boundaries><Breaklines><Breakline><PntList3D>0 0 0 " +
                 numbers + "</PntList3D></Breakline></Breaklines></SourceData>" +
                 Definition(P("1", numbers), "")),
       std::string("<Units><") + GetParam().system + " linearUnit=\"" + GetParam().name +
           "\"/></Units>");
  const auto expect = [](const tdk::geom::PNT_3D& place) {
    ExpectAt(place, GetParam().east, GetParam().north, GetParam().elevation);
  };
  expect(Surface().GetTris().GetTriVrtAt(0));
  expect(Surface().GetOuterCnts().GetCntAt(0).GetVrt(0));
  expect(Surface().GetVncs().GetVncAt(0).GetCoords().getEnd());
  EXPECT_TRUE(remarks.empty()) << remarks[0];
}

INSTANTIATE_TEST_SUITE_P(
    Each, LandXmlLoadUnit,
    testing::Values(Unit{"meter", "Metric", "1000 2000 -3.5", 2000, 1000, -3.5},
                    Unit{"millimeter", "Metric", "1000 2000 500", 2, 1, 0.5},
                    Unit{"foot", "Imperial", "1000 2000 100", 609.6, 304.8, 30.48},
                    Unit{"USSurveyFoot", "Imperial", "3937 7874 39.37", 2400, 1200, 12},
                    Unit{"inch", "Imperial", "100 200 1000", 5.08, 2.54, 25.4},
                    Unit{"mile", "Imperial", "1 2 0.5", 3218.688, 1609.344, 804.672}),
    [](const auto& it) { return std::string(it.param.name); });

}  // namespace
