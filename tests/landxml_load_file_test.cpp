// LandXML files as they lie on disk: encodings, names, units, and what is no such file.
#include "tests/support/landxml_load.h"

using namespace landxml_test;
using tdk::WString;

namespace {

class LandXmlLoadFile : public LandXmlLoad {
 protected:
  /// The name of the only point.
  std::string PointName() {
    EXPECT_EQ(Known().GetPtnArSize(0), 1);
    const CPunPnt* const point = Known().GetPtnAt(0, 0);
    return point == nullptr ? "no point" : point->GetNome().ToUtf8();
  }
  void ExpectLoaded(const std::string& name) {
    EXPECT_EQ(PointName(), name);
    EXPECT_TRUE(remarks.empty()) << remarks[0];
  }
};

std::string PointNamed(const std::string& name) {
  return "<CgPoints><CgPoint name=\"" + name + "\">1 2 3</CgPoint></CgPoints>";
}
std::string Declaration(const std::string& encoding) {
  return "<?xml version=\"1.0\" encoding=\"" + encoding + "\"?>";
}
std::string Wide(const std::string& ascii, bool bigEndian) {
  std::string wide = bigEndian ? "\xFE\xFF" : "\xFF\xFE";
  for (const char c : ascii) wide += bigEndian ? std::string{'\0', c} : std::string{c, '\0'};
  return wide;
}
const std::string kByteOrderMark = "\xEF\xBB\xBF";

// ---- Encodings ----

TEST_F(LandXmlLoadFile, MayBeUtf8) {
  LoadBytes(Declaration("UTF-8") + Document(PointNamed("Città €")));
  ExpectLoaded("Città €");
}

TEST_F(LandXmlLoadFile, MayBeUtf8WithAByteOrderMark) {
  LoadBytes(kByteOrderMark + Declaration("utf-8") + Document(PointNamed("Città")));
  ExpectLoaded("Città");
}

TEST_F(LandXmlLoadFile, MayBeUtf8WithAByteOrderMarkAlone) {
  LoadBytes(kByteOrderMark + Document(PointNamed("Città")));
  ExpectLoaded("Città");
}

TEST_F(LandXmlLoadFile, MayBeUtf8WithoutSayingSo) {
  LoadBytes(Document(PointNamed("Città")));
  ExpectLoaded("Città");
}

TEST_F(LandXmlLoadFile, MayBeLatin1) {
  LoadBytes(Declaration("ISO-8859-1") + Document(PointNamed("Citt\xE0")));
  ExpectLoaded("Città");
}

TEST_F(LandXmlLoadFile, MayBeWindows1252) {
  LoadBytes(Declaration("Windows-1252") + Document(PointNamed("Citt\xE0 \x80")));
  ExpectLoaded("Città €");
}

TEST_F(LandXmlLoadFile, MayBeUtf16OfEitherByteOrder) {
  for (const bool bigEndian : {false, true}) {
    HostDocument job;
    exchange_test::WriteFile(
        Path(), Wide(Declaration("UTF-16") + Document(PointNamed("Vertice")), bigEndian));
    EXPECT_TRUE(LoadLandXml(Path(), job).empty());
    ASSERT_EQ(job.GetLibPnt()->GetPtnArSize(0), 1);
    EXPECT_EQ(job.GetLibPnt()->GetPtnAt(0, 0)->GetNome(), WString("Vertice"));
  }
}

TEST_F(LandXmlLoadFile, OfNoDeclaredEncodingThatIsNoUtf8IsToldAndReadAsWindows1252) {
  LoadBytes(Document(PointNamed("Citt\xE0 \x80")));
  EXPECT_EQ(PointName(), "Città €");
  EXPECT_TRUE(Told({"1252"}));
}

TEST_F(LandXmlLoadFile, WithAWrongEncodingLateInItIsReadWhole) {
  LoadBytes(Document("<!--" + std::string(600'000, ' ') + "-->" + PointNamed("Citt\xE0")));
  EXPECT_EQ(PointName(), "Città");
  EXPECT_TRUE(Told({"1252"}));
}

TEST_F(LandXmlLoadFile, OfAnUnknownEncodingIsRefused) {
  const std::string refusal = Refusal(Declaration("x-martian") + Document(PointNamed("p")));
  EXPECT_TRUE(refusal.starts_with("line 1: ")) << refusal;
  EXPECT_NE(refusal.find("encoding"), std::string::npos) << refusal;
}

// ---- Names and texts ----

TEST_F(LandXmlLoadFile, MayHavePrefixesOnItsElements) {
  LoadBytes(
      "<lx:LandXML xmlns:lx=\"http://www.landxml.org/schema/LandXML-1.2\" version=\"1.0\">"
      "<lx:Units><lx:Imperial linearUnit=\"foot\"/></lx:Units><lx:Surfaces>"
      "<lx:Surface name=\"hill\"><lx:Definition><lx:Pnts><lx:P id=\"1\">10 20 30</lx:P></lx:Pnts>"
      "</lx:Definition></lx:Surface></lx:Surfaces></lx:LandXML>");
  ASSERT_EQ(SurfaceCount(), 1);
  EXPECT_EQ(Surface().GetName(), WString("hill"));
  ExpectAt(Surface().GetTris().GetTriVrtAt(0), 6.096, 3.048, 9.144);
}

TEST_F(LandXmlLoadFile, MayHaveElementsOfOtherNamespacesAndALineEndInItsRoot) {
  LoadBytes(
      "<LandXML xmlns=\"http://www.landxml.org/schema/LandXML-2.0\"\n xmlns:x=\"urn:x\" "
      "x:schemaLocation=\"http://www.landxml.org/schema/LandXML-2.0\nLandXML-2.0.xsd\">" +
      kMetres + "<x:Extra><x:Deep><x:CgPoint>9 9 9</x:CgPoint></x:Deep></x:Extra>" +
      PointNamed("p") + "</LandXML>");
  EXPECT_EQ(PointName(), "p");
}

TEST_F(LandXmlLoadFile, MayHaveTextsOnLinesOfTheirOwn) {
  Load(
      "<Surfaces><Surface name=\"hill\"><Definition><Pnts>\r\n<P id=\"1\">\r\n\t 10\r\n\t 20\r\n"
      "\t 30\r\n</P><P id=\" 2 \">1\n2\n3</P><P id=\"3\">\n4 5 6 </P></Pnts>"
      "<Faces><F>\n  1\n  2\n  3\n</F></Faces></Definition></Surface></Surfaces>");
  ASSERT_EQ(Surface().GetTris().GetNoTriVrts(), 3);
  ExpectAt(Surface().GetTris().GetTriVrtAt(0), 20, 10, 30);
  EXPECT_EQ(Surface().GetTris().GetNoTris(), 1);
  EXPECT_TRUE(remarks.empty()) << remarks[0];
}

TEST_F(LandXmlLoadFile, MayHaveCommentsAndRawTextInItsNumbers) {
  Load("<CgPoints><CgPoint name=\"p\">10 <!-- north -->20<![CDATA[ 30]]></CgPoint></CgPoints>");
  ExpectAt(*Known().GetPtnAt(0, 0), 20, 10, 30);
}

TEST_F(LandXmlLoadFile, MayHaveEntitiesInItsNames) {
  Load(PointNamed("A &amp; B &lt;&#232;&#x20AC;&gt;"));
  ExpectLoaded("A & B <è€>");
}

TEST_F(LandXmlLoadFile, MayHaveEntitiesOfItsOwn) {
  LoadBytes("<!DOCTYPE LandXML [<!ENTITY who \"Rossi\">]>" + Document(PointNamed("by &who;")));
  ExpectLoaded("by Rossi");
}

// ---- Units ----

TEST_F(LandXmlLoadFile, WithoutUnitsIsInMetresAndToldSo) {
  Load(PointNamed("p"), "");
  ExpectAt(*Known().GetPtnAt(0, 0), 2, 1, 3);
  EXPECT_TRUE(Told({"units", "metres"}));
}

TEST_F(LandXmlLoadFile, OfAnUnknownUnitIsInMetresAndToldSo) {
  Load(PointNamed("p"), "<Units><Metric linearUnit=\"cubit\"/></Units>");
  ExpectAt(*Known().GetPtnAt(0, 0), 2, 1, 3);
  EXPECT_TRUE(Told({"line 1", "cubit", "metres"}));
}

TEST_F(LandXmlLoadFile, WithUnitsAfterItsPointsIsRefused) {
  for (const std::string& points :
       {PointNamed("p"), std::string("<Surfaces><Surface name=\"s\"><Definition><Pnts>"
                                     "<P id=\"1\">1 2 3</P></Pnts></Definition></Surface>"
                                     "</Surfaces>")}) {
    const std::string refusal = Refusal(Document(points + '\n' + kFeet, ""));
    EXPECT_TRUE(refusal.starts_with("line 3: ")) << refusal;
    EXPECT_NE(refusal.find("units"), std::string::npos) << refusal;
  }
}

TEST_F(LandXmlLoadFile, MayHaveMetresAfterItsPoints) {
  Load(PointNamed("p") + kMetres, "");
  ExpectLoaded("p");
}

TEST_F(LandXmlLoadFile, MayHaveUnitsAfterItsRoadsAndSurveys) {
  Load(Alignment(Line("0 0", "0 1000")) +
           "<Survey><SurveyHeader name=\"J\"/><InstrumentSetup id=\"s\" instrumentHeight=\"10\"/>"
           "</Survey>" +
           kFeet,
       "");
  EXPECT_NEAR(Elements()[0]->GetLength(), 304.8, 1e-9);
  EXPECT_NEAR(Jobs().GetStaAt(0, 0)->GetAltStr(), 3.048, 1e-9);
}

// ---- What is no such file ----

TEST_F(LandXmlLoadFile, ThatIsNoXmlIsRefused) {
  const std::string refusal = Refusal("1 1000.5 2000.5 30\n2 1001.5 2000.5 31\n");
  EXPECT_TRUE(refusal.starts_with("line 1: ")) << refusal;
}

TEST_F(LandXmlLoadFile, ThatIsNoXmlAnyMoreIsRefusedWithItsLine) {
  const std::string refusal = Refusal("<LandXML>\n<Units>\n</Metric>\n</LandXML>");
  EXPECT_TRUE(refusal.starts_with("line 3: ")) << refusal;
}

TEST_F(LandXmlLoadFile, OfOtherXmlIsRefused) {
  const std::string refusal = Refusal("<?xml version=\"1.0\"?>\n<gpx><LandXML/></gpx>");
  EXPECT_TRUE(refusal.starts_with("line 2: ")) << refusal;
  EXPECT_NE(refusal.find("LandXML"), std::string::npos) << refusal;
}

TEST_F(LandXmlLoadFile, ThatIsEmptyIsRefused) {
  for (const char* const nothing : {"", " \n ", "<?xml version=\"1.0\"?>\n"}) {
    const std::string refusal = Refusal(nothing);
    EXPECT_TRUE(refusal.starts_with("line ")) << refusal;
  }
}

TEST_F(LandXmlLoadFile, ThatIsNotThereIsRefused) {
  try {
    LoadLandXml(folder.Path("none.xml"), document);
    FAIL() << "not refused";
  } catch (const landxml_load::LoadError& error) {
    EXPECT_TRUE(std::string(error.what()).starts_with(folder.Path("none.xml") + ": "))
        << error.what();
  }
}

TEST_F(LandXmlLoadFile, ThatIsAFolderIsRefused) {
  EXPECT_THROW(LoadLandXml(folder.Path(), document), landxml_load::LoadError);
}

TEST_F(LandXmlLoadFile, WithoutAnythingIsLoaded) {
  LoadBytes("<LandXML/>");
  EXPECT_EQ(Known().GetGrpArSize() + SurfaceCount() + RoadCount() + Jobs().GetJobArSize(), 0);
}

TEST_F(LandXmlLoadFile, TellsHowMuchOfItIsRead) {
  const std::string bytes = Document(PointNamed("p"));
  exchange_test::WriteFile(Path(), bytes);
  std::uint64_t last = 0;
  LoadLandXml(Path(), document, [&](std::uint64_t done, std::uint64_t total) {
    EXPECT_LE(last, done);
    EXPECT_EQ(total, bytes.size());
    last = done;
  });
  EXPECT_EQ(last, bytes.size());
}

}  // namespace
