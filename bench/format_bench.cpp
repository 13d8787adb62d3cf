// kalvio-bench-formats: readers and writers against bare loops that do the same conversions, in one
// process.
#include <malloc.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>

#include "folder.h"
#include "formats/jb2/jb2_reader.h"
#include "formats/jb2/jb2_writer.h"
#include "formats/landxml/landxml_document.h"
#include "measure.h"
#include "plain_jb2.h"
#include "plain_landxml.h"

namespace bench {
namespace {

namespace fs = std::filesystem;

constexpr JobShape kShape = {.points = 1'000'000, .stations = 10'000};
constexpr int kRounds = 9;
constexpr double kNoSlowerThan = 2;  // times the bare loop
constexpr double kStillLinear = 2;   // times the smallest job's time per point
constexpr double kNanoseconds = 1e9;

std::string Content(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

void Import(CLibCmp& library, const std::string& path) {
  if (!jb2::Jb2Reader(nullptr, &library, tdk::WString(path)).Run()) Die("no import of " + path);
}

// What ReadJb2Plainly adds up, of a library: a file says 0 where no distance was measured.
Sums SumsOf(const CLibCmp& library) {
  Sums sums;
  for (int sta = 0; sta < library.GetStaArSize(0); ++sta) {
    for (int i = 0; i < library.GetPunArSize(0, sta); ++i) {
      const CPun& point = *library.GetPunAt(0, sta, i);
      ++sums.points;
      sums.numbers += point.GetAltPri();
      sums.numbers += point.GetDato2();
      sums.numbers += point.GetDato1();
      sums.numbers += IsDefined(point.GetDato0()) ? point.GetDato0() : 0;
    }
  }
  return sums;
}

// Fills a new library from the file, its memory fresh from the system; the library's end is not
// timed.
double TimeImport(const std::string& path) {
  const auto library = std::make_unique<CLibCmp>();
  return SecondsOf([&] { Import(*library, path); });
}

// A writer starts without an old file in its way.
double TimeWriting(const std::string& path, const std::function<void()>& write) {
  fs::remove(path);
  return SecondsOf(write);
}

class FormatBench {
 public:
  /// True when every limit was kept.
  bool Run() {
    MakeJb2File(input_, kShape);
    Import(library_, input_);
    for (PlainPoint& point : arrays_.points) {
      if (point.slopeDistance == 0) point.slopeDistance = UndefinedValue;
    }
    CompareImport();
    CompareJb2Export();
    CompareLandXmlExport();
    CompareSizes();
    CompareStations();
    return allKept_;
  }

 private:
  void CompareImport() {
    if (ReadJb2Plainly(input_) != SumsOf(library_)) Die("the two imports do not agree");
    // Added up, so that the work cannot be left out.
    double sum = 0;
    Compare(
        "JB2 import, ", [&] { return TimeImport(input_); },
        [&] { return SecondsOf([&] { sum += ReadJb2Plainly(input_).numbers; }); });
    if (!(sum > 0)) Die("the bare import read nothing");
  }

  void CompareJb2Export() {
    const std::string ours = folder_.File("ours.jb2");
    const std::string bare = folder_.File("bare.jb2");
    const auto write = [&] { jb2::Jb2Writer(&library_).Write(tdk::WString(ours)); };
    const auto writePlainly = [&] {
      PlainJb2 file(bare);
      file.Job(arrays_.job);
      for (std::size_t i = 0; i < arrays_.stations.size(); ++i) {
        file.Station(arrays_.stations[i].station);
        for (std::size_t k = arrays_.stations[i].firstPoint; k < arrays_.PointEnd(i); ++k) {
          file.Point(arrays_.points[k]);
        }
      }
      file.Close();
    };
    CompareWriting("JB2 export, ", ours, write, bare, writePlainly);
  }

  void CompareLandXmlExport() {
    const std::string ours = folder_.File("ours.xml");
    const std::string bare = folder_.File("bare.xml");
    landxml::LandXmlSelection selection;
    selection.tsLibrary = &library_;
    selection.tsJobs = {library_.GetJobAt(0)};
    selection.path = tdk::WString(ours);
    landxml::WriteLandXmlDocument(selection);
    const std::string whole = Content(ours);
    const std::string header = whole.substr(0, whole.find("\t<Survey "));
    CompareWriting(
        "LandXML export, ", ours, [&] { landxml::WriteLandXmlDocument(selection); }, bare,
        [&] { PlainLandXml(bare, header).Write(arrays_, UndefinedValueLimit); });
  }

  void CompareWriting(const char* what, const std::string& ours, const std::function<void()>& write,
                      const std::string& bare, const std::function<void()>& writePlainly) {
    write();
    writePlainly();
    if (Content(ours).empty() || Content(ours) != Content(bare))
      Die(ours + " and " + bare + " differ");
    Compare(
        what, [&] { return TimeWriting(ours, write); },
        [&] { return TimeWriting(bare, writePlainly); });
    fs::remove(ours);
    fs::remove(bare);
  }

  void Compare(const char* what, const Measurement& subject, const Measurement& bare) {
    const std::vector<Runs> runs = Interleaved(kRounds, {subject, bare});
    const double ratio = runs[0].Minimum() / runs[1].Minimum();
    Print({.what = what + JobSize(kShape.points, kShape.stations),
           .figure = PerPoint(runs[0], kShape.points),
           .bare = PerPoint(runs[1], kShape.points),
           .ratio = Number(ratio, 2),
           .limit = Number(kNoSlowerThan, 0),
           .kept = ratio <= kNoSlowerThan});
  }

  void CompareSizes() {
    CompareImports({{10'000, 100}, {100'000, 1'000}, {1'000'000, 10'000}, {3'000'000, 30'000}});
  }

  void CompareStations() { CompareImports({{100'000, 10'000}, {1'000'000, 100'000}}); }

  // Time per point of jobs of several sizes, each as a ratio to the first.
  void CompareImports(const std::vector<JobShape>& shapes) {
    std::vector<Measurement> all;
    for (const JobShape& shape : shapes) {
      const std::string path = folder_.File(std::to_string(shape.points) + ".jb2");
      MakeJb2File(path, shape);
      all.push_back([path] { return TimeImport(path); });
    }
    const std::vector<Runs> runs = Interleaved(kRounds, all);
    const double least = runs[0].Minimum() / static_cast<double>(shapes[0].points);
    for (std::size_t i = 0; i < shapes.size(); ++i) {
      const JobShape& shape = shapes[i];
      const double ratio = runs[i].Minimum() / static_cast<double>(shape.points) / least;
      Row row{.what = "JB2 import, " + JobSize(shape.points, shape.stations),
              .figure = PerPoint(runs[i], shape.points)};
      if (i > 0) {
        row.ratio = Number(ratio, 2);
        row.limit = Number(kStillLinear, 0);
        row.kept = ratio <= kStillLinear;
      }
      Print(row);
    }
  }

  static std::string PerPoint(const Runs& runs, std::size_t points) {
    return Figure(runs, kNanoseconds / static_cast<double>(points), 0, "ns/point");
  }

  void Print(const Row& row) {
    PrintRow(row);
    if (row.kept == false) allKept_ = false;
  }

  Folder folder_;
  std::string input_ = folder_.File("input.jb2");
  CLibCmp library_;
  PlainArrays arrays_{kShape};
  bool allKept_ = true;
};

}  // namespace
}  // namespace bench

int main() {
  // Memory that one run gives back is not kept for the next: each pays for its own, as a new
  // process does.
  mallopt(M_MMAP_THRESHOLD, 128 * 1024);
  mallopt(M_TRIM_THRESHOLD, 128 * 1024);
  try {
    bench::PrintTableHead();
    return bench::FormatBench().Run() ? 0 : 1;
  } catch (const std::exception& error) {
    std::fprintf(stderr, "kalvio-bench-formats: %s\n", error.what());
    return 2;
  }
}
