// The job as a folder, written.
#include <filesystem>

#include "host/store/database.h"
#include "host/store/file_trouble_catcher.h"
#include "host/store/folder_job.h"
#include "host/store/folder_schema.h"
#include "host/store/progress.h"
#include "platform/numbers.h"

namespace {

// Inserts rows into one table.
template <class Record>
class Inserter {
 public:
  Inserter(const Database& database, const StoredTable<Record>& table) : statement_(database, table.Insert()) {}

  /// `parents`: the positions of the objects that the row belongs to.
  template <class... Parents>
  void Add(const Record& record, Parents... parents) {
    (statement_.Bind(parents), ...);
    statement_.BindFields(record);
    statement_.Finish();
  }

 private:
  Statement statement_;
};

std::string Pragma(const char* name, std::int64_t value) {
  std::string text = std::string("PRAGMA ") + name + " = ";
  platform::AppendWhole(text, value);
  return text;
}

class FolderWriter {
 public:
  FolderWriter(Database& database, HostDocument& document, const JobProgress& progress)
      : database_(database),
        document_(document),
        progress_(progress, progress ? CountPoints(document) : 0) {}

  // One transaction: whoever is killed before its end leaves the previous job.
  void Write() {
    database_.Run("PRAGMA cache_size = -20000");
    database_.Run("BEGIN IMMEDIATE");
    database_.Run(Pragma("application_id", kApplicationId));
    database_.Run(Pragma("user_version", kSchemaVersion));
    ForEachTable([&](const auto& table) {
      database_.Run(table.Create());
      database_.Run(table.Clear());
    });
    WriteTotalStation();
    WriteGps();
    WriteKnownPoints();
    Inserter(database_, kTargetsTable).Add(TargetsOf(document_));
    Inserter(database_, kCurrentTable).Add(CurrentOf(document_));
    database_.Run("COMMIT");
  }

 private:
  void WriteTotalStation() {
    const CLibCmp& library = *document_.GetLibCmp();
    Inserter jobs(database_, kJobTable);
    Inserter stations(database_, kStationTable);
    Inserter points(database_, kPointTable);
    for (int j = 0; j < library.GetJobArSize(); ++j) {
      jobs.Add(RecordOf(*library.GetJobAt(j)));
      for (int s = 0; s < library.GetStaArSize(j); ++s) {
        stations.Add(RecordOf(*library.GetStaAt(j, s)), j);
        for (int p = 0; p < library.GetPunArSize(j, s); ++p) {
          points.Add(RecordOf(*library.GetPunAt(j, s, p)), j, s);
          progress_.Step();
        }
      }
    }
    Inserter controls(database_, kControlTable);
    for (int i = 0; i < library.GetOriArSize(); ++i) controls.Add(RecordOf(*library.GetOriAt(i)));
  }

  void WriteGps() {
    const CLibGps& library = *document_.GetLibGps();
    Inserter groups(database_, kGpsGroupTable);
    Inserter points(database_, kGpsPointTable);
    for (int g = 0; g < library.GetGrpArSize(); ++g) {
      groups.Add(RecordOf(*library.GetGrpAt(g)));
      for (int i = 0; i < library.GetPunArSize(g); ++i) {
        points.Add(RecordOf(*library.GetPunAt(g, i)), g);
        progress_.Step();
      }
    }
  }

  void WriteKnownPoints() {
    const CLibPnt& library = *document_.GetLibPnt();
    Inserter groups(database_, kKnownGroupTable);
    Inserter points(database_, kKnownPointTable);
    for (int g = 0; g < library.GetGrpArSize(); ++g) {
      groups.Add(RecordOf(*library.GetGrpAt(g)));
      for (int i = 0; i < library.GetPtnArSize(g); ++i) {
        points.Add(RecordOf(*library.GetPtnAt(g, i)), g);
        progress_.Step();
      }
    }
  }

  Database& database_;
  HostDocument& document_;
  PointProgress progress_;
};

void MakeFolder(const std::string& folder) {
  std::error_code error;
  std::filesystem::create_directories(folder, error);
  if (!std::filesystem::is_directory(folder)) {
    throw JobError(folder + ": " + (error ? error.message() : "this is a file, not a folder"));
  }
}

void SaveSettings(const std::string& path, JobSettings& settings) {
  const bool isThere = std::filesystem::exists(path);
  if (!settings.IsChanged() && (isThere || settings.IsEmpty())) return;
  const FileTroubleCatcher trouble;
  if (!settings.Save(path)) throw JobError(path + ": the job was saved, its settings were not: " + trouble.Reason());
}

}  // namespace

void SaveFolderJob(const std::string& folder, HostDocument& document, const JobProgress& progress) {
  MakeFolder(folder);
  Database database(folder + "/" + kJobDatabaseName, Database::Mode::kWrite);
  if (database.WholeOf("PRAGMA user_version") > kSchemaVersion) database.Fail("a newer version wrote this job");
  FolderWriter(database, document, progress).Write();
  SaveSettings(folder + "/" + kJobSettingsName, document.Settings());
}
