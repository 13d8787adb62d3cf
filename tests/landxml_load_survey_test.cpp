// Set-ups of LandXML files as stations of a job.
#include <ostream>

#include "tests/support/landxml_load.h"

using namespace landxml_test;
using tdk::WString;

namespace {

std::string Survey(const std::string& parts) {
  return "<Survey><SurveyHeader name=\"J\"/>\n" + parts + "</Survey>";
}
std::string UnitsOf(const std::string& attributes) {
  return "<Units><Metric linearUnit=\"meter\" " + attributes + "/></Units>";
}
std::string Observation(const std::string& name, const std::string& attributes) {
  return "<RawObservation " + attributes + "><TargetPoint name=\"" + name + "\"/></RawObservation>";
}

class LandXmlLoadSurvey : public LandXmlLoad {
 protected:
  CSta& Station(int i = 0) { return *Jobs().GetStaAt(0, i); }
  CPun& Target(int i = 0, int station = 0) { return *Jobs().GetPunAt(0, station, i); }
  /// The names of what was observed from a station.
  std::string Targets(int station = 0) {
    std::string names;
    for (int i = 0; i < Jobs().GetPunArSize(0, station); ++i) {
      names += (i == 0 ? "" : " ") + Target(i, station).GetNome().ToUtf8();
    }
    return names;
  }
};

const std::string kSetUp =
    "<InstrumentSetup id=\"s\" stationName=\"100\" instrumentHeight=\"1.55\">"
    "<InstrumentPoint name=\"100\" desc=\"nail\">10 20 30</InstrumentPoint>"
    "<RawObservation setupID=\"s\" targetHeight=\"1.7\" horizAngle=\"0\" slopeDistance=\"50.25\" "
    "zenithAngle=\"1.5707963267948966\"><TargetPoint name=\"1\" desc=\"corner\">11 22 33"
    "</TargetPoint></RawObservation></InstrumentSetup>";

TEST_F(LandXmlLoadSurvey, IsAJobWithItsSetUpsAsStations) {
  Load(Survey(kSetUp));
  ASSERT_EQ(Jobs().GetJobArSize(), 1);
  EXPECT_EQ(Jobs().GetJobAt(0)->GetNome(), WString("J"));
  ASSERT_EQ(Jobs().GetStaArSize(0), 1);
  EXPECT_EQ(Station().GetNome(), WString("100"));
  EXPECT_EQ(Station().GetSecScri(), WString("nail"));
  EXPECT_EQ(Station().GetAltStr(), 1.55);
  ExpectAt(Station(), 20, 10, 30);
  EXPECT_EQ(Gps().GetGrpArSize(), 0);
  EXPECT_TRUE(remarks.empty()) << remarks[0];
}

TEST_F(LandXmlLoadSurvey, ObservationIsAPointWithItsMeasures) {
  Load(Survey(kSetUp));
  ASSERT_EQ(Targets(), "1");
  EXPECT_EQ(Target().GetCode(), WString("corner"));
  EXPECT_EQ(Target().GetAltPri(), 1.7);
  EXPECT_EQ(Target().GetDato0(), 50.25);
  EXPECT_NEAR(Target().GetDato1(), 100, 1e-9);
  EXPECT_EQ(Target().GetDato2(), 0);
  ExpectAt(Target(), 22, 11, 33);
}

TEST_F(LandXmlLoadSurvey, WhatWasNotMeasuredIsUndefined) {
  Load(Survey("<InstrumentSetup id=\"s\">" + Observation("1", "horizAngle=\"\"") +
              "</InstrumentSetup>"));
  ASSERT_EQ(Targets(), "1");
  EXPECT_FALSE(IsDefined(Target().GetDato0()));
  EXPECT_FALSE(IsDefined(Target().GetDato1()));
  EXPECT_FALSE(IsDefined(Target().GetDato2()));
  EXPECT_FALSE(IsDefined(Target().GetCoordX()));
  EXPECT_FALSE(IsDefined(Station().GetCoordX()));
}

TEST_F(LandXmlLoadSurvey, PointsMayBeNamedWithTheirCoordinatesElsewhere) {
  Load(Survey("<InstrumentSetup id=\"s\" stationName=\"S\"><InstrumentPoint pntRef=\"p\"/>"
              "<RawObservation><TargetPoint pntRef=\"q\"/></RawObservation></InstrumentSetup>") +
       "<CgPoints><CgPoint name=\"p\">1 2 3</CgPoint><CgPoint name=\"q\">4 5 "
       "6</CgPoint></CgPoints>");
  ExpectAt(Station(), 2, 1, 3);
  EXPECT_EQ(Station().GetNome(), WString("S"));
  ASSERT_EQ(Targets(), "q");
  ExpectAt(Target(), 5, 4, 6);
}

TEST_F(LandXmlLoadSurvey, IsInMetres) {
  Load(Survey(kSetUp), kFeet);
  EXPECT_NEAR(Station().GetAltStr(), 0.47244, 1e-12);
  EXPECT_NEAR(Target().GetAltPri(), 0.51816, 1e-12);
  EXPECT_NEAR(Target().GetDato0(), 15.3162, 1e-12);
  ExpectAt(Target(), 6.7056, 3.3528, 10.0584);
}

// ---- Which set-up observations belong to ----

const std::string kTwoSetUps =
    "<InstrumentSetup id=\"a\" stationName=\"A\"/><InstrumentSetup id=\"b\" stationName=\"B\"/>";

TEST_F(LandXmlLoadSurvey, GroupsOfObservationsBelongToTheSetUpThatTheyName) {
  Load(Survey(kTwoSetUps + "<ObservationGroup id=\"1\" setupID=\"b\">" + Observation("1", "") +
              Observation("2", "") +
              "</ObservationGroup><ObservationGroup id=\"2\" setupID=\"a\">" +
              Observation("3", "") + "</ObservationGroup>"));
  ASSERT_EQ(Jobs().GetStaArSize(0), 2);
  EXPECT_EQ(Targets(0), "3");
  EXPECT_EQ(Targets(1), "1 2");
}

TEST_F(LandXmlLoadSurvey, GroupsMayComeBeforeTheirSetUp) {
  Load(Survey("<ObservationGroup id=\"1\" setupID=\"b\">" + Observation("1", "") +
              "</ObservationGroup>" + kTwoSetUps));
  EXPECT_EQ(Targets(1), "1");
}

TEST_F(LandXmlLoadSurvey, ObservationsMayNameTheirSetUpThemselves) {
  Load(Survey(kTwoSetUps + "<ObservationGroup id=\"1\">" + Observation("1", "setupID=\"b\"") +
              Observation("2", "setupID=\"a\"") + "</ObservationGroup>"));
  EXPECT_EQ(Targets(0), "2");
  EXPECT_EQ(Targets(1), "1");
}

TEST_F(LandXmlLoadSurvey, ObservationsInASetUpBelongToIt) {
  Load(Survey("<InstrumentSetup id=\"a\">" + Observation("1", "setupID=\"Setup7\"") +
              "<ObservationGroup id=\"1\">" + Observation("2", "") +
              "</ObservationGroup></InstrumentSetup><InstrumentSetup id=\"Setup7\"/>"));
  EXPECT_EQ(Targets(0), "1 2");
  EXPECT_EQ(Targets(1), "");
}

TEST_F(LandXmlLoadSurvey, ObservationsOfASetUpThatIsNotThereAreTold) {
  Load(Survey(kTwoSetUps + "<ObservationGroup setupID=\"c\">\n" + Observation("1", "") +
              "</ObservationGroup><ObservationGroup setupID=\"a\">" + Observation("2", "") +
              "</ObservationGroup>"));
  EXPECT_EQ(Targets(0), "2");
  EXPECT_TRUE(Told({"line 4", "set-up"}));
}

TEST_F(LandXmlLoadSurvey, ObservationsWithoutAnySetUpAreTold) {
  Load(Survey("<ObservationGroup setupID=\"c\">\n" + Observation("1", "") + "</ObservationGroup>"));
  EXPECT_TRUE(Told({"line 4", "set-up"}));
}

TEST_F(LandXmlLoadSurvey, SeveralSurveysAreSeveralJobs) {
  Load(Survey(kSetUp) + "<Survey><SurveyHeader name=\"K\"/>" + kTwoSetUps + "</Survey>");
  ASSERT_EQ(Jobs().GetJobArSize(), 2);
  EXPECT_EQ(Jobs().GetJobAt(1)->GetNome(), WString("K"));
  EXPECT_EQ(Jobs().GetStaArSize(1), 2);
}

// ---- Angles ----

struct Angle {
  const char* name;
  const char* units;
  const char* text;
  double gon;
};
void PrintTo(const Angle& angle, std::ostream* out) { *out << angle.name; }

class LandXmlLoadAngle : public LandXmlLoadSurvey, public testing::WithParamInterface<Angle> {};

TEST_P(LandXmlLoadAngle, IsInGonInTheJob) {
  const std::string text = GetParam().text;
  Load(Survey("<InstrumentSetup id=\"s\">" +
              Observation("1", "horizAngle=\"" + text + "\" zenithAngle=\"" + text + '"') +
              "</InstrumentSetup>"),
       UnitsOf(GetParam().units));
  EXPECT_NEAR(Target().GetDato1(), GetParam().gon, 1e-8);
  EXPECT_NEAR(Target().GetDato2(), GetParam().gon, 1e-8);
}

INSTANTIATE_TEST_SUITE_P(
    Each, LandXmlLoadAngle,
    testing::Values(Angle{"Default", "", "0.7853981633974483", 50},
                    Angle{"Radians", "angularUnit=\"radians\"", "0.7853981633974483", 50},
                    Angle{"Grads", "angularUnit=\"grads\"", "123.4567", 123.4567},
                    Angle{"Degrees", "angularUnit=\"decimal degrees\"", "45", 50},
                    // 45 degrees, 30 minutes, 25 seconds.
                    Angle{"Sexagesimal", "angularUnit=\"decimal dd.mm.ss\"", "45.3025",
                          50.56327160493827},
                    Angle{"SexagesimalWithTwoBlanks", "angularUnit=\"decimal  dd.mm.ss\"",
                          "45.3025", 50.56327160493827},
                    Angle{"SexagesimalSecondsWithDecimals", "angularUnit=\"decimal dd.mm.ss\"",
                          "90.000090", 100.00027777777778},
                    Angle{"SexagesimalWholeMinutes", "angularUnit=\"decimal dd.mm.ss\"", "0.54", 1},
                    // Whatever unit directions have.
                    Angle{"NotDirections",
                          "angularUnit=\"grads\" directionUnit=\"decimal degrees\"", "45", 45}),
    [](const auto& it) { return std::string(it.param.name); });

TEST_F(LandXmlLoadSurvey, UnknownUnitOfAnglesIsTold) {
  Load(Survey(kSetUp), UnitsOf("angularUnit=\"mils\""));
  EXPECT_TRUE(Told({"line 1", "mils"}));
}

// ---- Files of our own ----

std::string Application(const std::string& name, const std::string& manufacturer) {
  return "<Application name=\"" + name + "\" manufacturer=\"" + manufacturer + "\"/>";
}

TEST_F(LandXmlLoadSurvey, OfOurOwnKeepsItsAnglesInGon) {
  Load(Application("KalvioField", "Kalvio") + Survey(kSetUp), UnitsOf("angularUnit=\"radians\""));
  EXPECT_EQ(Target().GetDato1(), 1.5707963267948966);
}

TEST_F(LandXmlLoadSurvey, OfAnotherMakerOrProgramIsNotOurs) {
  Load(Application("KalvioField", "Another") + Survey(kSetUp));
  EXPECT_NEAR(Target().GetDato1(), 100, 1e-9);
  HostDocument another;
  exchange_test::WriteFile(Path(), Document(Application("Another", "Kalvio") + Survey(kSetUp)));
  LoadLandXml(Path(), another);
  EXPECT_NEAR(another.GetLibCmp()->GetPunAt(0, 0, 0)->GetDato1(), 100, 1e-9);
}

}  // namespace
