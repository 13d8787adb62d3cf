// GPS surveys in LandXML, byte for byte.
#include <string>

#include "tests/support/exchange_landxml.h"

using namespace exchange_test;

namespace {

constexpr double kFortyFiveDegrees = 0.785398163397;  // radians

class LandXmlGpsSurvey : public testing::Test {
 protected:
  CGrpGps& AddGroup(const char* groupName, const char* baseName) {
    CGrpGps* const group = library.AddGrp(true);
    group->SetNomeGrp(groupName);
    group->SetNome(baseName);
    group->SetBaseLat(kFortyFiveDegrees);
    group->SetBaseLong(-0.2);
    group->SetBaseElev(123.4567894);
    group->SetBaseAltAnt(2);
    group->SetCoord(500000, 4980000.5, 77.25);
    return *group;
  }
  CPunGps& AddPoint(int group, const char* name) {
    CPunGps* const point = library.AddPun(group, true);
    point->SetNomCoord(name, "code", 10, 20, 30);
    point->SetLat(0.8);
    point->SetLong(0.2);
    point->SetElev(100);
    SetCovariance(*point, 0);
    return *point;
  }
  static void SetCovariance(CPunGps& point, float step) {
    point.SetPosCov_xx(1 * step);
    point.SetPosCov_xy(2 * step);
    point.SetPosCov_xz(3 * step);
    point.SetPosCov_yy(4 * step);
    point.SetPosCov_yz(5 * step);
    point.SetPosCov_zz(6 * step);
  }
  /// The line with the quality of the one point of a group, to which `fill` was applied.
  template <class Fill>
  std::string QualityLine(Fill fill) {
    CGrpGps& group = AddGroup("G", "B");
    fill(AddPoint(library.GetGrpArSize() - 1, "P"));
    return LineThatBegins(GpsSurveyText(library, group), "\t\t\t<GPSQCInfoLevel2");
  }

  CLibGps library;
};

TEST_F(LandXmlGpsSurvey, HoldsTheBaseAndThePointsMeasuredWithIt) {
  CGrpGps& group = AddGroup("Survey 1", "BASE");
  group.SetSecScri("not written");
  CPunGps& point = AddPoint(0, "101");
  point.SetCode("ASF");
  point.SetLat(0.8);
  point.SetLong(-0.2);
  point.SetElev(-5.5);
  point.SetCoord(-1.25, 4980001, 76);
  point.SetQua(4);
  SetCovariance(point, 0.25F);
  point.SetNuGpsUsed(8);
  point.SetNuGloUsed(5);
  EXPECT_EQ(GpsSurveyText(library, group),
            "\t<Survey>\n"
            "\t\t<SurveyHeader name=\"Survey 1\" />\n"
            "\t\t<Equipment>\n"
            "\t\t\t<GPSAntennaDetails id=\"BASE\" latitude=\"45.000000000\""
            " longitude=\"-11.459155903\" altitude=\"123.456789\" />\n"
            "\t\t</Equipment>\n"
            "\t\t<GPSSetup id=\"BASE\" antennaHeight=\"2.000000\" stationName=\"BASE\" >\n"
            "\t\t\t<GPSPosition wgsHeight=\"123.456789\" wgsLatitude=\"45.000000000\""
            " wgsLongitude=\"-11.459155903\">\n"
            "\t\t\t\t<TargetPoint>4980000.500000 500000.000000 77.250000</TargetPoint>\n"
            "\t\t\t</GPSPosition>\n"
            "\t\t</GPSSetup>\n"
            "\t\t<GPSPosition setupID=\"BASE\" wgsHeight=\"-5.500000\" wgsLatitude=\"45.836623610\""
            " wgsLongitude=\"-11.459155903\">\n"
            "\t\t\t<TargetPoint name=\"101\" desc=\"ASF\">4980001.000000 -1.250000"
            " 76.000000</TargetPoint>\n"
            "\t\t\t<GPSQCInfoLevel2 GPSSolnType=\"Fixed\" covarianceXX=\"0.250000\""
            " covarianceXY=\"0.500000\" covarianceXZ=\"0.750000\" covarianceYY=\"1.000000\""
            " covarianceYZ=\"1.250000\" covarianceZZ=\"1.500000\" nbrSatellites=\"13\" />\n"
            "\t\t</GPSPosition>\n"
            "\t</Survey>\n");
}

TEST_F(LandXmlGpsSurvey, OfAGroupWithoutPointsEndsAfterTheBase) {
  const CGrpGps& group = AddGroup("G", "B");
  const std::string text = GpsSurveyText(library, group);
  EXPECT_TRUE(text.ends_with("\t\t</GPSSetup>\n\t</Survey>\n")) << text;
  EXPECT_EQ(CountOf(text, "<GPSPosition "), 1);
}

TEST_F(LandXmlGpsSurvey, HoldsThePointsOfItsOwnGroupInTheirOrder) {
  AddGroup("A", "BA");
  const CGrpGps& second = AddGroup("B", "BB");
  AddPoint(0, "in A");
  AddPoint(1, "first");
  AddPoint(1, "second");
  const std::string text = GpsSurveyText(library, second);
  EXPECT_EQ(text.find("in A"), std::string::npos);
  EXPECT_LT(text.find("name=\"first\""), text.find("name=\"second\""));
  EXPECT_EQ(CountOf(text, "\n\t\t<GPSPosition setupID=\"BB\" "), 2);
}

TEST_F(LandXmlGpsSurvey, OfAGroupThatTheLibraryDoesNotHoldHasNoPoints) {
  AddGroup("here", "B");
  AddPoint(0, "P");
  CLibGps other;
  CGrpGps& elsewhere = *other.AddGrp(true);
  elsewhere.SetNomeGrp("elsewhere");
  other.AddPun(0, true);
  const std::string text = GpsSurveyText(library, elsewhere);
  EXPECT_TRUE(text.starts_with("\t<Survey>\n\t\t<SurveyHeader name=\"elsewhere\" />\n")) << text;
  EXPECT_TRUE(text.ends_with("\t\t</GPSSetup>\n\t</Survey>\n")) << text;
}

TEST_F(LandXmlGpsSurvey, HasItsNamesUnescapedInUtf8) {
  const CGrpGps& group = AddGroup("G & <è>", "B\"B");
  AddPoint(0, "P&Q").SetCode("%s");
  const std::string text = GpsSurveyText(library, group);
  EXPECT_NE(text.find("<SurveyHeader name=\"G & <\xc3\xa8>\" />"), std::string::npos);
  EXPECT_EQ(CountOf(text, "=\"B\"B\""), 4);
  EXPECT_NE(text.find("<TargetPoint name=\"P&Q\" desc=\"%s\">"), std::string::npos);
}

// ---- Quality ----

struct Quality {
  int code;
  const char* word;
};
void PrintTo(const Quality& with, std::ostream* out) { *out << with.code << " as " << with.word; }

class LandXmlQuality : public LandXmlGpsSurvey, public testing::WithParamInterface<Quality> {};

TEST_P(LandXmlQuality, IsWrittenAsAWord) {
  EXPECT_TRUE(QualityLine([](CPunGps& point) { point.SetQua(GetParam().code); })
                  .starts_with(std::string("\t\t\t<GPSQCInfoLevel2 GPSSolnType=\"") +
                               GetParam().word + "\" covarianceXX="));
}

INSTANTIATE_TEST_SUITE_P(
    OfCode, LandXmlQuality,
    testing::Values(Quality{0, "Unknown"}, Quality{1, "Unknown"}, Quality{2, "Code"},
                    Quality{3, "Float"}, Quality{4, "Fixed"}, Quality{5, "Unknown"},
                    Quality{6, "Code"}, Quality{7, "Float"}, Quality{8, "Fixed"},
                    Quality{9, "Unknown"}, Quality{10, "Unknown"}, Quality{-1, "Unknown"},
                    Quality{262, "Unknown"}),
    [](const auto& which) {
      return which.param.code < 0 ? "Minus1" : std::to_string(which.param.code);
    });

TEST_F(LandXmlGpsSurvey, AddsTheSatellitesOfBothSystems) {
  const auto satellites = [this](std::uint8_t gps, std::uint8_t glonass) {
    const std::string line = QualityLine([&](CPunGps& point) {
      point.SetNuGpsUsed(gps);
      point.SetNuGloUsed(glonass);
    });
    return line.substr(line.find(" nbrSatellites"));
  };
  EXPECT_EQ(satellites(0, 0), " nbrSatellites=\"0\" />\n");
  EXPECT_EQ(satellites(9, 0), " nbrSatellites=\"9\" />\n");
  EXPECT_EQ(satellites(0, 7), " nbrSatellites=\"7\" />\n");
  EXPECT_EQ(satellites(255, 255), " nbrSatellites=\"510\" />\n");
}

TEST_F(LandXmlGpsSurvey, WritesCovariancesAsStored) {
  EXPECT_EQ(QualityLine([](CPunGps& point) { SetCovariance(point, -0.0001F); }),
            "\t\t\t<GPSQCInfoLevel2 GPSSolnType=\"Unknown\" covarianceXX=\"-0.000100\""
            " covarianceXY=\"-0.000200\" covarianceXZ=\"-0.000300\" covarianceYY=\"-0.000400\""
            " covarianceYZ=\"-0.000500\" covarianceZZ=\"-0.000600\" nbrSatellites=\"0\" />\n");
}

// ---- Positions ----

struct Latitude {
  const char* name;
  double radians;
  const char* degrees;
};
void PrintTo(const Latitude& with, std::ostream* out) { *out << with.name; }

class LandXmlLatitude : public LandXmlGpsSurvey, public testing::WithParamInterface<Latitude> {};

TEST_P(LandXmlLatitude, IsWrittenInDegreesWithNineDecimals) {
  CGrpGps& group = AddGroup("G", "B");
  AddPoint(0, "P").SetLat(GetParam().radians);
  const std::string rover = LineThatBegins(GpsSurveyText(library, group), "\t\t<GPSPosition");
  EXPECT_NE(rover.find(std::string(" wgsLatitude=\"") + GetParam().degrees + "\" "),
            std::string::npos)
      << rover;
}

INSTANTIATE_TEST_SUITE_P(Of, LandXmlLatitude,
                         testing::Values(Latitude{"FortyFiveDegrees", 0.785398163397,
                                                  "45.000000000"},
                                         Latitude{"TheSouth", -0.785398163397, "-45.000000000"},
                                         Latitude{"TheEquator", 0, "0.000000000"},
                                         Latitude{"ThePole", 1.5707963267948966, "90.000000000"},
                                         Latitude{"AMillimetre", 1.5696e-10, "0.000000009"},
                                         Latitude{"OneRadian", 1, "57.295779513"}),
                         [](const auto& which) { return std::string(which.param.name); });

TEST_F(LandXmlGpsSurvey, WritesUndefinedValuesOfTheBaseInFull) {
  CGrpGps& group = *library.AddGrp(true);
  group.SetNome("B");
  const std::string undefined = Fixed(1.7e+200, 6);
  const std::string text = GpsSurveyText(library, group);
  EXPECT_NE(text.find(" altitude=\"" + undefined + "\" />\n"), std::string::npos) << text;
  EXPECT_NE(text.find("<GPSPosition wgsHeight=\"" + undefined + "\" "), std::string::npos) << text;
  EXPECT_NE(text.find("\t\t\t\t<TargetPoint>" + undefined + " " + undefined + " " + undefined +
                      "</TargetPoint>\n"),
            std::string::npos)
      << text;
}

TEST_F(LandXmlGpsSurvey, WritesUndefinedValuesOfAPointInFull) {
  CGrpGps& group = AddGroup("G", "B");
  CPunGps& point = AddPoint(0, "P");
  point.SetElev(UndefinedValue);
  point.SetLat(UndefinedValue);
  point.SetCoord(1, UndefinedValue, 3);
  const std::string undefined = Fixed(1.7e+200, 6);
  const std::string text = GpsSurveyText(library, group);
  const std::string position = LineThatBegins(text, "\t\t<GPSPosition");
  EXPECT_NE(position.find(" wgsHeight=\"" + undefined + "\" "), std::string::npos) << position;
  // 1.7e+200 radians are 9.7402825172239…e+201 degrees.
  EXPECT_NE(position.find(" wgsLatitude=\"9740282517223"), std::string::npos) << position;
  EXPECT_EQ(position.find('.', position.find(" wgsLatitude")),
            position.find(" wgsLatitude=\"") + std::string(" wgsLatitude=\"").size() + 202);
  EXPECT_NE(text.find(">" + undefined + " 1.000000 3.000000</TargetPoint>\n"), std::string::npos);
}

}  // namespace
