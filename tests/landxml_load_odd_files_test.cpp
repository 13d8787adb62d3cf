// LandXML files that say the same twice, or not quite as others do: nothing of them is taken for
// something else in silence.
#include <numbers>

#include "tests/support/landxml_load.h"

using namespace landxml_test;
using tdk::WString;

namespace {

class LandXmlLoadOddFiles : public LandXmlLoad {
 protected:
  std::string CodeNameOf(int section, int line) {
    const CProfileAlti& height = Road().GetRoadProfile()->GetSection(section).GetProfileAlti(line);
    const TProfileAltiCode* const code =
        Road().ProfileCodes().FindSectionAltiCode(height.GetCode());
    return code == nullptr ? "no code" : code->name.ToUtf8();
  }
};

std::string Section(const std::string& name, const std::string& attributes = "") {
  return "<CrossSectSurf name=\"" + name + "\" " + attributes +
         "><PntList2D>-1 5 1 5</PntList2D></CrossSectSurf>";
}
std::string RoadWith(const std::string& more) { return Alignment(Line("0 0", "0 400"), "", more); }

constexpr const char* kPoints =
    "<Pnts><P id=\"1\">0 0 0</P><P id=\"2\">0 1 0</P><P id=\"3\">1 0 0</P></Pnts>";

}  // namespace

TEST_F(LandXmlLoadOddFiles, LinesOfASecondCollectionOfSectionsKeepTheirNames) {
  Load(RoadWith("<CrossSects><CrossSect sta=\"1\">" + Section("Base") +
                "</CrossSect></CrossSects><CrossSects><CrossSect sta=\"2\">" + Section("Top") +
                Section("Base") + "</CrossSect></CrossSects>"));
  EXPECT_EQ(CodeNameOf(0, 0), "Base");
  EXPECT_EQ(CodeNameOf(1, 0), "Top");
  EXPECT_EQ(CodeNameOf(1, 1), "Base");
}

TEST_F(LandXmlLoadOddFiles, OnlyOneExistingSurfaceIsTheGround) {
  Load(RoadWith("<CrossSects><CrossSect sta=\"1\">" + Section("EG", "state=\"existing\"") +
                Section("Rock", "state=\"existing\"") + "</CrossSect></CrossSects>"));
  EXPECT_EQ(Road().GetRoadProfile()->GetSection(0).GetNumTerrVrts(), 2);
  EXPECT_EQ(CodeNameOf(0, 0), "Rock");
}

TEST_F(LandXmlLoadOddFiles, ListInSpaceIsNoSection) {
  Load(
      RoadWith("<CrossSects><CrossSect sta=\"1\"><CrossSectSurf name=\"A\"><PntList3D>1 2 3 4 5 6"
               "</PntList3D></CrossSectSurf></CrossSect></CrossSects>"));
  EXPECT_TRUE(Told({"line 4", "no list of points"}));
}

TEST_F(LandXmlLoadOddFiles, SecondDefinitionHasIdsOfItsOwn) {
  const std::string face = "<Faces><F>1 2 3</F></Faces>";
  Load("<Surfaces><Surface name=\"S\"><Definition>" + std::string(kPoints) + face +
       "</Definition><Definition>" + kPoints + face + "</Definition></Surface></Surfaces>");
  ASSERT_EQ(Surface().GetTris().GetNoTris(), 2);
  EXPECT_EQ(Surface().GetTris().GetTriAt(1).GetVerIndex(0), 3);
}

TEST_F(LandXmlLoadOddFiles, SecondPointOfAnIdIsTold) {
  Load(
      "<Surfaces>\n<Surface name=\"S\"><Definition><Pnts><P id=\"1\">0 0 0</P><P id=\"1\">5 5 5</P>"
      "</Pnts></Definition></Surface></Surfaces>");
  EXPECT_EQ(Surface().GetTris().GetNoTriVrts(), 2);
  EXPECT_TRUE(Told({"line 3", "\"S\"", "id of an earlier one", "(1)"}));
}

TEST_F(LandXmlLoadOddFiles, FaceIsInvisibleInWordsToo) {
  Load("<Surfaces><Surface name=\"S\"><Definition>" + std::string(kPoints) +
       "<Faces><F i=\"true\">1 2 3</F></Faces></Definition></Surface></Surfaces>");
  EXPECT_EQ(Surface().GetTris().GetNoTris(), 0);
  EXPECT_TRUE(Told({"invisible", "(1)"}));
}

TEST_F(LandXmlLoadOddFiles, BoundaryOfAnotherTypeIsToldAndLeftOut) {
  Load(
      "<Surfaces><Surface name=\"S\"><SourceData><Boundaries>\n<Boundary bndType=\"texture\">"
      "<PntList3D>0 0 0 0 1 0 1 0 0</PntList3D></Boundary></Boundaries></SourceData></Surface>"
      "</Surfaces>");
  EXPECT_EQ(Surface().GetIslandCnts().GetNoCnts(), 0);
  EXPECT_EQ(Surface().GetOuterCnts().GetNoCnts(), 0);
  EXPECT_TRUE(Told({"line 3", "\"texture\""}));
}

TEST_F(LandXmlLoadOddFiles, NamesOfNamesMayComeBeforeWhatTheyName) {
  Load(
      "<CgPoints name=\"G\"><CgPoint name=\"p\" pntRef=\"q\"/><CgPoint name=\"q\" pntRef=\"z\"/>"
      "<CgPoint name=\"z\">1 2 3</CgPoint></CgPoints>");
  ASSERT_EQ(Known().GetPtnArSize(0), 3);
  for (int i = 0; i < 3; ++i) ExpectAt(*Known().GetPtnAt(0, i), 2, 1, 3);
  EXPECT_TRUE(remarks.empty());
}

TEST_F(LandXmlLoadOddFiles, NamesThatLeadInARingAreTold) {
  Load(
      "<CgPoints name=\"G\"><CgPoint name=\"p\" pntRef=\"q\"/><CgPoint name=\"q\" pntRef=\"p\"/>"
      "</CgPoints>");
  EXPECT_EQ(Known().GetPtnArSize(0), 0);
  EXPECT_TRUE(Told({"no point \"q\""}));
  EXPECT_TRUE(Told({"no point \"p\""}));
}

TEST_F(LandXmlLoadOddFiles, EmptyProfileLeavesRoomForAFullOne) {
  Load(
      RoadWith("<Profile><ProfAlign name=\"a\"/><ProfAlign name=\"b\"><PVI>0 1</PVI><PVI>9 2</PVI>"
               "</ProfAlign></Profile>"));
  ASSERT_NE(Road().GetRoadProfile()->GetMainPrjAlti(), nullptr);
  EXPECT_EQ(Road().GetRoadProfile()->GetMainPrjAlti()->GetNumVrts(), 2);
  EXPECT_TRUE(remarks.empty());
}

TEST_F(LandXmlLoadOddFiles, VerticalCurveThatHasNoPlaceIsTold) {
  Load(
      RoadWith("<Profile><ProfAlign><ParaCurve length=\"4\">0 1</ParaCurve>\n<ParaCurve "
               "length=\"-4\">5 1</ParaCurve><PVI>9 2</PVI></ProfAlign></Profile>"));
  EXPECT_TRUE(Told({"line 4", "at the end of a profile"}));
  EXPECT_TRUE(Told({"line 5", "no length"}));
}

TEST_F(LandXmlLoadOddFiles, ArcIsTheLargeOneWhenItsAngleSaysSo) {
  Load(
      Alignment("<Curve rot=\"ccw\" radius=\"100\" delta=\"4.71238898038469\"><Start>0 0</Start>"
                "<End>100 100</End></Curve>"));
  EXPECT_NEAR(Only('A').GetLength(), 150 * std::numbers::pi, 1e-9);
}

TEST_F(LandXmlLoadOddFiles, StraightEndOfAClothoidIsSpelledInManyWays) {
  for (const char* spelled : {"INF", " inf ", "Infinity", "1.#INF"}) {
    HostDocument fresh;
    exchange_test::WriteFile(
        Path(), Document(Alignment("<Spiral length=\"50\" radiusStart=\"" + std::string(spelled) +
                                   "\" radiusEnd=\"50\" rot=\"ccw\"><Start>0 0</Start>"
                                   "<End>8.185702368785 48.764384410017</End></Spiral>")));
    LoadLandXml(Path(), fresh);
    std::vector<const CPlaniElem*> elements;
    fresh.GetLibRoad()->GetRoadAt(0)->RetrieveLinkedPlaniElems(elements);
    ASSERT_EQ(elements.size(), 1U) << spelled;
    EXPECT_EQ(elements[0]->GetType(), CPlaniElem::kClothoid) << spelled;
  }
}

TEST_F(LandXmlLoadOddFiles, EachGpsSetUpIsAGroup) {
  const auto position = [](const std::string& setUp, const std::string& name) {
    return "<GPSPosition setupID=\"" + setUp + "\"><TargetPoint name=\"" + name +
           "\">1 2 3</TargetPoint></GPSPosition>";
  };
  Load("<Survey><GPSSetup id=\"a\" stationName=\"B1\"/><GPSSetup id=\"b\" stationName=\"B2\"/>" +
       position("b", "p") + position("a", "q") + "</Survey>");
  ASSERT_EQ(Gps().GetGrpArSize(), 2);
  EXPECT_EQ(Gps().GetGrpAt(1)->GetNome(), WString("B2"));
  EXPECT_EQ(Gps().GetPunAt(1, 0)->GetNome(), WString("p"));
  EXPECT_EQ(Gps().GetPunAt(0, 0)->GetNome(), WString("q"));
}

TEST_F(LandXmlLoadOddFiles, DistancesAcrossAndUpAreAnObservationToo) {
  Load(
      "<Survey><InstrumentSetup id=\"s\" stationName=\"1\"><RawObservation horizAngle=\"0\" "
      "horizDistance=\"3\" vertDistance=\"4\"><TargetPoint name=\"p\"/></RawObservation>"
      "</InstrumentSetup></Survey>");
  const CPun& point = *Jobs().GetPunAt(0, 0, 0);
  EXPECT_NEAR(point.GetDato0(), 5, 1e-12);
  EXPECT_NEAR(point.GetDato1(), std::atan2(3.0, 4.0) * 200 / std::numbers::pi, 1e-12);
}

TEST_F(LandXmlLoadOddFiles, OrientationsOfSetUpsAreTold) {
  Load("<Survey>\n<InstrumentSetup id=\"s\" stationName=\"1\" orientationAzimuth=\"1\"/></Survey>");
  EXPECT_TRUE(Told({"line 3", "orientations of set-ups", "(1)"}));
}

TEST_F(LandXmlLoadOddFiles, UnitsAreKnownInAnyLetters) {
  Load("<CgPoints name=\"G\"><CgPoint name=\"p\">10 0</CgPoint></CgPoints>",
       R"(<Units><Imperial linearUnit="Foot"/></Units>)");
  EXPECT_NEAR(Known().GetPtnAt(0, 0)->GetCoordY(), 3.048, 1e-12);
  EXPECT_TRUE(remarks.empty());
}

TEST_F(LandXmlLoadOddFiles, ImperialUnitThatNobodyKnowsIsRefused) {
  EXPECT_EQ(Refusal(Document("<CgPoints/>", R"(<Units><Imperial linearUnit="cubit"/></Units>)")),
            "line 1: the unit \"cubit\" is not known");
}

TEST_F(LandXmlLoadOddFiles, EncodingsAreKnownByTheirUsualMistakes) {
  const auto named = [](const std::string& encoding, const std::string& name) {
    return "<?xml version=\"1.0\" encoding=\"" + encoding + "\"?>" +
           Document("<CgPoints name=\"" + name + "\"><CgPoint name=\"1\">1 1</CgPoint></CgPoints>");
  };
  for (const std::string& bytes : {named("UTF8", "\xC3\xA0"), named("US-ASCII", "\xE0"),
                                   named("utf-16", "\xC3\xA0"), named("utf-16", "\xE0")}) {
    HostDocument fresh;
    exchange_test::WriteFile(Path(), bytes);
    LoadLandXml(Path(), fresh);
    EXPECT_EQ(fresh.GetLibPnt()->GetGrpAt(0)->GetNome(), WString("\xC3\xA0")) << bytes;
  }
}

TEST_F(LandXmlLoadOddFiles, EncodingsOfSeveralBytesAreRefusedAsSuch) {
  for (const std::string encoding : {"Shift_JIS", "GB2312", "Big5"}) {
    EXPECT_THAT(Refusal("<?xml version=\"1.0\" encoding=\"" + encoding +
                        "\"?><LandXML>\x82\xA0"
                        "</LandXML>"),
                testing::HasSubstr("its encoding cannot be read"))
        << encoding;
  }
}
