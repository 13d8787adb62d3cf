// The file dialog of drawings, with the version and what goes out.
#pragma once

#include "formats/cad/cad_options.h"
#include "services/file_dialog.h"

namespace ui {

/// Scripts know it as "cad-file": the keys of the file dialog, and version (position in the list),
/// explode, notVisible.
class CadFileDialog : public CDlgImportExportGeneric {
 public:
  using CDlgImportExportGeneric::CDlgImportExportGeneric;

  /// What it starts with.
  void SetOptions(const cad::ExportOptions& options) { options_ = options; }
  const cad::ExportOptions& Options() const { return options_; }

  std::string_view Name() const override { return "cad-file"; }
  DialogState State() const override;
  DialogSet Set(std::string_view key, const DialogState& value) override;

 private:
  cad::ExportOptions options_;
};

}  // namespace ui
