#include "convert_views.h"

#include <algorithm>
#include <array>
#include <nlohmann/json.hpp>

#include "services/message_box.h"
#include "services/translate.h"
#include "shape_options.h"

namespace {

struct DialogRow {
  std::string_view dialog;
  // Null: filled from the options of outputs.
  bool (*fill)(Dialog& dialog, const std::string& path, const TextOptions& options);
  std::string_view press;
  bool writes = false;  ///< its button writes the file
};

bool ChooseFile(Dialog& dialog, const std::string& path, const TextOptions& /*options*/) {
  return dialog.Set("path", path) == DialogSet::kDone;
}

constexpr std::array kDialogs = {
    DialogRow{"file", ChooseFile, "OK"},
    DialogRow{"cad-file", nullptr, "OK"},
    DialogRow{"shape-import", nullptr, "OK"},
    DialogRow{"shape-export", nullptr, "OK"},
    DialogRow{"landxml-survey", nullptr, ">>"},
    DialogRow{"landxml-triangulation", nullptr, ">>"},
    // On the last page there is nothing further; "Cancel" is what ends the choice there.
    DialogRow{"landxml-roads", nullptr, "Cancel"},
    DialogRow{"text-main", FillTextMain, "OK"},
    DialogRow{"delimited-fields", FillDelimitedFields, "OK"},
    DialogRow{"fixed-fields", FillFixedFields, "OK"},
    DialogRow{"gps-export", FillGpsExport, "OK", /*writes=*/true},
    DialogRow{"ts-export", FillTotalStationExport, "OK", /*writes=*/true},
};

}  // namespace

bool ConvertViews::Fill(Dialog& dialog) const {
  if (dialog.Name() == "cad-file") return FillCadFile(dialog, path_, output_.drawing);
  if (dialog.Name() == "shape-import") return FillShapeImport(dialog, path_, output_.makesPoints);
  if (dialog.Name() == "shape-export") return FillShapeExport(dialog, path_);
  return CheckChosen(dialog);
}

// Checks every row of the lists that are chosen.
bool ConvertViews::CheckChosen(Dialog& dialog) const {
  const DialogState state = dialog.State();
  for (const auto& [key, list] : state.items()) {
    DialogState positions = DialogState::array();
    for (std::size_t i = 0; output_.parts.Has(key) && i < list.size(); ++i) positions.push_back(i);
    if (dialog.Set(key, positions) != DialogSet::kDone) return false;
  }
  return true;
}

int ConvertViews::ShowDialog(Dialog& dialog) {
  asksToReplace_ = dialog.Name() == "shape-export";
  const auto* const row =
      std::find_if(kDialogs.begin(), kDialogs.end(),
                   [&](const DialogRow& each) { return each.dialog == dialog.Name(); });
  const std::size_t saidBefore = messages_.size();
  const auto fill = [&] {
    return row->fill == nullptr ? Fill(dialog) : row->fill(dialog, path_, options_);
  };
  if (row != kDialogs.end() && fill()) {
    if (const auto code = dialog.Press(row->press)) {
      hasWritten_ = hasWritten_ || row->writes;
      return *code;
    }
  }
  // A dialog that stays open has said why, or one below it has.
  if (messages_.size() > saidBefore) return Dialog::kCancel;
  messages_.push_back(
      ::Fill(Xlate("internal error: no answer for dialog \"{1}\""), {tdk::WString(dialog.Name())})
          .ToUtf8());
  return Dialog::kCancel;
}

int ConvertViews::ShowMessage(const tdk::WString& /*caption*/, const tdk::WString& text,
                              unsigned flags) {
  // That is what a conversion does, and its help says so.
  if (text == Xlate("Export file exists. Overwrite it?")) return kAnswerYes;
  if (asksToReplace_ && (flags & kBoxYesNo) != 0) return kAnswerYes;
  if ((flags & kBoxInformation) == kBoxInformation) return kAnswerOk;  // that all went well
  messages_.push_back(text.ToUtf8());
  return (flags & kBoxYesNo) != 0 ? kAnswerNo : kAnswerOk;
}
