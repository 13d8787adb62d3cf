// Known-point groups in LandXML, byte for byte.
#include <string>

#include "tests/support/exchange_landxml.h"

using namespace exchange_test;

namespace {

class LandXmlPoints : public testing::Test {
 protected:
  CGrpPnt& AddGroup(const char* name) {
    CGrpPnt* const group = library.AddGrp(true);
    group->SetLabels(name, "second", "third", "fourth");
    return *group;
  }
  CPunPnt& AddPoint(int group, const char* name, double x, double y, double z) {
    CPunPnt* const point = library.AddPtn(group, true);
    point->SetNomCoord(name, "code", x, y, z);
    return *point;
  }

  CLibPnt library;
};

TEST_F(LandXmlPoints, AreWrittenNorthEastElevation) {
  const CGrpPnt& group = AddGroup("Vertices");
  AddPoint(0, "V1", 1000, 2000, 50);
  AddPoint(0, "V2", 1234567.1234567, -0.5, -12.000001);
  EXPECT_EQ(CgPointsText(library, group),
            "\t<CgPoints name=\"Vertices\">\n"
            "\t\t<CgPoint name=\"V1\">2000.000000 1000.000000 50.000000</CgPoint>\n"
            "\t\t<CgPoint name=\"V2\">-0.500000 1234567.123457 -12.000001</CgPoint>\n"
            "\t</CgPoints>\n");
}

TEST_F(LandXmlPoints, OfAnEmptyGroupAreTheStartAndTheEndTagOnly) {
  const CGrpPnt& group = AddGroup("Empty");
  EXPECT_EQ(CgPointsText(library, group), "\t<CgPoints name=\"Empty\">\n\t</CgPoints>\n");
}

TEST_F(LandXmlPoints, OfAGroupThatTheLibraryDoesNotHoldAreNothing) {
  AddGroup("here");
  CLibPnt other;
  const CGrpPnt& elsewhere = *other.AddGrp(true);
  EXPECT_EQ(CgPointsText(library, elsewhere), "");
}

TEST_F(LandXmlPoints, AreThoseOfTheirOwnGroup) {
  AddGroup("A");
  const CGrpPnt& second = AddGroup("B");
  AddPoint(0, "in A", 1, 2, 3);
  AddPoint(1, "in B", 4, 5, 6);
  EXPECT_EQ(CgPointsText(library, second),
            "\t<CgPoints name=\"B\">\n"
            "\t\t<CgPoint name=\"in B\">5.000000 4.000000 6.000000</CgPoint>\n"
            "\t</CgPoints>\n");
}

TEST_F(LandXmlPoints, AreWrittenWithUndefinedCoordinatesInFull) {
  const CGrpPnt& group = AddGroup("U");
  AddPoint(0, "P", UndefinedValue, 2, UndefinedValue);
  const std::string undefined = Fixed(1.7e+200, 6);
  ASSERT_EQ(undefined.size(), 208u);
  EXPECT_EQ(CgPointsText(library, group),
            "\t<CgPoints name=\"U\">\n\t\t<CgPoint name=\"P\">2.000000 " + undefined + " " +
                undefined + "</CgPoint>\n\t</CgPoints>\n");
}

TEST_F(LandXmlPoints, MayHaveTheSameNameTwice) {
  const CGrpPnt& group = AddGroup("D");
  AddPoint(0, "P", 1, 2, 3);
  AddPoint(0, "P", 1, 2, 3);
  EXPECT_EQ(CountOf(CgPointsText(library, group), "<CgPoint name=\"P\">"), 2);
}

TEST_F(LandXmlPoints, HaveTheirNamesUnescapedInUtf8) {
  const CGrpPnt& group = AddGroup("A & \"B\" <è>");
  AddPoint(0, "P&Q<\">%s'", 0, 0, 0);
  EXPECT_EQ(CgPointsText(library, group),
            "\t<CgPoints name=\"A & \"B\" <\xc3\xa8>\">\n"
            "\t\t<CgPoint name=\"P&Q<\">%s'\">0.000000 0.000000 0.000000</CgPoint>\n"
            "\t</CgPoints>\n");
}

TEST_F(LandXmlPoints, KeepTheMinusSignOfANumberThatRoundsToZero) {
  const CGrpPnt& group = AddGroup("Z");
  AddPoint(0, "P", -0.0000001, 0.0000004, -0.0);
  EXPECT_NE(CgPointsText(library, group).find(">0.000000 -0.000000 -0.000000<"), std::string::npos);
}

}  // namespace
