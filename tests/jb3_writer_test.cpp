// The JB3 writer: the whole document by its bytes, total-station jobs, known points.
#include "tests/support/current_settings.h"
#include "tests/support/jb3_documents.h"

using namespace exchange_test;
using tdk::WString;

namespace {

using Jb3Writer = Jb3Test;

const std::string kHead =
    "<?xml version=\"1.0\" encoding=\"ISO-8859-1\" ?>\n"
    "<JB3>\n"
    "    <Application name=\"Field\" version=\"7.1\" manufacturer=\"Kalvio\" "
    "manufacturerURL=\"https://www.kalvio.example\" />\n";

TEST_F(Jb3Writer, WritesAnEmptyJobAsDeclarationRootAndApplication) {
  EXPECT_EQ(Written(), kHead + "</JB3>\n");
}

TEST_F(Jb3Writer, WritesAWholeDocument) {
  CJob& job = *Jobs().AddJob(true);
  job.SetLabels("WALL", "Conti", "TS 5", "5/3/16");
  CSta& station = *Jobs().AddSta(0, true);
  station.SetNome("S1");
  station.SetSecScri("nail");
  station.SetAltStr(1.5824);
  station.SetCoord(1000.5, 2000.25, 50);
  CPun& point = *Jobs().AddPun(0, 0, true);
  point.SetNome("101");
  point.SetCode("MURO");
  point.SetAltPri(1.5);
  point.SetDtIntAng(24.333, 100.8288, 56.8778, 99);
  point.SetPrismType(2);
  point.SetPrismOffset(-0.03);
  point.SetCoord(1, 2, 3);
  Jobs().AddJob(true);
  CGrpGps& group = *Gps().AddGrp(true);
  group.SetNome("B1");
  group.SetSecScri("roof");
  group.SetTipoRicevitore(1);
  group.SetTipoRilievo(1);
  group.SetGeocCeFaMis(4462933.953, 861469.561, 4459612.698);
  group.SetBaseAltAnt(1.8);
  CPunGps& measured = *Gps().AddPun(0, true);
  measured.SetNome("201");
  measured.SetCode("TERMINE");
  measured.SetDay(14);
  measured.SetMonth(4);
  measured.SetYear(2026);
  measured.SetTod(33'125'999);
  measured.SetQua(4);
  measured.SetGeocCeFaMis(1, 2, 3);
  measured.SetAltAnt(2);
  measured.SetPdop(1.8);
  measured.SetNuGpsUsed(9);
  measured.SetNuGloUsed(5);
  Known().AddGrp(true)->SetLabels("not written", "", "", "");
  Known().AddPtn(0, true)->SetNome("K7");
  Jobs().AddOri(true)->SetCoord(1, 2, 3);
  EXPECT_EQ(
      Written(),
      kHead +
          "    <Job name=\"WALL\" operator=\"Conti\" instrument=\"TS 5\" date=\"05-03-2016\">\n"
          "        <Station name=\"S1\" desc=\"nail\" instrument_height=\"1.582\">\n"
          "            <PlaniCoords north=\"2000.250\" east=\"1000.500\" elevation=\"50.000\" />\n"
          "            <Pnts>\n"
          "                <Pnt name=\"101\" desc=\"MURO\">\n"
          "                    <RawObservation target_height=\"1.5000\" horiz_angle=\"56.8778\" "
          "zenit_angle=\"100.8288\" slope_distance=\"24.3330\" target_type=\"360 Prism\" "
          "prism_constant=\"-0.030\" />\n"
          "                    <PlaniCoords north=\"2.000\" east=\"1.000\" elevation=\"3.000\" />\n"
          "                </Pnt>\n"
          "            </Pnts>\n"
          "        </Station>\n"
          "    </Job>\n"
          "    <Job name=\"empty\" />\n"
          "    <Job name=\"GPS\">\n"
          "        <GpsBase name=\"B1\" desc=\"roof\" type=\"L1\" start_date=\"14-04-2026\" "
          "start_time=\"09:12\" end_date=\"14-04-2026\" end_time=\"09:12\" correction=\"BAS\">\n"
          "            <GeoCoords cfx=\"4462933.953\" cfy=\"861469.561\" cfz=\"4459612.698\" "
          "antenna_height=\"1.800\" />\n"
          "            <GpsPnts>\n"
          "                <GpsPnt name=\"201\" desc=\"TERMINE\" date=\"14-04-2026\" "
          "time=\"09:12:05\" solution=\"fixed\">\n"
          "                    <GeoCoords cfx=\"1.000\" cfy=\"2.000\" cfz=\"3.000\" "
          "antenna_height=\"2.000\" />\n"
          "                    <GpsStat pdop=\"1.800\" qxx=\" \" qxy=\" \" qxz=\" \" qyy=\" \" "
          "qyz=\" \" qzz=\" \" />\n"
          "                    <GpsSat no_gps=\"9\" no_glonass=\"5\" no_galileo=\"0\" />\n"
          "                </GpsPnt>\n"
          "            </GpsPnts>\n"
          "        </GpsBase>\n"
          "    </Job>\n"
          "    <KnownPoints>\n"
          "        <KnownPoint name=\"K7\" type=\"generic\" />\n"
          "        <KnownPoint name=\"empty\" type=\"ctrl\">\n"
          "            <PlaniCoords north=\"2.000\" east=\"1.000\" elevation=\"3.000\" />\n"
          "        </KnownPoint>\n"
          "    </KnownPoints>\n"
          "</JB3>\n");
}

TEST_F(Jb3Writer, WritesAJobWithoutStationsThatIsNotReadAgain) {
  Jobs().AddJob(true)->SetNome("J");
  const std::string text = Written();
  EXPECT_NE(text.find("    <Job name=\"J\" />\n"), std::string::npos);
  HostDocument again;
  jb3::Jb3Reader(&parent, again, WString(folder.Path("out.jb3"))).Read();
  EXPECT_EQ(again.GetLibCmp()->GetJobArSize(), 0);
}

TEST_F(Jb3Writer, WritesAnEmptyNameAsEmptyWhichIsReadSo) {
  AddPoint();
  Written();
  HostDocument again;
  jb3::Jb3Reader(&parent, again, WString(folder.Path("out.jb3"))).Read();
  EXPECT_EQ(again.GetLibCmp()->GetPunAt(0, 0, 0)->GetNome(), WString("empty"));
}

TEST_F(Jb3Writer, LeavesOutEmptyLabelsOfAJob) {
  Jobs().AddJob(true)->SetNome("J");
  EXPECT_EQ(WrittenValue("Job", "operator"), "(none)");
  EXPECT_EQ(WrittenValue("Job", "instrument"), "(none)");
  EXPECT_EQ(WrittenValue("Job", "date"), "(none)");
}

TEST_F(Jb3Writer, WritesHeightsThatAreUndefinedAsZero) {
  AddPoint().SetDtIntAng(1, 2, 3, 0);
  Jobs().GetStaAt(0, 0)->SetAltStr(UndefinedValue);
  Jobs().GetPunAt(0, 0, 0)->SetAltPri(UndefinedValue);
  EXPECT_EQ(WrittenValue("Station", "instrument_height"), "0");
  EXPECT_EQ(WrittenValue("RawObservation", "target_height"), "0");
}

TEST_F(Jb3Writer, LeavesTheObservationOutWhenAnAngleIsUndefined) {
  CPun& point = AddPoint();
  point.SetDtIntAng(1, UndefinedValue, 3, 0);
  EXPECT_FALSE(IsWritten("RawObservation"));
  point.SetDtIntAng(1, 2, UndefinedValue, 0);
  EXPECT_FALSE(IsWritten("RawObservation"));
  point.SetDtIntAng(UndefinedValue, 2, 3, 0);
  EXPECT_EQ(WrittenValue("RawObservation", "slope_distance"), "(none)");
  EXPECT_EQ(WrittenValue("RawObservation", "zenit_angle"), "2.0000");
}

TEST_F(Jb3Writer, LeavesCoordinatesOutUnlessAllThreeAreDefined) {
  AddPoint().SetCoord(1, 2, UndefinedValue);
  EXPECT_FALSE(IsWritten("PlaniCoords"));
}

struct TargetType {
  unsigned type;
  const char* word;
};

class Jb3WrittenTargetType : public Jb3Test, public testing::WithParamInterface<TargetType> {};

TEST_P(Jb3WrittenTargetType, HasItsWord) {
  CPun& point = AddPoint();
  point.SetDtIntAng(1, 2, 3, 0);
  point.SetPrismType(GetParam().type);
  EXPECT_EQ(WrittenValue("RawObservation", "target_type"), GetParam().word);
}

INSTANTIATE_TEST_SUITE_P(Each, Jb3WrittenTargetType,
                         testing::Values(TargetType{0, "(none)"}, TargetType{1, "Prism"},
                                         TargetType{2, "360 Prism"}, TargetType{3, "Reflectorless"},
                                         TargetType{4, "Reflectorless"}, TargetType{5, "Sheet"},
                                         TargetType{6, "SMR"}, TargetType{7, "(none)"}));

TEST_F(Jb3Writer, WritesPrismTypeFourSoThatItIsReadAsThree) {
  CPun& point = AddPoint();
  point.SetDtIntAng(1, 2, 3, 0);
  point.SetPrismType(4);
  Written();
  HostDocument again;
  jb3::Jb3Reader(&parent, again, WString(folder.Path("out.jb3"))).Read();
  EXPECT_EQ(again.GetLibCmp()->GetPunAt(0, 0, 0)->GetPrismType(), 3u);
}

TEST_F(Jb3Writer, WritesAnglesInTheUnitOfTheHost) {
  const CurrentSettings current;
  AddPoint().SetDtIntAng(1, 100, 50, 0);
  EXPECT_EQ(WrittenValue("RawObservation", "zenit_angle"), "100.0000");
  CIniFile().WriteShort("Misure", "UnitaAngoli", 1);
  EXPECT_EQ(WrittenValue("RawObservation", "zenit_angle"), "90.00000");
}

TEST_F(Jb3Writer, NarrowsTextsToTheCodePageAndEscapesMarkup) {
  Jobs().AddJob(true)->SetNome("è€ ł <&>\"");
  const std::string text = Written();
  EXPECT_NE(text.find("<Job name='\xE8\x80 ? &lt;&amp;&gt;&quot;' />"), std::string::npos) << text;
}

struct JobDate {
  const char* date;
  const char* written;
};

class Jb3JobDate : public Jb3Test, public testing::WithParamInterface<JobDate> {};

TEST_P(Jb3JobDate, IsBroughtIntoOneForm) {
  Jobs().AddJob(true)->SetData(GetParam().date);
  EXPECT_EQ(WrittenValue("Job", "date"), GetParam().written) << GetParam().date;
}

INSTANTIATE_TEST_SUITE_P(
    Each, Jb3JobDate,
    testing::Values(JobDate{"5/3/16", "05-03-2016"}, JobDate{"05.03.2016", ""},
                    JobDate{"050316", ""}, JobDate{"25122016", "25-12-2016"},
                    JobDate{"5/3/69", "05-03-2069"}, JobDate{"5/3/70", "05-03-1970"},
                    JobDate{"5-3-2016", "05-03-2016"}, JobDate{"5\\3\\2016", "05-03-2016"},
                    JobDate{"1/2/3", ""}, JobDate{"01/02/20166", ""},
                    JobDate{"12-31-2016", "12-31-2016"}, JobDate{"/03/2016", ""},
                    JobDate{"05//2016", ""}, JobDate{"05/03/", ""}, JobDate{"05-03/2016", ""},
                    JobDate{"05/032016", ""}, JobDate{"a/b/cdef", "00-00-2000"},
                    JobDate{"abcdefgh", "ab-cd-efgh"}));

TEST_F(Jb3Writer, LeavesAnOlderFileWhenTheNewOneCannotBeWritten) {
  const std::string path = folder.Path("missing/out.jb3");
  jb3::Jb3Writer(document).Write(WString(path), "", "");
  EXPECT_FALSE(std::filesystem::exists(path));
}

TEST_F(Jb3Writer, WritesNothingForAnEmptyPath) {
  const WorkingFolder here(folder.Path());
  jb3::Jb3Writer(document).Write("", "", "");
  EXPECT_TRUE(folder.IsEmpty());
}

TEST_F(Jb3Writer, WritesNoKnownPointsElementWithoutGroupsAndRecords) {
  Jobs().AddJob(true);
  EXPECT_FALSE(IsWritten("KnownPoints"));
  Known().AddGrp(true);
  EXPECT_TRUE(IsWritten("    <KnownPoints />\n"));
}

}  // namespace
