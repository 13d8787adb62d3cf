// Several exchanges say nothing when a file cannot be opened or written: that is how their dialogs
// behave. The host may still want to know, so the one place that opens files tells it here.
#pragma once

#include <functional>
#include <string>

namespace platform {

struct FileTrouble {
  enum class Action { kOpen, kRead, kCreate, kWrite };
  Action action;
  std::string path;  ///< native path, as it was handed to the system
  int error;         ///< errno
};

using FileTroubleListener = std::function<void(const FileTrouble&)>;

/// Sets who is told of trouble with files (an empty function: nobody) and returns the listener that
/// was there.
FileTroubleListener SetFileTroubleListener(FileTroubleListener listener);

/// Tells the listener, if there is one. `error` is an errno value.
void ReportFileTrouble(FileTrouble::Action action, const std::string& path, int error);

}  // namespace platform
