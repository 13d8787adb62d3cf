#include "ui/text_layout_dialogs.h"

#include "services/message_box.h"
#include "services/translate.h"
#include "ui/dialog_values.h"

namespace ui {
namespace {

using text::BasicLayout;
using text::kBasicColumns;

// As scripts call the separators, by their number.
constexpr std::array<const char*, 3> kSeparatorNames = {"space", "comma", "tab"};
// Spin boxes hold what a setting holds, and the dialog says what is wrong.
constexpr int kLeastSpin = -32000;
constexpr int kMostSpin = 32000;

bool IsRepeated(const BasicLayout& layout) {
  std::array<int, text::kBasicFieldCount> uses{};
  for (const int field : layout.fields) ++uses[static_cast<std::size_t>(field)];
  return std::any_of(uses.begin(), uses.begin() + text::kNothing,
                     [](int count) { return count > 1; });
}

bool HasRightRows(const BasicLayout& layout) {
  return layout.headerRows >= 0 && layout.headerRows <= text::kMostHeaderRows;
}

bool HasRightWidths(const BasicLayout& layout) {
  return std::all_of(layout.lengths.begin(), layout.lengths.end(), [](int width) {
    return width >= text::kLeastWidth && width <= text::kMostWidth;
  });
}

bool HasNarrowCoordinate(const BasicLayout& layout) {
  for (std::size_t i = 0; i < kBasicColumns; ++i) {
    if (text::IsCoordinate(layout.fields[i]) && layout.lengths[i] < text::kLeastCoordinateWidth) {
      return true;
    }
  }
  return false;
}

void Refuse(CWnd* parent, const tdk::WString& text) {
  CreateMessageBox(parent, Xlate("Error !"), text, kBoxExclamation);
}

void CopyColumns(const BasicLayout& layout, text::TextExchangeSettings& settings) {
  settings.headerRows = layout.headerRows;
  std::copy(layout.fields.begin(), layout.fields.end(), settings.fieldCode.begin());
}

DialogSet SetSeparator(const DialogState& value, int& target) {
  if (!value.is_string()) return DialogSet::kWrongValue;
  const auto* const found =
      std::find(kSeparatorNames.begin(), kSeparatorNames.end(), value.get<std::string>());
  if (found == kSeparatorNames.end()) return DialogSet::kWrongValue;
  target = static_cast<int>(found - kSeparatorNames.begin());
  return DialogSet::kDone;
}

}  // namespace

DelimitedFieldsDialog::DelimitedFieldsDialog(CWnd* parent, bool isText)
    : parent_(parent), isText_(isText), layout_(text::LoadBasicLayout()) {}

void DelimitedFieldsDialog::CopyTo(text::TextExchangeSettings& settings) const {
  CopyColumns(layout_, settings);
  const char separator = isText_ ? text::kSeparators[static_cast<std::size_t>(layout_.separator)]
                                 : text::kCsvSeparator;
  settings.separator = static_cast<char16_t>(separator);
  settings.quoteNames = layout_.quoteNames;
}

tdk::WString DelimitedFieldsDialog::Title() const { return Xlate("Delimited fields"); }

DialogState DelimitedFieldsDialog::State() const {
  DialogState separator;
  if (isText_) separator = kSeparatorNames[static_cast<std::size_t>(layout_.separator)];
  return {{"headerRows", layout_.headerRows},
          {"separator", separator},
          {"fields", layout_.fields},
          {"quoteNames", layout_.quoteNames}};
}

DialogSet DelimitedFieldsDialog::Set(std::string_view key, const DialogState& value) {
  if (key == "headerRows") return SetWhole(value, kLeastSpin, kMostSpin, layout_.headerRows);
  if (key == "fields") return SetWholes(value, 0, text::kNothing, layout_.fields);
  if (key == "quoteNames") return SetFlag(value, layout_.quoteNames);
  if (key != "separator") return DialogSet::kUnknownKey;
  return isText_ ? SetSeparator(value, layout_.separator) : DialogSet::kWrongValue;
}

std::optional<int> DelimitedFieldsDialog::Press(std::string_view button) {
  if (button != "OK") return kCancel;
  if (!HasRightRows(layout_) || IsRepeated(layout_)) {
    Refuse(parent_, Xlate("Data enterd are incorrect !"));
    return std::nullopt;
  }
  text::StoreDelimitedLayout(layout_, isText_);
  return kOk;
}

FixedFieldsDialog::FixedFieldsDialog(CWnd* parent)
    : parent_(parent), layout_(text::LoadBasicLayout()) {}

void FixedFieldsDialog::CopyTo(text::TextExchangeSettings& settings) const {
  CopyColumns(layout_, settings);
  std::copy(layout_.lengths.begin(), layout_.lengths.end(), settings.fieldLength.begin());
}

tdk::WString FixedFieldsDialog::Title() const { return Xlate("Fixed length fields"); }

DialogState FixedFieldsDialog::State() const {
  return {
      {"headerRows", layout_.headerRows}, {"fields", layout_.fields}, {"lengths", layout_.lengths}};
}

DialogSet FixedFieldsDialog::Set(std::string_view key, const DialogState& value) {
  if (key == "headerRows") return SetWhole(value, kLeastSpin, kMostSpin, layout_.headerRows);
  if (key == "fields") return SetWholes(value, 0, text::kNothing, layout_.fields);
  if (key == "lengths") return SetWholes(value, kLeastSpin, kMostSpin, layout_.lengths);
  return DialogSet::kUnknownKey;
}

std::optional<int> FixedFieldsDialog::Press(std::string_view button) {
  if (button != "OK") return kCancel;
  if (!HasRightRows(layout_) || !HasRightWidths(layout_) || IsRepeated(layout_)) {
    Refuse(parent_, Xlate("Data enterd are incorrect !"));
    return std::nullopt;
  }
  if (HasNarrowCoordinate(layout_)) {
    Refuse(parent_, Xlate("Numeric data must be at least 12 long!"));
    return std::nullopt;
  }
  text::StoreFixedLayout(layout_);
  return kOk;
}

}  // namespace ui
