// kalvio-bench-dxf KALVIO: the DXF writer and reader against bare loops that write and convert the
// same pairs, and the whole program against another one that does the same work.
#include <malloc.h>

#include <fstream>
#include <iterator>
#include <memory>

#include "child.h"
#include "folder.h"
#include "host/cad/cad_files.h"
#include "host/document/host_document.h"
#include "measure.h"
#include "plain_dxf.h"
#include "plain_points.h"
#include "services/display/displays.h"

namespace bench {
namespace {

constexpr std::size_t kPoints = 1'000'000;
constexpr int kRounds = 5;
constexpr int kProgramRounds = 3;
constexpr double kWriteNoSlowerThan = 2;  // times the bare loop
constexpr double kReadNoSlowerThan = 3;
constexpr double kWriteTimesAsFast = 20;  // as the other program
constexpr double kReadTimesAsFast = 10;
constexpr double kNanoseconds = 1e9;
constexpr double kMegabyte = 1e6;

std::string Content(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

int Save(CTcadEng& engine, const std::string& path) {
  return engine.SaveFileDXF(tdk::WString(path), false, true, false, false, true, TCAD_DXF_2000, 0);
}

int Load(CTcadEng& engine, const std::string& path) {
  int line = 0;
  wchar_t reason[256];
  return engine.LoadFileDXF(tdk::WString(path), line, reason, 256);
}

// A drawing of so many points with texts of their names and heights.
void Draw(const std::vector<PlainPlace>& places, CTcadEng& engine) {
  HostDocument document;
  CLibPnt& known = *document.GetLibPnt();
  known.AddGrp(false)->SetLabels("PLAN", "", "", "");
  for (const PlainPlace& place : places) {
    CPunPnt* const point = known.AddPtn(0, false);
    point->SetNome(tdk::WString(std::string(View(place.name))));
    point->SetCoord(place.east, place.north, place.elev);
  }
  CDocSymbolManager symbols(&engine);
  engine.Reserve(4 * places.size());
  display::DrawAll(document, engine, symbols, /*explode=*/true);
  engine.RemoveIf([](const cad::Entity& entity) {
    return std::holds_alternative<cad::PolylineShape>(entity.shape);
  });
}

// The same, and what the file has before and behind it.
class PlainDrawing {
 public:
  PlainDrawing(const CTcadEng& engine, const std::string& file) {
    for (int id = 1; id <= engine.GetNoDrawings(); ++id) {
      layers_.push_back(engine.GetDrawingName(id).ToUtf8());
    }
    marks_.reserve(engine.Entities().size());
    for (const cad::Entity& entity : engine.Entities()) marks_.push_back(MarkOf(entity));
    const std::string start = "2\nENTITIES\n";
    const std::size_t first = file.find(start) + start.size();
    const std::size_t last = file.find("0\nENDSEC\n", first);
    before_ = file.substr(0, first);
    behind_ = file.substr(last);
    const std::size_t handle = file.find("5\n", first) + 2;
    std::from_chars(file.data() + handle, file.data() + handle + 16, firstHandle_, 16);
  }

  void Write(const std::string& path) const {
    PlainDxf file(path);
    file.Text(before_);
    std::uint64_t handle = firstHandle_;
    for (const PlainMark& mark : marks_) {
      file.Mark(mark, handle++, display::kTextHeight);
      file.EndRecord();
    }
    file.Text(behind_);
    file.Close();
  }

 private:
  PlainMark MarkOf(const cad::Entity& entity) const {
    const std::string& layer = layers_[static_cast<std::size_t>(entity.drawing) - 1];
    if (const auto* const text = std::get_if<cad::TextShape>(&entity.shape)) {
      return {layer, text->at.getX(), text->at.getY(), text->at.getZ(), text->text};
    }
    const cad::Point& at = std::get<cad::PointShape>(entity.shape).at;
    return {layer, at.getX(), at.getY(), at.getZ(), {}};
  }

  std::vector<std::string> layers_;
  std::vector<PlainMark> marks_;
  std::string before_;
  std::string behind_;
  std::uint64_t firstHandle_ = 0;
};

class DxfBench {
 public:
  explicit DxfBench(std::string kalvio) : kalvio_(std::move(kalvio)) { CadFiles::Install(); }

  /// True when every limit was kept.
  bool Run() {
    WritePlacesPlainly(points_, places_);
    // Before this process is large itself: the least that can be measured of a child.
    RunPrograms();
    CompareExport();
    CompareImport();
    return allKept_;
  }

 private:
  void CompareExport() {
    CTcadEng engine(0, nullptr, false);
    Draw(places_, engine);
    if (engine.Entities().size() != 3 * kPoints) Die("not all is drawn");
    if (Save(engine, drawing_) == 0) Die("no export");
    const std::string bare = folder_.File("bare.dxf");
    const PlainDrawing plain(engine, Content(drawing_));
    plain.Write(bare);
    if (Content(bare) != Content(drawing_)) Die("the two exports differ");
    const auto timed = [](const std::string& path, const std::function<void()>& work) {
      std::filesystem::remove(path);
      return SecondsOf(work);
    };
    const Runs runs = Compare(
        "DXF export", kWriteNoSlowerThan,
        [&] { return timed(drawing_, [&] { Save(engine, drawing_); }); },
        [&] { return timed(bare, [&] { plain.Write(bare); }); });
    std::filesystem::remove(bare);
    CompareWithOther("the same; bare: ogr2ogr, which writes the points alone", runs, otherWrites_);
    ExportPoints(engine);
  }

  // Without their texts, as the other program writes them; to another file.
  void ExportPoints(CTcadEng& engine) {
    engine.RemoveIf([](const cad::Entity& entity) {
      return std::holds_alternative<cad::TextShape>(entity.shape);
    });
    const std::string path = folder_.File("alone.dxf");
    Runs runs;
    for (int i = 0; i < kRounds; ++i) {
      std::filesystem::remove(path);
      runs.Add(SecondsOf([&] { Save(engine, path); }));
    }
    std::filesystem::remove(path);
    CompareWithOther("DXF export, the points alone; bare: ogr2ogr", runs, otherWrites_,
                     kWriteTimesAsFast);
  }

  void CompareImport() {
    double sum = 0;
    const Runs runs = Compare(
        "DXF import", kReadNoSlowerThan,
        [&] {
          const auto engine = std::make_unique<CTcadEng>(0, nullptr, false);
          malloc_trim(0);
          return SecondsOf([&] {
            if (Load(*engine, drawing_) == 0) Die("no import");
          });
        },
        [&] { return SecondsOf([&] { sum += ReadPairsPlainly(drawing_); }); });
    if (!(sum > 0)) Die("the bare import read nothing");
    Runs other;
    const ChildUse use = RunChild({"ogrinfo", "-ro", "-al", "-so", drawing_});
    if (use.succeeded) other.Add(use.processorSeconds);
    CompareWithOther("the same; bare: ogrinfo", runs, use.succeeded ? &other : nullptr,
                     kReadTimesAsFast);
  }

  Runs Compare(const char* what, double limit, const Measurement& subject,
               const Measurement& bare) {
    std::vector<Runs> runs = Interleaved(kRounds, {subject, bare});
    const double ratio = runs[0].Minimum() / runs[1].Minimum();
    Print({.what = std::string(what) + ", " + Grouped(kPoints) + " points with names and heights",
           .figure = Figure(runs[0], kNanoseconds / kPoints, 0, "ns/point"),
           .bare = Figure(runs[1], kNanoseconds / kPoints, 0, "ns/point"),
           .ratio = Number(ratio, 2),
           .limit = Number(limit, 0),
           .kept = ratio <= limit});
    return std::move(runs[0]);
  }

  // `other`: null when the other program is not there.
  void CompareWithOther(const std::string& what, const Runs& runs, const Runs* other,
                        std::optional<double> timesAsFast = std::nullopt) {
    if (other == nullptr) return;
    const double ratio = runs.Minimum() / other->Minimum();
    Row row = {.what = what,
               .figure = Figure(runs, 1, 2, "s"),
               .bare = Figure(*other, 1, 2, "s"),
               .ratio = Number(ratio, 3)};
    if (timesAsFast) row.limit = Number(1 / *timesAsFast, 2);
    if (timesAsFast) row.kept = ratio <= 1 / *timesAsFast;
    Print(row);
  }

  // Whole processes. The other program is run once: it takes minutes.
  void RunPrograms() {
    const ChildUse other =
        RunChild({"ogr2ogr", "-f", "DXF", "-oo", "HEADERS=NO", "-oo", "X_POSSIBLE_NAMES=field_2",
                  "-oo", "Y_POSSIBLE_NAMES=field_3", "-oo", "Z_POSSIBLE_NAMES=field_4", "-select",
                  "", folder_.File("other.dxf"), points_});
    if (other.succeeded) otherWriting_.Add(other.processorSeconds);
    if (other.succeeded) otherWrites_ = &otherWriting_;
    TellProgram("kalvio convert --explode, CSV to DXF with names, codes and heights",
                {kalvio_, "convert", "--quiet", "--explode", points_, drawing_});
    TellProgram("kalvio show, that DXF file", {kalvio_, "show", drawing_});
    TellProgram("kalvio convert, CSV to DXF with blocks",
                {kalvio_, "convert", "--quiet", points_, drawing_});
  }

  void TellProgram(const std::string& what, const std::vector<std::string>& command) {
    Runs seconds;
    Runs peaks;
    for (int i = 0; i < kProgramRounds; ++i) {
      const ChildUse use = RunChild(command);
      if (!use.succeeded) Die(what);
      seconds.Add(use.processorSeconds);
      peaks.Add(use.peakResidentBytes);
    }
    Print({.what = what + ": time", .figure = Figure(seconds, 1, 2, "s")});
    Print(
        {.what = what + ": peak memory", .figure = Number(peaks.Median() / kMegabyte, 0) + " MB"});
  }

  void Print(const Row& row) {
    PrintRow(row);
    if (row.kept == false) allKept_ = false;
  }

  std::string kalvio_;
  Folder folder_;
  std::string points_ = folder_.File("points.csv");
  std::string drawing_ = folder_.File("drawing.dxf");
  std::vector<PlainPlace> places_ = MakePlaces(kPoints);
  Runs otherWriting_;
  const Runs* otherWrites_ = nullptr;  // null: the other program is not there
  bool allKept_ = true;
};

}  // namespace
}  // namespace bench

int main(int argc, char** argv) {
  if (argc != 2) {
    std::fputs("Usage: kalvio-bench-dxf PATH-OF-KALVIO\n", stderr);
    return 2;
  }
  mallopt(M_MMAP_THRESHOLD, 128 * 1024);
  mallopt(M_TRIM_THRESHOLD, 128 * 1024);
  try {
    return bench::DxfBench(argv[1]).Run() ? 0 : 1;
  } catch (const std::exception& error) {
    std::fprintf(stderr, "kalvio-bench-dxf: %s\n", error.what());
    return 2;
  }
}
