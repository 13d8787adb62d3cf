#include "job_session.h"

#include <filesystem>

#include "host/store/file_trouble_catcher.h"
#include "platform/paths.h"
#include "services/jobs_folder.h"

// ".." stays: across a symbolic link it is not the folder above in the text.
std::string AbsolutePath(const std::string& path) {
  std::error_code error;
  std::filesystem::path plain;
  for (const auto& part : std::filesystem::absolute(path, error)) {
    if (part != ".") plain /= part;
  }
  return error ? path : plain.string();
}

bool IsJob(const std::string& path) {
  std::error_code error;
  return IsJsonJob(path) || std::filesystem::is_directory(path, error);
}

JobSession::JobSession(std::optional<std::string> path, const JobProgress& progress)
    : path_(std::move(path)) {
  CJobsFolder::SetJobFolder(tdk::WString(AbsolutePath(path_ ? JobFolderOf(*path_) : ".")));
  JobSettings::MakeCurrent(&document_.Settings());
  if (path_) LoadJob(*path_, document_, progress);
}

JobSession::~JobSession() { JobSettings::MakeCurrent(nullptr); }

void JobSession::Keep(const std::optional<std::string>& save, bool succeeded) {
  const bool saveHere = !save && succeeded && IsFolder();
  if (saveHere) return SaveJob(*path_, document_);
  if (IsFolder() && document_.Settings().IsChanged()) KeepSettings();
  if (save) SaveJob(*save, document_);
}

void JobSession::KeepSettings() {
  const std::string file = platform::NativePath(platform::JoinPath(*path_, kJobSettingsName));
  const FileTroubleCatcher trouble;
  if (!document_.Settings().Save(file)) throw JobError(file + ": " + trouble.Reason());
}
