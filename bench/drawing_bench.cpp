// kalvio-bench-drawing: a drawing of many points with their names, saved and loaded as DWG, against
// the same drawing as DXF.
#include <malloc.h>

#include <cmath>
#include <cstdint>
#include <filesystem>
#include <memory>

#include "folder.h"
#include "host/cad/dwg/dwg_reader.h"
#include "host/cad/dwg/dwg_writer.h"
#include "host/cad/dxf/dxf_reader.h"
#include "host/cad/dxf/dxf_writer.h"
#include "measure.h"

namespace bench {
namespace {

constexpr int kPoints = 1'000'000;
constexpr int kRounds = 3;
constexpr double kNoSlowerThan = 3;  // times the DXF file
constexpr double kNanoseconds = 1e9;

/// How many digits coordinates have, and how large the file may be, by the DXF file. A record has
/// its frame, and its numbers in eight bytes each, however few digits they have: a point takes 45
/// bytes and a text of seven letters 63, in the map both take 4, and there is nothing in them that
/// could be left out.
struct Digits {
  const char* name;
  double unit;  ///< metres; 0: all that there are
  double noLargerThan;
};
constexpr Digits kComputed{"with all their digits", 0, 0.4};
constexpr Digits kMeasured{"of whole millimetres", 0.001, 0.5};

double Metres(std::uint64_t& state, double range, double unit) {
  state = state * 6364136223846793005U + 1442695040888963407U;
  const double value = static_cast<double>(state >> 11) / 9007199254740992.0 * range;
  return unit == 0 ? value : std::floor(value / unit) / (1 / unit);
}

class DrawingBench {
 public:
  explicit DrawingBench(const Digits& digits) : digits_(digits) {
    // As the export of a job calls them.
    const int layer = engine_.AddDrawing(0, "job_POINTS", true, false, false);
    const int names = engine_.AddDrawing(0, "job_NAMES", true, false, false);
    std::uint64_t state = 1;
    engine_.Reserve(2 * kPoints);
    for (int i = 0; i < kPoints; ++i) {
      const cad::Point at = {1'680'000 + Metres(state, 5000, digits.unit),
                             4'900'000 + Metres(state, 5000, digits.unit),
                             Metres(state, 500, digits.unit)};
      engine_.Add({layer, cad::kByLayer, false, cad::Origin::kUser, cad::PointShape{at}});
      engine_.Add({names, cad::kByLayer, false, cad::Origin::kUser,
                   cad::TextShape{at, 0.5, 0, "P" + std::to_string(100'000 + i)}});
    }
  }

  /// True when every limit was kept, as in the others.
  bool CompareTimes() {
    SaveBoth();
    Compare(
        "saved as ", [this] { return SecondsOf([this] { Save<&WriteDwgCounting>(dwg_); }); },
        [this] { return SecondsOf([this] { Save<&WriteDxfCounting>(dxf_); }); });
    Compare(
        "loaded as ", [this] { return TimeLoad<&ReadDwg>(dwg_); },
        [this] { return TimeLoad<&ReadDxf>(dxf_); });
    return allKept_;
  }
  bool CompareSizes() {
    SaveBoth();
    const auto dwg = static_cast<double>(std::filesystem::file_size(dwg_));
    const auto dxf = static_cast<double>(std::filesystem::file_size(dxf_));
    Print({.what = std::string("the files, coordinates ") + digits_.name,
           .figure = Number(dwg / 1e6, 1) + " MB",
           .bare = Number(dxf / 1e6, 1) + " MB",
           .ratio = Number(dwg / dxf, 3),
           .limit = Number(digits_.noLargerThan, 1),
           .kept = dwg / dxf <= digits_.noLargerThan});
    return allKept_;
  }

 private:
  void SaveBoth() {
    Save<&WriteDwgCounting>(dwg_);
    Save<&WriteDxfCounting>(dxf_);
    Check();
  }
  template <auto kWrite>
  void Save(const std::string& path) {
    std::filesystem::remove(path);
    CadSave how;
    how.path = tdk::WString(path);
    how.version = path == dwg_ ? TCAD_DWG_2000 : TCAD_DXF_2000;
    if (!kWrite(how, engine_).isWritten) Die("no saving to " + path);
  }
  template <auto kRead>
  static double TimeLoad(const std::string& path) {
    const auto engine = std::make_unique<CTcadEng>(0, nullptr, true);
    return SecondsOf([&] {
      if (!kRead(tdk::WString(path), *engine).isLoaded) Die("no loading of " + path);
    });
  }
  void Check() {
    CTcadEng back(0, nullptr, true);
    if (!ReadDwg(tdk::WString(dwg_), back).isLoaded) Die("no loading of " + dwg_);
    if (back.Entities().size() != engine_.Entities().size()) Die("entities are missing");
  }
  void Compare(const std::string& what, const Measurement& dwg, const Measurement& dxf) {
    const std::vector<Runs> runs = Interleaved(kRounds, {dwg, dxf});
    const double ratio = runs[0].Minimum() / runs[1].Minimum();
    Print({.what = "a drawing " + what + "DWG; bare: as DXF, " + Grouped(kPoints) +
                   " points with names",
           .figure = Figure(runs[0], kNanoseconds / kPoints, 0, "ns/point"),
           .bare = Figure(runs[1], kNanoseconds / kPoints, 0, "ns/point"),
           .ratio = Number(ratio, 2),
           .limit = Number(kNoSlowerThan, 0),
           .kept = ratio <= kNoSlowerThan});
  }
  void Print(const Row& row) {
    PrintRow(row);
    if (row.kept == false) allKept_ = false;
  }

  Digits digits_;
  Folder folder_;
  std::string dwg_ = folder_.File("drawing.dwg");
  std::string dxf_ = folder_.File("drawing.dxf");
  CTcadEng engine_{0, nullptr, true};
  bool allKept_ = true;
};

}  // namespace
}  // namespace bench

int main() {
  // As in the other programs: each run pays for its own memory.
  mallopt(M_MMAP_THRESHOLD, 128 * 1024);
  mallopt(M_TRIM_THRESHOLD, 128 * 1024);
  try {
    bool isKept = bench::DrawingBench(bench::kComputed).CompareSizes();
    bench::DrawingBench measured(bench::kMeasured);
    isKept = measured.CompareTimes() && isKept;
    isKept = measured.CompareSizes() && isKept;
    return isKept ? 0 : 1;
  } catch (const std::exception& error) {
    std::fprintf(stderr, "kalvio-bench-drawing: %s\n", error.what());
    return 2;
  }
}
