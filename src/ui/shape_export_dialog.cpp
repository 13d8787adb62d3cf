#include "ui/shape_export_dialog.h"

#include <limits>

#include "platform/numbers.h"
#include "services/cloud.h"
#include "services/job_folder_dialog.h"
#include "services/jobs_folder.h"
#include "services/message_box.h"
#include "services/translate.h"
#include "ui/dialog_values.h"

namespace ui {
namespace {

constexpr int kLeastCharacters = 10;
constexpr int kMostCharacters = 250;
constexpr int kCoordinateTypes = 3;  // "From Theme", "2D", "3D"

std::vector<gis::CTheme*> ThemesOf(const gis::CLibGis& library) {
  std::vector<gis::CTheme*> themes;
  for (int i = 0; i < library.GetNumThemes(); ++i) themes.push_back(library.GetTheme(i));
  return themes;
}

std::vector<tdk::WString> NamesOf(const gis::CLibGis& library) {
  std::vector<tdk::WString> names;
  for (const gis::CTheme* const theme : ThemesOf(library)) {
    names.push_back(library.GetThemeName(theme));
  }
  return names;
}

tdk::WString Number(int value) {
  std::string text;
  platform::AppendWhole(text, value);
  return tdk::WString(text);
}

}  // namespace

ShapeExportDialog::ShapeExportDialog(CWnd* parent, const gis::CLibGis& library)
    : parent_(parent),
      themes_(ThemesOf(library)),
      list_("themes", NamesOf(library)),
      folder_(CJobsFolder::GetJobNameFolderNoSlash()),
      maximumCharacters_(kMostCharacters) {}

ShapeExportChoice ShapeExportDialog::Choice() const {
  ShapeExportChoice choice{{}, folder_, maximumCharacters_, coordinateType_};
  for (const int position : list_.Checked()) {
    choice.themes.push_back(themes_[static_cast<std::size_t>(position)]);
  }
  return choice;
}

tdk::WString ShapeExportDialog::Title() const { return Xlate("Export to Shape file"); }

DialogState ShapeExportDialog::State() const {
  return {{list_.Key(), list_.State()},
          {"coordinateType", coordinateType_},
          {"folder", folder_.ToUtf8()},
          {"maxChars", maximumCharacters_}};
}

DialogSet ShapeExportDialog::Set(std::string_view key, const DialogState& value) {
  // A field of digits takes any number; OK says whether it will do.
  constexpr int kAny = std::numeric_limits<int>::max();
  if (key == list_.Key()) return list_.Set(value);
  if (key == "coordinateType") return SetWhole(value, 0, kCoordinateTypes - 1, coordinateType_);
  if (key == "folder") return SetFolder(value);
  if (key == "maxChars") return SetWhole(value, -kAny, kAny, maximumCharacters_);
  return DialogSet::kUnknownKey;
}

DialogSet ShapeExportDialog::SetFolder(const DialogState& value) {
  if (!value.is_string()) return DialogSet::kWrongValue;
  folder_ = tdk::WString(value.get<std::string>());
  return DialogSet::kDone;
}

std::optional<int> ShapeExportDialog::Press(std::string_view button) {
  if (button == "OK") return Confirm();
  if (button != "Change") return kCancel;
  DlgSelectJobFolder(CCloudManager::GetInstance(), parent_, folder_);
  return std::nullopt;
}

std::optional<int> ShapeExportDialog::Confirm() {
  if (maximumCharacters_ >= kLeastCharacters && maximumCharacters_ <= kMostCharacters) return kOk;
  CreateMessageBox(parent_, Xlate("Warning"),
                   Fill(Xlate("Enter an integer between {1} and {2}."),
                        {Number(kLeastCharacters), Number(kMostCharacters)}),
                   kBoxExclamation);
  return std::nullopt;
}

}  // namespace ui
