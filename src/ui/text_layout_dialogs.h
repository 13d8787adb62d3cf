// The layout dialogs of text and CSV files: which column holds what.
#pragma once

#include "formats/text/text_layouts.h"
#include "services/dialog.h"

namespace ui {

/// Columns divided by a separator; scripts know it as "delimited-fields".
class DelimitedFieldsDialog : public Dialog {
 public:
  /// `isText`: a text file, whose separator is chosen; a CSV file always has the semicolon.
  DelimitedFieldsDialog(CWnd* parent, bool isText);

  /// What was chosen goes into the settings of the exchange.
  void CopyTo(text::TextExchangeSettings& settings) const;

  std::string_view Name() const override { return "delimited-fields"; }
  tdk::WString Title() const override;
  DialogState State() const override;
  DialogSet Set(std::string_view key, const DialogState& value) override;
  std::vector<std::string_view> Buttons() const override { return {"OK", "Cancel"}; }
  std::optional<int> Press(std::string_view button) override;

 private:
  CWnd* parent_;
  bool isText_;
  text::BasicLayout layout_;
};

/// Columns of fixed widths; scripts know it as "fixed-fields".
class FixedFieldsDialog : public Dialog {
 public:
  explicit FixedFieldsDialog(CWnd* parent);

  void CopyTo(text::TextExchangeSettings& settings) const;

  std::string_view Name() const override { return "fixed-fields"; }
  tdk::WString Title() const override;
  DialogState State() const override;
  DialogSet Set(std::string_view key, const DialogState& value) override;
  std::vector<std::string_view> Buttons() const override { return {"OK", "Cancel"}; }
  std::optional<int> Press(std::string_view button) override;

 private:
  CWnd* parent_;
  text::BasicLayout layout_;
};

}  // namespace ui
