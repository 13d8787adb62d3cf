// The dialog of the Shape export: which themes, how, where to.
#pragma once

#include "model/gis.h"
#include "services/dialog.h"
#include "ui/check_list.h"

namespace ui {

/// What the user wants to have written.
struct ShapeExportChoice {
  std::vector<gis::CTheme*> themes;  ///< of the library, in its order
  tdk::WString folder;               ///< as it is shown, without a final separator
  int maximumCharacters = 0;
  int coordinateType = 0;  ///< position in the list "From Theme", "2D", "3D"
};

/// Scripts know it as "shape-export", with the keys themes, coordinateType, folder and maxChars.
class ShapeExportDialog : public Dialog {
 public:
  /// Nothing is owned.
  ShapeExportDialog(CWnd* parent, const gis::CLibGis& library);

  ShapeExportChoice Choice() const;

  std::string_view Name() const override { return "shape-export"; }
  tdk::WString Title() const override;
  DialogState State() const override;
  DialogSet Set(std::string_view key, const DialogState& value) override;
  std::vector<std::string_view> Buttons() const override { return {"Change", "OK", "Cancel"}; }
  std::optional<int> Press(std::string_view button) override;

 private:
  DialogSet SetFolder(const DialogState& value);
  std::optional<int> Confirm();

  CWnd* parent_;
  std::vector<gis::CTheme*> themes_;
  CheckList list_;
  int coordinateType_ = 0;
  tdk::WString folder_;
  int maximumCharacters_;
};

}  // namespace ui
