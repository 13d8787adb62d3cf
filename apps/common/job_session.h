// The job that a command works on.
#pragma once

#include <optional>
#include <string>

#include "host/document/host_document.h"
#include "host/store/job_store.h"

/// `path` from the root, as the host's dialogs take it.
std::string AbsolutePath(const std::string& path);

/// A folder and a .json document are jobs; anything else is a file to import.
bool IsJob(const std::string& path);

/// Opens a job and makes its folder and settings the current ones. Throws JobError.
class JobSession {
 public:
  /// Without a path: an empty job whose folder is the current directory.
  explicit JobSession(std::optional<std::string> path, const JobProgress& progress = {});
  ~JobSession();
  JobSession(const JobSession&) = delete;
  JobSession& operator=(const JobSession&) = delete;

  HostDocument& Document() { return document_; }

  /// After a call: writes the job where `save` says; without it, a job folder keeps what a
  /// successful call changed. A job folder keeps changed settings in any case, a .json document
  /// nothing.
  void Keep(const std::optional<std::string>& save, bool succeeded);

 private:
  bool IsFolder() const { return path_ && !IsJsonJob(*path_); }
  void KeepSettings();

  std::optional<std::string> path_;
  HostDocument document_;
};
