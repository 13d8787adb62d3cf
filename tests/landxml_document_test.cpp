// A LandXML document as a whole: its header, and the order of its sections.
#include <filesystem>
#include <string>

#include "host/document/host_document.h"
#include "tests/support/exchange_landxml.h"

using namespace exchange_test;

namespace {

/// The lines before the first section, of a document at `path`.
std::string Header(const std::string& path) {
  return "<?xml version=\"1.0\" encoding=\"UTF-8\" ?>\n"
         "<LandXML xmlns=\"http://www.landxml.org/schema/LandXML-1.0\""
         " xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\""
         " xsi:schemaLocation=\"http://www.landxml.org/schema/LandXML-1.0"
         " http://www.landxml.org/schema/LandXML-1.0/LandXML-1.0.xsd\""
         " version=\"1.0\" date=\"2009-10-27\" time=\"09:30:22\" readOnly=\"false\""
         " language=\"English\">\n"
         "\t<Project name=\"" +
         path +
         "\"/>\n"
         "\t<Units>\n"
         "\t\t<Metric linearUnit=\"meter\" areaUnit=\"squareMeter\" volumeUnit=\"cubicMeter\""
         " temperatureUnit=\"celsius\" pressureUnit=\"mmHG\" angularUnit=\"radians\""
         " directionUnit=\"decimal degrees\"/>\n"
         "\t</Units>\n"
         "\t<Application name=\"KalvioField\" manufacturer=\"Kalvio\" version=\"2012\""
         " manufacturerURL=\"https://www.kalvio.example\"/>\n";
}

class LandXmlDocument : public testing::Test {
 protected:
  LandXmlDocument() {
    selection.tsLibrary = document.GetLibCmp();
    selection.gpsLibrary = document.GetLibGps();
    selection.pointLibrary = document.GetLibPnt();
    selection.path = tdk::WString(folder.Path("out.xml"));
  }

  std::string Written() {
    landxml::WriteLandXmlDocument(selection);
    return ReadFile(selection.path.ToUtf8());
  }
  /// What stands between the header and the root's end tag.
  std::string Sections() {
    const std::string text = Written();
    const std::string header = Header(selection.path.ToUtf8());
    const std::string end = "</LandXML>\n";
    if (!text.starts_with(header) || !text.ends_with(end)) return "not a document: " + text;
    return text.substr(header.size(), text.size() - header.size() - end.size());
  }

  const CJob* AddJob(const char* name) {
    CJob* const job = document.GetLibCmp()->AddJob(true);
    job->SetNome(name);
    return job;
  }
  const CGrpGps* AddGpsGroup(const char* name) {
    CGrpGps* const group = document.GetLibGps()->AddGrp(true);
    group->SetNomeGrp(name);
    return group;
  }
  const CGrpPnt* AddPointGroup(const char* name) {
    CGrpPnt* const group = document.GetLibPnt()->AddGrp(true);
    group->SetLabels(name, "", "", "");
    return group;
  }

  TempFolder folder;
  HostDocument document;
  landxml::LandXmlSelection selection;
};

TEST_F(LandXmlDocument, WithNothingSelectedHasExactlyEightLines) {
  const std::string text = Written();
  EXPECT_EQ(text, Header(folder.Path("out.xml")) + "</LandXML>\n");
  EXPECT_EQ(CountOf(text, "\n"), 8);
}

TEST_F(LandXmlDocument, WritesNothingThatWasNotSelected) {
  AddJob("J");
  AddGpsGroup("G");
  AddPointGroup("K");
  EXPECT_EQ(Sections(), "");
}

TEST_F(LandXmlDocument, CarriesItsConstantDateAndTime) {
  const std::string root = LineThatBegins(Written(), "<LandXML ");
  EXPECT_NE(root.find(" date=\"2009-10-27\" time=\"09:30:22\" "), std::string::npos);
}

TEST_F(LandXmlDocument, NamesTheProjectByThePathInUtf8) {
  selection.path = tdk::WString(folder.Path("però 日本.xml"));
  const std::string text = Written();
  EXPECT_EQ(
      LineThatBegins(text, "\t<Project"),
      "\t<Project name=\"" + folder.Path("per\xc3\xb2 \xe6\x97\xa5\xe6\x9c\xac.xml") + "\"/>\n");
}

TEST_F(LandXmlDocument, NamesTheProjectByThePathExactlyAsGiven) {
  selection.path = tdk::WString(folder.Path() + "\\a & b.XML");
  landxml::WriteLandXmlDocument(selection);
  const std::string text = ReadFile(folder.Path("a & b.XML"));
  EXPECT_EQ(LineThatBegins(text, "\t<Project"),
            "\t<Project name=\"" + folder.Path() + "\\a & b.XML\"/>\n");
}

TEST_F(LandXmlDocument, WritesItsHeaderAlone) {
  EXPECT_EQ(SectionText([](platform::OutputFile& file) {
              landxml::WriteLandXmlHeader(file, "C:\\Jobs\\x.xml");
            }),
            Header("C:\\Jobs\\x.xml"));
}

TEST_F(LandXmlDocument, WithOneRoadAndNoSurfaceHasAlignmentsAndNoSurfaces) {
  const CRoad road;
  selection.roads = {&road};
  const std::string sections = Sections();
  EXPECT_TRUE(sections.starts_with("\t<Alignments>\n")) << sections;
  EXPECT_TRUE(sections.ends_with("\t</Alignments>\n")) << sections;
  EXPECT_EQ(CountOf(sections, "Alignments>"), 2);
  EXPECT_EQ(sections.find("Surfaces"), std::string::npos);
}

TEST_F(LandXmlDocument, CollectsSeveralRoadsInOneElement) {
  const CRoad first;
  const CRoad second;
  selection.roads = {&first, &second};
  EXPECT_EQ(CountOf(Sections(), "Alignments>"), 2);
}

TEST_F(LandXmlDocument, WritesTwoJobsAndAGpsGroupAsThreeSurveysUnderTheRoot) {
  selection.tsJobs = {AddJob("J1"), AddJob("J2")};
  selection.gpsGroups = {AddGpsGroup("G")};
  const std::string expected = TsSurveyText(*document.GetLibCmp(), *selection.tsJobs[0]) +
                               TsSurveyText(*document.GetLibCmp(), *selection.tsJobs[1]) +
                               GpsSurveyText(*document.GetLibGps(), *selection.gpsGroups[0]);
  EXPECT_EQ(CountOf(expected, "\t<Survey"), 6);
  EXPECT_EQ(Sections(), expected);
}

TEST_F(LandXmlDocument, WritesTheItemsOfAListInItsOrder) {
  const CJob* const first = AddJob("J1");
  const CJob* const second = AddJob("J2");
  selection.tsJobs = {second, first, second};
  EXPECT_EQ(Sections(),
            "\t<Survey desc=\"J2\">\n\t\t<SurveyHeader name=\"J2\" />\n\t</Survey>\n"
            "\t<Survey desc=\"J1\">\n\t\t<SurveyHeader name=\"J1\" />\n\t</Survey>\n"
            "\t<Survey desc=\"J2\">\n\t\t<SurveyHeader name=\"J2\" />\n\t</Survey>\n");
}

TEST_F(LandXmlDocument, WritesPointGroupsAfterAllSurveysAndAlignmentsBefore) {
  const CRoad road;
  selection.pointGroups = {AddPointGroup("K1"), AddPointGroup("K2")};
  selection.gpsGroups = {AddGpsGroup("G")};
  selection.tsJobs = {AddJob("J")};
  selection.roads = {&road};
  const std::string sections = Sections();
  const auto alignments = sections.find("\t</Alignments>\n");
  const auto job = sections.find("\t<Survey desc=\"J\">\n");
  const auto gps = sections.find("\t<Survey>\n");
  const auto points = sections.find(
      "\t<CgPoints name=\"K1\">\n\t</CgPoints>\n"
      "\t<CgPoints name=\"K2\">\n\t</CgPoints>\n");
  ASSERT_NE(points, std::string::npos) << sections;
  EXPECT_LT(alignments, job);
  EXPECT_LT(job, gps);
  EXPECT_LT(gps, points);
}

TEST_F(LandXmlDocument, LeavesAPointGroupOutThatTheLibraryDoesNotHold) {
  CLibPnt other;
  CGrpPnt* const stranger = other.AddGrp(true);
  stranger->SetLabels("stranger", "", "", "");
  selection.pointGroups = {stranger, AddPointGroup("K")};
  EXPECT_EQ(Sections(), "\t<CgPoints name=\"K\">\n\t</CgPoints>\n");
}

TEST_F(LandXmlDocument, HasNoBlankLinesAndIndentsByTabsOnly) {
  selection.tsJobs = {AddJob("J")};
  selection.gpsGroups = {AddGpsGroup("G")};
  selection.pointGroups = {AddPointGroup("K")};
  const std::string text = Written();
  EXPECT_EQ(text.find("\n\n"), std::string::npos);
  EXPECT_EQ(text.find("\n "), std::string::npos);
  EXPECT_EQ(text.find("\t "), std::string::npos);
  EXPECT_EQ(text.find('\r'), std::string::npos);
}

// ---- Where the file goes ----

TEST_F(LandXmlDocument, ReplacesAnOlderFile) {
  WriteFile(folder.Path("out.xml"), std::string(10'000, 'x'));
  EXPECT_EQ(Written(), Header(folder.Path("out.xml")) + "</LandXML>\n");
}

TEST_F(LandXmlDocument, WritesNothingWhenTheFileCannotBeOpened) {
  selection.tsJobs = {AddJob("J")};
  selection.path = tdk::WString(folder.Path("no-such-folder/out.xml"));
  landxml::WriteLandXmlDocument(selection);
  EXPECT_TRUE(folder.IsEmpty());
}

TEST_F(LandXmlDocument, LeavesAFolderOfTheSameNameAlone) {
  std::filesystem::create_directory(folder.Path("out.xml"));
  landxml::WriteLandXmlDocument(selection);
  EXPECT_TRUE(std::filesystem::is_directory(folder.Path("out.xml")));
}

TEST_F(LandXmlDocument, WritesNothingForAnEmptyPath) {
  const WorkingFolder here(folder.Path());
  selection.path = "";
  landxml::WriteLandXmlDocument(selection);
  EXPECT_TRUE(folder.IsEmpty());
}

TEST_F(LandXmlDocument, IsTheSameWhenItIsWrittenTwice) {
  selection.tsJobs = {AddJob("J")};
  const std::string first = Written();
  EXPECT_EQ(Written(), first);
}

}  // namespace
