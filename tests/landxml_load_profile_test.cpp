// Profiles of LandXML files as main height lines of roads.
#include "tests/support/landxml_load.h"

using namespace landxml_test;

namespace {

class LandXmlLoadProfile : public LandXmlLoad {
 protected:
  /// A profile of these vertices, from line 5 on.
  void LoadProfile(const std::string& vertices, const std::string& units = kMetres) {
    Load(Alignment(Line("0 0", "0 400"), "",
                   "<Profile>\n<ProfAlign name=\"p\">" + vertices + "</ProfAlign></Profile>"),
         units);
  }
  const CProfileAlti& MainLine() {
    const CProfileAlti* const line = Road().GetRoadProfile()->GetMainPrjAlti();
    static const CProfileAlti kNone(nullptr, 0, false);
    EXPECT_NE(line, nullptr);
    return line == nullptr ? kNone : *line;
  }
  void ExpectVertex(int i, double station, double height) {
    ASSERT_LT(i, MainLine().GetNumVrts());
    EXPECT_NEAR(MainLine().GetVrt(i).distance, station, 1e-9);
    EXPECT_NEAR(MainLine().GetVrt(i).height, height, 1e-9);
    EXPECT_TRUE(MainLine().GetVrt(i).isPrincipal);
  }
  void ExpectPlain(int i) {
    ASSERT_LT(i, MainLine().GetNumVrts());
    EXPECT_FALSE(MainLine().GetVrt(i).curve.has_value());
  }
  void ExpectCurve(int i, double start, double end) {
    ASSERT_LT(i, MainLine().GetNumVrts());
    ASSERT_TRUE(MainLine().GetVrt(i).curve.has_value());
    EXPECT_NEAR(MainLine().GetVrt(i).curve->start, start, 1e-9);
    EXPECT_NEAR(MainLine().GetVrt(i).curve->end, end, 1e-9);
  }
};

TEST_F(LandXmlLoadProfile, HasVerticesOfStationAndElevation) {
  LoadProfile("<PVI>0 10</PVI><PVI>\n 150.5 \n 12.25 </PVI><PVI>400 -3</PVI>");
  ASSERT_EQ(MainLine().GetNumVrts(), 3);
  ExpectVertex(0, 0, 10);
  ExpectVertex(1, 150.5, 12.25);
  ExpectVertex(2, 400, -3);
  for (int i = 0; i < 3; ++i) ExpectPlain(i);
  EXPECT_TRUE(remarks.empty()) << remarks[0];
}

TEST_F(LandXmlLoadProfile, ParabolaLiesHalfBeforeAndHalfBehindItsVertex) {
  LoadProfile("<PVI>0 10</PVI><ParaCurve length=\"60\">150 25</ParaCurve><PVI>300 10</PVI>");
  ExpectVertex(1, 150, 25);
  ExpectCurve(1, 120, 180);
  bool isThere = false;
  // 25 - 0.1 * 30 at its start, 0.1 * 30 + 0.2 * 900 / 120 less in its middle.
  EXPECT_NEAR(CalcQuoteAtAltiProg(MainLine(), 120, isThere), 22, 1e-9);
  EXPECT_NEAR(CalcQuoteAtAltiProg(MainLine(), 150, isThere), 23.5, 1e-9);
  EXPECT_TRUE(remarks.empty()) << remarks[0];
}

TEST_F(LandXmlLoadProfile, UnequalParabolasLieAsTheirTwoLengthsSay) {
  LoadProfile(
      "<PVI>0 10</PVI><UnsymParaCurve lengthIn=\"20\" lengthOut=\"50\">150 25</UnsymParaCurve>"
      "<PVI>300 10</PVI>");
  ExpectCurve(1, 130, 200);
}

// Grades 0.75 and 0: the tangents are 300 / 3 m long, of which 80 and 100 m lie in the plan.
TEST_F(LandXmlLoadProfile, CircleLiesByItsRadiusWhateverItsSignAndLength) {
  for (const char* const attributes :
       {"radius=\"300\"", "radius=\"-300\"", "radius=\"300\" length=\"7\"",
        "radius=\"-300\" length=\"193.05\""}) {
    const int before = RoadCount();
    LoadProfile(std::string("<PVI>0 0</PVI><CircCurve ") + attributes +
                ">200 150</CircCurve><PVI>400 150</PVI>");
    ASSERT_EQ(RoadCount(), before + 1);
    const TAltiVrt& vertex = Road(before).GetRoadProfile()->GetMainPrjAlti()->GetVrt(1);
    ASSERT_TRUE(vertex.curve.has_value()) << attributes;
    EXPECT_NEAR(vertex.curve->start, 120, 1e-9) << attributes;
    EXPECT_NEAR(vertex.curve->end, 300, 1e-9) << attributes;
  }
}

TEST_F(LandXmlLoadProfile, CircleInASagLiesByItsRadius) {
  LoadProfile("<PVI>0 150</PVI><CircCurve radius=\"300\">200 150</CircCurve><PVI>400 300</PVI>");
  ExpectCurve(1, 100, 280);
}

TEST_F(LandXmlLoadProfile, CurveAsFirstOrLastChildIsAPlainVertex) {
  LoadProfile(
      "<ParaCurve length=\"60\">0 10</ParaCurve><PVI>200 20</PVI>"
      "<CircCurve radius=\"100\">400 10</CircCurve>");
  ASSERT_EQ(MainLine().GetNumVrts(), 3);
  ExpectVertex(0, 0, 10);
  ExpectVertex(2, 400, 10);
  for (int i = 0; i < 3; ++i) ExpectPlain(i);
}

TEST_F(LandXmlLoadProfile, IsInMetres) {
  LoadProfile("<PVI>0 100</PVI><ParaCurve length=\"100\">1000 200</ParaCurve><PVI>2000 0</PVI>",
              kFeet);
  ExpectVertex(0, 0, 30.48);
  ExpectVertex(1, 304.8, 60.96);
  ExpectCurve(1, 289.56, 320.04);
}

TEST_F(LandXmlLoadProfile, CircleInFeetHasItsRadiusInFeet) {
  LoadProfile("<PVI>0 0</PVI><CircCurve radius=\"300\">200 150</CircCurve><PVI>400 150</PVI>",
              kFeet);
  ExpectCurve(1, 36.576, 91.44);
}

TEST_F(LandXmlLoadProfile, StationsAreNotMovedByEquations) {
  Load(Alignment(Line("0 0", "0 400"), "staStart=\"1000\"",
                 "<StaEquation staInternal=\"1100\" staBack=\"1100\" staAhead=\"2000\"/>"
                 "<Profile><ProfAlign><PVI>1000 1</PVI><PVI>1200 2</PVI></ProfAlign></Profile>"));
  ExpectVertex(1, 1200, 2);
}

TEST_F(LandXmlLoadProfile, IsTheFirstOfSeveralAndTheOthersAreTold) {
  LoadProfile("<PVI>0 1</PVI><PVI>9 2</PVI></ProfAlign>\n<ProfAlign name=\"q\"><PVI>0 7</PVI>");
  ASSERT_EQ(MainLine().GetNumVrts(), 2);
  ExpectVertex(0, 0, 1);
  EXPECT_TRUE(Told({"line 6", "\"A\"", "profile"}));
}

TEST_F(LandXmlLoadProfile, OfASecondProfileElementIsTold) {
  LoadProfile("<PVI>0 1</PVI></ProfAlign></Profile>\n<Profile><ProfAlign><PVI>0 7</PVI>");
  ExpectVertex(0, 0, 1);
  EXPECT_TRUE(Told({"line 6", "\"A\"", "profile"}));
}

TEST_F(LandXmlLoadProfile, SampledGroundIsNoProfile) {
  Load(Alignment(Line("0 0", "0 400"), "",
                 "<Profile><ProfSurf name=\"ground\"><PntList2D>0 1 9 2</PntList2D></ProfSurf>"
                 "<ProfAlign><PVI>0 5</PVI></ProfAlign></Profile>"));
  ASSERT_EQ(MainLine().GetNumVrts(), 1);
  ExpectVertex(0, 0, 5);
  EXPECT_TRUE(Told({"ProfSurf"}));
}

TEST_F(LandXmlLoadProfile, VertexThatIsNoneIsToldAndTheOthersAreLoaded) {
  LoadProfile(
      "<PVI>0 1</PVI>\n<PVI>9</PVI>\n<ParaCurve length=\"5\">high 4</ParaCurve>"
      "<PVI>20 1</PVI>");
  ASSERT_EQ(MainLine().GetNumVrts(), 2);
  ExpectVertex(1, 20, 1);
  EXPECT_TRUE(Told({"line 6", "PVI"}));
  EXPECT_TRUE(Told({"line 7", "ParaCurve"}));
}

TEST_F(LandXmlLoadProfile, CurveWithoutALengthIsToldAndIsAPlainVertex) {
  LoadProfile("<PVI>0 1</PVI>\n<ParaCurve>9 4</ParaCurve><PVI>20 1</PVI>");
  ExpectVertex(1, 9, 4);
  ExpectPlain(1);
  EXPECT_TRUE(Told({"line 6", "ParaCurve"}));
}

}  // namespace
