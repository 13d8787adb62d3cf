// kalvio-bench-text KALVIO: the text reader and writer against bare loops that do the same
// conversions, and the whole program against another one that does the same work.
#include <malloc.h>

#include <fstream>
#include <iterator>
#include <memory>

#include "child.h"
#include "folder.h"
#include "formats/text/text_readers.h"
#include "formats/text/text_writers.h"
#include "host/document/host_document.h"
#include "measure.h"
#include "plain_points.h"

namespace bench {
namespace {

constexpr std::size_t kPoints = 1'000'000;
constexpr int kRounds = 7;
constexpr int kProgramRounds = 3;
constexpr double kNoSlowerThan = 2;  // times the bare loop
constexpr double kTimesAsFast = 4;   // as the other program
constexpr double kNanoseconds = 1e9;
constexpr double kMegabyte = 1e6;

std::string Content(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

text::TextExchangeSettings SettingsFor(const std::string& path) {
  text::TextExchangeSettings settings;
  settings.filePath = tdk::WString(path);
  settings.jobIndex = settings.unitIndex = text::kAllUnits;
  settings.fieldCode = {text::kName, text::kEast,  text::kNorth,
                        text::kElev, text::kDescr, text::kNothing};
  settings.fieldLength = {10, 14, 14, 12, 10, 1};
  settings.separator = u';';
  return settings;
}

text::Libraries LibrariesOf(HostDocument& document) {
  return {document.GetLibCmp(), document.GetLibGps(), document.GetLibPnt()};
}

class TextBench {
 public:
  explicit TextBench(std::string kalvio) : kalvio_(std::move(kalvio)) {}

  /// True when every limit was kept.
  bool Run() {
    WritePlacesPlainly(input_, places_);
    CompareImport();
    CompareExports();
    ComparePrograms();
    return allKept_;
  }

 private:
  void Import(HostDocument& document) {
    text::ReadDelimited(nullptr, LibrariesOf(document), SettingsFor(input_));
    if (document.GetLibPnt()->GetPtnArSize(0) != static_cast<int>(kPoints)) Die("no import");
  }

  void CompareImport() {
    double sum = 0;
    Compare(
        "CSV import",
        [&] {
          const auto document = std::make_unique<HostDocument>();
          malloc_trim(0);
          return SecondsOf([&] { Import(*document); });
        },
        [&] { return SecondsOf([&] { sum += ReadPlacesPlainly(input_); }); });
    if (!(sum > 0)) Die("the bare import read nothing");
  }

  void CompareExports() {
    HostDocument document;
    Import(document);
    const std::string ours = folder_.File("ours.csv");
    const std::string bare = folder_.File("bare.csv");
    const auto settings = SettingsFor(ours);
    const auto write = [&] { text::WriteDelimited(nullptr, LibrariesOf(document), settings); };
    write();
    if (Content(ours) != Content(input_)) Die("the two exports differ");
    const auto timed = [](const std::string& path, const std::function<void()>& work) {
      std::filesystem::remove(path);
      return SecondsOf(work);
    };
    const auto writePlainly = [&] { WritePlacesPlainly(bare, places_); };
    Compare(
        "CSV export", [&] { return timed(ours, write); },
        [&] { return timed(bare, writePlainly); });
    const auto writeFixed = [&] {
      auto widths = settings;
      text::WriteFixedLength(nullptr, LibrariesOf(document), widths);
    };
    Compare(
        "fixed-width export; bare: as above", [&] { return timed(ours, writeFixed); },
        [&] { return timed(bare, writePlainly); });
  }

  void Compare(const char* what, const Measurement& subject, const Measurement& bare) {
    const std::vector<Runs> runs = Interleaved(kRounds, {subject, bare});
    const double ratio = runs[0].Minimum() / runs[1].Minimum();
    Print({.what = std::string(what) + ", " + Grouped(kPoints) + " points",
           .figure = Figure(runs[0], kNanoseconds / kPoints, 0, "ns/point"),
           .bare = Figure(runs[1], kNanoseconds / kPoints, 0, "ns/point"),
           .ratio = Number(ratio, 2),
           .limit = Number(kNoSlowerThan, 0),
           .kept = ratio <= kNoSlowerThan});
  }

  void ComparePrograms() {
    const std::vector<std::string> kalvio = {kalvio_, "convert", "--quiet", input_,
                                             folder_.File("kalvio.csv")};
    const std::vector<std::string> other = {"ogr2ogr",
                                            "-f",
                                            "CSV",
                                            "-oo",
                                            "HEADERS=NO",
                                            "-oo",
                                            "AUTODETECT_TYPE=YES",
                                            "-lco",
                                            "SEPARATOR=SEMICOLON",
                                            folder_.File("other.csv"),
                                            input_};
    Runs seconds[2];
    Runs peaks[2];
    for (int i = 0; i < kProgramRounds; ++i) {
      for (const int which : {0, 1}) {
        std::filesystem::remove(folder_.File("other.csv"));
        const ChildUse use = RunChild(which == 0 ? kalvio : other);
        if (!use.succeeded) return;  // the other program is not there
        seconds[which].Add(use.processorSeconds);
        peaks[which].Add(use.peakResidentBytes);
      }
    }
    const double ratio = seconds[0].Minimum() / seconds[1].Minimum();
    const std::string what = "kalvio convert, CSV to CSV; bare: ogr2ogr, ";
    Print({.what = what + "time",
           .figure = Figure(seconds[0], 1, 2, "s"),
           .bare = Figure(seconds[1], 1, 2, "s"),
           .ratio = Number(ratio, 2),
           .limit = Number(1 / kTimesAsFast, 2),
           .kept = ratio <= 1 / kTimesAsFast});
    Print({.what = what + "peak memory",
           .figure = Number(peaks[0].Median() / kMegabyte, 0) + " MB",
           .bare = Number(peaks[1].Median() / kMegabyte, 0) + " MB"});
  }

  void Print(const Row& row) {
    PrintRow(row);
    if (row.kept == false) allKept_ = false;
  }

  std::string kalvio_;
  Folder folder_;
  std::string input_ = folder_.File("input.csv");
  std::vector<PlainPlace> places_ = MakePlaces(kPoints);
  bool allKept_ = true;
};

}  // namespace
}  // namespace bench

int main(int argc, char** argv) {
  if (argc != 2) {
    std::fputs("Usage: kalvio-bench-text PATH-OF-KALVIO\n", stderr);
    return 2;
  }
  mallopt(M_MMAP_THRESHOLD, 128 * 1024);
  mallopt(M_TRIM_THRESHOLD, 128 * 1024);
  try {
    return bench::TextBench(argv[1]).Run() ? 0 : 1;
  } catch (const std::exception& error) {
    std::fprintf(stderr, "kalvio-bench-text: %s\n", error.what());
    return 2;
  }
}
