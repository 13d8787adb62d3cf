#include <dlfcn.h>

#include <cerrno>
#include <memory>
#include <string>

#include "host/plot/plan.h"
#include "platform/file_trouble.h"
#include "platform/paths.h"

namespace plot {
namespace {

std::unique_ptr<IPlotter> Load() {
  const std::string path =
      platform::FolderOfCode(reinterpret_cast<const void*>(&Plotter)) + "libkalvio_plot.so";
  // Never closed: the plotter lives until the end of the process.
  void* const library = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
  if (library == nullptr) {
    platform::ReportFileTrouble(platform::FileTrouble::Action::kOpen, path, ENOENT);
    return nullptr;
  }
  using Make = IPlotter* (*)();
  const auto make = reinterpret_cast<Make>(dlsym(library, "KalvioMakePlotter"));
  return std::unique_ptr<IPlotter>(make == nullptr ? nullptr : make());
}

}  // namespace

IPlotter::~IPlotter() = default;

IPlotter* Plotter() {
  static const std::unique_ptr<IPlotter> plotter = Load();
  return plotter.get();
}

std::optional<PictureKind> PictureKindOf(std::string_view path) {
  const std::string extension = platform::Extension(path);
  if (extension == "svg") return PictureKind::kSvg;
  if (extension == "pdf") return PictureKind::kPdf;
  if (extension == "png") return PictureKind::kPng;
  return std::nullopt;
}

}  // namespace plot
