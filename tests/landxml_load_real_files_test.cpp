// LandXML files that other programs made: all of them is loaded, and an export of it is the same.
#include <cctype>
#include <filesystem>
#include <ostream>

#include "formats/landxml/landxml_document.h"
#include "tests/support/landxml_load.h"

using namespace landxml_test;
using tdk::geom::PNT_2D;

namespace {

// ---- A reader of its own, no more than counting what stands in the text ----

class Scan {
 public:
  explicit Scan(std::string text) : text_(std::move(text)) {}

  /// The start tags of that name.
  std::vector<std::string_view> Tags(const std::string& name) const {
    std::vector<std::string_view> tags;
    const std::string open = '<' + name;
    for (auto at = text_.find(open); at != text_.npos; at = text_.find(open, at + 1)) {
      if (std::isalnum(static_cast<unsigned char>(text_[at + open.size()])) != 0) continue;
      tags.push_back(std::string_view(text_).substr(at, text_.find('>', at) - at + 1));
    }
    return tags;
  }
  int Count(const std::string& name) const { return static_cast<int>(Tags(name).size()); }
  int CountWith(const std::string& name, std::string_view attribute) const {
    int count = 0;
    for (const std::string_view tag : Tags(name)) count += tag.find(attribute) == tag.npos ? 0 : 1;
    return count;
  }
  /// What stands behind a start tag, up to the next tag.
  std::string_view Behind(std::string_view tag) const {
    const std::size_t from = Offset(tag) + tag.size();
    return std::string_view(text_).substr(from, text_.find('<', from) - from);
  }
  std::vector<double> Numbers(std::string_view tag) const {
    std::vector<double> numbers;
    std::string_view text = Behind(tag);
    for (double number = 0; !text.empty();) {
      const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
      if (error == std::errc()) numbers.push_back(number);
      const auto taken = static_cast<std::size_t>(end - text.data());
      text.remove_prefix(taken == 0 ? 1 : taken);
    }
    return numbers;
  }
  /// One less than its points, for each breakline.
  int BreaklineSegments() const {
    int segments = 0;
    for (const std::string_view begin : Tags("Breakline")) {
      const std::size_t from = Offset(begin);
      const std::size_t to = text_.find("</Breakline>", from);
      for (const auto& [name, size] : {std::pair("PntList3D", 3), std::pair("PntList2D", 2)}) {
        for (const std::string_view list : Tags(name)) {
          if (Offset(list) < from || Offset(list) > to) continue;
          segments += static_cast<int>(Numbers(list).size()) / size - 1;
        }
      }
    }
    return segments;
  }

 private:
  std::size_t Offset(std::string_view tag) const {
    return static_cast<std::size_t>(tag.data() - text_.data());
  }

  std::string text_;
};

struct RealFile {
  const char* name;
  double metres;  // of its unit
};
void PrintTo(const RealFile& file, std::ostream* out) { *out << file.name; }

class LandXmlRealFile : public LandXmlLoad, public testing::WithParamInterface<RealFile> {
 protected:
  void SetUp() override {
    if (!std::filesystem::exists(KALVIO_REAL_DATA "/landxml")) {
      GTEST_SKIP() << "the files of other programs are not here";
    }
    path = std::string(KALVIO_REAL_DATA "/landxml/") + GetParam().name + ".xml";
    remarks = LoadLandXml(path, document);
  }
  Scan Scanned() const { return Scan(exchange_test::ReadFile(path)); }

  int CountOf(char kind) {
    int count = 0;
    for (int road = 0; road < RoadCount(); ++road) {
      for (const char each : Kinds(road)) count += each == kind ? 1 : 0;
    }
    return count;
  }
  static const CPlaniElem* ElementAt(const std::vector<const CPlaniElem*>& elements, double prog) {
    const CPlaniElem* found = nullptr;
    for (const CPlaniElem* const element : elements) {
      if (element->GetProg() <= prog) found = element;
    }
    return found;
  }
  /// All roads and surfaces, exported and loaded again.
  void ExportInto(HostDocument& again) {
    landxml::LandXmlSelection selection;
    selection.path = tdk::WString(Path());
    for (int i = 0; i < RoadCount(); ++i) selection.roads.push_back(&Road(i));
    for (int i = 0; i < SurfaceCount(); ++i) selection.surfaces.push_back(&Surface(i));
    landxml::WriteLandXmlDocument(selection);
    LoadLandXml(Path(), again);
  }

  std::string path;
};

TEST_P(LandXmlRealFile, HasAllItsPointsFacesAndBreaklines) {
  const Scan scan = Scanned();
  int vertices = 0;
  int faces = 0;
  int segments = 0;
  for (int i = 0; i < SurfaceCount(); ++i) {
    vertices += Surface(i).GetTris().GetNoTriVrts();
    faces += Surface(i).GetTris().GetNoTris();
    segments += Surface(i).GetVncs().GetNoVncs();
  }
  const int hidden = scan.CountWith("F", " i=\"1\"");
  EXPECT_EQ(SurfaceCount(), scan.Count("Surface"));
  EXPECT_EQ(vertices, scan.Count("P"));
  EXPECT_EQ(faces, scan.Count("F") - hidden);
  EXPECT_EQ(segments, scan.BreaklineSegments());
  EXPECT_EQ(hidden > 0, static_cast<bool>(Told({"invisible", "(" + std::to_string(hidden) + ")"})));
}

TEST_P(LandXmlRealFile, HasAllItsKnownPoints) {
  int points = 0;
  for (int i = 0; i < Known().GetGrpArSize(); ++i) points += Known().GetPtnArSize(i);
  EXPECT_EQ(points, Scanned().Count("CgPoint"));
}

TEST_P(LandXmlRealFile, HasAllElementsOfItsRoads) {
  const Scan scan = Scanned();
  int eggs = 0;
  for (const std::string_view tag : scan.Tags("Spiral")) eggs += tag.find("\"INF\"") == tag.npos;
  EXPECT_EQ(RoadCount(), scan.Count("Alignment"));
  EXPECT_EQ(CountOf('S'), scan.Count("Line"));
  EXPECT_EQ(CountOf('A'), scan.Count("Curve"));
  EXPECT_EQ(CountOf('C'), scan.Count("Spiral") - eggs);
  EXPECT_EQ(CountOf('O'), eggs);
}

TEST_P(LandXmlRealFile, HasItsElementsWhereTheFileHasThem) {
  const Scan scan = Scanned();
  const auto starts = scan.Tags("Start");
  const auto ends = scan.Tags("End");
  std::size_t i = 0;
  for (int road = 0; road < RoadCount(); ++road) {
    for (const CPlaniElem* const element : Elements(road)) {
      SCOPED_TRACE(i);
      ASSERT_LT(i, ends.size());
      const std::vector<double> start = scan.Numbers(starts[i]);
      const std::vector<double> end = scan.Numbers(ends[i++]);
      const double metres = GetParam().metres;
      ExpectAt(element->GetStartPnt(), start.at(1) * metres, start.at(0) * metres, 1e-8);
      ExpectAt(EndOf(*element), end.at(1) * metres, end.at(0) * metres, 1e-5);
    }
  }
  EXPECT_EQ(i, ends.size());
}

TEST_P(LandXmlRealFile, HasAllVerticesOfItsProfiles) {
  int plain = 0;
  int curved = 0;
  for (int road = 0; road < RoadCount(); ++road) {
    const CProfileAlti* const line = Road(road).GetRoadProfile()->GetMainPrjAlti();
    if (line == nullptr) continue;
    for (int i = 0; i < line->GetNumVrts(); ++i) {
      (line->GetVrt(i).curve.has_value() ? curved : plain) += 1;
    }
  }
  EXPECT_EQ(plain, Scanned().Count("PVI"));
  EXPECT_EQ(curved, Scanned().Count("ParaCurve"));
}

TEST_P(LandXmlRealFile, HasTheSameRoadsInItsExport) {
  HostDocument again;
  ExportInto(again);
  ASSERT_EQ(again.GetLibRoad()->GetRoadArSize(), RoadCount());
  constexpr int kPlaces = 50;
  for (int i = 0; i < RoadCount(); ++i) {
    const auto elements = Elements(i);
    int skipped = 0;
    for (int k = 0; k < kPlaces; ++k) {
      const double length = Road(i).GetEndProg() - Road(i).GetStartProg();
      const double prog = Road(i).GetStartProg() + (k + 0.5) / kPlaces * length;
      const CPlaniElem* const element = ElementAt(elements, prog);
      ASSERT_NE(element, nullptr);
      if (element->GetType() == CPlaniElem::kOther) {
        ++skipped;
        continue;
      }
      PNT_2D there;
      PNT_2D here;
      ASSERT_TRUE(Road(i).PointAt(prog, there)) << prog;
      ASSERT_TRUE(again.GetLibRoad()->GetRoadAt(i)->PointAt(prog, here)) << prog;
      SCOPED_TRACE(prog);
      ExpectAt(here, there.getX(), there.getY(), 1e-5);
    }
    EXPECT_LE(skipped, kPlaces / 10);
    EXPECT_TRUE(skipped == 0 || Kinds(i).find('O') != std::string::npos);
  }
}

TEST_P(LandXmlRealFile, HasTheSameSurfacesInItsExport) {
  HostDocument again;
  ExportInto(again);
  ASSERT_EQ(again.GetLibDtm()->GetPrjArSize(), SurfaceCount());
  for (int i = 0; i < SurfaceCount(); ++i) {
    const CTris& there = Surface(i).GetTris();
    const CTris& here = again.GetLibDtm()->GetPrjAt(i)->GetTris();
    ASSERT_EQ(here.GetNoTriVrts(), there.GetNoTriVrts());
    ASSERT_EQ(here.GetNoTris(), there.GetNoTris());
    for (int k = 0; k < there.GetNoTriVrts(); ++k) {
      const auto& vertex = there.GetTriVrtAt(k);
      ExpectAt(here.GetTriVrtAt(k), vertex.getX(), vertex.getY(), vertex.getZ(), 1e-6);
    }
    for (int k = 0; k < there.GetNoTris(); ++k) {
      for (int corner = 0; corner < 3; ++corner) {
        ASSERT_EQ(here.GetTriAt(k).GetVerIndex(corner), there.GetTriAt(k).GetVerIndex(corner));
      }
    }
  }
}

TEST_P(LandXmlRealFile, IsRefusedWithItsLineWhereverItIsCut) {
  const std::string bytes = exchange_test::ReadFile(path);
  const std::size_t whole = bytes.rfind('>') + 1;
  constexpr std::size_t kKilobyte = 1024;
  exchange_test::WriteFile(Path(), bytes);
  for (std::size_t kilobytes = (whole - 1) / kKilobyte;; --kilobytes) {
    std::filesystem::resize_file(Path(), kilobytes * kKilobyte);
    HostDocument cut;
    try {
      LoadLandXml(Path(), cut);
      ADD_FAILURE() << "loaded, cut at kilobyte " << kilobytes;
    } catch (const landxml_load::LoadError& error) {
      EXPECT_TRUE(std::string(error.what()).starts_with(Path() + ": line ")) << error.what();
    }
    if (kilobytes == 0) break;
  }
}

INSTANTIATE_TEST_SUITE_P(
    Of, LandXmlRealFile,
    testing::Values(RealFile{"2slopes2HV", 0.3048}, RealFile{"cplx_test", 0.3048},
                    RealFile{"PR_Twin_Branch_section_alignment", 1200.0 / 3937},
                    RealFile{"divcibare", 1}),
    [](const auto& it) { return std::string("File_") + it.param.name; });

}  // namespace
