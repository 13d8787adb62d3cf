// Why a file of the job could not be opened, read or written.
#pragma once

#include <optional>
#include <string>

#include "platform/file_trouble.h"

/// While it lives, trouble with files comes here and not to the listener that was there: it becomes
/// part of a JobError, and must not be told twice.
class FileTroubleCatcher {
 public:
  FileTroubleCatcher();
  ~FileTroubleCatcher();
  FileTroubleCatcher(const FileTroubleCatcher&) = delete;
  FileTroubleCatcher& operator=(const FileTroubleCatcher&) = delete;

  bool HasTrouble() const { return first_.has_value(); }
  /// The first trouble in words, as "cannot be opened: No such file or directory".
  std::string Reason() const;

 private:
  platform::FileTroubleListener previous_;
  std::optional<platform::FileTrouble> first_;
};
