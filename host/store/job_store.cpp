#include "host/store/job_store.h"

#include "host/store/folder_job.h"
#include "host/store/json_job.h"
#include "platform/paths.h"

bool IsJsonJob(const std::string& path) { return platform::Extension(path) == "json"; }

std::string JobFolderOf(const std::string& path) {
  std::string folder = platform::NativePath(path);
  if (!IsJsonJob(folder)) return folder;
  const std::size_t slash = folder.rfind('/');
  if (slash == std::string::npos) return ".";
  return folder.substr(0, slash == 0 ? 1 : slash);
}

void LoadJob(const std::string& path, HostDocument& document, const JobProgress& progress) {
  const std::string native = platform::NativePath(path);
  IsJsonJob(native) ? LoadJsonJob(native, document, progress)
                    : LoadFolderJob(native, document, progress);
}

void SaveJob(const std::string& path, HostDocument& document, const JobProgress& progress) {
  const std::string native = platform::NativePath(path);
  IsJsonJob(native) ? SaveJsonJob(native, document, progress)
                    : SaveFolderJob(native, document, progress);
}
