// The main dialog of text and CSV exchange: which points, which file.
#pragma once

#include <string>
#include <vector>

#include "formats/text/point_walk.h"
#include "services/dialog.h"

namespace ui {

/// Title "Import / Export text file / csv file"; scripts know it as "text-main". On OK it opens the
/// dialog of the layout that the choice leads to.
class CDlgImpExpFileTxtCsv : public Dialog {
 public:
  /// `libraries` and `settings` are not owned; what is decided goes into `settings`.
  CDlgImpExpFileTxtCsv(CWnd* parent, const text::Libraries& libraries, bool isImport, bool isText,
                       text::TextExchangeSettings& settings);

  std::string_view Name() const override { return "text-main"; }
  tdk::WString Title() const override;
  DialogState State() const override;
  DialogSet Set(std::string_view key, const DialogState& value) override;
  std::vector<std::string_view> Buttons() const override { return {"OK", "Cancel", "Change"}; }
  std::optional<int> Press(std::string_view button) override;

 private:
  // What the list of units offers above the units themselves.
  static constexpr int kNoUnit = -2;
  static constexpr int kEveryUnit = -1;

  const char* Extension() const { return isText_ ? "txt" : "csv"; }
  bool HasUnits() const { return !isImport_ && kind_ != text::kControlPoints; }
  void ListFiles();
  void ListUnits();
  DialogSet SetKind(const DialogState& value);
  DialogSet SetFieldType(const DialogState& value);
  DialogSet SetFile(const DialogState& value);
  DialogSet SetUnit(const DialogState& value);
  DialogSet SetFolder(const DialogState& value);

  std::optional<int> Confirm();
  const char* Trouble() const;
  const char* ImportTrouble() const;
  const char* ExportTrouble() const;
  bool MayOverwrite(const tdk::WString& path) const;
  void ResolveUnit();
  std::optional<int> OpenLayout();
  template <class Layout>
  std::optional<int> ShowLayout(Layout layout);

  CWnd* parent_;
  const text::Libraries& libraries_;
  bool isImport_;
  bool isText_;
  text::TextExchangeSettings& settings_;

  int kind_;
  bool isFixed_;
  tdk::WString folder_;
  std::vector<std::string> files_;  // import: as they lie in the folder
  tdk::WString file_;               // without its extension
  std::vector<tdk::WString> units_;
  int unit_ = kNoUnit;
};

}  // namespace ui
