#include "ui/text_main_dialog.h"

#include "formats/text/text_layouts.h"
#include "platform/folder_list.h"
#include "platform/paths.h"
#include "services/job_folder_dialog.h"
#include "services/jobs_folder.h"
#include "services/message_box.h"
#include "services/translate.h"
#include "ui/dialog_values.h"
#include "ui/full_export_dialog.h"
#include "ui/text_layout_dialogs.h"

namespace ui {
namespace {

constexpr char kFixed[] = "fixed";
constexpr char kDelimited[] = "delimited";

std::string WithoutExtension(const std::string& name) { return name.substr(0, name.rfind('.')); }

bool HasStation(const CLibCmp& jobs) {
  for (int i = 0; i < jobs.GetJobArSize(); ++i) {
    if (jobs.GetStaArSize(i) > 0) return true;
  }
  return false;
}

}  // namespace

CDlgImpExpFileTxtCsv::CDlgImpExpFileTxtCsv(CWnd* parent, const text::Libraries& libraries,
                                           bool isImport, bool isText,
                                           text::TextExchangeSettings& settings)
    : parent_(parent),
      libraries_(libraries),
      isImport_(isImport),
      isText_(isText),
      settings_(settings),
      kind_(text::LoadLastKind()),
      isFixed_(text::LoadLastIsFixed()),
      folder_(CJobsFolder::GetJobNameFolderWthSlash()) {
  ListFiles();
  ListUnits();
}

void CDlgImpExpFileTxtCsv::ListFiles() {
  if (!isImport_) return;
  files_ = platform::FilesWithExtension(folder_.ToUtf8(), Extension());
  file_ = {};
}

// All units are chosen at first.
void CDlgImpExpFileTxtCsv::ListUnits() {
  units_.clear();
  unit_ = HasUnits() ? kEveryUnit : kNoUnit;
  if (!HasUnits()) return;
  text::ForEachUnit(libraries_, kind_, [this](int job, int unit) {
    if (kind_ == text::kKnownPoints) units_.push_back(libraries_.known->GetGrpAt(unit)->GetNome());
    if (kind_ == text::kGpsGroups) units_.push_back(libraries_.gps->GetGrpAt(unit)->GetNomeGrp());
    if (kind_ == text::kTotalStation) {
      units_.push_back(libraries_.totalStation->GetStaAt(job, unit)->GetNome());
    }
  });
}

tdk::WString CDlgImpExpFileTxtCsv::Title() const {
  return Xlate("Import / Export text file / csv file");
}

DialogState CDlgImpExpFileTxtCsv::State() const {
  DialogState state = {
      {"kind", kind_},          {"fieldType", nullptr}, {"folder", folder_.ToUtf8()},
      {"file", file_.ToUtf8()}, {"files", nullptr},     {"unit", nullptr},
      {"units", nullptr}};
  if (isText_) state["fieldType"] = isFixed_ ? kFixed : kDelimited;
  if (isImport_) {
    DialogState& files = state["files"] = DialogState::array();
    for (const std::string& file : files_) files.push_back(WithoutExtension(file));
  }
  if (HasUnits()) {
    DialogState& units = state["units"] = DialogState::array();
    for (const tdk::WString& unit : units_) units.push_back(unit.ToUtf8());
    if (unit_ == kEveryUnit) state["unit"] = "all";
    if (unit_ >= 0) state["unit"] = unit_;
  }
  return state;
}

DialogSet CDlgImpExpFileTxtCsv::Set(std::string_view key, const DialogState& value) {
  if (key == "kind") return SetKind(value);
  if (key == "fieldType") return SetFieldType(value);
  if (key == "folder") return SetFolder(value);
  if (key == "file") return SetFile(value);
  if (key == "unit") return SetUnit(value);
  // The lists are shown, but nobody can change them.
  return key == "files" || key == "units" ? DialogSet::kWrongValue : DialogSet::kUnknownKey;
}

DialogSet CDlgImpExpFileTxtCsv::SetKind(const DialogState& value) {
  const DialogSet outcome = SetWhole(value, 0, text::kKindCount - 1, kind_);
  if (outcome == DialogSet::kDone) ListUnits();
  return outcome;
}

DialogSet CDlgImpExpFileTxtCsv::SetFieldType(const DialogState& value) {
  if (!isText_ || (value != kFixed && value != kDelimited)) return DialogSet::kWrongValue;
  isFixed_ = value == kFixed;
  return DialogSet::kDone;
}

DialogSet CDlgImpExpFileTxtCsv::SetFolder(const DialogState& value) {
  if (!value.is_string()) return DialogSet::kWrongValue;
  folder_ = tdk::WString(platform::JoinPath(value.get<std::string>(), ""));
  ListFiles();
  return DialogSet::kDone;
}

DialogSet CDlgImpExpFileTxtCsv::SetFile(const DialogState& value) {
  if (!value.is_string()) return DialogSet::kWrongValue;
  const auto name = value.get<std::string>();
  const bool isListed = std::any_of(files_.begin(), files_.end(), [&](const std::string& file) {
    return WithoutExtension(file) == name;
  });
  if (isImport_ && !isListed) return DialogSet::kWrongValue;
  file_ = tdk::WString(name);
  return DialogSet::kDone;
}

DialogSet CDlgImpExpFileTxtCsv::SetUnit(const DialogState& value) {
  if (!HasUnits()) return DialogSet::kWrongValue;
  if (value.is_null()) unit_ = kNoUnit;
  if (value == "all") unit_ = kEveryUnit;
  if (value.is_null() || value == "all") return DialogSet::kDone;
  return SetWhole(value, 0, static_cast<int>(units_.size()) - 1, unit_);
}

std::optional<int> CDlgImpExpFileTxtCsv::Press(std::string_view button) {
  if (button == "OK") return Confirm();
  if (button != "Change") return kCancel;
  tdk::WString folder = folder_;
  if (DlgSelectJobFolder(CCloudManager::GetInstance(), parent_, folder)) {
    SetFolder(folder.ToUtf8());
  }
  return std::nullopt;
}

std::optional<int> CDlgImpExpFileTxtCsv::Confirm() {
  if (const char* const trouble = Trouble()) {
    CreateMessageBox(parent_, Xlate("Error"), Xlate(trouble), kBoxExclamation);
    return std::nullopt;
  }
  std::string name = file_.ToUtf8() + '.' + Extension();
  for (const std::string& file : files_) {
    if (WithoutExtension(file) == file_.ToUtf8()) name = file;
  }
  const tdk::WString path(platform::JoinPath(folder_.ToUtf8(), name));
  if (!isImport_ && !MayOverwrite(path)) return std::nullopt;
  settings_.filePath = path;
  settings_.fixedLength = isText_ && isFixed_;
  if (isText_) text::StoreLastIsFixed(isFixed_);
  text::StoreLastKind(kind_);
  settings_.kind = kind_;
  ResolveUnit();
  return OpenLayout();
}

const char* CDlgImpExpFileTxtCsv::Trouble() const {
  return isImport_ ? ImportTrouble() : ExportTrouble();
}

const char* CDlgImpExpFileTxtCsv::ImportTrouble() const {
  if (kind_ == text::kTotalStation && !HasStation(*libraries_.totalStation)) {
    return ToXlate("No station created on which to import the data.");
  }
  if (kind_ == text::kGpsGroups && libraries_.gps->GetGrpArSize() == 0) {
    return ToXlate("No group created on which to import the data.");
  }
  return file_.IsEmpty() ? ToXlate("Select a valid file to import.") : nullptr;
}

const char* CDlgImpExpFileTxtCsv::ExportTrouble() const {
  if (HasUnits() && unit_ == kNoUnit) {
    return kind_ == text::kTotalStation ? ToXlate("Selected station not valid")
                                        : ToXlate("Selected group not valid.");
  }
  return file_.IsEmpty() ? ToXlate("Enter a valid name for the export file.") : nullptr;
}

bool CDlgImpExpFileTxtCsv::MayOverwrite(const tdk::WString& path) const {
  if (!platform::IsThere(path.ToUtf8())) return true;
  return CreateMessageBox(parent_, Xlate("Warning"), Xlate("Export file exists. Overwrite it?"),
                          kBoxExclamation | kBoxYesNo) == kAnswerYes;
}

// From the position in the list to the indices of a station within its job, or of a group.
void CDlgImpExpFileTxtCsv::ResolveUnit() {
  settings_.jobIndex = text::kAllUnits;
  settings_.unitIndex = text::kAllUnits;
  if (unit_ < 0) return;
  int position = 0;
  text::ForEachUnit(libraries_, kind_, [&](int job, int unit) {
    if (position++ != unit_) return;
    settings_.jobIndex = job;
    settings_.unitIndex = unit;
  });
}

std::optional<int> CDlgImpExpFileTxtCsv::OpenLayout() {
  const bool isFull = kind_ == text::kGpsGroups || kind_ == text::kTotalStation;
  if (!isImport_ && isText_ && !settings_.fixedLength && isFull) {
    FullExportDialog dialog(libraries_, kind_, settings_.filePath);
    // It has written the file, so nothing is left to do for whoever showed this dialog.
    if (ShowDialog(parent_, dialog) == kOk) return kCancel;
    return std::nullopt;
  }
  if (settings_.fixedLength) return ShowLayout(FixedFieldsDialog(parent_));
  return ShowLayout(DelimitedFieldsDialog(parent_, isText_));
}

template <class Layout>
std::optional<int> CDlgImpExpFileTxtCsv::ShowLayout(Layout layout) {
  if (ShowDialog(parent_, layout) != kOk) return std::nullopt;
  layout.CopyTo(settings_);
  return kOk;
}

}  // namespace ui
