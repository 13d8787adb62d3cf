#include <dlfcn.h>

#include <cerrno>
#include <memory>
#include <string>

#include "host/terrain/triangulation.h"
#include "platform/file_trouble.h"
#include "platform/paths.h"

namespace terrain {
namespace {

std::unique_ptr<ITriangulator> Load() {
  const std::string path =
      platform::FolderOfCode(reinterpret_cast<const void*>(&Triangulator)) + "libkalvio_terrain.so";
  // Never closed: the triangulator lives until the end of the process.
  void* const library = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
  if (library == nullptr) {
    platform::ReportFileTrouble(platform::FileTrouble::Action::kOpen, path, ENOENT);
    return nullptr;
  }
  using Make = ITriangulator* (*)();
  const auto make = reinterpret_cast<Make>(dlsym(library, "KalvioMakeTriangulator"));
  return std::unique_ptr<ITriangulator>(make == nullptr ? nullptr : make());
}

}  // namespace

ITriangulator::~ITriangulator() = default;

ITriangulator* Triangulator() {
  static const std::unique_ptr<ITriangulator> triangulator = Load();
  return triangulator.get();
}

}  // namespace terrain
