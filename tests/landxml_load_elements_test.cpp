// Curves of LandXML files as elements of a road.
#include <numbers>

#include "tests/support/landxml_load.h"

using namespace landxml_test;
using std::numbers::pi;

namespace {

constexpr double kHalf = 0.70710678118654752;  // cosine of 45 degrees

class LandXmlLoadCurve : public LandXmlLoad {
 protected:
  const CPlaniElem& Arc() { return Only('A'); }
  void LoadCurve(const std::string& attributes, const std::string& children) {
    Load(Alignment("<Curve " + attributes + '>' + children + "</Curve>"));
  }
  /// From 100 m east of the origin to 100 m north of it.
  void ExpectQuarterToTheLeft() {
    const CPlaniElem& arc = Arc();
    EXPECT_TRUE(arc.IsCcw());
    EXPECT_NEAR(arc.GetRadius(0), 100, 1e-9);
    EXPECT_NEAR(arc.GetLength(), 50 * pi, 1e-9);
    ExpectAt(arc.GetStartPnt(), 100, 0);
    ExpectDirection(arc.GetStartTg(), pi / 2);
    ExpectAt(arc.PointAt(25 * pi), 100 * kHalf, 100 * kHalf);
    ExpectAt(EndOf(arc), 0, 100);
  }
};

const std::string kEnds = "<Start>0 100</Start><End>100 0</End>";

TEST_F(LandXmlLoadCurve, TurnsLeftAboutItsCentre) {
  LoadCurve("rot=\"ccw\"", "<Start>0 100</Start><Center>0 0</Center><End>100 0</End>");
  ExpectQuarterToTheLeft();
  EXPECT_TRUE(remarks.empty()) << remarks[0];
}

TEST_F(LandXmlLoadCurve, TurnsRightAboutItsCentre) {
  LoadCurve("rot=\"cw\"", "<Start>0 100</Start><Center>0 0</Center><End>100 0</End>");
  const CPlaniElem& arc = Arc();
  EXPECT_FALSE(arc.IsCcw());
  EXPECT_NEAR(arc.GetLength(), 150 * pi, 1e-9);
  ExpectDirection(arc.GetStartTg(), -pi / 2);
  ExpectAt(arc.PointAt(75 * pi), -100 * kHalf, -100 * kHalf);
  ExpectAt(EndOf(arc), 0, 100);
  EXPECT_NEAR(dynamic_cast<const CArcPlaniElem&>(arc).GetAngle(), 1.5 * pi, 1e-12);
}

TEST_F(LandXmlLoadCurve, HasItsChildrenInAnyOrder) {
  LoadCurve("rot=\"ccw\"",
            "<End>100 0</End><PI>100 100</PI><Center>0 0</Center><Start>0 100</Start>");
  ExpectQuarterToTheLeft();
}

TEST_F(LandXmlLoadCurve, TakesItsRadiusFromItsCentre) {
  LoadCurve("rot=\"ccw\" radius=\"77\" length=\"1\" delta=\"9\"", kEnds + "<Center>0 0</Center>");
  ExpectQuarterToTheLeft();
}

TEST_F(LandXmlLoadCurve, WithoutACentreIsTheSmallArcOfItsRadius) {
  LoadCurve("rot=\"ccw\" radius=\"100\"", kEnds);
  ExpectQuarterToTheLeft();
}

TEST_F(LandXmlLoadCurve, WithoutACentreIsTheSmallArcWhereItsLengthSaysSo) {
  LoadCurve("rot=\"ccw\" radius=\"100\" length=\"157.079633\"", kEnds);
  ExpectQuarterToTheLeft();
}

TEST_F(LandXmlLoadCurve, WithoutACentreIsTheLargeArcWhereItsLengthSaysSo) {
  LoadCurve("rot=\"ccw\" radius=\"100\" length=\"471.238898\"", kEnds);
  const CPlaniElem& arc = Arc();
  EXPECT_NEAR(arc.GetLength(), 150 * pi, 1e-9);
  ExpectDirection(arc.GetStartTg(), 0);
  ExpectAt(arc.PointAt(75 * pi), 100 + 100 * kHalf, 100 + 100 * kHalf);  // about 100, 100
  ExpectAt(EndOf(arc), 0, 100);
}

TEST_F(LandXmlLoadCurve, WithoutACentreTurnsRight) {
  LoadCurve("rot=\"cw\" radius=\"100\"", kEnds);
  const CPlaniElem& arc = Arc();
  EXPECT_FALSE(arc.IsCcw());
  EXPECT_NEAR(arc.GetLength(), 50 * pi, 1e-9);
  ExpectDirection(arc.GetStartTg(), pi);
  ExpectAt(arc.PointAt(25 * pi), 100 - 100 * kHalf, 100 - 100 * kHalf);  // about 100, 100
}

TEST_F(LandXmlLoadCurve, HalfCircleHasNoTangentPointAndNeedsNone) {
  LoadCurve("rot=\"ccw\"", "<Start>0 100</Start><Center>0 0</Center><End>0 -100</End>");
  const CPlaniElem& arc = Arc();
  EXPECT_NEAR(arc.GetLength(), 100 * pi, 1e-9);
  ExpectAt(arc.PointAt(50 * pi), 0, 100);
}

TEST_F(LandXmlLoadCurve, IsInMetres) {
  Load(Alignment("<Curve rot=\"ccw\" radius=\"100\" length=\"157.08\">" + kEnds + "</Curve>"),
       kFeet);
  EXPECT_NEAR(Arc().GetRadius(0), 30.48, 1e-9);
  ExpectAt(EndOf(Arc()), 0, 30.48);
}

}  // namespace
