#include "platform/file_trouble.h"

#include <utility>

namespace platform {
namespace {

FileTroubleListener& CurrentListener() {
  static FileTroubleListener listener;
  return listener;
}

}  // namespace

FileTroubleListener SetFileTroubleListener(FileTroubleListener listener) {
  return std::exchange(CurrentListener(), std::move(listener));
}

void ReportFileTrouble(FileTrouble::Action action, const std::string& path, int error) {
  if (CurrentListener()) CurrentListener()({action, path, error});
}

}  // namespace platform
