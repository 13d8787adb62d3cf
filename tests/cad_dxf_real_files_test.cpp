// DXF files that other programs made: what is read is what another reader finds in them.
#include <algorithm>
#include <cctype>
#include <cmath>
#include <cstdio>
#include <filesystem>
#include <iterator>
#include <map>
#include <ostream>
#include <set>
#include <sstream>

#include "tests/support/dxf_reading.h"

using namespace dxf_test;

namespace {

const std::string kFolder = KALVIO_REAL_DATA "/cad";

// ---- What the other reader finds: "layer NAME" and "count KIND NUMBER" lines ----

constexpr const char* kCounting = R"(
import collections, sys
import ezdxf
from ezdxf import recover
try:
    drawing = ezdxf.readfile(sys.argv[1])
except Exception:
    drawing, _ = recover.readfile(sys.argv[1])
counts = collections.Counter()
SAME = {"LWPOLYLINE": "polyline", "SPLINE": "polyline", "TRACE": "solid", "3DFACE": "face", "MTEXT": "text"}
for entity in drawing.modelspace():
    kind = entity.dxftype()
    if entity.dxf.hasattr("invisible") and entity.dxf.invisible:
        continue
    if kind == "POLYLINE" and entity.is_poly_face_mesh:
        counts["face"] += sum(1 for face in entity.faces())
    elif kind == "POLYLINE" and entity.is_polygon_mesh:
        counts["polymesh"] += 1
    elif kind == "INSERT":
        counts["insert"] += entity.mcount
    else:
        counts[SAME.get(kind, kind.lower())] += 1
for layer in drawing.layers:
    if layer.dxf.name != "Defpoints":  # which the reader adds of its own accord
        print("layer", layer.dxf.name)
for kind, count in sorted(counts.items()):
    print("count", kind, count)
)";

struct Found {
  bool isThere = false;
  std::set<std::string> layers;
  std::map<std::string, int> counts;
};

// What a command writes; nothing when it fails.
std::string OutputOf(const std::string& command) {
  FILE* const pipe = popen(command.c_str(), "r");
  if (pipe == nullptr) return "";
  std::string text;
  for (int c = std::fgetc(pipe); c != EOF; c = std::fgetc(pipe)) text += static_cast<char>(c);
  return pclose(pipe) == 0 ? text : "";
}

Found FoundByOthers(const std::string& script, const std::string& path) {
  Found found;
  std::string output;
  // The first may be one that a user has put in front, without the packages of the system.
  for (const std::string python : {"python3", "/usr/bin/python3"}) {
    if (output.empty()) {
      output = OutputOf(python + " '" + script + "' '" + path + "' 2>/dev/null");
    }
  }
  std::istringstream lines(output);
  for (std::string line; std::getline(lines, line);) {
    if (line.starts_with("layer ")) found.layers.insert(line.substr(6));
    if (!line.starts_with("count ")) continue;
    const std::size_t blank = line.rfind(' ');
    found.counts[line.substr(6, blank - 6)] = std::stoi(line.substr(blank + 1));
  }
  found.isThere = !output.empty();
  return found;
}

class DxfRealFile : public DxfReading, public testing::WithParamInterface<std::string> {
 protected:
  void SetUp() override {
    path_ = kFolder + '/' + GetParam();
    if (!std::filesystem::exists(path_)) GTEST_SKIP() << "the files of other programs are not here";
    load = ReadDxf(tdk::WString(path_), engine);
    ASSERT_TRUE(load.isLoaded) << load.errorLine << ' ' << Error();
  }
  /// Each kind that is not read is told, with the number that the other reader counts.
  void ExpectToldOf(const std::map<std::string, int>& counts) {
    const std::set<std::string> read = {"point",   "line", "polyline", "circle", "arc",
                                        "ellipse", "text", "insert",   "solid",  "face"};
    for (const auto& [kind, count] : counts) {
      if (read.contains(kind)) continue;
      std::string name = kind;
      std::transform(name.begin(), name.end(), name.begin(),
                     [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 32) : c; });
      EXPECT_THAT(Notes(),
                  testing::Contains(name + " is not read (" + std::to_string(count) + ")"));
    }
  }
  std::string path_;
};

TEST_P(DxfRealFile, HasTheLayersAndEntitiesThatAnotherReaderFinds) {
  const std::string script = folder.Path("count.py");
  exchange_test::WriteFile(script, kCounting);
  const Found found = FoundByOthers(script, path_);
  if (!found.isThere) GTEST_SKIP() << "the other reader (python3-ezdxf) is not installed";
  const auto expected = [&](const std::string& kind) {
    const auto count = found.counts.find(kind);
    return count == found.counts.end() ? 0 : count->second;
  };
  EXPECT_EQ(Count<cad::PointShape>(), expected("point"));
  EXPECT_EQ(Count<cad::LineShape>(), expected("line"));
  EXPECT_EQ(Count<cad::PolylineShape>(), expected("polyline"));
  EXPECT_EQ(Count<cad::CircleShape>(), expected("circle"));
  EXPECT_EQ(Count<cad::ArcShape>(), expected("arc"));
  EXPECT_EQ(Count<cad::EllipseShape>(), expected("ellipse"));
  EXPECT_EQ(Count<cad::TextShape>(), expected("text"));
  EXPECT_EQ(Count<cad::InsertShape>(), expected("insert"));
  EXPECT_EQ(Count<cad::SolidShape>(), expected("solid"));
  EXPECT_EQ(Count<cad::FaceShape>(), expected("face"));
  EXPECT_EQ(expected("polymesh"), 0);
  for (const std::string& layer : found.layers) {
    EXPECT_NE(engine.GetDrawingFromName(0, tdk::WString(layer)), 0) << layer;
  }
  ExpectToldOf(found.counts);
}

TEST_P(DxfRealFile, NothingInItIsBroken) {
  for (const std::string& note : Notes()) {
    EXPECT_EQ(note.find("no shape"), note.npos) << note;
    EXPECT_EQ(note.find("points that are not there"), note.npos) << note;
    EXPECT_EQ(note.find("code page"), note.npos) << note;
  }
}

TEST_P(DxfRealFile, IsRefusedOrToldOfWhereverItIsCut) {
  const std::string bytes = exchange_test::ReadFile(path_);
  const std::size_t whole = bytes.rfind("EOF") + 3;
  const std::size_t step = std::max<std::size_t>(whole / 200, 1);
  exchange_test::WriteFile(Path(), bytes);
  for (std::size_t length = whole - 1; length > step; length -= step) {
    std::filesystem::resize_file(Path(), length);
    CTcadEng cut(0, nullptr, false);
    const CadLoad loaded = ReadDxf(tdk::WString(Path()), cut);
    EXPECT_TRUE(loaded.errorLine > 0 || !loaded.notes.empty()) << length;
  }
}

TEST_P(DxfRealFile, IsRefusedOrToldOfAtWhateverLineItEnds) {
  constexpr std::size_t kMost = 300;
  const std::string bytes = exchange_test::ReadFile(path_);
  const std::size_t whole = bytes.rfind("EOF");
  std::vector<std::size_t> ends;
  for (std::size_t at = bytes.find('\n'); at < whole; at = bytes.find('\n', at + 1)) {
    ends.push_back(at + 1);
  }
  const std::size_t step = ends.size() / kMost + 1;
  exchange_test::WriteFile(Path(), bytes);
  for (std::size_t i = 0; i < ends.size(); i += step) {
    std::filesystem::resize_file(Path(), ends[ends.size() - 1 - i]);
    CTcadEng cut(0, nullptr, false);
    const CadLoad loaded = ReadDxf(tdk::WString(Path()), cut);
    EXPECT_TRUE(loaded.errorLine > 0 || !loaded.notes.empty()) << ends[ends.size() - 1 - i];
  }
}

INSTANTIATE_TEST_SUITE_P(Of, DxfRealFile,
                         testing::Values("ASCII_R12.dxf", "Leica_Disto_S910.dxf",
                                         "POLI-ALL210_12.DXF", "sample_AC1009_ascii.dxf",
                                         "sample_AC1015_ascii.dxf", "small_r14.dxf"),
                         [](const auto& it) {
                           std::string name = "File_" + it.param;
                           std::replace_if(
                               name.begin(), name.end(),
                               [](unsigned char c) { return std::isalnum(c) == 0; }, '_');
                           return name;
                         });

// ---- The same drawing in several versions ----

// A number of a drawing, without what versions round differently.
std::int64_t Rounded(double number) { return std::llround(number * 1e4); }

// A name as the older version has it: in capitals, and with a line for what it does not allow.
std::string OldName(std::string name) {
  for (char& c : name) {
    const auto letter = static_cast<unsigned char>(c);
    c = std::isalnum(letter) != 0 ? static_cast<char>(std::toupper(letter)) : '_';
  }
  return name;
}

// What stands where on which layer, as a line of text each.
struct Description {
  std::string operator()(const cad::PointShape& it) const { return "point" + At(it.at); }
  std::string operator()(const cad::LineShape& it) const {
    return "line" + At(it.from) + At(it.to);
  }
  std::string operator()(const cad::PolylineShape& it) const {
    std::string text = it.isClosed ? "closed polyline" : "polyline";
    for (const cad::Point& point : it.points) text += At(point);
    return text;
  }
  std::string operator()(const cad::CircleShape& it) const {
    return "circle" + At(it.center) + Number(it.radius);
  }
  std::string operator()(const cad::ArcShape& it) const {
    return "arc" + At(it.center) + Number(it.radius) + Number(it.start) + Number(it.end);
  }
  std::string operator()(const cad::EllipseShape& it) const { return "ellipse" + At(it.center); }
  std::string operator()(const cad::TextShape& it) const {
    return "text" + At(it.at) + Number(it.height) + ' ' + it.text;
  }
  std::string operator()(const cad::InsertShape& it) const {
    return "insert" + At(it.at) + Number(it.rotation);
  }
  std::string operator()(const cad::FaceShape& it) const { return "face" + All(it.points); }
  std::string operator()(const cad::SolidShape& it) const { return "solid" + All(it.points); }

  static std::string Number(double number) { return ' ' + std::to_string(Rounded(number)); }
  static std::string At(const cad::Point& point) {
    return Number(point.getX()) + Number(point.getY()) + Number(point.getZ());
  }
  static std::string All(const std::vector<cad::Point>& points) {
    std::string text;
    for (const cad::Point& point : points) text += At(point);
    return text;
  }
};

class DxfSampleForms : public DxfReading {
 protected:
  using Lines = std::multiset<std::string>;

  void SetUp() override {
    for (CTcadEng* const form : {&old_, &engine}) {
      const std::string path =
          kFolder + (form == &old_ ? "/sample_AC1009_ascii.dxf" : "/sample_AC1015_ascii.dxf");
      if (!std::filesystem::exists(path))
        GTEST_SKIP() << "the files of other programs are not here";
      ASSERT_TRUE(ReadDxf(tdk::WString(path), *form).isLoaded) << path;
    }
  }
  static std::set<std::string> LayersOf(const CTcadEng& drawing) {
    std::set<std::string> layers;
    for (int id = 1; id <= drawing.GetNoDrawings(); ++id) {
      layers.insert(OldName(drawing.GetDrawingName(id).ToUtf8()));
    }
    return layers;
  }
  /// All shapes of one kind ("arc", "closed polyline").
  static Lines Of(const CTcadEng& drawing, const std::string& kind) {
    Lines lines;
    for (const cad::Entity& entity : drawing.Entities()) {
      const std::string line = std::visit(Description(), entity.shape);
      const std::string layer = OldName(drawing.GetDrawingName(entity.drawing).ToUtf8());
      if (line.starts_with(kind + ' ')) lines.insert(line + " on " + layer);
    }
    return lines;
  }
  /// Those of the newer form that the older one does not have.
  Lines OnlyInNew(const std::string& kind) const {
    const Lines old = Of(old_, kind);
    const Lines now = Of(engine, kind);
    Lines rest;
    std::set_difference(now.begin(), now.end(), old.begin(), old.end(),
                        std::inserter(rest, rest.end()));
    return rest;
  }

  CTcadEng old_{0, nullptr, false};  // R12; the other is of 2000
};

TEST_F(DxfSampleForms, HaveTheSameLayers) {
  EXPECT_EQ(LayersOf(old_), LayersOf(engine));
  EXPECT_GT(LayersOf(engine).size(), 20U);
}

TEST_F(DxfSampleForms, HaveTheSameShapesOfTheKindsThatBothVersionsHave) {
  for (const char* const kind : {"point", "circle", "arc", "face", "solid"}) {
    EXPECT_EQ(Of(old_, kind), Of(engine, kind));
    EXPECT_FALSE(Of(engine, kind).empty()) << kind;
  }
}

// The older form has more of them: what it cannot hold otherwise is taken apart.
TEST_F(DxfSampleForms, LinesAndInsertsOfTheNewerAreInTheOlder) {
  for (const char* const kind : {"line", "insert"}) {
    EXPECT_THAT(OnlyInNew(kind), testing::IsEmpty());
    EXPECT_FALSE(Of(engine, kind).empty()) << kind;
  }
}

TEST_F(DxfSampleForms, TextsOfOneLineAgree) {
  Lines rest = OnlyInNew("text");
  EXPECT_EQ(Of(old_, "text").size(), 29U);
  EXPECT_EQ(Of(engine, "text").size() - rest.size(), 29U) << "the others are of several lines";
}

// 21 flat ones and one in space. Splines are polylines as well, which the older form does not have.
TEST_F(DxfSampleForms, PolylinesAgree) {
  std::size_t common = 0;
  for (const char* const kind : {"polyline", "closed polyline"}) {
    common += Of(engine, kind).size() - OnlyInNew(kind).size();
  }
  EXPECT_EQ(common, 22U);
}

}  // namespace
