// LandXML files that are cut off, meant to harm, or full of absurd numbers.
#include <chrono>

#include "tests/support/landxml_full_document.h"
#include "tests/support/landxml_load.h"

using namespace landxml_test;

namespace {

class LandXmlLoadDamage : public LandXmlLoad {
 protected:
  /// Loads the first `length` bytes of what lies in the file, into a job of its own: what is wrong
  /// with the way it is refused, or nothing.
  std::string TroubleOfCut(std::size_t length, bool mayBeLoaded) {
    std::filesystem::resize_file(Path(), length);
    HostDocument job;
    std::string refusal;
    try {
      LoadLandXml(Path(), job);
    } catch (const landxml_load::LoadError& error) {
      refusal = error.what();
    }
    const std::string where = " (cut at " + std::to_string(length) + ')';
    if (refusal.empty()) return mayBeLoaded ? "" : "loaded" + where;
    if (mayBeLoaded) return refusal + where;
    if (!refusal.starts_with(Path() + ": line ")) return refusal + where;
    // What waits for the end of the file is not there.
    if (job.GetLibRoad()->GetRoadArSize() > 0) return "there are roads" + where;
    return job.GetLibCmp()->GetJobArSize() > 0 ? "there are jobs" + where : "";
  }

  /// Cuts `bytes` from its end on, each time by `step` more.
  void CutEvery(std::size_t step, const std::string& bytes) {
    exchange_test::WriteFile(Path(), bytes);
    const std::size_t whole = bytes.rfind('>') + 1;
    for (std::size_t length = bytes.size() - bytes.size() % step;; length -= step) {
      ASSERT_EQ(TroubleOfCut(length, length >= whole), "");
      if (length == 0) break;
    }
  }
};

// ---- Files that are cut off ----

TEST_F(LandXmlLoadDamage, WholeDocumentsAreLoaded) {
  for (const int times : {1, 12}) {
    HostDocument job;
    exchange_test::WriteFile(Path(), FullDocument(times));
    EXPECT_FALSE(LoadLandXml(Path(), job).empty());
    EXPECT_EQ(job.GetLibRoad()->GetRoadArSize(), times);
    EXPECT_EQ(job.GetLibDtm()->GetPrjArSize(), times);
    EXPECT_EQ(job.GetLibPnt()->GetGrpArSize(), 2 * times);
    EXPECT_EQ(job.GetLibCmp()->GetJobArSize(), times);
    EXPECT_EQ(job.GetLibGps()->GetGrpArSize(), times);
  }
}

TEST_F(LandXmlLoadDamage, SmallDocumentCutAtAnyByteIsRefusedWithItsLine) {
  CutEvery(1, FullDocument(1));
}

TEST_F(LandXmlLoadDamage, DocumentCutAtAnyKilobyteIsRefusedWithItsLine) {
  const std::string bytes = FullDocument(12);
  ASSERT_GT(bytes.size(), 30'000U);
  CutEvery(1024, bytes);
}

TEST_F(LandXmlLoadDamage, AnyByteOfASmallDocumentMayBeAnother) {
  const std::string bytes = FullDocument(1);
  for (const char wrong : {'<', '"', '&', '\0', '\xFF', '9'}) {
    for (std::size_t at = 0; at < bytes.size(); at += 7) {
      std::string text = bytes;
      text[at] = wrong;
      exchange_test::WriteFile(Path(), text);
      HostDocument job;
      try {
        LoadLandXml(Path(), job);
      } catch (const landxml_load::LoadError& error) {
        EXPECT_TRUE(std::string(error.what()).starts_with(Path() + ": line ")) << error.what();
      }
    }
  }
}

TEST_F(LandXmlLoadDamage, SurfacesBeforeTheCutMayBeInTheJob) {
  EXPECT_EQ(Refusal("<LandXML><Surfaces><Surface name=\"hill\"></Surface>\n<Surface").substr(0, 8),
            "line 2: ");
  EXPECT_LE(SurfaceCount(), 2);
}

// ---- Files that are meant to harm ----

TEST_F(LandXmlLoadDamage, EntitiesThatGrowWithoutBoundAreRefusedQuickly) {
  std::string entities = "<!ENTITY a0 \"ha\">";
  for (int i = 1; i < 12; ++i) {
    const std::string before = "&a" + std::to_string(i - 1) + ';';
    entities += "<!ENTITY a" + std::to_string(i) + " \"";
    for (int k = 0; k < 10; ++k) entities += before;
    entities += "\">";
  }
  for (const char* const place : {"name=\"p\">&a11;", "name=\"&a11;\">1 2 3"}) {
    const auto start = std::chrono::steady_clock::now();
    const std::string refusal =
        Refusal("<!DOCTYPE LandXML [" + entities + "]>" +
                Document("<CgPoints><CgPoint " + std::string(place) + "</CgPoint></CgPoints>"));
    EXPECT_TRUE(refusal.starts_with("line ")) << refusal;
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(10));
  }
}

TEST_F(LandXmlLoadDamage, EntityThatNamesItselfIsRefused) {
  const std::string refusal =
      Refusal("<!DOCTYPE LandXML [<!ENTITY a \"&b;\"><!ENTITY b \"&a;\">]>" +
              Document("<CgPoints><CgPoint name=\"&a;\">1 2 3</CgPoint></CgPoints>"));
  EXPECT_TRUE(refusal.starts_with("line ")) << refusal;
}

TEST_F(LandXmlLoadDamage, OtherFilesAreNotOpened) {
  exchange_test::WriteFile(folder.Path("secret"), "1 2 3");
  const std::string secret = "SYSTEM \"" + folder.Path("secret") + '"';
  const std::string point = Document("<CgPoints><CgPoint name=\"p\">&a;</CgPoint></CgPoints>");
  for (const std::string& type :
       {"<!DOCTYPE LandXML [<!ENTITY a " + secret + ">]>",
        "<!DOCTYPE LandXML [<!ENTITY % b " + secret + ">%b;<!ENTITY a \"x\">]>",
        "<!DOCTYPE LandXML " + secret + " [<!ENTITY a \"x\">]>"}) {
    try {
      LoadBytes(type + point);
    } catch (const landxml_load::LoadError&) {
      // Refused as a whole: that will do.
    }
    for (int group = 0; group < Known().GetGrpArSize(); ++group) {
      EXPECT_EQ(Known().GetPtnArSize(group), 0) << type;
    }
  }
}

TEST_F(LandXmlLoadDamage, MillionNestedElementsAreRefused) {
  std::string deep;
  for (int i = 0; i < 1'000'000; ++i) deep += "<a>";
  const std::string refusal = Refusal("<LandXML>\n" + deep);
  EXPECT_TRUE(refusal.starts_with("line 2: ")) << refusal;
  EXPECT_NE(refusal.find("elements are nested too deep"), std::string::npos) << refusal;
}

TEST_F(LandXmlLoadDamage, MillionGroupsInGroupsAreRefused) {
  std::string deep;
  for (int i = 0; i < 1'000'000; ++i) deep += "<CgPoints>";
  const std::string refusal = Refusal("<LandXML>\n" + deep);
  EXPECT_NE(refusal.find("elements are nested too deep"), std::string::npos) << refusal;
}

TEST_F(LandXmlLoadDamage, HundredNestedElementsAreNotTooDeep) {
  std::string open;
  std::string close;
  for (int i = 0; i < 100; ++i) {
    open += "<a>";
    close += "</a>";
  }
  Load(open + close + Alignment(Line("0 0", "0 10")));
  EXPECT_EQ(Kinds(), "S");
}

TEST_F(LandXmlLoadDamage, MillionSiblingsAreNotTooDeep) {
  std::string many;
  for (int i = 0; i < 1'000'000; ++i) many += "<a/>";
  Load(many + Alignment(Line("0 0", "0 10")));
  EXPECT_EQ(Kinds(), "S");
  EXPECT_TRUE(Told({"a is not loaded", "(1000000)"}));
}

// ---- Absurd numbers ----

TEST_F(LandXmlLoadDamage, PlacesThatAreNoNumbersAreToldAndTheRestIsLoaded) {
  const std::string huge = '1' + std::string(400, '0');
  Load(
      "<Surfaces><Surface name=\"hill\"><Definition><Pnts><P id=\"1\">1e999 0 0</P>"
      "<P id=\"2\">nan 0 0</P><P id=\"3\">0 inf 0</P><P id=\"4\">0 0 " +
      huge + "</P><P id=\"5\">0x10 0 0</P><P id=\"6\">1,5 0 0</P><P id=\"7\">0." +
      std::string(400, '3') + " 0 0</P></Pnts></Definition></Surface></Surfaces>");
  ASSERT_EQ(Surface().GetTris().GetNoTriVrts(), 1);
  ExpectAt(Surface().GetTris().GetTriVrtAt(0), 0, 1.0 / 3, 0);
  EXPECT_TRUE(Told({"hill", "(6)"}));
}

TEST_F(LandXmlLoadDamage, IdsMayBeAnyNumber) {
  const std::string ids[] = {"-9223372036854775808",
                             "-9223372036854775808",
                             "9223372036854775806",
                             "9223372036854775807",
                             "9223372036854775808",
                             "18446744073709551616",
                             "1e3",
                             std::string(400, '9')};
  std::string points = "<P id=\"5\">0 0 1</P><P id=\"6\">0 9 2</P>";
  std::string faces;
  for (const std::string& id : ids) {
    points += "<P id=\"" + id + "\">1 2 3</P>";
    faces += "<F>" + id + " 5 6</F>";
  }
  Load("<Surfaces><Surface name=\"hill\"><Definition><Pnts>" + points + "</Pnts><Faces>" + faces +
       "</Faces></Definition></Surface></Surfaces>");
  EXPECT_EQ(Surface().GetTris().GetNoTriVrts(), 6);
  EXPECT_EQ(Surface().GetTris().GetNoTris(), 4);
  EXPECT_TRUE(Told({"points", "(4)"}));
  EXPECT_TRUE(Told({"faces", "(4)"}));
}

TEST_F(LandXmlLoadDamage, RoadOfAbsurdNumbersDoesNoHarm) {
  for (const char* const number : {"1e300", "-1e300", "1e-300", "-5", "0", "1e999", "nan"}) {
    const std::string n = number;
    const std::string ends = "<Start>0 0</Start><End>" + n + " 5</End>";
    const std::string attributes = " rot=\"cw\" radius=\"" + n + "\" length=\"" + n +
                                   "\" radiusStart=\"INF\" radiusEnd=\"" + n + '"';
    Load(Alignment("<Line>" + ends + "</Line><Curve" + attributes + '>' + ends + "</Curve><Curve" +
                       attributes + ">" + ends + "<Center>" + n + " 7</Center></Curve><Spiral" +
                       attributes + '>' + ends + "</Spiral>" + Line("0 0", "0 10"),
                   "staStart=\"" + n + "\" length=\"" + n + '"',
                   "<Profile><ProfAlign><PVI>" + n + " 1</PVI><CircCurve radius=\"" + n + "\">1 " +
                       n + "</CircCurve><ParaCurve length=\"" + n + "\">2 3</ParaCurve>" +
                       "<PVI>2 " + n + "</PVI></ProfAlign></Profile>"));
    const int last = RoadCount() - 1;
    tdk::geom::PNT_2D place;
    Road(last).PointAt(5, place);
    for (const CPlaniElem* const element : Elements(last)) {
      EXPECT_TRUE(std::isfinite(element->GetProg()) && std::isfinite(element->GetLength())) << n;
    }
  }
  EXPECT_EQ(RoadCount(), 7);
}

}  // namespace
