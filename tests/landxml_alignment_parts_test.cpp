// The horizontal geometry and the profile of roads in LandXML, byte for byte.
#include "formats/landxml/alignment_parts.h"

#include <gmock/gmock.h>

#include <string>

#include "tests/support/exchange_landxml.h"
#include "tests/support/exchange_roads.h"

using namespace exchange_test;
using tdk::geom::PNT_2D;
using tdk::geom::VECTOR_2D;

namespace {

const PNT_2D kPlace(1000, 2000);
const VECTOR_2D kEast(1, 0);
const VECTOR_2D kNorth(0, 1);
const VECTOR_2D kNorthEast(0.70710678118654752, 0.70710678118654752);

std::string LineText(const PNT_2D& start, const PNT_2D& end) {
  const CLinePlaniElem line(100, start, end);
  return SectionText([&](platform::OutputFile& file) { landxml::WriteLine(file, line); });
}
std::string CurveText(const CArcPlaniElem& arc) {
  return SectionText([&](platform::OutputFile& file) { landxml::WriteCurve(file, arc); });
}
std::string SpiralText(const CClotPlaniElem& clothoid) {
  return SectionText([&](platform::OutputFile& file) { landxml::WriteSpiral(file, clothoid); });
}
std::string ProfileText(std::initializer_list<TAltiVrt> vertices) {
  CRoad road;
  const CProfileAlti& line = AddMainLine(road, vertices);
  return SectionText([&](platform::OutputFile& file) { landxml::WriteProfile(file, line, "R"); });
}
/// What stands between `before` and the next `after`.
std::string Between(const std::string& text, const std::string& before, const std::string& after) {
  const auto at = text.find(before);
  if (at == std::string::npos) return "not there: " + text;
  const auto start = at + before.size();
  return text.substr(start, text.find(after, start) - start);
}

// ---- Directions ----

TEST(LandXmlDirection, CountsFromEastCounterClockwise) {
  EXPECT_EQ(landxml::DirectionDegrees(kEast), 0);
  EXPECT_NEAR(landxml::DirectionDegrees(kNorthEast), 45, 1e-9);
  EXPECT_NEAR(landxml::DirectionDegrees(kNorth), 90, 1e-9);
  EXPECT_NEAR(landxml::DirectionDegrees({-1, 1}), 135, 1e-9);
  EXPECT_NEAR(landxml::DirectionDegrees({-1, 0}), 180, 1e-9);
  EXPECT_NEAR(landxml::DirectionDegrees({-3, -3}), 225, 1e-9);
  EXPECT_NEAR(landxml::DirectionDegrees({0, -1}), 270, 1e-9);
  EXPECT_NEAR(landxml::DirectionDegrees({1, -1}), 315, 1e-9);
}

TEST(LandXmlDirection, DoesNotDependOnTheLength) {
  EXPECT_NEAR(landxml::DirectionDegrees({3, 4}), 53.13010235415598, 1e-9);
  EXPECT_NEAR(landxml::DirectionDegrees({3e-9, 4e-9}), 53.13010235415598, 1e-9);
  EXPECT_NEAR(landxml::DirectionDegrees({3e9, 4e9}), 53.13010235415598, 1e-9);
}

TEST(LandXmlDirection, JustBelowEastIsNeverAFullTurn) {
  EXPECT_EQ(landxml::DirectionDegrees({1, -1e-20}), 0);  // 360 less too little to tell
  EXPECT_EQ(landxml::DirectionDegrees({1, -0.0}), 0);
  EXPECT_LT(landxml::DirectionDegrees({1, -1e-12}), 360);
  EXPECT_GT(landxml::DirectionDegrees({1, -1e-12}), 359.9);
}

TEST(LandXmlDirection, OfWestIsOneWhateverTheSignOfZero) {
  EXPECT_NEAR(landxml::DirectionDegrees({-1, -0.0}), 180, 1e-9);
}

TEST(LandXmlDirection, OfNoVectorIsZero) { EXPECT_EQ(landxml::DirectionDegrees({0, 0}), 0); }

// ---- Straights ----

TEST(LandXmlLine, HasLengthDirectionAndChainage) {
  EXPECT_EQ(LineText({1, 2}, {4, 6}),
            "\t\t\t\t<Line length=\"5.000000\" dir=\"53.130102\" staStart=\"100.000000\">\n"
            "\t\t\t\t\t<Start>2.000000 1.000000</Start>\n"
            "\t\t\t\t\t<End>6.000000 4.000000</End>\n"
            "\t\t\t\t</Line>\n");
}

TEST(LandXmlLine, HasTheDirectionOfItsAxis) {
  const auto direction = [](const PNT_2D& end) {
    return Between(LineText(kPlace, end), " dir=\"", "\"");
  };
  EXPECT_EQ(direction({1000, 2100}), "90.000000");
  EXPECT_EQ(direction({900, 2000}), "180.000000");
  EXPECT_EQ(direction({1000, 1900}), "270.000000");
  EXPECT_EQ(direction({1100, 2000}), "0.000000");
}

// ---- Arcs ----

TEST(LandXmlCurve, ThatTurnsLeftHasItsCentreOnTheLeft) {
  EXPECT_EQ(CurveText({250, kPlace, kNorthEast, 100, kPi / 2, true}),
            "\t\t\t\t<Curve rot=\"ccw\" delta=\"1.570796\" dirEnd=\"135.000000\""
            " dirStart=\"45.000000\" length=\"157.079633\" radius=\"100.000000\""
            " staStart=\"250.000000\">\n"
            "\t\t\t\t\t<Start>2000.000000 1000.000000</Start>\n"
            "\t\t\t\t\t<Center>2070.710678 929.289322</Center>\n"
            "\t\t\t\t\t<End>2141.421356 1000.000000</End>\n"
            "\t\t\t\t\t<PI>2070.710678 1070.710678</PI>\n"
            "\t\t\t\t</Curve>\n");
}

TEST(LandXmlCurve, ThatTurnsRightHasItsCentreOnTheRight) {
  EXPECT_EQ(CurveText({250, kPlace, kNorthEast, 100, kPi / 2, false}),
            "\t\t\t\t<Curve rot=\"cw\" delta=\"1.570796\" dirEnd=\"315.000000\""
            " dirStart=\"45.000000\" length=\"157.079633\" radius=\"100.000000\""
            " staStart=\"250.000000\">\n"
            "\t\t\t\t\t<Start>2000.000000 1000.000000</Start>\n"
            "\t\t\t\t\t<Center>1929.289322 1070.710678</Center>\n"
            "\t\t\t\t\t<End>2000.000000 1141.421356</End>\n"
            "\t\t\t\t\t<PI>2070.710678 1070.710678</PI>\n"
            "\t\t\t\t</Curve>\n");
}

TEST(LandXmlCurve, WritesItsAngleAsItIs) {
  EXPECT_EQ(Between(CurveText({0, kPlace, kEast, 10, 4.5, true}), " delta=\"", "\""), "4.500000");
}

TEST(LandXmlCurve, ThatStartsParallelToTheYAxisHasNoFiniteIntersection) {
  const auto notFinite = testing::AnyOf("inf", "-inf", "nan", "-nan");
  for (const double y : {1.0, -1.0}) {
    for (const bool ccw : {true, false}) {
      const std::string text = CurveText({0, kPlace, VECTOR_2D(0, y), 50, kPi / 3, ccw});
      const std::string place = Between(text, "<PI>", "</PI>");
      EXPECT_THAT(place.substr(0, place.find(' ')), notFinite) << text;
      EXPECT_THAT(place.substr(place.find(' ') + 1), notFinite) << text;
    }
  }
}

TEST(LandXmlCurve, ThatTurnsNowhereHasNoFiniteIntersection) {
  const std::string text = CurveText({0, kPlace, VECTOR_2D(0.6, 0.8), 50, 0, true});
  EXPECT_THAT(Between(text, "<PI>", "</PI>"),
              testing::AnyOf("nan nan", "-nan nan", "nan -nan", "-nan -nan"));
}

/// Goes on in the direction in which it started, beside its start.
class ShiftedArc : public CArcPlaniElem {
 public:
  ShiftedArc() : CArcPlaniElem(0, {0, 0}, kEast, 50, 1, true) {}
  void GetEndPnt(PNT_2D& end) const override { end = {10, 5}; }
  void GetTg(double /*s*/, VECTOR_2D& tangent) const override { tangent = kEast; }
};

TEST(LandXmlCurve, WithParallelTangentsHasItsIntersectionAtInfinity) {
  const std::string text = CurveText(ShiftedArc());
  EXPECT_THAT(Between(text, "<PI>", "</PI>"), testing::AnyOf("nan inf", "-nan inf"));
}

// ---- Clothoids ----

TEST(LandXmlSpiral, IntoACurveStartsStraight) {
  EXPECT_EQ(SpiralText({100, kPlace, kEast, 50, 50, /*entrance=*/true, /*ccw=*/true}),
            "\t\t\t\t<Spiral length=\"50.000000\" radiusEnd=\"50.000000\" radiusStart=\"INF\""
            " rot=\"ccw\" spiType=\"clothoid\" constant=\"-2500.000000\" dirEnd=\"28.647890\""
            " dirStart=\"0.000000\" staStart=\"100.000000\">\n"
            "\t\t\t\t\t<Start>2000.000000 1000.000000</Start>\n"
            "\t\t\t\t\t<PI>2000.000000 1033.780557</PI>\n"
            "\t\t\t\t\t<End>2008.185702 1048.764384</End>\n"
            "\t\t\t\t</Spiral>\n");
}

TEST(LandXmlSpiral, TurnsRightLikewise) {
  EXPECT_EQ(SpiralText({100, kPlace, kEast, 50, 50, /*entrance=*/true, /*ccw=*/false}),
            "\t\t\t\t<Spiral length=\"50.000000\" radiusEnd=\"50.000000\" radiusStart=\"INF\""
            " rot=\"cw\" spiType=\"clothoid\" constant=\"-2500.000000\" dirEnd=\"331.352110\""
            " dirStart=\"0.000000\" staStart=\"100.000000\">\n"
            "\t\t\t\t\t<Start>2000.000000 1000.000000</Start>\n"
            "\t\t\t\t\t<PI>2000.000000 1033.780557</PI>\n"
            "\t\t\t\t\t<End>1991.814298 1048.764384</End>\n"
            "\t\t\t\t</Spiral>\n");
}

TEST(LandXmlSpiral, OutOfACurveEndsStraight) {
  EXPECT_EQ(SpiralText({100, kPlace, kEast, 30, 60, /*entrance=*/false, /*ccw=*/true}),
            "\t\t\t\t<Spiral length=\"30.000000\" radiusEnd=\"INF\" radiusStart=\"120.000000\""
            " rot=\"ccw\" spiType=\"clothoid\" constant=\"-3600.000000\" dirEnd=\"7.161972\""
            " dirStart=\"0.000000\" staStart=\"100.000000\">\n"
            "\t\t\t\t\t<Start>2000.000000 1000.000000</Start>\n"
            "\t\t\t\t\t<PI>2000.000000 1010.014905</PI>\n"
            "\t\t\t\t\t<End>2002.495539 1029.875124</End>\n"
            "\t\t\t\t</Spiral>\n");
}

TEST(LandXmlSpiral, ThatStartsParallelToTheYAxisHasNoFiniteIntersection) {
  const std::string text = SpiralText({0, kPlace, kNorth, 50, 50, true, true});
  EXPECT_EQ(Between(text, "<PI>", "</PI>").find_first_of("0123456789"), std::string::npos) << text;
  EXPECT_EQ(Between(text, " dirStart=\"", "\""), "90.000000");
}

// ---- The profile ----

TEST(LandXmlProfile, HasThePrincipalVerticesOnly) {
  EXPECT_EQ(
      ProfileText({{0, 10}, NotPrincipal(50, 11), {100, 12.5}, NotPrincipal(150, 13), {200, -14}}),
      "\t\t\t<Profile>\n"
      "\t\t\t\t<ProfAlign name=\"Profile_R\" state=\"existing\">\n"
      "\t\t\t\t\t<PVI>0.000000 10.000000</PVI>\n"
      "\t\t\t\t\t<PVI>100.000000 12.500000</PVI>\n"
      "\t\t\t\t\t<PVI>200.000000 -14.000000</PVI>\n"
      "\t\t\t\t</ProfAlign>\n"
      "\t\t\t</Profile>\n");
}

TEST(LandXmlProfile, HasAVerticalCurveByItsLength) {
  const std::string text = ProfileText({{0, 10}, Curved(150, 25, 120, 180), {300, 10}});
  EXPECT_NE(text.find("\t\t\t\t\t<ParaCurve length=\"60.000000\">150.000000 25.000000"
                      "</ParaCurve>\n"),
            std::string::npos)
      << text;
  EXPECT_EQ(CountOf(text, "<PVI>"), 2);
}

TEST(LandXmlProfile, LeavesTheCurveOfAVertexOutThatWasNotDesigned) {
  TAltiVrt vertex = Curved(150, 25, 120, 180);
  vertex.isPrincipal = false;
  const std::string text = ProfileText({{0, 10}, vertex, {300, 10}});
  EXPECT_EQ(text.find("ParaCurve"), std::string::npos);
  EXPECT_EQ(CountOf(text, "<PVI>"), 2);
}

TEST(LandXmlProfile, OfVerticesThatWereNotDesignedIsEmpty) {
  EXPECT_EQ(ProfileText({NotPrincipal(0, 1)}),
            "\t\t\t<Profile>\n"
            "\t\t\t\t<ProfAlign name=\"Profile_R\" state=\"existing\">\n"
            "\t\t\t\t</ProfAlign>\n"
            "\t\t\t</Profile>\n");
}

}  // namespace
