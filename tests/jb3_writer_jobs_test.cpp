// The JB3 writer: total-station jobs, names and texts, the file itself.
#include <limits>

#include "tests/support/current_settings.h"
#include "tests/support/jb3_documents.h"
#include "tests/support/trouble_log.h"

using namespace exchange_test;
using tdk::WString;

namespace {

class Jb3WriterJobs : public Jb3Test {
 protected:
  /// What is written between the Application element and the end of the root.
  std::string Body() {
    const std::string text = Written();
    const std::size_t start = text.find('\n', text.find("<Application ")) + 1;
    return text.substr(start, text.rfind("</JB3>") - start);
  }
  CPun& AddObserved() {
    CPun& point = AddPoint();
    point.SetDtIntAng(10, 100, 200, 0);
    return point;
  }
};

// ---- Order ----

TEST_F(Jb3WriterJobs, JobsWithAndWithoutStationsStandInTheirOrder) {
  Jobs().AddJob(true)->SetNome("A");
  Jobs().AddJob(true)->SetNome("B");
  Jobs().AddSta(1, true)->SetNome("S");
  Jobs().AddPun(1, 0, true)->SetNome("1");
  Jobs().AddPun(1, 0, true)->SetNome("2");
  Jobs().AddSta(1, true)->SetNome("T");
  Jobs().AddJob(true)->SetNome("C");
  EXPECT_EQ(Body(),
            "    <Job name=\"A\" />\n"
            "    <Job name=\"B\">\n"
            "        <Station name=\"S\" instrument_height=\"0.000\">\n"
            "            <Pnts>\n"
            "                <Pnt name=\"1\" />\n"
            "                <Pnt name=\"2\" />\n"
            "            </Pnts>\n"
            "        </Station>\n"
            "        <Station name=\"T\" instrument_height=\"0.000\">\n"
            "            <Pnts />\n"
            "        </Station>\n"
            "    </Job>\n"
            "    <Job name=\"C\" />\n");
}

TEST_F(Jb3WriterJobs, AttributesKeepTheirOrderWhenSomeAreLeftOut) {
  CJob& job = *Jobs().AddJob(true);
  job.SetLabels("J", "", "TS", "01/02/2016");
  EXPECT_EQ(Body(), "    <Job name=\"J\" instrument=\"TS\" date=\"01-02-2016\" />\n");
}

TEST_F(Jb3WriterJobs, TimeOfAJobIsNeverWritten) {
  Jobs().AddJob(true)->SetLabels("J", "O", "I", "01/02/2016");
  EXPECT_EQ(WrittenValue("Job", "time"), "(none)");
}

// ---- Names and descriptions ----

TEST_F(Jb3WriterJobs, EveryEmptyNameIsWrittenAsEmpty) {
  AddPoint();
  AddGpsPoint();
  Known().AddGrp(true);
  Known().AddPtn(0, true);
  Jobs().AddOri(true);
  for (const char* element : {"Station", "Pnt", "GpsBase", "GpsPnt", "KnownPoint"}) {
    EXPECT_EQ(WrittenValue(element, "name"), "empty") << element;
  }
  EXPECT_TRUE(IsWritten("<Job name=\"empty\">"));
  EXPECT_TRUE(IsWritten("<KnownPoint name=\"empty\" type=\"ctrl\" />"));
}

TEST_F(Jb3WriterJobs, EmptyDescriptionsAreLeftOutEverywhere) {
  AddPoint();
  AddGpsPoint();
  Known().AddGrp(true);
  Known().AddPtn(0, true);
  Jobs().AddOri(true);
  EXPECT_FALSE(IsWritten("desc"));
}

TEST_F(Jb3WriterJobs, BlankNameIsNotEmpty) {
  Jobs().AddJob(true)->SetNome(" ");
  EXPECT_EQ(WrittenValue("Job", "name"), " ");
}

TEST_F(Jb3WriterJobs, ThirdDescriptionHasNoPlace) {
  AddPoint().SetTerScri("third");
  EXPECT_FALSE(IsWritten("third"));
}

TEST_F(Jb3WriterJobs, LongTextsAreNotCut) {
  const std::string name(3000, 'n');
  Jobs().AddJob(true)->SetNome(WString(name));
  EXPECT_EQ(WrittenValue("Job", "name"), name);
}

TEST_F(Jb3WriterJobs, LineEndsInATextAreEscapedAndReadAgain) {
  AddPoint().SetNome("a\nb\tc");
  EXPECT_TRUE(IsWritten("name=\"a&#x0A;b&#x09;c\""));
  HostDocument again;
  jb3::Jb3Reader(&parent, again, WString(folder.Path("out.jb3"))).Read();
  EXPECT_EQ(again.GetLibCmp()->GetPunAt(0, 0, 0)->GetNome(), WString("a\nb\tc"));
}

TEST_F(Jb3WriterJobs, TextThatLooksLikeAnEntityIsReadAgain) {
  AddPoint().SetNome("&amp; &#65; &lt;");
  Written();
  HostDocument again;
  jb3::Jb3Reader(&parent, again, WString(folder.Path("out.jb3"))).Read();
  EXPECT_EQ(again.GetLibCmp()->GetPunAt(0, 0, 0)->GetNome(), WString("&amp; &#65; &lt;"));
}

TEST_F(Jb3WriterJobs, ApplicationIsNarrowedAndEscaped) {
  const std::string path = folder.Path("out.jb3");
  jb3::Jb3Writer(document).Write(WString(path), "Fiëld & Co", "7<8");
  EXPECT_NE(ReadFile(path).find("<Application name=\"Fi\xEBld &amp; Co\" version=\"7&lt;8\" "),
            std::string::npos);
}

// ---- Numbers ----

TEST_F(Jb3WriterJobs, NumbersHaveTheirDecimals) {
  CPun& point = AddObserved();
  point.SetDtIntAng(24.33305, 100, 200, 0);
  point.SetAltPri(1.23456);
  point.SetPrismOffset(-0.0344);
  Jobs().GetStaAt(0, 0)->SetAltStr(1.5826);
  EXPECT_EQ(WrittenValue("RawObservation", "slope_distance"), "24.3331");
  EXPECT_EQ(WrittenValue("RawObservation", "target_height"), "1.2346");
  EXPECT_EQ(WrittenValue("RawObservation", "prism_constant"), "-0.034");
  EXPECT_EQ(WrittenValue("Station", "instrument_height"), "1.583");
}

TEST_F(Jb3WriterJobs, NumberThatIsAllZerosHasNoSign) {
  AddObserved().SetPrismOffset(-0.0004);
  EXPECT_EQ(WrittenValue("RawObservation", "prism_constant"), "0.000");
}

TEST_F(Jb3WriterJobs, DistanceOfZeroIsWritten) {
  AddPoint().SetDtIntAng(0, 100, 200, 0);
  EXPECT_EQ(WrittenValue("RawObservation", "slope_distance"), "0.0000");
}

TEST_F(Jb3WriterJobs, UndefinedPrismConstantIsLeftOut) {
  AddObserved().SetPrismOffset(UndefinedValue);
  EXPECT_EQ(WrittenValue("RawObservation", "prism_constant"), "(none)");
}

TEST_F(Jb3WriterJobs, CoordinateThatIsNoNumberLeavesThemAllOut) {
  AddPoint().SetCoord(1, std::numeric_limits<double>::quiet_NaN(), 3);
  EXPECT_FALSE(IsWritten("PlaniCoords"));
}

TEST_F(Jb3WriterJobs, ObservationThatIsLeftOutDoesNotTakeTheCoordinatesAlong) {
  CPun& point = AddPoint();
  point.SetAltPri(1.5);
  point.SetPrismType(1);
  point.SetCoord(1, 2, 3);
  EXPECT_TRUE(
      IsWritten("                <Pnt name=\"empty\">\n"
                "                    <PlaniCoords north=\"2.000\" east=\"1.000\" "
                "elevation=\"3.000\" />\n"
                "                </Pnt>\n"));
}

TEST_F(Jb3WriterJobs, LargestPrismTypeIsLeftOut) {
  AddObserved().SetPrismType(std::numeric_limits<unsigned>::max());
  EXPECT_EQ(WrittenValue("RawObservation", "target_type"), "(none)");
}

TEST_F(Jb3WriterJobs, SexagesimalAngleIsInTheCodePageAndEscaped) {
  const CurrentSettings current;
  CIniFile().WriteShort("Misure", "UnitaAngoli", 2);
  AddObserved();
  EXPECT_EQ(WrittenValue("RawObservation", "zenit_angle"),
            "90\xB0"
            "00&apos;00.0");
}

// ---- The file ----

TEST_F(Jb3WriterJobs, FileBeginsWithItsDeclaration) {
  EXPECT_TRUE(Written().starts_with("<?xml version=\"1.0\" encoding=\"ISO-8859-1\" ?>\n"));
}

TEST_F(Jb3WriterJobs, LongerFileThatWasThereIsGone) {
  WriteFile(folder.Path("out.jb3"),
            kJb3Declaration + "<JB3>" + std::string(100'000, ' ') + "</JB3>");
  EXPECT_TRUE(Written().ends_with("</JB3>\n"));
  EXPECT_LT(Written().size(), 1000u);
}

TEST_F(Jb3WriterJobs, WritingTwiceGivesTheSameFile) {
  AddObserved().SetNome("P");
  AddGpsPoint().SetPdop(2);
  const std::string once = Written();
  EXPECT_EQ(Written(), once);
}

TEST_F(Jb3WriterJobs, RelativePathLiesInTheFolderOfTheProgram) {
  const std::string name = "jb3-writer-relative-path.jb3";
  jb3::Jb3Writer(document).Write(WString(name), "Field", "7.1");
  EXPECT_TRUE(ReadFile(ProgramFolder() + name).ends_with("</JB3>\n"));
  std::filesystem::remove(ProgramFolder() + name);
}

TEST_F(Jb3WriterJobs, FileThatCannotBeCreatedIsToldToTheListenerOfFilesOnly) {
  const TroubleLog log;
  const std::string path = folder.Path("missing/out.jb3");
  jb3::Jb3Writer(document).Write(WString(path), "Field", "7.1");
  EXPECT_FALSE(log.Troubles().empty());
  EXPECT_TRUE(views.messages.empty());
  EXPECT_TRUE(folder.IsEmpty());
}

}  // namespace
