#include "host/gis/shape_import.h"

#include <utility>

#include "host/gis/dbf_reader.h"
#include "host/gis/link_points.h"
#include "host/gis/shape_paths.h"
#include "host/gis/shp_reader.h"
#include "platform/folder_list.h"
#include "platform/paths.h"
#include "services/progress.h"
#include "services/translate.h"

namespace shape {
namespace {

constexpr std::uint64_t kMostLabel = 1024;
constexpr std::uint64_t kMostReferenceSystem = 64 * 1024;

// Of so many bytes of shapes: eight of the index for each record, which has twelve at least.
std::uint64_t LargestIndex(std::uint64_t shapeBytes) {
  constexpr std::uint64_t kHeader = 100;
  return kHeader + shapeBytes / 12 * 8;
}

// What the ".cpg" file says; a mark that names nothing for one that cannot be read.
std::string LabelOf(const std::string& base) {
  const auto label = ReadSibling(base, "cpg", kMostLabel);
  if (label) return *label;
  return platform::IsThere(Sibling(base, "cpg")) ? "?" : "";
}

/// Without a merger no name changes: what is taken is refused.
class RefusingMerger : public gis::CGisMerger {
 public:
  explicit RefusingMerger(gis::CLibGis* library) : CGisMerger(library), library_(library) {}
  bool OnBeforeLoadTable(tdk::WString& name) override {
    return library_->FindTable(name) == nullptr;
  }

 private:
  gis::CLibGis* library_;
};

// Why an import ends before its end.
struct Refusal {
  ShapeResult result;
  tdk::WString name;
};

class Import {
 public:
  explicit Import(const ShapeImport& what)
      : what_(what),
        base_(BaseOf(what.path.ToUtf8())),
        name_(std::string(platform::FileName(base_))),
        refusing_(what.library),
        merger_(what.merger != nullptr ? *what.merger : refusing_) {}

  ShapeOutcome Run() {
    ShapeOutcome outcome;
    try {
      Load();
      outcome.isDone = true;
      outcome.result = tableName_ == name_ ? kShapeImported : kShapeTableRenamed;
      outcome.name = tableName_;
    } catch (const Refusal& refusal) {
      outcome.result = refusal.result;
      outcome.name = refusal.name;
    }
    if (rows_ != nullptr) outcome.encoding = rows_->EncodingName();
    outcome.notes = std::move(remarks_);
    return outcome;
  }

 private:
  void Load() {
    OpenShapes();
    OpenTable();
    tdk::WString themeName = name_;
    if (!merger_.OnLoadTheme(themeName)) throw Refusal{kShapeThemePresent, name_};
    tableName_ = name_;
    if (!merger_.OnBeforeLoadTable(tableName_)) throw Refusal{kShapeTablePresent, name_};
    Read(themeName);
    Keep();
    LinkPoints();
  }

  void OpenShapes() {
    const std::string path = Sibling(base_, "shp");
    if (!platform::IsThere(path) || !shp_.Open(path)) {
      throw Refusal{kShapeFileNotFound, what_.path};
    }
    const std::string shx = ReadSibling(base_, "shx", LargestIndex(shp_.Size())).value_or("");
    shapes_ = ShpReader::Open(shp_, shx, remarks_);
    if (shapes_ == nullptr) RefuseAsInconsistent();
  }

  void OpenTable() {
    const std::string path = Sibling(base_, "dbf");
    if (!platform::IsThere(path)) {
      Remark(remarks_, ToXlate("there is no table (.dbf); the features have no values"));
      return;
    }
    if (!dbf_.Open(path)) throw Refusal{kShapeFileNotFound, tdk::WString(path)};
    rows_ = DbfReader::Open(dbf_, LabelOf(base_));
    if (rows_ != nullptr) return;
    Remark(remarks_, ToXlate("its table (.dbf) cannot be read"));
    RefuseAsInconsistent();
  }

  void Read(const tdk::WString& themeName) {
    const ShapeKind& kind = shapes_->Kind();
    theme_ = std::make_unique<gis::CTheme>(themeName, kind.entity, kind.hasHeights,
                                           kind.hasHeights || kind.hasMeasures);
    table_ = std::make_unique<gis::CTable>(tableName_);
    if (rows_ != nullptr) {
      for (const gis::Field& field : rows_->Fields()) table_->AddField(field);
    }
    const int rows = rows_ != nullptr ? rows_->RowCount() : 0;
    const int count = std::max(shapes_->Count(), rows);
    Reserve(count);
    ProgressSteps progress(static_cast<std::uint64_t>(count));
    for (int record = 0; record < count; ++record) {
      ReadRecord(record, rows);
      progress.Step();
    }
    TellSurplus(rows);
    shapes_->TellRemarks(remarks_);
    if (rows_ != nullptr) rows_->TellRemarks(remarks_);
    RemarkCount(remarks_, ToXlate("records marked as deleted, left out: {1}"), deleted_);
    DropUnusedMeasures(*theme_);
    ReadReferenceSystem();
  }

  // For as many as the files have room for, and no more than is surely needed.
  void Reserve(int count) {
    const auto features = static_cast<std::size_t>(count);
    const bool isPoint = shapes_->Kind().entity == gis::EntityType::kPoint;
    theme_->Reserve(features, features, isPoint ? features : 0);
    table_->Reserve(features);
  }

  void ReadRecord(int record, int rows) {
    if (record >= rows) {
      table_->AddRow({});
    } else if (!ReadRow(record)) {
      ++deleted_;
      return;
    }
    if (record >= shapes_->Count()) {
      theme_->AddFeature();
    } else if (!shapes_->ReadShape(record, *theme_)) {
      RefuseRecord(ToXlate("shape {1} is damaged"), record);
    }
  }

  // False for one that is marked as deleted.
  bool ReadRow(int record) {
    const RowState state = rows_->ReadRow(record, *table_);
    if (state == RowState::kUnreadable) {
      RefuseRecord(ToXlate("record {1} of its table cannot be read"), record);
    }
    return state == RowState::kRead;
  }

  void TellSurplus(int rows) {
    if (rows_ == nullptr) return;
    const int shapes = shapes_->Count();
    RemarkCount(remarks_, ToXlate("shapes without a record in the table: {1}"),
                static_cast<std::uint64_t>(std::max(0, shapes - rows)));
    RemarkCount(remarks_, ToXlate("records of the table without a shape: {1}"),
                static_cast<std::uint64_t>(std::max(0, rows - shapes)));
  }

  void ReadReferenceSystem() {
    const auto wkt = ReadSibling(base_, "prj", kMostReferenceSystem);
    if (wkt) theme_->SetReferenceSystem(*wkt);
    if (!wkt && platform::IsThere(Sibling(base_, "prj"))) {
      Remark(remarks_, ToXlate("its reference system (.prj) cannot be read"));
    }
  }

  void Keep() {
    if (!merger_.OnAfterLoadTable(std::move(table_))) throw Refusal{kShapeTablePresent, name_};
    gis::CTable* const table = merger_.GetTable(tableName_);
    theme_->SetTable(table);
    kept_ = what_.library->AddTheme(std::move(theme_), true);
    if (kept_ != nullptr) return;
    what_.library->RemoveTable(table);
    throw Refusal{kShapeThemePresent, name_};
  }

  void LinkPoints() {
    if (what_.link == nullptr || !what_.options.createPoints) return;
    LinkPointsOf(*kept_, name_, what_.options, *what_.link, remarks_);
  }

  [[noreturn]] void RefuseRecord(const char* why, int record) {
    Remark(remarks_, why, {NumberText(static_cast<std::uint64_t>(record) + 1)});
    RefuseAsInconsistent();
  }

  [[noreturn]] void RefuseAsInconsistent() const { throw Refusal{kShapeInconsistent, name_}; }

  const ShapeImport& what_;
  std::string base_;
  tdk::WString name_;
  tdk::WString tableName_;
  RefusingMerger refusing_;
  gis::IGisMerger& merger_;
  FileStream shp_;
  FileStream dbf_;
  std::unique_ptr<ShpReader> shapes_;
  std::unique_ptr<DbfReader> rows_;
  std::unique_ptr<gis::CTheme> theme_;
  std::unique_ptr<gis::CTable> table_;
  gis::CTheme* kept_ = nullptr;
  std::uint64_t deleted_ = 0;
  Remarks remarks_;
};

}  // namespace

ShapeOutcome ImportShapeFile(const ShapeImport& what) { return Import(what).Run(); }

int EntityTypeOfFile(const tdk::WString& path) {
  const std::string shp = Sibling(BaseOf(path.ToUtf8()), "shp");
  FileStream stream;
  if (!platform::IsThere(shp) || !stream.Open(shp)) return -1;
  const std::optional<ShapeHeader> header = ReadHeader(stream);
  const std::optional<ShapeKind> kind = header ? KindOf(header->type) : std::nullopt;
  return kind ? static_cast<int>(kind->entity) : -1;
}

bool FieldsOfFile(const tdk::WString& dbfPath, std::vector<tdk::WString>& fields) {
  const std::string base = BaseOf(dbfPath.ToUtf8());
  const std::string dbf = Sibling(base, "dbf");
  FileStream stream;
  if (!platform::IsThere(dbf) || !stream.Open(dbf)) return false;
  const auto reader = DbfReader::Open(stream, LabelOf(base));
  if (reader == nullptr) return false;
  for (const gis::Field& field : reader->Fields()) fields.push_back(field.name);
  return true;
}

}  // namespace shape
