#include "host/store/job_store.h"

#include "host/store/folder_job.h"
#include "host/store/json_job.h"
#include "platform/paths.h"

bool IsJsonJob(const std::string& path) { return platform::Extension(path) == "json"; }

std::string JobFolderOf(const std::string& path) {
  if (!IsJsonJob(path)) return path;
  const std::size_t slash = path.rfind('/');
  if (slash == std::string::npos) return ".";
  return slash == 0 ? "/" : path.substr(0, slash);
}

void LoadJob(const std::string& path, HostDocument& document, const JobProgress& progress) {
  IsJsonJob(path) ? LoadJsonJob(path, document, progress) : LoadFolderJob(path, document, progress);
}

void SaveJob(const std::string& path, HostDocument& document, const JobProgress& progress) {
  IsJsonJob(path) ? SaveJsonJob(path, document, progress) : SaveFolderJob(path, document, progress);
}
