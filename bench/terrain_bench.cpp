// kalvio-bench-terrain: a surface of a million vertices written, loaded and triangulated, against
// bare loops and the libraries' own passes over the same.
#include <expat.h>
#include <malloc.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <random>

#include "child.h"
#include "folder.h"
#include "formats/landxml/landxml_document.h"
#include "host/landxml/load.h"
#include "host/terrain/cdt.h"
#include "host/terrain/triangulation.h"
#include "measure.h"
#include "plain_file.h"

namespace bench {
namespace {

namespace fs = std::filesystem;
using tdk::geom::PNT_3D;

constexpr int kSide = 1000;  // vertices along one side
constexpr std::size_t kVertices = std::size_t{kSide} * kSide;
constexpr int kRounds = 5;
constexpr double kWriteLimit = 2;
constexpr double kLoadLimit = 2;
constexpr double kTriangulateLimit = 1.3;
constexpr double kNanoseconds = 1e9;
constexpr double kMegabyte = 1e6;

std::string Content(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

// Hilly ground, a point every two metres or so, each beside its place in the grid.
template <class Visit>
void ForEachPoint(const Visit& visit) {
  std::mt19937 random(20'261'121);
  std::uniform_real_distribution<double> beside(-0.7, 0.7);
  for (int row = 0; row < kSide; ++row) {
    for (int column = 0; column < kSide; ++column) {
      const double x = 2.0 * column + beside(random);
      const double y = 2.0 * row + beside(random);
      visit(PNT_3D(1'520'000 + x, 5'010'000 + y, 200 + 30 * std::sin(x / 170) * std::cos(y / 230)));
    }
  }
}

std::vector<PNT_3D> Ground() {
  std::vector<PNT_3D> points;
  points.reserve(kVertices);
  ForEachPoint([&](const PNT_3D& point) { points.push_back(point); });
  return points;
}

void FillGrid(const std::vector<PNT_3D>& points, CTris& triangulation) {
  for (const PNT_3D& point : points) triangulation.AddTriVrt(point);
  for (int row = 0; row + 1 < kSide; ++row) {
    for (int column = 0; column + 1 < kSide; ++column) {
      const int a = row * kSide + column;
      triangulation.AddTri(a, a + 1, a + kSide);
      triangulation.AddTri(a + 1, a + kSide + 1, a + kSide);
    }
  }
}

// The same text from plain arrays.
struct PlainSurface {
  std::vector<std::array<double, 3>> vertices;
  std::vector<std::array<int, 3>> triangles;

  explicit PlainSurface(const CTris& triangulation) {
    for (int i = 0; i < triangulation.GetNoTriVrts(); ++i) {
      const PNT_3D& point = triangulation.GetTriVrtAt(i);
      vertices.push_back({point.getY(), point.getX(), point.getZ()});
    }
    for (int i = 0; i < triangulation.GetNoTris(); ++i) {
      const CTri& triangle = triangulation.GetTriAt(i);
      triangles.push_back(
          {triangle.GetVerIndex(0), triangle.GetVerIndex(1), triangle.GetVerIndex(2)});
    }
  }

  // `before` and `after`: all that is no point and no face.
  void Write(const std::string& path, std::string_view before, std::string_view after) const {
    PlainFile file(path);
    file.Text(before);
    for (std::size_t i = 0; i < vertices.size(); ++i) {
      file.Text("\t\t\t\t\t<P id=\"");
      file.Whole(i);
      file.Text("\">");
      file.Fixed(vertices[i][0], 6);
      file.Text(" ");
      file.Fixed(vertices[i][1], 6);
      file.Text(" ");
      file.Fixed(vertices[i][2], 6);
      file.Text("</P>\n");
      file.EndRecord();
    }
    file.Text("\t\t\t\t</Pnts>\n\t\t\t\t<Faces>\n");
    for (const auto& triangle : triangles) {
      file.Text("\t\t\t\t\t<F>");
      file.Whole(static_cast<std::size_t>(triangle[0]));
      file.Text(" ");
      file.Whole(static_cast<std::size_t>(triangle[1]));
      file.Text(" ");
      file.Whole(static_cast<std::size_t>(triangle[2]));
      file.Text("</F>\n");
      file.EndRecord();
    }
    file.Text(after);
    file.Close();
  }
};

struct Events {
  std::size_t elements = 0;
  std::size_t attributes = 0;
  std::size_t characters = 0;
};

// What the XML library takes to tell of each element, attribute and text.
Events ParsePlainly(const std::string& path) {
  Events events;
  const std::unique_ptr<std::remove_pointer_t<XML_Parser>, void (*)(XML_Parser)> parser(
      XML_ParserCreate(nullptr), XML_ParserFree);
  XML_SetUserData(parser.get(), &events);
  XML_SetElementHandler(
      parser.get(),
      [](void* data, const XML_Char*, const XML_Char** attributes) {
        auto& told = *static_cast<Events*>(data);
        ++told.elements;
        for (; *attributes != nullptr; attributes += 2) ++told.attributes;
      },
      [](void*, const XML_Char*) {});
  XML_SetCharacterDataHandler(parser.get(), [](void* data, const XML_Char*, int length) {
    static_cast<Events*>(data)->characters += static_cast<std::size_t>(length);
  });
  std::FILE* const file = std::fopen(path.c_str(), "rb");
  if (file == nullptr) Die("cannot open " + path);
  constexpr int kBlock = 256 * 1024;
  for (bool atEnd = false; !atEnd;) {
    void* const block = XML_GetBuffer(parser.get(), kBlock);
    const std::size_t got = std::fread(block, 1, kBlock, file);
    atEnd = got == 0;
    if (XML_ParseBuffer(parser.get(), static_cast<int>(got), atEnd) != XML_STATUS_OK) {
      Die("the XML library refuses " + path);
    }
  }
  std::fclose(file);
  return events;
}

std::string Megabytes(double bytes) { return Number(bytes / kMegabyte, 0) + " MB"; }

void WriteCsv(const std::string& path) {
  PlainFile file(path);
  std::size_t name = 0;
  ForEachPoint([&](const PNT_3D& point) {
    file.Whole(++name);
    for (const double value : {point.getX(), point.getY(), point.getZ()}) {
      file.Text(";");
      file.Fixed(value, 3);
    }
    file.Text(";ground\n");
    file.EndRecord();
  });
  file.Close();
}

void MeasureProgram(const std::string& what, const std::vector<std::string>& command) {
  const ChildUse use = RunChild(command);
  if (!use.succeeded) Die(what + " failed");
  PrintRow({.what = what + ": time", .figure = Number(use.processorSeconds, 2) + " s"});
  PrintRow({.what = what + ": peak memory", .figure = Megabytes(use.peakResidentBytes)});
}

// Whole processes, as users start them: before this one has grown, for a child begins as a copy.
void MeasurePrograms(const std::string& program) {
  const Folder folder;
  const std::string points = folder.File("points.csv");
  const std::string surface = folder.File("surface.xml");
  WriteCsv(points);
  MeasureProgram("kalvio convert --terrain, 1,000,000 points to LandXML",
                 {program, "convert", "--terrain", "--select", "surfaces", points, surface});
  PrintRow({.what = "its LandXML file",
            .figure = Megabytes(static_cast<double>(fs::file_size(surface)))});
  MeasureProgram("kalvio show, that file", {program, "show", surface});
  MeasureProgram("kalvio convert, that file to LandXML",
                 {program, "convert", surface, folder.File("copy.xml")});
}

class TerrainBench {
 public:
  /// True when every limit was kept.
  bool Run() {
    FillGrid(points_, model_.GetTris());
    model_.SetName("ground");
    CompareWriting();
    CompareLoading();
    CompareTriangulating();
    return allKept_;
  }

 private:
  void CompareWriting() {
    landxml::LandXmlSelection selection;
    selection.surfaces = {&model_};
    selection.path = tdk::WString(file_);
    landxml::WriteLandXmlDocument(selection);
    const std::string whole = Content(file_);
    const std::string_view firstPoint = "\t\t\t\t\t<P ";
    const std::string_view end = "\t\t\t\t</Faces>";
    const std::string before = whole.substr(0, whole.find(firstPoint));
    const std::string after = whole.substr(whole.rfind(end));
    const PlainSurface plain(model_.GetTris());
    const std::string bare = folder_.File("bare.xml");
    plain.Write(bare, before, after);
    if (Content(bare) != whole) Die("the two surfaces differ");
    Compare(
        "LandXML surface, written", kWriteLimit,
        [&] {
          fs::remove(file_);
          return SecondsOf([&] { landxml::WriteLandXmlDocument(selection); });
        },
        [&] {
          fs::remove(bare);
          return SecondsOf([&] { plain.Write(bare, before, after); });
        });
    PrintRow({.what = "the file", .figure = Megabytes(static_cast<double>(whole.size()))});
    fs::remove(bare);
  }

  void CompareLoading() {
    const Events events = ParsePlainly(file_);
    if (events.attributes < kVertices) Die("the bare pass read nothing");
    Compare(
        "LandXML surface, loaded; bare: the XML library's own pass", kLoadLimit,
        [&] {
          const auto document = std::make_unique<HostDocument>();
          const double seconds = SecondsOf([&] { LoadLandXml(file_, *document); });
          const CTris& loaded = document->GetLibDtm()->GetPrjAt(0)->GetTris();
          if (loaded.GetNoTris() != model_.GetTris().GetNoTris()) Die("not all was loaded");
          return seconds;
        },
        [&] { return SecondsOf([&] { ParsePlainly(file_); }); });
  }

  void CompareTriangulating() {
    terrain::ITriangulator* const triangulator = terrain::Triangulator();
    if (triangulator == nullptr) Die("the triangulation cannot be loaded");
    std::vector<PNT_3D> shuffled = points_;
    std::shuffle(shuffled.begin(), shuffled.end(), std::mt19937(1));
    std::vector<terrain::Kernel::Point_2> places;
    for (const PNT_3D& point : shuffled) places.emplace_back(point.getX(), point.getY());
    Compare(
        "points triangulated; bare: the library's own insertion", kTriangulateLimit,
        [&] {
          CDtmPrj model;
          terrain::Source source;
          source.points = shuffled;
          const double seconds =
              SecondsOf([&] { triangulator->Triangulate(std::move(source), model); });
          if (model.GetTris().GetNoTris() < 2 * kSide * (kSide - 1) - 2) Die("triangles missing");
          return seconds;
        },
        [&] {
          terrain::PlainCdt cdt;
          const double seconds = SecondsOf([&] { cdt.insert(places.begin(), places.end()); });
          if (cdt.number_of_vertices() != kVertices) Die("points missing");
          return seconds;
        });
  }

  void Compare(const std::string& what, double limit, const Measurement& subject,
               const Measurement& bare) {
    const std::vector<Runs> runs = Interleaved(kRounds, {subject, bare});
    const double ratio = runs[0].Minimum() / runs[1].Minimum();
    const double perVertex = kNanoseconds / static_cast<double>(kVertices);
    PrintRow({.what = what + ", 1,000,000 vertices",
              .figure = Figure(runs[0], perVertex, 0, "ns/vertex"),
              .bare = Figure(runs[1], perVertex, 0, "ns/vertex"),
              .ratio = Number(ratio, 2),
              .limit = Number(limit, 1),
              .kept = ratio <= limit});
    allKept_ = allKept_ && ratio <= limit;
  }

  Folder folder_;
  std::string file_ = folder_.File("surface.xml");
  std::vector<PNT_3D> points_ = Ground();
  CDtmPrj model_;
  bool allKept_ = true;
};

}  // namespace
}  // namespace bench

int main(int argc, char** argv) {
  if (argc != 2) {
    std::fprintf(stderr, "Usage: kalvio-bench-terrain KALVIO\n");
    return 2;
  }
  mallopt(M_MMAP_THRESHOLD, 128 * 1024);
  mallopt(M_TRIM_THRESHOLD, 128 * 1024);
  try {
    bench::MeasurePrograms(argv[1]);
    return bench::TerrainBench().Run() ? 0 : 1;
  } catch (const std::exception& error) {
    std::fprintf(stderr, "kalvio-bench-terrain: %s\n", error.what());
    return 2;
  }
}
