// A file dialog with what a window adds to it: names without extensions, and care for old files.
#pragma once

#include "services/dialog.h"

/// Stands before the presenter of a file dialog. Its state has the typed name as well ("path"); a
/// name without one of the extensions gets the first; OK asks before an export replaces a file, and
/// wants a file that is there for an import.
class FileNameDialog : public Dialog {
 public:
  /// Whether `dialog` is one that chooses a file.
  static bool IsFor(const Dialog& dialog);

  /// Neither is owned.
  FileNameDialog(Dialog& file, CWnd* parent);

  std::string_view Name() const override { return file_.Name(); }
  tdk::WString Title() const override { return file_.Title(); }
  DialogState State() const override;
  DialogSet Set(std::string_view key, const DialogState& value) override;
  std::vector<std::string_view> Buttons() const override { return file_.Buttons(); }
  std::optional<int> Press(std::string_view button) override;

 private:
  std::string FullPath(const DialogState& state, const std::string& name) const;
  std::string WithExtension(const DialogState& state, const std::string& name) const;
  bool MayBeTaken() const;

  Dialog& file_;
  CWnd* parent_;
  std::string typed_;
};
