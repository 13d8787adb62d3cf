// The dialog of the Shape import: which file, and what is made of its points.
#pragma once

#include "model/gis.h"
#include "services/dialog.h"

namespace ui {

/// Scripts know it as "shape-import", with the keys folder, files, file, createPoints, nameField,
/// codeField, fields, pointOptionsVisible, associationVisible and associationEnabled.
class ShapeImportDialog : public Dialog {
 public:
  /// `options` is filled by OK. Nothing is owned.
  ShapeImportDialog(CWnd* parent, gis::CLibGis* library, TOpzImportShape& options);

  /// The full path of the chosen ".shp" file; empty while none is chosen.
  const tdk::WString& Path() const { return path_; }

  std::string_view Name() const override { return "shape-import"; }
  tdk::WString Title() const override;
  DialogState State() const override;
  DialogSet Set(std::string_view key, const DialogState& value) override;
  std::vector<std::string_view> Buttons() const override { return {"Change", "OK", "Cancel"}; }
  std::optional<int> Press(std::string_view button) override;

 private:
  void ChangeFolder(const tdk::WString& folder);
  DialogSet SetFolder(const DialogState& value);
  DialogSet SetFile(const DialogState& value);
  DialogSet SetCreatePoints(const DialogState& value);
  DialogSet SetField(const DialogState& value, int& position);
  void Deselect();
  void Select(const std::string& file);
  std::optional<int> Confirm();
  bool IsAssociationVisible() const;
  bool IsAssociationEnabled() const { return IsAssociationVisible() && createPoints_; }

  CWnd* parent_;
  gis::CLibGis* library_;
  TOpzImportShape& options_;
  tdk::WString folder_;             // ends in a backslash
  std::vector<std::string> files_;  // of the folder, with their extensions
  std::string file_;                // as listed; empty: none is chosen
  tdk::WString path_;
  int entityType_ = -1;
  bool hasFields_ = false;  // the table was read, so the options are shown
  std::vector<tdk::WString> fields_;
  bool createPoints_ = false;
  int nameField_ = 0;  // positions in lists whose first entry is empty
  int codeField_ = 0;
};

}  // namespace ui
