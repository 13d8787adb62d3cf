// A document as a surveyor would get it, written by hand: read, and written again byte for byte.
#include "tests/support/current_settings.h"
#include "tests/support/jb3_documents.h"

using namespace exchange_test;
using tdk::WString;

namespace {

// A whole night of GPS, two set-ups of one total-station job, a bridge over the Rhine.
const std::string kBridge =
    kJb3Declaration +
    "<JB3>\n"
    "    <Application name=\"Field\" version=\"7.1\" manufacturer=\"Kalvio\" "
    "manufacturerURL=\"https://www.kalvio.example\" />\n"
    "    <Job name=\"Br\xFC"
    "cke &amp; Ufer\" operator=\"M. Keller\" instrument=\"TS 2cc\" "
    "date=\"05-03-2016\">\n"
    "        <Station name=\"S1\" desc=\"nail\" instrument_height=\"1.582\">\n"
    "            <PlaniCoords north=\"5405200.250\" east=\"421000.500\" elevation=\"-0.125\" />\n"
    "            <Pnts>\n"
    "                <Pnt name=\"1\">\n"
    "                    <RawObservation target_height=\"1.5000\" horiz_angle=\"56.8778\" "
    "zenit_angle=\"100.8288\" slope_distance=\"24.3330\" target_type=\"360 Prism\" "
    "prism_constant=\"-0.034\" />\n"
    "                    <PlaniCoords north=\"5405215.120\" east=\"421018.900\" "
    "elevation=\"0.040\" />\n"
    "                </Pnt>\n"
    "                <Pnt name=\"2\" desc=\"pier\">\n"
    "                    <RawObservation target_height=\"0.0000\" horiz_angle=\"399.9999\" "
    "zenit_angle=\"99.0000\" prism_constant=\"0.000\" />\n"
    "                </Pnt>\n"
    "                <Pnt name=\"empty\" />\n"
    "            </Pnts>\n"
    "        </Station>\n"
    "        <Station name=\"S2\" instrument_height=\"0.000\">\n"
    "            <Pnts />\n"
    "        </Station>\n"
    "    </Job>\n"
    "    <Job name=\"Ufer\">\n"
    "        <Station name=\"S1\" instrument_height=\"1.600\">\n"
    "            <Pnts>\n"
    "                <Pnt name=\"1\">\n"
    "                    <RawObservation target_height=\"1.2500\" horiz_angle=\"0.0000\" "
    "zenit_angle=\"300.0000\" slope_distance=\"8.0005\" target_type=\"Reflectorless\" "
    "prism_constant=\"0.000\" />\n"
    "                </Pnt>\n"
    "            </Pnts>\n"
    "        </Station>\n"
    "    </Job>\n"
    "    <Job name=\"GPS\">\n"
    "        <GpsBase name=\"ROOF\" desc=\"mast\" type=\"L1\" start_date=\"14-04-2026\" "
    "start_time=\"00:00\" end_date=\"15-04-2026\" end_time=\"24:00\" correction=\"RTK\">\n"
    "            <GeoCoords cfx=\"4165535.112\" cfy=\"577125.780\" cfz=\"4779008.450\" "
    "antenna_height=\"1.800\" />\n"
    "            <PlaniCoords north=\"5405500.000\" east=\"420900.000\" elevation=\"112.400\" />\n"
    "            <GpsPnts>\n"
    "                <GpsPnt name=\"201\" desc=\"bank\" date=\"14-04-2026\" time=\"23:59:40\" "
    "solution=\"fixed\">\n"
    "                    <GeoCoords cfx=\"4165490.029\" cfy=\"577182.122\" cfz=\"4779040.042\" "
    "antenna_height=\"2.000\" />\n"
    "                    <GpsStat pdop=\"1.800\" gdop=\"2.100\" hrms=\"0.011\" vrms=\"0.019\" "
    "qxx=\"0.00004100\" qxy=\"-0.000004200\" qxz=\"0.0000002000\" qyy=\"0.50000000\" qyz=\"0\" "
    "qzz=\"0.0000000001\" />\n"
    "                    <GpsSat no_gps=\"9\" no_glonass=\"5\" no_galileo=\"0\" />\n"
    "                    <PlaniCoords north=\"5405190.000\" east=\"421010.000\" "
    "elevation=\"0.100\" />\n"
    "                </GpsPnt>\n"
    "                <GpsPnt name=\"202\" date=\"15-04-2026\" time=\"00:00:20\" "
    "solution=\"autonomous\">\n"
    "                    <GpsSat no_gps=\"10\" no_glonass=\"0\" no_galileo=\"0\" />\n"
    "                </GpsPnt>\n"
    "                <GpsPnt name=\"203\" solution=\"calc\">\n"
    "                    <GpsSat no_gps=\"0\" no_glonass=\"0\" no_galileo=\"0\" />\n"
    "                </GpsPnt>\n"
    "            </GpsPnts>\n"
    "        </GpsBase>\n"
    "        <GpsBase name=\"SHORE\" type=\"L2\" start_date=\"\" start_time=\"\" end_date=\"\" "
    "end_time=\"\" correction=\"RTK\">\n"
    "            <GpsPnts />\n"
    "        </GpsBase>\n"
    "    </Job>\n"
    "    <KnownPoints>\n"
    "        <KnownPoint name=\"K7\" type=\"generic\">\n"
    "            <PlaniCoords north=\"5405655.870\" east=\"421512.010\" elevation=\"111.020\" />\n"
    "        </KnownPoint>\n"
    "        <KnownPoint name=\"K8\" desc=\"lost\" type=\"generic\" />\n"
    "        <KnownPoint name=\"C1\" desc=\"steeple\" type=\"ctrl\">\n"
    "            <PlaniCoords north=\"5405600.120\" east=\"421480.340\" elevation=\"112.400\" />\n"
    "        </KnownPoint>\n"
    "        <KnownPoint name=\"C2\" type=\"ctrl\" />\n"
    "    </KnownPoints>\n"
    "</JB3>\n";

class Jb3Golden : public Jb3Test {
 protected:
  void SetUp() override { ASSERT_TRUE(ReadBytes(kBridge)); }
};

TEST_F(Jb3Golden, IsWrittenAgainByteForByte) { EXPECT_EQ(Written(), kBridge); }

TEST_F(Jb3Golden, IsWrittenAgainInASexagesimalHostAsWellWhenReadThere) {
  const CurrentSettings current;
  CIniFile().WriteShort("Misure", "UnitaAngoli", 2);
  const std::string inDegrees = Written();
  EXPECT_NE(inDegrees, kBridge);
  HostDocument once;
  ASSERT_TRUE(jb3::Jb3Reader(&parent, once, WString(folder.Path("out.jb3"))).Read());
  jb3::Jb3Writer(once).Write(WString(folder.Path("again.jb3")), "Field", "7.1");
  EXPECT_EQ(ReadFile(folder.Path("again.jb3")), inDegrees);
}

TEST_F(Jb3Golden, FillsTheTotalStationLibrary) {
  ASSERT_EQ(Jobs().GetJobArSize(), 2);
  EXPECT_EQ(Jobs().GetJobAt(0)->GetNome(), WString("Brücke & Ufer"));
  EXPECT_EQ(Jobs().GetStaArSize(0), 2);
  EXPECT_EQ(Jobs().GetStaAt(0, 0)->GetCoordZ(), -0.125);
  ASSERT_EQ(Jobs().GetPunArSize(0, 0), 3);
  EXPECT_EQ(Jobs().GetPunAt(0, 0, 0)->GetPrismType(), 2u);
  EXPECT_EQ(Jobs().GetPunAt(0, 0, 1)->GetDato0(), UndefinedValue);
  EXPECT_EQ(Jobs().GetPunAt(0, 0, 1)->GetDato2(), 399.9999);
  EXPECT_EQ(Jobs().GetPunArSize(0, 1), 0);
  EXPECT_EQ(Jobs().GetPunAt(1, 0, 0)->GetDato0(), 8.0005);
}

TEST_F(Jb3Golden, FillsTheGpsLibrary) {
  ASSERT_EQ(Gps().GetGrpArSize(), 2);
  EXPECT_EQ(Gps().GetGrpAt(0)->GetTipoRicevitore(), 1);
  EXPECT_EQ(Gps().GetGrpAt(1)->GetTipoRicevitore(), 2);
  EXPECT_EQ(Gps().GetGrpAt(0)->GetData(), WString("14-04-2026"));
  ASSERT_EQ(Gps().GetPunArSize(0), 3);
  EXPECT_EQ(Gps().GetPunAt(0, 0)->GetTod(), 86'380'000u);
  EXPECT_EQ(Gps().GetPunAt(0, 0)->GetPosCov_xy(), -4.2e-6F);
  EXPECT_EQ(Gps().GetPunAt(0, 1)->GetQua(), 1);
  EXPECT_EQ(Gps().GetPunAt(0, 2)->GetQua(), -1);
  EXPECT_EQ(Gps().GetPunArSize(1), 0);
}

TEST_F(Jb3Golden, FillsKnownPointsAndControlRecords) {
  ASSERT_EQ(Known().GetGrpArSize(), 1);
  ASSERT_EQ(Known().GetPtnArSize(0), 2);
  EXPECT_EQ(Known().GetPtnAt(0, 0)->GetCoordY(), 5405655.87);
  ASSERT_EQ(Jobs().GetOriArSize(), 2);
  EXPECT_EQ(Jobs().GetOriAt(0)->GetSecScri(), WString("steeple"));
}

}  // namespace
