#include "drawing_options.h"

#include <nlohmann/json.hpp>

#include "platform/paths.h"

DrawingOptions ReadDrawingOptions(const Arguments& arguments) {
  DrawingOptions options;
  if (arguments.Value("--dxf-version").value_or("") == "r12") options.dxfVersion = 3;
  if (arguments.Value("--dwg-version").value_or("") == "r14") options.dwgVersion = 1;
  options.explode = arguments.Has("--explode");
  options.withHidden = arguments.Has("--hidden");
  return options;
}

bool FillCadFile(Dialog& dialog, const std::string& path, const DrawingOptions& options) {
  const bool isDwg = platform::Extension(path) == "dwg";
  return dialog.Set("path", path) == DialogSet::kDone &&
         dialog.Set("version", isDwg ? options.dwgVersion : options.dxfVersion) ==
             DialogSet::kDone &&
         dialog.Set("explode", options.explode) == DialogSet::kDone &&
         dialog.Set("notVisible", options.withHidden) == DialogSet::kDone;
}
