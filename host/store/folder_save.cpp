// The job as a folder, written.
#include <filesystem>

#include "host/store/database.h"
#include "host/store/file_trouble_catcher.h"
#include "host/store/folder_cadastre.h"
#include "host/store/folder_design.h"
#include "host/store/folder_drawing.h"
#include "host/store/folder_gis.h"
#include "host/store/folder_job.h"
#include "host/store/folder_rows.h"
#include "host/store/progress.h"
#include "platform/numbers.h"

namespace {

std::string Pragma(const char* name, std::int64_t value) {
  std::string text = std::string("PRAGMA ") + name + " = ";
  platform::AppendWhole(text, value);
  return text;
}

// Fills the tables from the libraries.
class FolderWriter {
 public:
  FolderWriter(const Database& database, HostDocument& document, const JobProgress& progress)
      : database_(database),
        document_(document),
        progress_(progress, progress ? CountRecords(document) : 0) {}

  void Write() {
    ForEachTable([&](const auto& table) {
      database_.Run(table.Drop());
      database_.Run(table.Create());
    });
    WriteTotalStation();
    WriteGps();
    WriteKnownPoints();
    WriteDesign(database_, document_, progress_);
    WriteDrawing(database_, *document_.GetCadEngine(), progress_);
    WriteGis(database_, *document_.GetLibGis(), progress_);
    WriteCadastre(database_, *document_.GetCts());
    Inserter(database_, kTargetsTable).Add(TargetsOf(document_));
    Inserter(database_, kCurrentTable).Add(CurrentOf(document_));
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
    for (int i = 0; i < library.GetOriArSize(); ++i) {
      controls.Add(RecordOf(*library.GetOriAt(i)));
      progress_.Step();
    }
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

  const Database& database_;
  HostDocument& document_;
  PointProgress progress_;
};

void MakeFolder(const std::string& folder) {
  std::error_code error;
  std::filesystem::create_directories(folder, error);
  std::error_code unused;
  if (std::filesystem::is_directory(folder, unused)) return;
  throw JobError(folder + ": the job folder cannot be made" +
                 (error ? ": " + error.message() : ""));
}

// One transaction: who fails or is killed before its end leaves the previous job.
void SaveDatabase(const std::string& path, HostDocument& document, const JobProgress& progress) {
  const Database database(path, Database::Mode::kCreate);
  database.Run(
      "PRAGMA secure_delete = OFF");  // the previous job need not be overwritten with zeros
  database.Run("BEGIN IMMEDIATE");
  static_cast<void>(HoldsJob(database));  // what is no job must not be lost
  database.Run(Pragma("application_id", kApplicationId));
  database.Run(Pragma("user_version", kSchemaVersion));
  FolderWriter(database, document, progress).Write();
  database.Run("COMMIT");
}

// Settings that nobody changed stay in their file as they are, which someone may be editing.
bool MustSave(const JobSettings& settings, const std::string& path) {
  std::error_code unused;
  if (settings.IsChanged()) return true;
  if (!std::filesystem::exists(path, unused)) return !settings.IsEmpty();
  return !std::filesystem::equivalent(settings.Path(), path, unused);
}

void SaveSettings(const std::string& path, JobSettings& settings) {
  if (!MustSave(settings, path)) return;
  const FileTroubleCatcher trouble;
  if (!settings.Save(std::filesystem::absolute(path).string())) {
    throw JobError(path + ": " + trouble.Reason() +
                   " (the job itself was saved, only its settings were not)");
  }
}

}  // namespace

void SaveFolderJob(const std::string& folder, HostDocument& document, const JobProgress& progress) {
  MakeFolder(folder);
  SaveDatabase(folder + "/" + kJobDatabaseName, document, progress);
  SaveSettings(folder + "/" + kJobSettingsName, document.Settings());
}
