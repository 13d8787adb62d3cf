#include "module.h"

#include <dlfcn.h>

#include <array>
#include <cstdlib>

#include "failure.h"
#include "frame/exports.h"
#include "host/gis/link_points.h"
#include "platform/paths.h"

namespace {

enum class Kind { kDocument, kImage, kJb3Export, kShapeExport, kShapeImport, kNothing };

struct FunctionRow {
  std::string_view name;
  Kind kind;
};

constexpr std::array<FunctionRow, 16> kFunctions = {{
    {"FImportImageFile", Kind::kImage},
    {"FImportJB2File", Kind::kDocument},
    {"FImportJB3File", Kind::kDocument},
    {"FImportTXTFile", Kind::kDocument},
    {"FImportCSVFile", Kind::kDocument},
    {"FImportDXFDWGFile", Kind::kDocument},
    {"FExportJB2File", Kind::kDocument},
    {"FExportJB3File", Kind::kJb3Export},
    {"FExportTXTFile", Kind::kDocument},
    {"FExportCSVFile", Kind::kDocument},
    {"FExportDXFDWGFile", Kind::kDocument},
    {"FExportDATFile", Kind::kDocument},
    {"FExportEntInFileShape", Kind::kShapeExport},
    {"FImportEntFromFileShape", Kind::kShapeImport},
    {"FExportLandXMLFile", Kind::kDocument},
    {"DummyVexa4modExport", Kind::kNothing},
}};

const FunctionRow* FindFunction(std::string_view name) {
  for (const FunctionRow& row : kFunctions) {
    if (row.name == name) return &row;
  }
  return nullptr;
}

std::string ModulePath() {
  const char* const chosen = std::getenv("KALVIO_MODULE");
  if (chosen != nullptr && *chosen != '\0') return chosen;
  return platform::ExecutableFolder().value_or("") + KALVIO_MODULE_FOLDER "libkalvio_exchange.so";
}

// The loader's last complaint, without the file's name in front of it.
std::string LoaderReason(std::string_view path) {
  std::string_view reason = dlerror();
  if (reason.starts_with(path) && reason.substr(path.size()).starts_with(": ")) {
    reason.remove_prefix(path.size() + 2);
  }
  return std::string(reason);
}

// The address as a function of the type that exports.h declares.
template <auto& declared>
auto Typed(void* address) {
  return reinterpret_cast<decltype(&declared)>(address);
}

}  // namespace

std::span<const std::string_view> ModuleFunctions() {
  static constexpr auto kNames = [] {
    std::array<std::string_view, kFunctions.size()> names;
    for (std::size_t i = 0; i < names.size(); ++i) names[i] = kFunctions[i].name;
    return names;
  }();
  return kNames;
}

bool IsModuleFunction(std::string_view name) { return FindFunction(name) != nullptr; }

Module::Module() {
  const std::string path = ModulePath();
  library_ = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
  if (library_ == nullptr) throw Failed(path, LoaderReason(path));
}

Module::~Module() { dlclose(library_); }

CallResult Module::Call(const std::string& name, CWnd& parent, ExchangeContext& document,
                        const CallOptions& options) const {
  const FunctionRow& row = *FindFunction(name);
  void* const address = dlsym(library_, row.name.data());
  if (address == nullptr) throw Failed(ModulePath(), LoaderReason(ModulePath()));
  gis::CLibGis* const gis = document.GetLibGis();
  switch (row.kind) {
    case Kind::kImage: {
      tdk::WString path;
      const int value = Typed<FImportImageFile>(address)(&parent, path, 0);
      return {value, value == 1 ? std::optional(path) : std::nullopt};
    }
    case Kind::kJb3Export:
      return {Typed<FExportJB3File>(address)(&parent, &document, &options.applicationName,
                                             &options.applicationVersion),
              {}};
    case Kind::kShapeExport: return {Typed<FExportEntInFileShape>(address)(&parent, gis), {}};
    case Kind::kShapeImport: {
      KnownPointLink link(*document.GetLibPnt());
      return {Typed<FImportEntFromFileShape>(address)(&parent, gis, &link, false) ? 1 : 0, {}};
    }
    case Kind::kNothing: Typed<DummyVexa4modExport>(address)(); return {};
    case Kind::kDocument: break;
  }
  return {Typed<FImportJB2File>(address)(&parent, &document, 0), {}};
}
