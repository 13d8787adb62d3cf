// Cross sections of roads in LandXML, byte for byte.
#include <cmath>
#include <string>

#include "formats/landxml/alignment_parts.h"
#include "services/translate.h"
#include "tests/support/exchange_landxml.h"
#include "tests/support/exchange_roads.h"

using namespace exchange_test;

namespace {

constexpr double kNone = UndefinedValue;

/// A section of chainage 125 in a road with one code, 7.
class LandXmlCrossSection : public testing::Test {
 protected:
  LandXmlCrossSection() { road.ProfileCodes().AddSectionAltiCode(7, "Pavement"); }
  ~LandXmlCrossSection() override { SetLanguage("en"); }

  void AddTerrain(std::initializer_list<TAltiVrt> vertices) {
    for (const TAltiVrt& vertex : vertices) section.AddTerrVrt(vertex);
  }
  void AddLine(int code, std::initializer_list<TAltiVrt> vertices) {
    AddVertices(section.AddProfileAlti(code, /*terrain=*/false), vertices);
  }
  std::string Written() const {
    return SectionText([&](platform::OutputFile& file) { landxml::WriteCrossSect(file, section); });
  }

  CRoad road;
  CProfile& section = AddSection(road, "S1", 125);
};

std::string Section(const std::string& surfaces) {
  return "\t\t\t\t<CrossSect sta=\"125.000000\" name=\"S1\">\n" + surfaces +
         "\t\t\t\t</CrossSect>\n";
}
std::string Piece(const std::string& name, const std::string& points) {
  return "\t\t\t\t\t<CrossSectSurf name=\"" + name +
         "\">\n"
         "\t\t\t\t\t\t<PntList2D>" +
         points +
         "</PntList2D>\n"
         "\t\t\t\t\t</CrossSectSurf>\n";
}

TEST_F(LandXmlCrossSection, WithNothingInItHasItsChainageBeforeItsName) {
  EXPECT_EQ(Written(),
            "\t\t\t\t<CrossSect sta=\"125.000000\" name=\"S1\">\n"
            "\t\t\t\t</CrossSect>\n");
}

// ---- Terrain ----

TEST_F(LandXmlCrossSection, HasItsTerrainByDistanceAndHeight) {
  AddTerrain({{-10, 100.5}, {0, 101}, {10.25, -102}});
  EXPECT_EQ(Written(), Section(Piece("GROUND",
                                     "-10.000000 100.500000 0.000000 101.000000 "
                                     "10.250000 -102.000000 ")));
}

TEST_F(LandXmlCrossSection, CutsItsTerrainWhereItIsUndefined) {
  AddTerrain({{1, 11}, {2, 12}, {3, kNone}, {4, 14}, {5, 15}, {6, 16}});
  EXPECT_EQ(Written(),
            Section(Piece("GROUND", "1.000000 11.000000 2.000000 12.000000 ") +
                    Piece("GROUND", "4.000000 14.000000 5.000000 15.000000 6.000000 16.000000 ")));
}

TEST_F(LandXmlCrossSection, CutsItsTerrainAtAnUndefinedDistanceToo) {
  AddTerrain({{1, 11}, {2, 12}, {kNone, 13}, {kNone, kNone}, {4, 14}, {5, 15}});
  EXPECT_EQ(Written(), Section(Piece("GROUND", "1.000000 11.000000 2.000000 12.000000 ") +
                               Piece("GROUND", "4.000000 14.000000 5.000000 15.000000 ")));
}

TEST_F(LandXmlCrossSection, DropsAVertexBetweenTwoUndefinedOnes) {
  AddTerrain({{1, 11}, {2, 12}, {3, kNone}, {4, 14}, {5, kNone}, {6, 16}, {7, 17}});
  EXPECT_EQ(Written(), Section(Piece("GROUND", "1.000000 11.000000 2.000000 12.000000 ") +
                               Piece("GROUND", "6.000000 16.000000 7.000000 17.000000 ")));
}

TEST_F(LandXmlCrossSection, DropsASingleVertexAtEitherEnd) {
  AddTerrain({{1, 11}, {2, kNone}, {3, 13}, {4, 14}, {5, kNone}, {6, 16}});
  EXPECT_EQ(Written(), Section(Piece("GROUND", "3.000000 13.000000 4.000000 14.000000 ")));
}

TEST_F(LandXmlCrossSection, HasNoTerrainOfOneVertexOrOfUndefinedOnes) {
  AddTerrain({{1, 11}, {2, kNone}, {3, kNone}});
  EXPECT_EQ(Written(), Section(""));
}

TEST_F(LandXmlCrossSection, HasItsTerrainWhetherItsVerticesArePrincipalOrNot) {
  AddTerrain({NotPrincipal(1, 11), NotPrincipal(2, 12)});
  EXPECT_EQ(Written(), Section(Piece("GROUND", "1.000000 11.000000 2.000000 12.000000 ")));
}

TEST_F(LandXmlCrossSection, TakesAnyValueBelowTheLimitForDefined) {
  AddTerrain({{1, 11}, {2, std::nextafter(UndefinedValueLimit, 0)}, {3, UndefinedValueLimit}});
  EXPECT_EQ(Written(),
            Section(Piece("GROUND", "1.000000 11.000000 2.000000 " +
                                        Fixed(std::nextafter(UndefinedValueLimit, 0), 6) + " ")));
}

TEST_F(LandXmlCrossSection, NamesItsTerrainInTheLanguageOfTheUser) {
  AddTerrain({{1, 11}, {2, 12}});
  ASSERT_TRUE(SetLanguage("it"));
  EXPECT_EQ(Written(), Section(Piece("TERRENO", "1.000000 11.000000 2.000000 12.000000 ")));
}

// ---- Lines of the design ----

TEST_F(LandXmlCrossSection, NamesALineByItsCode) {
  AddLine(7, {{-3.5, 10}, {3.5, 10.25}});
  EXPECT_EQ(Written(), Section(Piece("Pavement", "-3.500000 10.000000 3.500000 10.250000 ")));
}

TEST_F(LandXmlCrossSection, LeavesTheNameOfAnUnknownCodeEmpty) {
  AddLine(8, {{-3.5, 10}, {3.5, 10.25}});
  EXPECT_EQ(Written(), Section(Piece("", "-3.500000 10.000000 3.500000 10.250000 ")));
}

TEST_F(LandXmlCrossSection, KnowsTheCodesOfItsOwnRoadOnly) {
  CRoad other;
  other.ProfileCodes().AddSectionAltiCode(8, "elsewhere");
  AddLine(8, {{0, 1}, {1, 1}});
  EXPECT_EQ(Written(), Section(Piece("", "0.000000 1.000000 1.000000 1.000000 ")));
}

TEST_F(LandXmlCrossSection, WritesTheNameOfACodeUnescaped) {
  road.ProfileCodes().AddSectionAltiCode(-9, "A & <è>");
  AddLine(-9, {{0, 1}, {1, 1}});
  EXPECT_EQ(Written(), Section(Piece("A & <\xc3\xa8>", "0.000000 1.000000 1.000000 1.000000 ")));
}

TEST_F(LandXmlCrossSection, HasThePrincipalVerticesOfALineOnly) {
  AddLine(
      7,
      {NotPrincipal(0, 0), {1, 11}, NotPrincipal(2, kNone), {3, 13}, NotPrincipal(4, 4), {5, 15}});
  EXPECT_EQ(Written(), Section(Piece("Pavement",
                                     "1.000000 11.000000 3.000000 13.000000 5.000000 "
                                     "15.000000 ")));
}

TEST_F(LandXmlCrossSection, CutsALineWhereAPrincipalVertexIsUndefined) {
  AddLine(7, {{1, 11}, {2, 12}, {kNone, 13}, {4, 14}, {5, kNone}, {6, 16}, {7, 17}, {8, 18}});
  EXPECT_EQ(Written(), Section(Piece("Pavement", "1.000000 11.000000 2.000000 12.000000 ") +
                               Piece("Pavement",
                                     "6.000000 16.000000 7.000000 17.000000 8.000000 18.000000 ")));
}

TEST_F(LandXmlCrossSection, LeavesHeightLinesOfTheTerrainOut) {
  AddVertices(section.AddProfileAlti(7, /*terrain=*/true), {{1, 11}, {2, 12}});
  EXPECT_EQ(Written(), Section(""));
}

TEST_F(LandXmlCrossSection, HasItsTerrainBeforeItsLinesInTheirOrder) {
  AddLine(8, {{1, 1}, {2, 2}});
  AddLine(7, {{3, 3}, {4, 4}});
  AddTerrain({{5, 5}, {6, 6}});
  EXPECT_EQ(Written(), Section(Piece("GROUND", "5.000000 5.000000 6.000000 6.000000 ") +
                               Piece("", "1.000000 1.000000 2.000000 2.000000 ") +
                               Piece("Pavement", "3.000000 3.000000 4.000000 4.000000 ")));
}

TEST_F(LandXmlCrossSection, WritesOneLineByItself) {
  CProfileAlti& line = section.AddProfileAlti(7, /*terrain=*/false);
  AddVertices(line, {{1, 11}, {2, 12}});
  EXPECT_EQ(
      SectionText([&](platform::OutputFile& file) { landxml::WriteCrossSectSurfaces(file, line); }),
      Piece("Pavement", "1.000000 11.000000 2.000000 12.000000 "));
}

// ---- All sections ----

TEST_F(LandXmlCrossSection, StandsAmongTheOthersInTheirOrder) {
  AddSection(road, "before by its chainage", 50);
  EXPECT_EQ(SectionText([&](platform::OutputFile& file) {
              landxml::WriteCrossSects(file, *road.GetRoadProfile());
            }),
            "\t\t\t<CrossSects state=\"existing\">\n" + Section("") +
                "\t\t\t\t<CrossSect sta=\"50.000000\" name=\"before by its chainage\">\n"
                "\t\t\t\t</CrossSect>\n"
                "\t\t\t</CrossSects>\n");
}

}  // namespace
