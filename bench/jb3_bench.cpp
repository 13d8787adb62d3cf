// kalvio-bench-jb3: the JB3 reader and writer against what the XML library alone takes for the same
// file: its own parse, and its own building and saving of the same tree.
//
// With two words, JOB FILE, it does one of the jobs below once; so it measures the memory of each
// in a process of its own.
#include <malloc.h>
#include <tinyxml.h>

#include <fstream>
#include <iterator>
#include <memory>

#include "child.h"
#include "folder.h"
#include "formats/jb2/jb2_reader.h"
#include "formats/jb3/jb3_reader.h"
#include "formats/jb3/jb3_writer.h"
#include "host/document/host_document.h"
#include "measure.h"
#include "plain_jb2.h"

namespace bench {
namespace {

constexpr JobShape kShape = {.points = 200'000, .stations = 2'000};
constexpr JobShape kTenth = {.points = 20'000, .stations = 200};
constexpr int kRounds = 7;
constexpr int kMemoryRounds = 3;
constexpr double kNoSlowerThan = 1.5;  // times the library alone
constexpr double kStillLinear = 1.5;   // times the smaller job's time per point
constexpr double kNanoseconds = 1e9;
constexpr double kMegabyte = 1e6;

// What the run before left to be tidied up by the next large allocation is not the next run's.
template <class Work>
double SecondsOfFresh(Work&& work) {
  malloc_trim(0);
  return SecondsOf(work);
}

std::string Content(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

void Import(HostDocument& document, const std::string& path) {
  if (!jb3::Jb3Reader(nullptr, document, tdk::WString(path)).Read()) Die("no import of " + path);
}

void Export(HostDocument& document, const std::string& path) {
  jb3::Jb3Writer(document).Write(tdk::WString(path), "bench", "1");
}

void Parse(TiXmlDocument& document, const std::string& text) {
  document.Parse(text.c_str(), nullptr, TIXML_ENCODING_UNKNOWN);
  if (document.Error()) Die(document.ErrorDesc());
}

// A JB3 file of that many observed points.
void MakeJb3File(const std::string& path, const JobShape& shape) {
  const std::string jb2 = path + ".jb2";
  MakeJb2File(jb2, shape);
  HostDocument document;
  if (!jb2::Jb2Reader(nullptr, document.GetLibCmp(), tdk::WString(jb2)).Run()) Die("no job");
  Export(document, path);
}

// The same element and all below it, through the calls that any user of the library makes.
void BuildAgain(const TiXmlElement& source, TiXmlNode& parent) {
  auto* const copy = new TiXmlElement(source.Value());
  parent.LinkEndChild(copy);
  for (const TiXmlAttribute* each = source.FirstAttribute(); each != nullptr; each = each->Next()) {
    copy->SetAttribute(each->Name(), each->Value());
  }
  for (const TiXmlElement* child = source.FirstChildElement(); child != nullptr;
       child = child->NextSiblingElement()) {
    BuildAgain(*child, *copy);
  }
}

void BuildAndSave(const TiXmlDocument& source, const std::string& path) {
  TiXmlDocument document;
  document.LinkEndChild(new TiXmlDeclaration("1.0", "ISO-8859-1", ""));
  BuildAgain(*source.RootElement(), document);
  if (!document.SaveFile(path)) Die("no file " + path);
}

// The two sides of each comparison, as whole jobs: what a process of its own does.
int DoOnce(const std::string& job, const std::string& path) {
  if (job == "import") {
    HostDocument document;
    Import(document, path);
  } else if (job == "export") {
    HostDocument document;
    if (!jb2::Jb2Reader(nullptr, document.GetLibCmp(), tdk::WString(path)).Run()) Die("no job");
    Export(document, path + ".out");
  } else if (job == "parse") {
    TiXmlDocument document;
    const std::string text = Content(path);
    Parse(document, text);
  } else {
    Die("no such job: " + job);
  }
  return 0;
}

class Jb3Bench {
 public:
  explicit Jb3Bench(std::string self) : self_(std::move(self)) {}

  /// True when every limit was kept.
  bool Run() {
    MakeJb3File(input_, kShape);
    MakeJb3File(small_, kTenth);
    CompareImport();
    CompareExport();
    ComparePeaks();
    return allKept_;
  }

 private:
  static double TimeImport(const std::string& path) {
    const auto document = std::make_unique<HostDocument>();
    return SecondsOfFresh([&] { Import(*document, path); });
  }

  double TimeExport(HostDocument& document) {
    std::filesystem::remove(output_);
    return SecondsOfFresh([&] { Export(document, output_); });
  }

  void CompareImport() {
    const std::string text = Content(input_);
    const auto parse = [&] {
      const auto document = std::make_unique<TiXmlDocument>();
      return SecondsOfFresh([&] { Parse(*document, text); });
    };
    const std::vector<Runs> runs = Interleaved(
        kRounds, {[&] { return TimeImport(input_); }, parse, [&] { return TimeImport(small_); }});
    PrintAll("JB3 import, ", runs);
  }

  void CompareExport() {
    TiXmlDocument source;
    Parse(source, Content(input_));
    HostDocument document;
    HostDocument tenth;
    Import(document, input_);
    Import(tenth, small_);
    const std::string bare = folder_.File("bare.jb3");
    Export(document, output_);
    BuildAndSave(source, bare);
    if (Content(output_) != Content(bare)) Die("the two exports differ");
    const auto build = [&] {
      std::filesystem::remove(bare);
      return SecondsOfFresh([&] { BuildAndSave(source, bare); });
    };
    const std::vector<Runs> runs = Interleaved(
        kRounds, {[&] { return TimeExport(document); }, build, [&] { return TimeExport(tenth); }});
    PrintAll("JB3 export, ", runs);
  }

  // Of the whole job, the library alone, and a tenth of the job.
  void PrintAll(const std::string& what, const std::vector<Runs>& runs) {
    const double ratio = runs[0].Minimum() / runs[1].Minimum();
    Print({.what = what + JobSize(kShape.points, kShape.stations),
           .figure = PerPoint(runs[0], kShape),
           .bare = PerPoint(runs[1], kShape),
           .ratio = Number(ratio, 2),
           .limit = Number(kNoSlowerThan, 1),
           .kept = ratio <= kNoSlowerThan});
    const double growth = runs[0].Minimum() / static_cast<double>(kShape.points) /
                          (runs[2].Minimum() / static_cast<double>(kTenth.points));
    Print({.what = what + "a tenth of it; ratio: time per point, whole to tenth",
           .figure = PerPoint(runs[2], kTenth),
           .ratio = Number(growth, 2),
           .limit = Number(kStillLinear, 1),
           .kept = growth <= kStillLinear});
  }

  // The module holds the job besides the library's tree.
  void ComparePeaks() {
    const double tree = Peak("parse", input_);
    PrintPeak("JB3 import, ", Peak("import", input_), tree);
    PrintPeak("JB3 export, ", Peak("export", input_ + ".jb2"), tree);
  }

  void PrintPeak(const std::string& what, double ours, double tree) {
    Print({.what = what + JobSize(kShape.points, kShape.stations) + ": peak memory",
           .figure = Number(ours / kMegabyte, 0) + " MB",
           .bare = Number(tree / kMegabyte, 0) + " MB",
           .ratio = Number(ours / tree, 2)});
  }

  double Peak(const std::string& job, const std::string& file) {
    Runs peak;
    for (int i = 0; i < kMemoryRounds; ++i) {
      const ChildUse use = RunChild({self_, job, file});
      if (!use.succeeded) Die(job + " failed");
      peak.Add(use.peakResidentBytes);
    }
    return peak.Median();
  }

  static std::string PerPoint(const Runs& runs, const JobShape& shape) {
    return Figure(runs, kNanoseconds / static_cast<double>(shape.points), 0, "ns/point");
  }

  void Print(const Row& row) {
    PrintRow(row);
    if (row.kept == false) allKept_ = false;
  }

  std::string self_;
  Folder folder_;
  std::string input_ = folder_.File("input.jb3");
  std::string small_ = folder_.File("small.jb3");
  std::string output_ = folder_.File("output.jb3");
  bool allKept_ = true;
};

}  // namespace
}  // namespace bench

int main(int argc, char** argv) {
  // Memory that one run gives back is not kept for the next: each pays for its own, as a new
  // process does.
  mallopt(M_MMAP_THRESHOLD, 128 * 1024);
  mallopt(M_TRIM_THRESHOLD, 128 * 1024);
  try {
    if (argc == 3) return bench::DoOnce(argv[1], argv[2]);
    return bench::Jb3Bench(argv[0]).Run() ? 0 : 1;
  } catch (const std::exception& error) {
    std::fprintf(stderr, "kalvio-bench-jb3: %s\n", error.what());
    return 2;
  }
}
