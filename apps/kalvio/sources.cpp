#include "sources.h"

#include "file_import.h"
#include "formats.h"
#include "job_session.h"

Sources CheckedSources(const Arguments& arguments) {
  Sources sources;
  sources.files = arguments.words;
  if (IsJob(sources.files.front())) {
    sources.job = sources.files.front();
    sources.files.erase(sources.files.begin());
  }
  for (const std::string& file : sources.files) {
    CheckThere(file);
    CheckReadable(file);
  }
  return sources;
}

void ReadFiles(const Sources& sources, HostDocument& document, const TextOptions& layout,
               ProgressLine& progress) {
  if (sources.files.empty()) return;
  const Module module;
  for (const std::string& file : sources.files) {
    TellRemarks(file,
                ImportFile(module, file, document, layout, progress, /*makesPoints=*/true).remarks);
  }
}
