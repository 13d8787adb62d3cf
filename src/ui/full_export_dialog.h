// The full exports: three tabs of six columns, each with any field of the catalogue.
#pragma once

#include "formats/text/text_writers.h"
#include "services/dialog.h"

namespace ui {

/// Scripts know it as "gps-export" or "ts-export". On OK it keeps the layout and writes the file.
class FullExportDialog : public Dialog {
 public:
  /// `kind`: text::kGpsGroups or text::kTotalStation. A layout of an older version is upgraded.
  FullExportDialog(const text::Libraries& from, int kind, tdk::WString path);

  std::string_view Name() const override;
  tdk::WString Title() const override;
  DialogState State() const override;
  DialogSet Set(std::string_view key, const DialogState& value) override;
  std::vector<std::string_view> Buttons() const override { return {"OK", "Cancel"}; }
  std::optional<int> Press(std::string_view button) override;

 private:
  bool IsGps() const { return kind_ == text::kGpsGroups; }
  const char* Section() const;

  const text::Libraries& from_;
  int kind_;
  tdk::WString path_;
  text::FullLayout layout_;
};

}  // namespace ui
