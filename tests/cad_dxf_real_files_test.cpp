// DXF files that other programs made: what is read is what another reader finds in them.
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <filesystem>
#include <map>
#include <ostream>
#include <set>
#include <sstream>
#include <tuple>

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
  constexpr std::size_t kMost = 2'000;
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
std::int64_t Rounded(double number) { return std::llround(number * 1e6); }

class DxfSampleForms : public DxfReading {
 protected:
  using Places = std::multiset<std::tuple<std::int64_t, std::int64_t, std::int64_t, std::string>>;

  /// All layers, in capitals as the older version has them.
  static std::set<std::string> LayersOf(const CTcadEng& drawing) {
    std::set<std::string> layers;
    for (int id = 1; id <= drawing.GetNoDrawings(); ++id) {
      std::string name = drawing.GetDrawingName(id).ToUtf8();
      std::transform(name.begin(), name.end(), name.begin(),
                     [](unsigned char c) { return static_cast<char>(std::toupper(c)); });
      layers.insert(name);
    }
    return layers;
  }

  /// What all versions hold alike: kind, place and what goes with it.
  static Places PlacesOf(const CTcadEng& drawing) {
    Places places;
    const auto add = [&](const cad::Point& p, const std::string& more) {
      places.emplace(Rounded(p.getX()), Rounded(p.getY()), Rounded(p.getZ()), more);
    };
    for (const cad::Entity& entity : drawing.Entities()) {
      // Names may be in capitals; the drawings have one order.
      const std::string layer = std::to_string(entity.drawing) + ' ';
      if (const auto* const point = std::get_if<cad::PointShape>(&entity.shape)) {
        add(point->at, layer + "point");
      } else if (const auto* const circle = std::get_if<cad::CircleShape>(&entity.shape)) {
        add(circle->center, layer + "circle " + std::to_string(Rounded(circle->radius)));
      } else if (const auto* const arc = std::get_if<cad::ArcShape>(&entity.shape)) {
        add(arc->center, layer + "arc " + std::to_string(Rounded(arc->start)) + ' ' +
                             std::to_string(Rounded(arc->end)));
      } else if (const auto* const face = std::get_if<cad::FaceShape>(&entity.shape)) {
        add(face->points.at(0), layer + "face " + std::to_string(face->points.size()));
      } else if (const auto* const solid = std::get_if<cad::SolidShape>(&entity.shape)) {
        add(solid->points.at(0), layer + "solid");
      }
    }
    return places;
  }
};

TEST_F(DxfSampleForms, AgreeWithEachOther) {
  std::vector<Places> forms;
  std::vector<std::string> names;
  if (std::filesystem::exists(kFolder)) {
    for (const auto& file : std::filesystem::directory_iterator(kFolder)) {
      const std::string name = file.path().filename().string();
      if (!name.starts_with("sample_") || !name.ends_with(".dxf")) continue;
      CTcadEng drawing(0, nullptr, false);
      EXPECT_TRUE(ReadDxf(tdk::WString(file.path().string()), drawing).isLoaded) << name;
      forms.push_back(PlacesOf(drawing));
      names.push_back(name);
    }
  }
  if (forms.size() < 2) GTEST_SKIP() << "the files of other programs are not here";
  EXPECT_GT(forms[0].size(), 10U);
  for (std::size_t i = 1; i < forms.size(); ++i) {
    EXPECT_EQ(forms[i], forms[0]) << names[i] << " and " << names[0];
  }
}

}  // namespace
