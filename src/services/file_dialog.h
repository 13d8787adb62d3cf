// The host's dialog for choosing one file.
#pragma once

#include "services/cloud.h"
#include "services/dialog.h"
#include "services/window.h"

/// Scripts know it as "file", with the keys folder, extensions, import, initialName and path.
class CDlgImportExportGeneric : public Dialog {
 public:
  /// The two managers and the resource number are for hosts with several layouts; -1 is the usual
  /// one.
  CDlgImportExportGeneric(ICloudManager* cloud, CWnd* parent, int resource);
  ~CDlgImportExportGeneric() override;

  /// `folder`: where it starts. `title`: as shown. `extensions`: without dots, divided by
  /// semicolons. `isImport`: a file to open, else a file to write. `initialName`: the name offered,
  /// may be empty.
  void SetVars(const tdk::WString& folder, const tdk::WString& title,
               const tdk::WString& extensions, bool isImport, const tdk::WString& initialName);
  /// Shows the dialog; 1 when the user confirmed.
  int DoModal();
  /// The full path of the chosen file.
  void GetVars(tdk::WString& path) const;

  std::string_view Name() const override;
  tdk::WString Title() const override;
  DialogState State() const override;
  DialogSet Set(std::string_view key, const DialogState& value) override;
  std::vector<std::string_view> Buttons() const override;
  std::optional<int> Press(std::string_view button) override;

 private:
  CWnd* parent_;
  tdk::WString folder_;
  tdk::WString title_;
  tdk::WString extensions_;
  bool isImport_ = true;
  tdk::WString initialName_;
  tdk::WString path_;
};
