#include "host/geodesy/lazy_geodesy.h"

#include <dlfcn.h>

#include <string>

#include "platform/file_trouble.h"
#include "platform/paths.h"

namespace {

using MakeGeodesy = IGeodesy* (*)();

MakeGeodesy LoadMaker() {
  const std::string path =
      platform::FolderOfCode(reinterpret_cast<const void*>(&LazyGeodesy::Install)) +
      "libkalvio_geodesy.so";
  // Never closed: the engine lives until the end of the process.
  void* const library = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
  if (library == nullptr) {
    platform::ReportFileTrouble(platform::FileTrouble::Action::kOpen, path, ENOENT);
    return nullptr;
  }
  return reinterpret_cast<MakeGeodesy>(dlsym(library, "KalvioMakeGeodesy"));
}

}  // namespace

LazyGeodesy::LazyGeodesy() = default;
LazyGeodesy::~LazyGeodesy() = default;

void LazyGeodesy::Install() {
  static LazyGeodesy geodesy;
  IGeodesy::SetCurrent(&geodesy);
}

IGeodesy* LazyGeodesy::Engine() {
  if (!tried_) {
    tried_ = true;
    if (const MakeGeodesy make = LoadMaker()) engine_.reset(make());
  }
  return engine_.get();
}

bool LazyGeodesy::ToGeographic(const Geocentric& from, Geographic& to) {
  IGeodesy* const engine = Engine();
  return engine != nullptr && engine->ToGeographic(from, to);
}

bool LazyGeodesy::ToGeocentric(const Geographic& from, Geocentric& to) {
  IGeodesy* const engine = Engine();
  return engine != nullptr && engine->ToGeocentric(from, to);
}

const ICoordTransform* LazyGeodesy::TransformOf(const tdk::WString& crs) {
  IGeodesy* const engine = Engine();
  return engine == nullptr ? nullptr : engine->TransformOf(crs);
}

std::string LazyGeodesy::WktOf(const tdk::WString& crs) {
  IGeodesy* const engine = Engine();
  return engine == nullptr ? std::string() : engine->WktOf(crs);
}
