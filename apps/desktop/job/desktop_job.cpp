#include "apps/desktop/job/desktop_job.h"

#include <filesystem>

#include "counts.h"
#include "host/store/file_trouble_catcher.h"
#include "job_session.h"
#include "platform/paths.h"
#include "services/jobs_folder.h"

namespace {

void MakeFolderCurrent(const std::optional<std::string>& path) {
  CJobsFolder::SetJobFolder(tdk::WString(AbsolutePath(path ? JobFolderOf(*path) : ".")));
}

}  // namespace

DesktopJob::DesktopJob() { New(); }
DesktopJob::~DesktopJob() { JobSettings::MakeCurrent(nullptr); }

// The settings of the old document must not be the current ones when it goes.
void DesktopJob::Take(std::unique_ptr<HostDocument> document) {
  if (onLeaving) onLeaving();
  JobSettings::MakeCurrent(&document->Settings());
  document_ = std::move(document);
}

void DesktopJob::New() {
  Take(std::make_unique<HostDocument>());
  path_.reset();
  isChanged_ = false;
  undo_.reset();
  MakeFolderCurrent(path_);
}

void DesktopJob::Open(const std::string& path, const JobProgress& progress) {
  auto document = std::make_unique<HostDocument>();
  LoadJob(path, *document, progress);
  Take(std::move(document));
  path_ = path;
  isChanged_ = false;
  undo_.reset();
  MakeFolderCurrent(path_);
}

void DesktopJob::SaveTo(const std::string& path, const JobProgress& progress) {
  SaveJob(path, *document_, progress);
  path_ = path;
  isChanged_ = false;
  MakeFolderCurrent(path_);
}

// A job that is as it lies on the disk is copied, which is far quicker than writing it.
bool DesktopJob::CopyFilesTo(const std::string& folder) const {
  if (isChanged_ || !IsFolder()) return false;
  namespace fs = std::filesystem;
  std::error_code error;
  fs::create_directory(folder, error);
  const fs::path database = fs::path(platform::NativePath(*path_)) / kJobDatabaseName;
  return fs::copy_file(database, fs::path(folder) / kJobDatabaseName, error);
}

void DesktopJob::KeepForUndo(const JobProgress& progress) {
  undo_.reset();
  auto kept = std::make_unique<Kept>();
  if (!kept->folder.isValid()) throw JobError(kept->folder.errorString().toStdString());
  kept->isEmpty = CountsOf(*document_).IsNothing();
  kept->wasChanged = isChanged_;
  if (!kept->isEmpty && !CopyFilesTo(kept->Path())) {
    SaveJob(kept->Path(), *document_, progress);
  }
  undo_ = std::move(kept);
}

void DesktopJob::Undo(const JobProgress& progress) {
  if (undo_ == nullptr) return;
  auto document = std::make_unique<HostDocument>();
  if (!undo_->isEmpty) LoadJob(undo_->Path(), *document, progress);
  document_->Settings().ForEach(
      [&](const std::string& section, const std::string& key, const std::string& value) {
        document->Settings().Set(section, key, value);
      });
  Take(std::move(document));
  isChanged_ = undo_->wasChanged;
  undo_.reset();
}

void DesktopJob::KeepSettings() {
  if (!IsFolder() || !document_->Settings().IsChanged()) return;
  const std::string file = platform::NativePath(platform::JoinPath(*path_, kJobSettingsName));
  const FileTroubleCatcher trouble;
  if (!document_->Settings().Save(file)) throw JobError(file + ": " + trouble.Reason());
}
