// Total-station surveys in LandXML, byte for byte.
#include <string>

#include "tests/support/exchange_landxml.h"

using namespace exchange_test;

namespace {

class LandXmlTsSurvey : public testing::Test {
 protected:
  CJob& AddJob(const char* name) {
    CJob* const job = library.AddJob(true);
    job->SetNome(name);
    return *job;
  }
  CSta& AddStation(const char* name, double height) {
    CSta* const station = library.AddSta(library.GetJobArSize() - 1, true);
    station->SetNome(name);
    station->SetAltStr(height);
    return *station;
  }
  CPun& AddPoint(CSta& station, const char* name) {
    CPun* const point = library.AddPun(&station, true);
    point->SetNome(name);
    return *point;
  }
  /// The start tag of the one observation of a job with one point, to which `fill` was applied.
  template <class Fill>
  std::string ObservationTag(Fill fill) {
    CJob& job = AddJob("J");
    fill(AddPoint(AddStation("S", 0), "P"));
    return LineThatBegins(TsSurveyText(library, job), "\t\t\t<RawObservation");
  }

  CLibCmp library;
};

TEST_F(LandXmlTsSurvey, OfAJobWithoutStationsIsItsHeaderOnly) {
  EXPECT_EQ(TsSurveyText(library, AddJob("Empty")),
            "\t<Survey desc=\"Empty\">\n\t\t<SurveyHeader name=\"Empty\" />\n\t</Survey>\n");
}

TEST_F(LandXmlTsSurvey, HoldsStationsWithTheirPoints) {
  CJob& job = AddJob("WALL");
  CSta& first = AddStation("S1", 1.5824);
  first.SetSecScri("nail");
  first.SetCoord(1000, 2000, 50.25);
  CPun& computed = AddPoint(first, "101");
  computed.SetCode("MURO");
  computed.SetAltPri(1.5);
  computed.SetDtIntAng(24.333, 100.8288, 56.8778, 99);
  computed.SetCoord(1010.5, 2020.125, 49);
  AddPoint(first, "102").SetDtIntAng(10, 99.5, 380.25, 0);
  AddStation("S2", -0.25);
  EXPECT_EQ(
      TsSurveyText(library, job),
      "\t<Survey desc=\"WALL\">\n"
      "\t\t<SurveyHeader name=\"WALL\" />\n"
      "\t\t<InstrumentSetup id=\"Setup0\" stationName=\"S1\" instrumentHeight=\"1.582400\">\n"
      "\t\t\t<InstrumentPoint name=\"S1\" desc=\"nail\">2000.000000 1000.000000"
      " 50.250000</InstrumentPoint>\n"
      "\t\t\t<RawObservation setupID=\"Setup0\" targetHeight=\"1.500000\""
      " horizAngle=\"56.877800\" slopeDistance=\"24.333000\" zenithAngle=\"100.828800\" >\n"
      "\t\t\t\t<TargetPoint name=\"101\" desc=\"MURO\">2020.125000 1010.500000"
      " 49.000000</TargetPoint>\n"
      "\t\t\t</RawObservation>\n"
      "\t\t\t<RawObservation setupID=\"Setup1\" targetHeight=\"0.000000\""
      " horizAngle=\"380.250000\" slopeDistance=\"10.000000\" zenithAngle=\"99.500000\" >\n"
      "\t\t\t</RawObservation>\n"
      "\t\t</InstrumentSetup>\n"
      "\t\t<InstrumentSetup id=\"Setup1\" stationName=\"S2\" instrumentHeight=\"-0.250000\">\n"
      "\t\t</InstrumentSetup>\n"
      "\t</Survey>\n");
}

TEST_F(LandXmlTsSurvey, RefersToSetupsByThePositionOfThePoint) {
  CJob& job = AddJob("J");
  CSta& first = AddStation("S1", 0);
  CSta& second = AddStation("S2", 0);
  for (int i = 0; i < 2; ++i) AddPoint(first, "a");
  for (int i = 0; i < 3; ++i) AddPoint(second, "b");
  const std::string text = TsSurveyText(library, job);
  EXPECT_EQ(CountOf(text, "<RawObservation setupID=\"Setup0\" "), 2);
  EXPECT_EQ(CountOf(text, "<RawObservation setupID=\"Setup1\" "), 2);
  EXPECT_EQ(CountOf(text, "<RawObservation setupID=\"Setup2\" "), 1);
  EXPECT_LT(text.find("id=\"Setup1\" stationName=\"S2\""), text.find("setupID=\"Setup2\""));
}

TEST_F(LandXmlTsSurvey, CountsSetupsFromZeroInEachJob) {
  AddJob("A");
  AddStation("S1", 0);
  AddStation("S2", 0);
  CJob& second = AddJob("B");
  AddPoint(AddStation("S3", 0), "in B");
  const std::string text = TsSurveyText(library, second);
  EXPECT_NE(text.find("<InstrumentSetup id=\"Setup0\" stationName=\"S3\""), std::string::npos);
  EXPECT_EQ(CountOf(text, "<InstrumentSetup "), 1);
  EXPECT_EQ(CountOf(text, "<RawObservation "), 1);
}

// ---- Values that are not there ----

TEST_F(LandXmlTsSurvey, LeavesTheSlopeDistanceOutWhenThereIsNone) {
  EXPECT_EQ(ObservationTag([](CPun& point) { point.SetDtIntAng(UndefinedValue, 99, 10, 0); }),
            "\t\t\t<RawObservation setupID=\"Setup0\" targetHeight=\"0.000000\""
            " horizAngle=\"10.000000\" zenithAngle=\"99.000000\" >\n");
}

TEST_F(LandXmlTsSurvey, LeavesTheTargetHeightOutWhenThereIsNone) {
  EXPECT_EQ(ObservationTag([](CPun& point) {
              point.SetAltPri(UndefinedValue);
              point.SetDtIntAng(5, 99, 10, 0);
            }),
            "\t\t\t<RawObservation setupID=\"Setup0\" horizAngle=\"10.000000\""
            " slopeDistance=\"5.000000\" zenithAngle=\"99.000000\" >\n");
}

TEST_F(LandXmlTsSurvey, LeavesTheAnglesOutWhenThereAreNone) {
  EXPECT_EQ(
      ObservationTag([](CPun& point) { point.SetDtIntAng(5, UndefinedValue, UndefinedValue, 0); }),
      "\t\t\t<RawObservation setupID=\"Setup0\" targetHeight=\"0.000000\""
      " slopeDistance=\"5.000000\" >\n");
}

TEST_F(LandXmlTsSurvey, WritesAnObservationOfNothingAtAll) {
  EXPECT_EQ(ObservationTag([](CPun& point) { point.SetAltPri(UndefinedValue); }),
            "\t\t\t<RawObservation setupID=\"Setup0\" >\n");
}

TEST_F(LandXmlTsSurvey, TakesValuesBelowTheLimitForDefinedAndTheLimitForUndefined) {
  const double below = 8.4999e199;
  EXPECT_EQ(ObservationTag([&](CPun& point) { point.SetDtIntAng(8.5e199, below, -below, 0); }),
            "\t\t\t<RawObservation setupID=\"Setup0\" targetHeight=\"0.000000\" horizAngle=\"" +
                Fixed(-below, 6) + "\" zenithAngle=\"" + Fixed(below, 6) + "\" >\n");
}

struct MissingCoordinate {
  const char* name;
  double x;
  double y;
  double z;
};
void PrintTo(const MissingCoordinate& with, std::ostream* out) { *out << with.name; }

class LandXmlMissingCoordinate : public LandXmlTsSurvey,
                                 public testing::WithParamInterface<MissingCoordinate> {};

TEST_P(LandXmlMissingCoordinate, LeavesThePlacesOut) {
  const MissingCoordinate& with = GetParam();
  CJob& job = AddJob("J");
  CSta& station = AddStation("S", 0);
  station.SetCoord(with.x, with.y, with.z);
  AddPoint(station, "P").SetCoord(with.x, with.y, with.z);
  const std::string text = TsSurveyText(library, job);
  EXPECT_EQ(text.find("InstrumentPoint"), std::string::npos);
  EXPECT_EQ(text.find("TargetPoint"), std::string::npos);
  EXPECT_EQ(CountOf(text, "<RawObservation "), 1);
}

INSTANTIATE_TEST_SUITE_P(Without, LandXmlMissingCoordinate,
                         testing::Values(MissingCoordinate{"Easting", UndefinedValue, 2, 3},
                                         MissingCoordinate{"Northing", 1, UndefinedValue, 3},
                                         MissingCoordinate{"Elevation", 1, 2, UndefinedValue},
                                         MissingCoordinate{"Any", UndefinedValue, UndefinedValue,
                                                           UndefinedValue}),
                         [](const auto& which) { return std::string(which.param.name); });

TEST_F(LandXmlTsSurvey, WritesAnUndefinedInstrumentHeightInFull) {
  CJob& job = AddJob("J");
  AddStation("S", UndefinedValue);
  EXPECT_NE(TsSurveyText(library, job).find(" instrumentHeight=\"" + Fixed(1.7e+200, 6) + "\">\n"),
            std::string::npos);
}

// ---- Texts and strangers ----

TEST_F(LandXmlTsSurvey, HasItsNamesUnescapedInUtf8) {
  CJob& job = AddJob("A&B <\"è\">");
  CSta& station = AddStation("S&T", 0);
  station.SetSecScri("<x>");
  station.SetCoord(0, 0, 0);
  CPun& point = AddPoint(station, "P & %d");
  point.SetCode("\"q\"");
  point.SetCoord(0, 0, 0);
  const std::string text = TsSurveyText(library, job);
  EXPECT_TRUE(
      text.starts_with("\t<Survey desc=\"A&B <\"\xc3\xa8\">\">\n"
                       "\t\t<SurveyHeader name=\"A&B <\"\xc3\xa8\">\" />\n"));
  EXPECT_NE(text.find(" stationName=\"S&T\" "), std::string::npos);
  EXPECT_NE(text.find("<InstrumentPoint name=\"S&T\" desc=\"<x>\">"), std::string::npos);
  EXPECT_NE(text.find("<TargetPoint name=\"P & %d\" desc=\"\"q\"\">"), std::string::npos);
}

TEST_F(LandXmlTsSurvey, OfAJobThatTheLibraryDoesNotHoldIsItsHeaderOnly) {
  AddJob("here");
  AddStation("S", 0);
  CLibCmp other;
  CJob& elsewhere = *other.AddJob(true);
  elsewhere.SetNome("elsewhere");
  other.AddSta(0, true);
  EXPECT_EQ(
      TsSurveyText(library, elsewhere),
      "\t<Survey desc=\"elsewhere\">\n\t\t<SurveyHeader name=\"elsewhere\" />\n\t</Survey>\n");
}

}  // namespace
