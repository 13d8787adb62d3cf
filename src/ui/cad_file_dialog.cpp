#include "ui/cad_file_dialog.h"

#include <nlohmann/json.hpp>

#include "ui/dialog_values.h"

namespace ui {

DialogState CadFileDialog::State() const {
  DialogState state = CDlgImportExportGeneric::State();
  state["version"] = options_.version;
  state["explode"] = options_.explodesBlocks;
  state["notVisible"] = options_.withHidden;
  return state;
}

DialogSet CadFileDialog::Set(std::string_view key, const DialogState& value) {
  const int last = static_cast<int>(cad::VersionTable().size()) - 1;
  if (key == "version") return SetWhole(value, 0, last, options_.version);
  if (key == "explode") return SetFlag(value, options_.explodesBlocks);
  if (key == "notVisible") return SetFlag(value, options_.withHidden);
  return CDlgImportExportGeneric::Set(key, value);
}

}  // namespace ui
