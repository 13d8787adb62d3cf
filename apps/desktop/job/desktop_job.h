// The job that is open in the window.
#pragma once

#include <QTemporaryDir>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "host/document/host_document.h"
#include "host/store/job_store.h"

/// Its folder and settings are the current ones as long as it is open.
class DesktopJob {
 public:
  /// An empty job whose folder is the current directory.
  DesktopJob();
  ~DesktopJob();
  DesktopJob(const DesktopJob&) = delete;
  DesktopJob& operator=(const DesktopJob&) = delete;

  /// Called before a document goes: whoever shows it must let it go.
  std::function<void()> onLeaving;

  /// Another one after New, Open and Undo.
  HostDocument& Document() { return *document_; }
  /// Where it lies; nothing for a new one.
  const std::optional<std::string>& Path() const { return path_; }
  bool IsChanged() const { return isChanged_; }
  void MarkChanged() { isChanged_ = true; }

  void New();
  /// Each throws JobError, with the job that was open still open.
  void Open(const std::string& path, const JobProgress& progress = {});
  void SaveTo(const std::string& path, const JobProgress& progress = {});

  /// Keeps the job as it is now, for Undo. Throws JobError.
  void KeepForUndo(const JobProgress& progress = {});
  bool CanUndo() const { return undo_ != nullptr; }
  /// Brings back what was kept, but not the settings. Throws JobError.
  void Undo(const JobProgress& progress = {});
  void ForgetUndo() { undo_.reset(); }
  /// Changed settings of a job folder go to their file, as every host does after an exchange.
  /// Throws JobError.
  void KeepSettings();

 private:
  // What Undo brings back: a job folder of its own; no folder in it for an empty job.
  struct Kept {
    QTemporaryDir folder;
    bool isEmpty = false;
    bool wasChanged = false;
    std::string Path() const { return folder.filePath("job").toStdString(); }
  };

  bool IsFolder() const { return path_ && !IsJsonJob(*path_); }
  bool CopyFilesTo(const std::string& folder) const;
  void Take(std::unique_ptr<HostDocument> document);

  std::unique_ptr<HostDocument> document_;
  std::optional<std::string> path_;
  bool isChanged_ = false;
  std::unique_ptr<Kept> undo_;
};
