// kalvio-bench-programs KALVIO: time and memory of whole processes. It stays small itself, because
// the peak memory that the system tells of a child is never less than what its parent had.
#include <fstream>

#include "child.h"
#include "folder.h"
#include "measure.h"
#include "plain_jb2.h"

namespace bench {
namespace {

constexpr std::size_t kMany = 1'000'000;
constexpr double kMegabyte = 1e6;
constexpr double kMostMegabytes = 200;
constexpr double kMilliseconds = 1e3;
constexpr int kStarts = 40;
constexpr int kLongRuns = 5;

using Command = std::vector<std::string>;

ChildUse RunOrDie(const Command& command) {
  const ChildUse use = RunChild(command);
  if (!use.succeeded) Die(command[0] + " " + command[1] + " failed");
  return use;
}

std::string Megabytes(double bytes) { return Number(bytes / kMegabyte, 0) + " MB"; }

class ProgramBench {
 public:
  explicit ProgramBench(std::string kalvio) : kalvio_(std::move(kalvio)) {}

  /// True when every limit was kept.
  bool Run() {
    CompareStart();
    MeasureImport(10'000);
    MeasureImport(100'000);
    MeasureConversion();
    return allKept_;
  }

 private:
  void CompareStart() {
    const std::string input = folder_.File("ten-lines.jb2");
    MakeJb2File(input, {.points = 8, .stations = 1});
    const Command convert = {kalvio_, "convert", input, folder_.File("out.xml")};
    const Command yardstick = {"ogr2ogr", "--version"};
    const auto time = [](const Command& command) { return RunOrDie(command).processorSeconds; };
    std::vector<Measurement> all = {[&] { return time(convert); }};
    const bool compare = RunChild(yardstick).succeeded;
    if (compare) all.push_back([&] { return time(yardstick); });
    const std::vector<Runs> runs = Interleaved(kStarts, all);
    Row row{.what = "kalvio convert, 10 lines to LandXML; bare: ogr2ogr --version",
            .figure = Figure(runs[0], kMilliseconds, 1, "ms"),
            .bare = "not installed"};
    if (compare) {
      row.bare = Figure(runs[1], kMilliseconds, 1, "ms");
      row.ratio = Number(runs[0].Minimum() / runs[1].Minimum(), 2);
    }
    PrintRow(row);
  }

  void MeasureImport(std::size_t stations) {
    const std::string input = folder_.File("import.jb2");
    const std::string answers = folder_.File("answers.json");
    MakeJb2File(input, {.points = kMany, .stations = stations});
    std::ofstream(answers) << R"([{"dialog": "file", "set": {"path": ")" << input
                           << R"("}, "press": "OK"}])";
    PrintUse("kalvio call FImportJB2File", stations,
             {kalvio_, "call", "FImportJB2File", "--answers", answers});
  }

  void MeasureConversion() {
    const std::size_t stations = 10'000;
    const std::string input = folder_.File("convert.jb2");
    MakeJb2File(input, {.points = kMany, .stations = stations});
    PrintUse("kalvio convert, JB2 to LandXML", stations,
             {kalvio_, "convert", input, folder_.File("out.xml")});
  }

  // A row for the memory, which has a limit, and one for the time.
  void PrintUse(const std::string& what, std::size_t stations, const Command& command) {
    Runs seconds;
    Runs peak;
    for (int i = 0; i < kLongRuns; ++i) {
      const ChildUse use = RunOrDie(command);
      if (use.peakResidentBytes <= OwnPeakResidentBytes())
        Die("the peak memory is this program's own");
      seconds.Add(use.processorSeconds);
      peak.Add(use.peakResidentBytes);
    }
    const std::string job = what + ", " + JobSize(kMany, stations);
    const bool kept = peak.Median() <= kMostMegabytes * kMegabyte;
    allKept_ = allKept_ && kept;
    PrintRow({.what = job + ": peak memory",
              .figure = Megabytes(peak.Median()),
              .limit = Number(kMostMegabytes, 0) + " MB",
              .kept = kept});
    PrintRow({.what = job + ": time", .figure = Figure(seconds, 1, 2, "s")});
  }

  std::string kalvio_;
  Folder folder_;
  bool allKept_ = true;
};

}  // namespace
}  // namespace bench

int main(int argc, char** argv) {
  if (argc != 2) {
    std::fputs("Usage: kalvio-bench-programs PATH-OF-KALVIO\n", stderr);
    return 2;
  }
  try {
    return bench::ProgramBench(argv[1]).Run() ? 0 : 1;
  } catch (const std::exception& error) {
    std::fprintf(stderr, "kalvio-bench-programs: %s\n", error.what());
    return 2;
  }
}
