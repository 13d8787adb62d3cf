// Spirals of LandXML files as elements of a road.
#include <memory>
#include <numbers>
#include <ostream>
#include <tuple>

#include "formats/landxml/landxml_document.h"
#include "tests/support/landxml_load.h"

using namespace landxml_test;
using std::numbers::pi;
using tdk::geom::PNT_2D;

namespace {

// From the origin along the X axis, straight first, to the left; lengths in metres, angles in
// radians.
struct Clothoid {
  double a, length, radius, turn, x, y;
  double tangent;  // from the origin to where the tangents of both ends meet
};
void PrintTo(const Clothoid& it, std::ostream* out) { *out << "A " << it.a << " L " << it.length; }
const Clothoid kShort = {60, 30, 120, 0.125, 29.953158896196, 1.248605604106, 20.016393571};
const Clothoid kClothoids[] = {
    kShort,
    {50, 50, 50, 0.5, 48.764384410017, 8.185702368785, 33.780556730},
    {100, 80, 125, 0.32, 79.184674450355, 8.471121092245, 53.622236549},
    {150, 225, 100, 1.125, 198.144085958472, 77.047819474493, 161.324398933}};

// The same elsewhere, turned by an angle, and its mirror image.
struct Laid {
  double angle;
  bool ccw;

  PNT_2D At(double x, double y) const {
    const double left = ccw ? y : -y;
    return {5000.25 + x * std::cos(angle) - left * std::sin(angle),
            1234.5 + x * std::sin(angle) + left * std::cos(angle)};
  }
  double Direction(double turn) const { return angle + (ccw ? turn : -turn); }
};
void PrintTo(const Laid& it, std::ostream* out) {
  *out << (it.ccw ? "left at " : "right at ") << it.angle;
}
const Laid kLaid[] = {{0, true},   {0, false},   {pi / 2, true}, {pi / 2, false},
                      {2.5, true}, {2.5, false}, {-1, true},     {-1, false}};

std::string Radii(const std::string& start, const std::string& end) {
  return "radiusStart=\"" + start + "\" radiusEnd=\"" + end + '"';
}
std::string Pi(const PNT_2D& place) { return "<PI>" + Text(place) + "</PI>"; }
std::string Spiral(const std::string& attributes, double length, bool ccw, const PNT_2D& start,
                   const PNT_2D& end, const std::string& pi = "") {
  return "<Spiral " + attributes + " length=\"" + Text(length) + "\" rot=\"" +
         (ccw ? "ccw" : "cw") + "\"><Start>" + Text(start) + "</Start>" + pi + "<End>" + Text(end) +
         "</End></Spiral>";
}
const std::string kClothoidType = " spiType=\"clothoid\"";

class LandXmlLoadSpiral : public LandXmlLoad {
 protected:
  /// With its ends right by the table.
  void LoadShort(const std::string& radii, const std::string& pi = "") {
    Load(Alignment(Spiral(radii + kClothoidType, 30, true, {0, 0}, {kShort.x, kShort.y}, pi)));
  }
  void ExpectShort() {
    const CPlaniElem& element = Only('C');
    EXPECT_NEAR(element.GetLength(), 30, 1e-9);
    ExpectDirection(element.GetStartTg(), 0);
    ExpectDirection(TangentOf(element, 30), 0.125);
    ExpectAt(element.PointAt(15), 14.998535222476, 0.156239101204, 1e-8);
    ExpectAt(EndOf(element), kShort.x, kShort.y, 1e-8);
  }
};

// ---- Clothoids of either side in any direction ----

class LandXmlLoadClothoid : public LandXmlLoadSpiral,
                            public testing::WithParamInterface<std::tuple<Clothoid, Laid>> {
 protected:
  const Clothoid& it = std::get<0>(GetParam());
  const Laid& laid = std::get<1>(GetParam());
  const PNT_2D straight = laid.At(0, 0);
  const PNT_2D curved = laid.At(it.x, it.y);
  const std::string pi_ = Pi(laid.At(it.tangent, 0));

  void ExpectClothoid(bool entrance, bool ccw, double direction, double endDirection) {
    const CPlaniElem& element = Only('C');
    const auto* const clothoid = dynamic_cast<const CClotPlaniElem*>(&element);
    ASSERT_NE(clothoid, nullptr);
    EXPECT_EQ(clothoid->IsEntrance(), entrance);
    EXPECT_EQ(element.IsCcw(), ccw);
    EXPECT_NEAR(clothoid->GetClotoide().GetA(), it.a, 1e-9);
    EXPECT_NEAR(element.GetLength(), it.length, 1e-9);
    EXPECT_NEAR(element.GetRadius(entrance ? it.length : 0), it.radius, 1e-9);
    const PNT_2D& start = entrance ? straight : curved;
    const PNT_2D& end = entrance ? curved : straight;
    ExpectAt(element.GetStartPnt(), start.getX(), start.getY());
    ExpectAt(EndOf(element), end.getX(), end.getY(), 1e-8);
    ExpectDirection(element.GetStartTg(), direction);
    ExpectDirection(TangentOf(element, it.length), endDirection);
    EXPECT_TRUE(remarks.empty()) << remarks[0];
  }
};

TEST_P(LandXmlLoadClothoid, IsAnEntranceWhereItIsStraightFirst) {
  Load(Alignment(Spiral(Radii("INF", Text(it.radius)) + kClothoidType, it.length, laid.ccw,
                        straight, curved, pi_)));
  ExpectClothoid(true, laid.ccw, laid.Direction(0), laid.Direction(it.turn));
}

TEST_P(LandXmlLoadClothoid, IsAnExitToTheOtherSideWhereItIsDrivenBackwards) {
  Load(Alignment(Spiral(Radii(Text(it.radius), "INF") + kClothoidType, it.length, !laid.ccw, curved,
                        straight, pi_)));
  ExpectClothoid(false, !laid.ccw, laid.Direction(it.turn) + pi, laid.Direction(0) + pi);
}

INSTANTIATE_TEST_SUITE_P(Each, LandXmlLoadClothoid,
                         testing::Combine(testing::ValuesIn(kClothoids), testing::ValuesIn(kLaid)),
                         [](const auto& which) { return std::to_string(which.index); });

TEST_F(LandXmlLoadSpiral, ExitEndsWhereItsArcLetsItEnd) {
  Load(Alignment(Spiral(Radii("120", "INF") + kClothoidType, 30, true, {0, 0},
                        {29.875123953751, 2.495538531745})));
  const CPlaniElem& exit = Only('C');
  ExpectDirection(exit.GetStartTg(), 0);
  ExpectDirection(TangentOf(exit, 30), 0.125);
  ExpectAt(EndOf(exit), 29.875123953751, 2.495538531745, 1e-8);
}

// ---- What is not to be trusted ----

TEST_F(LandXmlLoadSpiral, NeedsNoTangentPoint) {
  LoadShort(Radii("INF", "120"));
  ExpectShort();
}

TEST_F(LandXmlLoadSpiral, IsTheSameWithAWrongTangentPoint) {
  LoadShort(Radii("INF", "120"), "<PI>-500 -700</PI>");
  ExpectShort();
}

TEST_F(LandXmlLoadSpiral, IsTheSameWithATangentPointThatIsNoPoint) {
  LoadShort(Radii("INF", "120"), "<PI>nan -inf</PI>");
  ExpectShort();
}

TEST_F(LandXmlLoadSpiral, IsTheSameWithWrongDirections) {
  LoadShort(Radii("INF", "120") + " dirStart=\"1.5\" dirEnd=\"2\" theta=\"7\"");
  ExpectShort();
}

TEST_F(LandXmlLoadSpiral, IsTheSameWithAnyConstant) {
  for (const char* const constant : {"60", "-3600.000000", "NaN"}) {
    const int before = RoadCount();
    LoadShort(Radii("INF", "120") + " constant=\"" + constant + '"');
    ASSERT_EQ(Kinds(before), "C") << constant;
    ExpectAt(EndOf(*Elements(before)[0]), kShort.x, kShort.y, 1e-8);
    EXPECT_TRUE(remarks.empty()) << remarks[0];
  }
}

TEST_F(LandXmlLoadSpiral, IsStraightWhereItsRadiusIsInfiniteZeroOrHuge) {
  for (const char* const straight : {"INF", "0", "0.000", "5.9e300", "1e9"}) {
    const int before = RoadCount();
    LoadShort(Radii(straight, "120"));
    ASSERT_EQ(RoadCount(), before + 1);
    ASSERT_EQ(Kinds(before), "C") << straight;
    ExpectAt(EndOf(*Elements(before)[0]), kShort.x, kShort.y, 1e-8);
    EXPECT_TRUE(remarks.empty()) << remarks[0];
  }
}

TEST_F(LandXmlLoadSpiral, IsInMetres) {
  Load(Alignment(
           Spiral(Radii("INF", "120") + kClothoidType, 30, true, {0, 0}, {kShort.x, kShort.y})),
       kFeet);
  EXPECT_NEAR(Only('C').GetLength(), 9.144, 1e-9);
  EXPECT_NEAR(Only('C').GetRadius(9.144), 36.576, 1e-9);
  ExpectAt(EndOf(Only('C')), kShort.x * 0.3048, kShort.y * 0.3048, 1e-8);
}

TEST_F(LandXmlLoadSpiral, ThatDoesNotFitItsEndsIsTold) {
  Load(Alignment(Spiral(Radii("INF", "120") + kClothoidType, 30, true, {0, 0}, {30.5, 1.25})));
  EXPECT_TRUE(Told({"line 3", "spiral"}));
}

TEST_F(LandXmlLoadSpiral, ThatFitsItsEndsToFiveMillimetresIsNotTold) {
  Load(Alignment(Spiral(Radii("INF", "120") + kClothoidType, 30, true, {0, 0}, {29.958, 1.2486})));
  EXPECT_EQ(Kinds(), "C");
  EXPECT_TRUE(remarks.empty()) << remarks[0];
}

// ---- Spirals that the job cannot hold ----

TEST_F(LandXmlLoadSpiral, BetweenTwoArcsIsToldAndKeepsItsPlaceInTheStations) {
  Load(Alignment(Spiral(Radii("200", "100") + kClothoidType, 50, true, {0, 0},
                        {49.017044175534, 8.243527226098}) +
                     '\n' + Line("8.243527226098 49.017044175534", "20 60"),
                 "staStart=\"10\""));
  ASSERT_EQ(Kinds(), "OS");
  EXPECT_TRUE(Told({"line 3", "Spiral"}));
  ExpectAt(Elements()[0]->GetStartPnt(), 0, 0);
  ExpectAt(EndOf(*Elements()[0]), 49.017044175534, 8.243527226098);
  EXPECT_NEAR(Elements()[1]->GetProg(), 60, 1e-9);
}

TEST_F(LandXmlLoadSpiral, OfAnotherTypeIsToldAndKeepsItsEnds) {
  for (const char* const type : {"biquadratic", "biquadraticParabola", "bloss", "cosine", "cubic",
                                 "sinusoid", "revBloss", "revCosine"}) {
    const int before = RoadCount();
    Load(Alignment(Line("0 0", "0 10") + '\n' +
                   Spiral(Radii("INF", "120") + " spiType=\"" + type + '"', 30, true, {10, 0},
                          {39.95, 1.25})));
    ASSERT_EQ(Kinds(before), "SO") << type;
    ExpectAt(EndOf(*Elements(before)[1]), 39.95, 1.25);
    EXPECT_TRUE(Told({"line 4", "Spiral", type}));
  }
}

TEST_F(LandXmlLoadSpiral, OfOurOwnExportWithItsNegativeConstantComesBack) {
  const PNT_2D start(1000, 2000);
  CRoad road;
  road.SetName("Via Roma");
  road.SetProgs(0, 30);
  road.AddElement(
      std::make_unique<CClotPlaniElem>(0, start, tdk::geom::VECTOR_2D(0, 1), 30, 60, true, false));
  landxml::LandXmlSelection selection;
  selection.roads = {&road};
  selection.path = tdk::WString(Path());
  landxml::WriteLandXmlDocument(selection);
  ASSERT_NE(exchange_test::ReadFile(Path()).find("constant=\"-3600.000000\""), std::string::npos);
  remarks = LoadLandXml(Path(), document);
  EXPECT_TRUE(remarks.empty()) << remarks[0];
  EXPECT_FALSE(Only('C').IsCcw());
  ExpectAt(EndOf(Only('C')), 1000 + kShort.y, 2000 + kShort.x, 1e-5);
}

}  // namespace
