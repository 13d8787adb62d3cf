#include "host/gis/shape_export.h"

#include <algorithm>
#include <array>

#include "host/gis/dbf_writer.h"
#include "host/gis/set_sizes.h"
#include "host/gis/shape_paths.h"
#include "host/gis/shp_writer.h"
#include "platform/folder_list.h"
#include "platform/output_set.h"
#include "platform/paths.h"
#include "services/progress.h"
#include "services/translate.h"

namespace shape {
namespace {

// The files of a set that is written. All of them are opened before anything is written.
class OutputSet {
 public:
  explicit OutputSet(std::string base, bool hasReferenceSystem)
      : base_(std::move(base)), count_(hasReferenceSystem ? kFiles : kFiles - 1) {}

  /// The bits of those that cannot be opened.
  int Open() {
    return Each(
        [this](std::size_t i) { return files_[i].OpenBeside(base_ + "." + kRows[i].extension); });
  }

  platform::OutputFile& File(std::size_t i) { return files_[i]; }

  /// Completes all of the files and puts them in their places, or none. The bits of those that
  /// could not be.
  int Commit(std::span<const std::string> obsolete) {
    if (const int failed = Each([this](std::size_t i) { return files_[i].Complete(); })) {
      return failed;
    }
    std::vector<platform::OutputFile*> files;
    for (std::size_t i = 0; i < count_; ++i) files.push_back(&files_[i]);
    const std::size_t placed = platform::PlaceTogether(files, obsolete);
    return placed == files.size() ? 0 : kRows[placed].bit;
  }

  static constexpr std::size_t kShp = 0;
  static constexpr std::size_t kShx = 1;
  static constexpr std::size_t kDbf = 2;
  static constexpr std::size_t kCpg = 3;
  static constexpr std::size_t kPrj = 4;

 private:
  struct Row {
    const char* extension;
    int bit;
  };
  static constexpr std::size_t kFiles = 5;
  static constexpr std::array<Row, kFiles> kRows = {{{"shp", kShapeFileFailed},
                                                     {"shx", kShapeFileFailed},
                                                     {"dbf", kShapeTableFailed},
                                                     {"cpg", kShapeTableFailed},
                                                     {"prj", kShapeFileFailed}}};

  template <class Action>
  int Each(const Action& action) const {
    int failed = 0;
    for (std::size_t i = 0; i < count_; ++i) failed |= action(i) ? 0 : kRows[i].bit;
    return failed;
  }

  std::string base_;
  std::size_t count_;
  std::array<platform::OutputFile, kFiles> files_;
};

bool IsThere(const std::string& base) {
  return platform::IsThere(base + ".shp") || platform::IsThere(base + ".dbf");
}

class Export {
 public:
  explicit Export(const ShapeExport& what)
      : what_(what),
        base_(what.folder.ToUtf8() + FileNameOf(what.theme->GetName().ToUtf8())),
        native_(platform::NativePath(base_)) {}

  ShapeOutcome Run() {
    ShapeOutcome outcome;
    if (IsThere(native_) && !MayReplace()) return outcome;
    outcome.result = Write();
    outcome.isDone = outcome.result == 0;
    outcome.notes = std::move(remarks_);
    return outcome;
  }

 private:
  bool MayReplace() const {
    return what_.callback != nullptr && what_.callback->OnOverwriteFile(tdk::WString(base_));
  }

  int Write() {
    const gis::CTheme& theme = *what_.theme;
    const bool withHeights =
        what_.coordinates == kShape3D || (what_.coordinates != kShape2D && theme.Is3D());
    const ShpLayout shapes = LayOut(theme, withHeights);
    const DbfLayout table = LayOut(theme.GetTable(), what_.maximumCharacters, remarks_);
    if (const int tooMuch = CheckLimits(shapes, table)) return tooMuch;
    OutputSet files(native_, !theme.GetReferenceSystem().empty());
    if (const int failed = files.Open()) return failed;
    if (const int failed = Fill(files, shapes, table)) return failed;
    return files.Commit(Obsolete());
  }

  int CheckLimits(const ShpLayout& shapes, const DbfLayout& table) {
    int tooMuch =
        CheckSizes({shapes.size, table.SizeOf(RecordCount()), shapes.mostVertices}, remarks_);
    if (!table.Fits()) {
      Remark(remarks_, ToXlate("a table has at most 255 fields and 65,535 bytes a record"));
      tooMuch |= kShapeTableFailed;
    }
    return tooMuch;
  }

  int RecordCount() const {
    const gis::CTable* const table = what_.theme->GetTable();
    const int rows = table == nullptr ? 0 : table->GetNumRows();
    return std::max(what_.theme->GetNumFeatures(), rows);
  }

  int Fill(OutputSet& files, const ShpLayout& shapes, const DbfLayout& table) {
    const gis::CTheme& theme = *what_.theme;
    const int count = RecordCount();
    OutputStream shp(files.File(OutputSet::kShp));
    OutputStream shx(files.File(OutputSet::kShx));
    OutputStream dbf(files.File(OutputSet::kDbf));
    OutputStream cpg(files.File(OutputSet::kCpg));
    ProgressParts progress(2);
    progress.Begin(1);
    int failed = 0;
    if (!WriteShp(theme, count - theme.GetNumFeatures(), shapes, shp, shx, remarks_)) {
      failed |= kShapeFileFailed;
    }
    progress.Begin(1);
    if (!WriteDbf(theme.GetTable(), count, table, dbf, cpg)) failed |= kShapeTableFailed;
    if (!shp.Finish() || !shx.Finish()) failed |= kShapeFileFailed;
    if (!dbf.Finish() || !cpg.Finish()) failed |= kShapeTableFailed;
    if (!theme.GetReferenceSystem().empty()) {
      files.File(OutputSet::kPrj).Buffer() += theme.GetReferenceSystem();
    }
    return failed;
  }

  // An old reference system would be a wrong one beside new shapes.
  std::vector<std::string> Obsolete() const {
    std::vector<std::string> obsolete = ObsoleteFiles(native_);
    const std::string system = native_ + ".prj";
    if (what_.theme->GetReferenceSystem().empty() && platform::IsThere(system)) {
      obsolete.push_back(system);
    }
    return obsolete;
  }

  const ShapeExport& what_;
  std::string base_;  // as the host writes paths
  std::string native_;
  Remarks remarks_;
};

}  // namespace

ShapeOutcome ExportShapeFile(const ShapeExport& what) { return Export(what).Run(); }

}  // namespace shape
