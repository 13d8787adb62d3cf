#include "ui/full_export_dialog.h"

#include "services/translate.h"
#include "ui/dialog_values.h"

namespace ui {

FullExportDialog::FullExportDialog(const text::Libraries& from, int kind, tdk::WString path)
    : from_(from), kind_(kind), path_(std::move(path)), layout_(text::LoadFullLayout(Section())) {}

const char* FullExportDialog::Section() const {
  return IsGps() ? text::kGpsSection : text::kTotalStationSection;
}

std::string_view FullExportDialog::Name() const { return IsGps() ? "gps-export" : "ts-export"; }
tdk::WString FullExportDialog::Title() const { return Xlate("Export"); }

DialogState FullExportDialog::State() const {
  return {{"fields", layout_.fields},
          {"decimals", layout_.decimals},
          {"separator", layout_.separator},
          {"quoteNames", layout_.quoteNames},
          {"angleFormat", layout_.angleFormat}};
}

DialogSet FullExportDialog::Set(std::string_view key, const DialogState& value) {
  if (key == "fields") return SetWholes(value, 0, text::kFullFieldCount - 1, layout_.fields);
  if (key == "decimals") return SetWholes(value, 0, text::kMostDecimals, layout_.decimals);
  if (key == "quoteNames") return SetFlag(value, layout_.quoteNames);
  if (key == "angleFormat") {
    return SetWhole(value, 0, text::kAngleFormatCount - 1, layout_.angleFormat);
  }
  if (key != "separator") return DialogSet::kUnknownKey;
  return SetWhole(value, 0, static_cast<int>(text::kFullSeparators.size()) - 1, layout_.separator);
}

std::optional<int> FullExportDialog::Press(std::string_view button) {
  if (button != "OK") return kCancel;
  text::StoreFullLayout(Section(), layout_);
  if (IsGps()) {
    text::WriteFullGps(from_, layout_, path_);
  } else {
    text::WriteFullTotalStation(from_, layout_, path_);
  }
  return kOk;
}

}  // namespace ui
