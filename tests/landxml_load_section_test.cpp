// Cross sections of LandXML files as height lines of a road's sections.
#include "tests/support/landxml_load.h"

using namespace landxml_test;
using tdk::WString;

namespace {

class LandXmlLoadSections : public LandXmlLoad {
 protected:
  /// Sections from line 5 on.
  void LoadSections(const std::string& sections, const std::string& units = kMetres) {
    Load(Alignment(Line("0 0", "0 400"), "", "<CrossSects>\n" + sections + "</CrossSects>"), units);
  }
  /// One section of these surfaces, which stand on line 6.
  void LoadSurfaces(const std::string& surfaces) {
    LoadSections("<CrossSect sta=\"125\" name=\"S1\">\n" + surfaces + "</CrossSect>");
  }
  CProfile& Section(int i = 0) { return Road().GetRoadProfile()->GetSection(i); }
  int SectionCount() { return Road().GetRoadProfile()->GetNumSections(); }

  /// "-5 10, 5 11 | 6 7": distances and heights, pieces apart.
  static void Append(std::string& text, const TAltiVrt& vertex) {
    const bool isVertex = IsDefined(vertex.distance) && IsDefined(vertex.height);
    const bool isFirst = text.empty() || text.ends_with("| ");
    if (isVertex) text += (isFirst ? "" : ", ") + Text(vertex.distance) + ' ' + Text(vertex.height);
    if (!isVertex) text += " | ";
  }
  std::string Ground(int section = 0) {
    std::string text;
    for (int i = 0; i < Section(section).GetNumTerrVrts(); ++i) {
      Append(text, Section(section).GetTerrVrt(i));
    }
    return text;
  }
  /// The lines of a section with the names of their codes.
  std::vector<std::string> Lines(int section = 0) {
    std::vector<std::string> lines;
    for (int i = 0; i < Section(section).GetNumProfileAlti(); ++i) {
      const CProfileAlti& line = Section(section).GetProfileAlti(i);
      std::string text;
      for (int k = 0; k < line.GetNumVrts(); ++k) Append(text, line.GetVrt(k));
      const TProfileAltiCode* const code =
          Road().ProfileCodes().FindSectionAltiCode(line.GetCode());
      lines.push_back((code == nullptr ? "no code" : code->name.ToUtf8()) + ": " + text);
    }
    return lines;
  }
  using Texts = std::vector<std::string>;
};

const std::string kGround =
    "<CrossSectSurf name=\"GROUND\"><PntList2D>-5 10 5 11</PntList2D></CrossSectSurf>";

TEST_F(LandXmlLoadSections, HaveTheirStationsAndNames) {
  LoadSections("<CrossSect sta=\"125.5\" name=\"S1\">" + kGround +
               "</CrossSect><CrossSect sta=\"50\">" + kGround + "</CrossSect>");
  ASSERT_EQ(SectionCount(), 2);
  EXPECT_EQ(Section(0).GetSectionProg(), 125.5);
  EXPECT_EQ(Section(0).GetName(), WString("S1"));
  EXPECT_EQ(Section(1).GetSectionProg(), 50);
  EXPECT_EQ(Ground(1), "-5 10, 5 11");
  EXPECT_TRUE(remarks.empty()) << remarks[0];
}

TEST_F(LandXmlLoadSections, WithoutAStationAreToldAndTheOthersAreLoaded) {
  LoadSections("<CrossSect name=\"S1\">" + kGround + "</CrossSect>\n<CrossSect sta=\"end\"/>" +
               "<CrossSect sta=\"50\">" + kGround + "</CrossSect>");
  ASSERT_EQ(SectionCount(), 1);
  EXPECT_EQ(Section(0).GetSectionProg(), 50);
  EXPECT_TRUE(Told({"line 5", "CrossSect", "station"}));
  EXPECT_TRUE(Told({"line 6", "CrossSect", "station"}));
}

TEST_F(LandXmlLoadSections, GroundIsKnownByItsNameOrItsState) {
  for (const char* const attributes : {"name=\"GROUND\"", "name=\"TERRENO\"", "name=\"ground\"",
                                       "name=\"anything\" state=\"existing\""}) {
    const int before = RoadCount();
    LoadSurfaces(std::string("<CrossSectSurf ") + attributes +
                 "><PntList2D>-5 10 5 11</PntList2D></CrossSectSurf>");
    CProfile& section = Road(before).GetRoadProfile()->GetSection(0);
    EXPECT_EQ(section.GetNumTerrVrts(), 2) << attributes;
    EXPECT_EQ(section.GetNumProfileAlti(), 0) << attributes;
  }
}

TEST_F(LandXmlLoadSections, ListsOfOneSurfaceArePieces) {
  LoadSurfaces(
      "<CrossSectSurf name=\"GROUND\"><PntList2D>-5 10 -1 11</PntList2D>"
      "<PntList2D>1 12 5 13</PntList2D></CrossSectSurf>");
  EXPECT_EQ(Ground(), "-5 10, -1 11 | 1 12, 5 13");
}

TEST_F(LandXmlLoadSections, OffsetsMayGoBack) {
  LoadSurfaces(
      "<CrossSectSurf name=\"GROUND\"><PntList2D>-5 10 3 9 2 8 5 7 -5 10</PntList2D>"
      "</CrossSectSurf>");
  EXPECT_EQ(Ground(), "-5 10, 3 9, 2 8, 5 7, -5 10");
}

TEST_F(LandXmlLoadSections, OtherSurfacesAreLinesOfACode) {
  LoadSurfaces(kGround +
               "<CrossSectSurf name=\"Pavement\"><PntList2D>-3 10.5 3 10.5</PntList2D>"
               "<PntList2D>4 9 5 9</PntList2D></CrossSectSurf>"
               "<CrossSectSurf name=\"Base\" state=\"proposed\"><PntList2D>-3 10 3 10</PntList2D>"
               "</CrossSectSurf>");
  EXPECT_EQ(Ground(), "-5 10, 5 11");
  EXPECT_EQ(Lines(), (Texts{"Pavement: -3 10.5, 3 10.5 | 4 9, 5 9", "Base: -3 10, 3 10"}));
}

TEST_F(LandXmlLoadSections, SurfacesOfOneNameHaveOneCode) {
  const std::string pavement =
      "<CrossSectSurf name=\"Pavement\"><PntList2D>-3 9 3 9</PntList2D></CrossSectSurf>";
  const std::string base =
      "<CrossSectSurf name=\"Base\"><PntList2D>0 1 1 1</PntList2D></CrossSectSurf>";
  LoadSections("<CrossSect sta=\"1\">" + base + pavement + "</CrossSect><CrossSect sta=\"2\">" +
               pavement + "</CrossSect>");
  EXPECT_EQ(Road().ProfileCodes().Codes().size(), 2U);
  EXPECT_EQ(Section(0).GetProfileAlti(1).GetCode(), Section(1).GetProfileAlti(0).GetCode());
  EXPECT_EQ(Lines(1), (Texts{"Pavement: -3 9, 3 9"}));
}

TEST_F(LandXmlLoadSections, DesignSurfacesHaveTheirPointsOneByOne) {
  LoadSurfaces(
      "<DesignCrossSectSurf name=\"Pavement\"><CrossSectPnt code=\"edge\">-3 10</CrossSectPnt>"
      "<CrossSectPnt dataFormat=\"Offset Elevation\">3 11</CrossSectPnt></DesignCrossSectSurf>");
  EXPECT_EQ(Lines(), (Texts{"Pavement: -3 10, 3 11"}));
}

TEST_F(LandXmlLoadSections, PointsOfSlopeAndDistanceAreRefused) {
  LoadSurfaces(
      "<DesignCrossSectSurf name=\"Pavement\"><CrossSectPnt>-3 10</CrossSectPnt>\n"
      "<CrossSectPnt dataFormat=\"Slope Distance\">0.02 3</CrossSectPnt></DesignCrossSectSurf>");
  EXPECT_EQ(Lines(), (Texts{"Pavement: -3 10"}));
  EXPECT_TRUE(Told({"line 7", "CrossSectPnt"}));
}

TEST_F(LandXmlLoadSections, BadListsAreToldAndTheOthersAreLoaded) {
  LoadSurfaces(
      "<CrossSectSurf name=\"GROUND\"><PntList2D>-5 10 left 11</PntList2D>\n"
      "<PntList2D>-5 10 5</PntList2D>\n<PntList2D>-5 10 5 11</PntList2D></CrossSectSurf>\n"
      "<CrossSectSurf name=\"Base\"><PntList2D>NaN NaN 1 1</PntList2D></CrossSectSurf>" +
      kGround);
  EXPECT_TRUE(Told({"line 6", "list"}));
  EXPECT_TRUE(Told({"line 7", "list"}));
  EXPECT_TRUE(Told({"line 9", "list"}));
  EXPECT_EQ(Ground(), "-5 10, 5 11 | -5 10, 5 11");
}

TEST_F(LandXmlLoadSections, AreInMetres) {
  LoadSections("<CrossSect sta=\"1000\">" + kGround + "</CrossSect>", kFeet);
  EXPECT_NEAR(Section().GetSectionProg(), 304.8, 1e-9);
  EXPECT_NEAR(Section().GetTerrVrt(0).distance, -1.524, 1e-9);
  EXPECT_NEAR(Section().GetTerrVrt(1).height, 3.3528, 1e-9);
}

}  // namespace
