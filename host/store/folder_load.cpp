// The job as a folder, read.
#include <filesystem>

#include "host/store/database.h"
#include "host/store/folder_cadastre.h"
#include "host/store/folder_design.h"
#include "host/store/folder_drawing.h"
#include "host/store/folder_gis.h"
#include "host/store/folder_job.h"
#include "host/store/folder_rows.h"
#include "host/store/progress.h"

namespace {

std::uint64_t CountRecordsIn(const Database& database) {
  std::int64_t count = 0;
  std::vector<const char*> tables = {kPointTable.name, kGpsPointTable.name, kKnownPointTable.name,
                                     kControlTable.name};
  if (HoldsDesign(database)) {
    tables.insert(tables.end(), {kVertexTable.name, kTriangleTable.name});
  }
  if (HoldsDrawing(database)) tables.push_back(kEntityTable.name);
  if (HoldsTable(database, kThemeTable.name)) tables.push_back(kFeatureTable.name);
  for (const char* table : tables) {
    // Rows are numbered from 1, and the last number is found without counting.
    count += database.WholeOf(std::string("SELECT coalesce(max(rowid), 0) FROM ") + table);
  }
  return static_cast<std::uint64_t>(count);
}

// Fills the libraries from the tables. The rows of a parent come before those that belong to it.
class FolderReader {
 public:
  FolderReader(const Database& database, HostDocument& document, const JobProgress& progress)
      : database_(database),
        document_(document),
        progress_(progress, progress ? CountRecordsIn(database) : 0) {}

  void Read() {
    ReadTotalStation();
    ReadGps();
    ReadKnownPoints();
    if (HoldsDesign(database_)) ReadDesign(database_, document_, progress_);
    if (HoldsDrawing(database_)) ReadDrawing(database_, *document_.GetCadEngine(), progress_);
    if (HoldsTable(database_, kThemeTable.name)) {
      ReadGis(database_, *document_.GetLibGis(), progress_);
    }
    ReadCadastre(database_, *document_.GetCts());
    ForEachRow(database_, kTargetsTable,
               [&](const auto& row, const RowParents&) { Store(row, document_); });
    ForEachRow(database_, kCurrentTable, [&](const auto& row, const RowParents&) { Select(row); });
  }

 private:
  void ReadTotalStation() {
    CLibCmp& library = *document_.GetLibCmp();
    ForEachRow(database_, kJobTable,
               [&](const auto& row, const RowParents&) { Put(row, library.AddJob(false)); });
    ForEachRow(database_, kStationTable, [&](const auto& row, const RowParents& parents) {
      Put(row, library.AddSta(parents[0], false));
    });
    ForEachRow(database_, kPointTable, [&](const auto& row, const RowParents& parents) {
      PutPoint(row, library.AddPun(parents[0], parents[1], false));
    });
    ForEachRow(database_, kControlTable,
               [&](const auto& row, const RowParents&) { PutPoint(row, library.AddOri(false)); });
  }

  void ReadGps() {
    CLibGps& library = *document_.GetLibGps();
    ForEachRow(database_, kGpsGroupTable,
               [&](const auto& row, const RowParents&) { Put(row, library.AddGrp(false)); });
    ForEachRow(database_, kGpsPointTable, [&](const auto& row, const RowParents& parents) {
      PutPoint(row, library.AddPun(parents[0], false));
    });
  }

  void ReadKnownPoints() {
    CLibPnt& library = *document_.GetLibPnt();
    ForEachRow(database_, kKnownGroupTable,
               [&](const auto& row, const RowParents&) { Put(row, library.AddGrp(false)); });
    ForEachRow(database_, kKnownPointTable, [&](const auto& row, const RowParents& parents) {
      PutPoint(row, library.AddPtn(parents[0], false));
    });
  }

  template <class Record, class Object>
  void Put(const Record& record, Object* object) {
    if (object == nullptr) database_.Fail("the job is damaged: a record belongs to nothing");
    Store(record, *object);
  }
  template <class Record, class Object>
  void PutPoint(const Record& record, Object* object) {
    Put(record, object);
    progress_.Step();
  }

  void Select(const CurrentRecord& current) {
    constexpr int kNone = CurrentRecord::kNone;
    const bool hasStation =
        current.station[0] == kNone || SelectStation(current.station, document_);
    const bool hasGroup = current.gpsGroup == kNone || SelectGpsGroup(current.gpsGroup, document_);
    if (!hasStation || !hasGroup)
      database_.Fail("the job is damaged: what is current is not there");
  }

  const Database& database_;
  HostDocument& document_;
  PointProgress progress_;
};

void LoadDatabase(const std::string& path, HostDocument& document, const JobProgress& progress) {
  std::error_code unused;
  if (std::filesystem::status(path, unused).type() == std::filesystem::file_type::not_found) return;
  const Database database(path, Database::Mode::kExisting);
  database.Run("BEGIN");  // all tables as they are at one moment
  if (HoldsJob(database)) FolderReader(database, document, progress).Read();
}

}  // namespace

void LoadFolderJob(const std::string& folder, HostDocument& document, const JobProgress& progress) {
  std::error_code error;
  if (!std::filesystem::is_directory(folder, error)) {
    throw JobError(folder + ": " + (error ? error.message() : "this is a file, not a job folder"));
  }
  const std::string settings = folder + "/" + kJobSettingsName;
  if (!document.Settings().Load(std::filesystem::absolute(settings).string())) {
    throw JobError(settings + ": the settings cannot be read");
  }
  LoadDatabase(folder + "/" + kJobDatabaseName, document, progress);
}
