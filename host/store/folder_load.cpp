// The job as a folder, read.
#include <filesystem>

#include "host/store/database.h"
#include "host/store/folder_job.h"
#include "host/store/folder_schema.h"
#include "host/store/progress.h"

namespace {

std::uint64_t CountPointsIn(const Database& database) {
  std::int64_t count = 0;
  for (const char* table :
       {kPointTable.name, kGpsPointTable.name, kKnownPointTable.name, kControlTable.name}) {
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
        progress_(progress, progress ? CountPointsIn(database) : 0) {}

  void Read() {
    ReadTotalStation();
    ReadGps();
    ReadKnownPoints();
    ForEachRow(kTargetsTable, [&](const auto& row, int, int) { Store(row, document_); });
    ForEachRow(kCurrentTable, [&](const auto& row, int, int) { Select(row); });
  }

 private:
  void ReadTotalStation() {
    CLibCmp& library = *document_.GetLibCmp();
    ForEachRow(kJobTable, [&](const auto& row, int, int) { Put(row, library.AddJob(false)); });
    ForEachRow(kStationTable,
               [&](const auto& row, int job, int) { Put(row, library.AddSta(job, false)); });
    ForEachRow(kPointTable, [&](const auto& row, int job, int sta) {
      PutPoint(row, library.AddPun(job, sta, false));
    });
    ForEachRow(kControlTable,
               [&](const auto& row, int, int) { PutPoint(row, library.AddOri(false)); });
  }

  void ReadGps() {
    CLibGps& library = *document_.GetLibGps();
    ForEachRow(kGpsGroupTable, [&](const auto& row, int, int) { Put(row, library.AddGrp(false)); });
    ForEachRow(kGpsPointTable, [&](const auto& row, int group, int) {
      PutPoint(row, library.AddPun(group, false));
    });
  }

  void ReadKnownPoints() {
    CLibPnt& library = *document_.GetLibPnt();
    ForEachRow(kKnownGroupTable,
               [&](const auto& row, int, int) { Put(row, library.AddGrp(false)); });
    ForEachRow(kKnownPointTable, [&](const auto& row, int group, int) {
      PutPoint(row, library.AddPtn(group, false));
    });
  }

  // Calls `take` with each row's record and the positions of its parents (0 where it has none).
  template <class Record, class Take>
  void ForEachRow(const StoredTable<Record>& table, Take take) {
    Statement statement(database_, table.Select());
    Record record;
    int first = 0;
    int second = 0;
    while (statement.Step()) {
      if (table.parents != Parents::kNone) statement.Read(first);
      if (table.parents == Parents::kStation) statement.Read(second);
      statement.ReadFields(record);
      take(record, first, second);
    }
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
