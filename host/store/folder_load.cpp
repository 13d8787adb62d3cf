// The job as a folder, read.
#include <filesystem>

#include "host/store/database.h"
#include "host/store/folder_job.h"
#include "host/store/folder_schema.h"
#include "host/store/progress.h"

namespace {

class FolderReader {
 public:
  FolderReader(Database& database, HostDocument& document, const JobProgress& progress)
      : database_(database), document_(document), progress_(progress, 0) {}

  void Read() {
    CLibCmp& surveys = *document_.GetLibCmp();
    CLibGps& gps = *document_.GetLibGps();
    CLibPnt& known = *document_.GetLibPnt();
    ForEachRow(kJobTable, [&](const auto& row, int, int) { Put(row, surveys.AddJob(true)); });
    ForEachRow(kStationTable, [&](const auto& row, int job, int) { Put(row, surveys.AddSta(job, true)); });
    ForEachRow(kPointTable, [&](const auto& row, int job, int sta) {
      Put(row, surveys.AddPun(job, sta, true));
      progress_.Step();
    });
    ForEachRow(kControlTable, [&](const auto& row, int, int) { Put(row, surveys.AddOri(true)); });
    ForEachRow(kGpsGroupTable, [&](const auto& row, int, int) { Put(row, gps.AddGrp(true)); });
    ForEachRow(kGpsPointTable, [&](const auto& row, int group, int) { Put(row, gps.AddPun(group, true)); });
    ForEachRow(kKnownGroupTable, [&](const auto& row, int, int) { Put(row, known.AddGrp(true)); });
    ForEachRow(kKnownPointTable, [&](const auto& row, int group, int) { Put(row, known.AddPtn(group, true)); });
    ForEachRow(kTargetsTable, [&](const auto& row, int, int) { Store(row, document_); });
    ForEachRow(kCurrentTable, [&](const auto& row, int, int) {
      SelectStation(row.station, document_);
      SelectGpsGroup(row.gpsGroup, document_);
    });
  }

 private:
  // Calls `take` with each row's record and the positions of its parents (0 where it has none).
  template <class Record, class Take>
  void ForEachRow(const StoredTable<Record>& table, Take take) {
    const std::string parents = table.parents;
    Statement statement(database_, table.Select());
    while (statement.Step()) {
      int first = 0;
      int second = 0;
      if (!parents.empty()) statement.Read(first);
      if (parents.find(',') != std::string::npos) statement.Read(second);
      Record record;
      statement.ReadFields(record);
      take(record, first, second);
    }
  }

  template <class Record, class Object>
  void Put(const Record& record, Object* object) {
    if (object == nullptr) database_.Fail("a record has no place in the job");
    Store(record, *object);
  }

  Database& database_;
  HostDocument& document_;
  PointProgress progress_;
};

}  // namespace

void LoadFolderJob(const std::string& folder, HostDocument& document, const JobProgress& progress) {
  std::error_code error;
  if (!std::filesystem::is_directory(folder, error)) {
    throw JobError(folder + ": " + (error ? error.message() : "there is no such job folder"));
  }
  const std::string settings = folder + "/" + kJobSettingsName;
  if (!document.Settings().Load(settings)) throw JobError(settings + ": the settings cannot be read");
  const std::string path = folder + "/" + kJobDatabaseName;
  if (!std::filesystem::exists(path, error)) return;
  Database database(path, Database::Mode::kRead);
  if (database.WholeOf("PRAGMA user_version") > kSchemaVersion) database.Fail("a newer version wrote this job");
  if (database.WholeOf("PRAGMA application_id") != kApplicationId) database.Fail("this is no job");
  FolderReader(database, document, progress).Read();
}
