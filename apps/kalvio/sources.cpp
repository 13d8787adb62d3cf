#include "sources.h"

#include "file_import.h"
#include "formats.h"
#include "job_session.h"
#include "model/gis.h"
#include "model/shape_files.h"
#include "platform/paths.h"

namespace {

bool IsShapeFileOfPoints(const std::string& file) {
  if (platform::Extension(file) != "shp") return false;
  const int type = FGetEntTypeFromFileShp(tdk::WString(AbsolutePath(file)));
  return type == static_cast<int>(gis::EntityType::kPoint);
}

}  // namespace

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
               ProgressLine& progress, FeaturePoints points) {
  if (sources.files.empty()) return;
  const Module module;
  for (const std::string& file : sources.files) {
    const bool makesPoints = points == FeaturePoints::kOfAll || IsShapeFileOfPoints(file);
    TellRemarks(file, ImportFile(module, file, document, layout, progress, makesPoints).remarks);
  }
}
