// Point groups of LandXML files as groups of known points.
#include "tests/support/landxml_load.h"

using namespace landxml_test;
using tdk::WString;

namespace {

class LandXmlLoadPoints : public LandXmlLoad {
 protected:
  /// The names of a group's points; "no group" when there is none of that name.
  std::string NamesOf(const char* group) {
    for (int i = 0; i < Known().GetGrpArSize(); ++i) {
      if (Known().GetGrpAt(i)->GetNome() != WString(group)) continue;
      std::string names;
      for (int k = 0; k < Known().GetPtnArSize(i); ++k) {
        names += (k == 0 ? "" : " ") + Known().GetPtnAt(i, k)->GetNome().ToUtf8();
      }
      return names;
    }
    return "no group";
  }
  const CPunPnt& Point(int i, int group = 0) {
    const CPunPnt* const point = Known().GetPtnAt(group, i);
    static const CPunPnt kNone;
    EXPECT_NE(point, nullptr);
    return point == nullptr ? kNone : *point;
  }
};

TEST_F(LandXmlLoadPoints, AreNorthingEastingElevation) {
  Load(
      "<CgPoints name=\"Vertices\"><CgPoint name=\"V1\">10 20 30</CgPoint>"
      "<CgPoint name=\"V2\">\n\t-1.5\n\t2e3 +0.25\n</CgPoint></CgPoints>");
  EXPECT_EQ(Known().GetGrpArSize(), 1);
  EXPECT_EQ(NamesOf("Vertices"), "V1 V2");
  ExpectAt(Point(0), 20, 10, 30);
  ExpectAt(Point(1), 2000, -1.5, 0.25);
  EXPECT_TRUE(remarks.empty()) << remarks[0];
}

TEST_F(LandXmlLoadPoints, WithoutAnElevationHaveNone) {
  Load("<CgPoints><CgPoint name=\"p\">10 20</CgPoint></CgPoints>");
  EXPECT_EQ(Point(0).GetCoordX(), 20);
  EXPECT_EQ(Point(0).GetCoordY(), 10);
  EXPECT_FALSE(IsDefined(Point(0).GetCoordZ()));
}

TEST_F(LandXmlLoadPoints, WithoutAnElevationHaveNoneInFeetEither) {
  Load("<CgPoints><CgPoint name=\"p\">1000 2000</CgPoint></CgPoints>", kFeet);
  EXPECT_NEAR(Point(0).GetCoordX(), 609.6, 1e-9);
  EXPECT_NEAR(Point(0).GetCoordY(), 304.8, 1e-9);
  EXPECT_FALSE(IsDefined(Point(0).GetCoordZ()));
}

TEST_F(LandXmlLoadPoints, HaveACodeAndADescription) {
  Load(
      "<CgPoints><CgPoint name=\"p\" code=\"TREE\" desc=\"an old one\">1 2 3</CgPoint>"
      "<CgPoint name=\"q\" desc=\"corner\">1 2 3</CgPoint></CgPoints>");
  EXPECT_EQ(Point(0).GetSecScri(), WString("TREE"));
  EXPECT_EQ(Point(0).GetTerScri(), WString("an old one"));
  EXPECT_EQ(Point(1).GetSecScri(), WString("corner"));
}

TEST_F(LandXmlLoadPoints, OfGroupsInGroupsLieInTheirOwn) {
  Load(
      "<CgPoints name=\"outer\"><CgPoint name=\"a\">1 1</CgPoint><CgPoints name=\"inner\">"
      "<CgPoint name=\"b\">2 2</CgPoint></CgPoints><CgPoint name=\"c\">3 3</CgPoint></CgPoints>"
      "<CgPoints name=\"next\"><CgPoint name=\"d\">4 4</CgPoint></CgPoints>");
  EXPECT_EQ(Known().GetGrpArSize(), 3);
  EXPECT_EQ(NamesOf("outer"), "a c");
  EXPECT_EQ(NamesOf("inner"), "b");
  EXPECT_EQ(NamesOf("next"), "d");
}

TEST_F(LandXmlLoadPoints, MayHaveNoNameNorTheirGroup) {
  Load("<CgPoints><CgPoint>1 2 3</CgPoint></CgPoints>");
  ASSERT_EQ(Known().GetPtnArSize(0), 1);
  EXPECT_TRUE(Point(0).GetNome().IsEmpty());
  ExpectAt(Point(0), 2, 1, 3);
}

TEST_F(LandXmlLoadPoints, OfASurveyAreLoadedToo) {
  Load(
      "<Survey><SurveyHeader name=\"S\"/><CgPoints name=\"field\"><CgPoint name=\"a\">1 2 3"
      "</CgPoint></CgPoints></Survey>");
  EXPECT_EQ(NamesOf("field"), "a");
}

TEST_F(LandXmlLoadPoints, ThatAreNamesOfOthersLieWhereThoseLie) {
  Load(
      "<CgPoints name=\"g\"><CgPoint name=\"first\" pntRef=\"late\"/>"
      "<CgPoint name=\"late\">1 2 3</CgPoint><CgPoint name=\"last\" pntRef=\"late\"> </CgPoint>"
      "<CgPoint name=\"own\" pntRef=\"late\">7 8 9</CgPoint></CgPoints>");
  ASSERT_EQ(Known().GetPtnArSize(0), 4);
  for (int i = 0; i < 4; ++i) {
    const bool isOwn = Point(i).GetNome() == WString("own");
    SCOPED_TRACE(Point(i).GetNome().ToUtf8());
    ExpectAt(Point(i), isOwn ? 8 : 2, isOwn ? 7 : 1, isOwn ? 9 : 3);
  }
}

TEST_F(LandXmlLoadPoints, WithoutCoordinatesAreToldAndTheOthersAreLoaded) {
  Load(
      "<CgPoints name=\"g\"><CgPoint name=\"a\"/>\n<CgPoint name=\"b\">1 east</CgPoint>\n"
      "<CgPoint name=\"c\" pntRef=\"nobody\"/>\n<CgPoint name=\"d\">NaN 1e999</CgPoint>\n"
      "<CgPoint name=\"e\">1 2 3</CgPoint></CgPoints>");
  EXPECT_EQ(NamesOf("g"), "e");
  EXPECT_TRUE(Told({"line 2", "\"a\""}));
  EXPECT_TRUE(Told({"line 3", "\"b\""}));
  EXPECT_TRUE(Told({"line 4", "nobody"}));
  EXPECT_TRUE(Told({"line 5", "\"d\""}));
}

TEST_F(LandXmlLoadPoints, OfTheJobStayAndAreNotMeant) {
  Known().AddGrp(true)->SetLabels("before", "", "", "");
  Known().AddPtn(0, true)->SetNomCoord("a", "", 100, 200, 300);
  Load(
      "<CgPoints name=\"g\"><CgPoint name=\"b\" pntRef=\"a\"/><CgPoint name=\"a\">1 2 3</CgPoint>"
      "</CgPoints>");
  EXPECT_EQ(NamesOf("before"), "a");
  ExpectAt(Point(0), 100, 200, 300);
  ASSERT_EQ(Known().GetPtnArSize(1), 2);
  ExpectAt(Point(0, 1), 2, 1, 3);
  ExpectAt(Point(1, 1), 2, 1, 3);
}

}  // namespace
