#include "ui/shape_import_dialog.h"

#include "model/shape_files.h"
#include "platform/folder_list.h"
#include "platform/letters.h"
#include "platform/paths.h"
#include "services/cloud.h"
#include "services/job_folder_dialog.h"
#include "services/jobs_folder.h"
#include "services/message_box.h"
#include "services/translate.h"
#include "ui/dialog_values.h"

namespace ui {
namespace {

constexpr std::string_view kShape = ".shp";
constexpr std::string_view kTable = ".dbf";
constexpr int kUnknownType = -1;
constexpr int kPointType = 1;

// Cut before the first ".shp", letter case ignored.
std::string ListedName(const std::string& file) {
  return file.substr(0, platform::Small(file).find(kShape));
}

// Where letters count, a file of capital letters is only found by them.
std::string WithExtension(const std::string& path, std::string_view extension) {
  const std::string usual = path + std::string(extension);
  const std::string capital = path + platform::Capital(extension);
  return !platform::IsThere(usual) && platform::IsThere(capital) ? capital : usual;
}

}  // namespace

ShapeImportDialog::ShapeImportDialog(CWnd* parent, gis::CLibGis* library, TOpzImportShape& options)
    : parent_(parent), library_(library), options_(options) {
  ChangeFolder(CJobsFolder::GetJobNameFolderWthSlash());
}

tdk::WString ShapeImportDialog::Title() const { return Xlate("Import of Shape file"); }

DialogState ShapeImportDialog::State() const {
  DialogState files = DialogState::array();
  for (const std::string& file : files_) files.push_back(ListedName(file));
  DialogState fields = DialogState::array();
  for (const tdk::WString& field : fields_) fields.push_back(field.ToUtf8());
  const DialogState file = file_.empty() ? DialogState(nullptr) : DialogState(file_);
  return {{"folder", folder_.ToUtf8()},
          {"files", files},
          {"file", file},
          {"createPoints", createPoints_},
          {"nameField", nameField_},
          {"codeField", codeField_},
          {"fields", fields},
          {"pointOptionsVisible", hasFields_},
          {"associationVisible", IsAssociationVisible()},
          {"associationEnabled", IsAssociationEnabled()}};
}

bool ShapeImportDialog::IsAssociationVisible() const {
  return hasFields_ && entityType_ == kPointType;
}

DialogSet ShapeImportDialog::Set(std::string_view key, const DialogState& value) {
  if (key == "folder") return SetFolder(value);
  if (key == "file") return SetFile(value);
  if (key == "createPoints") return SetCreatePoints(value);
  if (key == "nameField") return SetField(value, nameField_);
  if (key == "codeField") return SetField(value, codeField_);
  // What the folder and the file bring with them is shown, but nobody can change it.
  for (const std::string_view shown :
       {"files", "fields", "pointOptionsVisible", "associationVisible", "associationEnabled"}) {
    if (key == shown) return DialogSet::kWrongValue;
  }
  return DialogSet::kUnknownKey;
}

void ShapeImportDialog::ChangeFolder(const tdk::WString& folder) {
  folder_ = tdk::WString(platform::JoinPath(folder.ToUtf8(), ""));
  files_ = platform::FilesWithExtension(folder_.ToUtf8(), kShape.substr(1));
  Deselect();
}

DialogSet ShapeImportDialog::SetFolder(const DialogState& value) {
  if (!value.is_string()) return DialogSet::kWrongValue;
  ChangeFolder(tdk::WString(value.get<std::string>()));
  return DialogSet::kDone;
}

DialogSet ShapeImportDialog::SetFile(const DialogState& value) {
  if (value.is_null()) {
    Deselect();
    return DialogSet::kDone;
  }
  for (const std::string& file : files_) {
    if (value != ListedName(file)) continue;
    Select(ListedName(file));
    return DialogSet::kDone;
  }
  return DialogSet::kWrongValue;
}

DialogSet ShapeImportDialog::SetCreatePoints(const DialogState& value) {
  return hasFields_ ? SetFlag(value, createPoints_) : DialogSet::kWrongValue;
}

DialogSet ShapeImportDialog::SetField(const DialogState& value, int& position) {
  if (!IsAssociationEnabled()) return DialogSet::kWrongValue;
  return SetWhole(value, 0, static_cast<int>(fields_.size()), position);
}

void ShapeImportDialog::Deselect() {
  file_.clear();
  path_ = {};
  entityType_ = kUnknownType;
  hasFields_ = false;
  fields_.clear();
  createPoints_ = false;
  nameField_ = 0;
  codeField_ = 0;
}

void ShapeImportDialog::Select(const std::string& file) {
  Deselect();
  file_ = file;
  const std::string base = folder_.ToUtf8() + file;
  path_ = tdk::WString(WithExtension(base, kShape));
  entityType_ = FGetEntTypeFromFileShp(path_);
  if (entityType_ == kUnknownType) {
    CreateMessageBox(parent_, Xlate("Warning"),
                     Xlate("Impossible to read data!\r\nThe type of entity contained are invalid"),
                     kBoxExclamation);
    return;
  }
  const tdk::WString table(WithExtension(base, kTable));
  hasFields_ = FGetFieldFromFileDbf(library_, table, fields_);
  if (!hasFields_) fields_.clear();
}

std::optional<int> ShapeImportDialog::Press(std::string_view button) {
  if (button == "OK") return Confirm();
  if (button != "Change") return kCancel;
  tdk::WString folder = folder_;
  if (DlgSelectJobFolder(CCloudManager::GetInstance(), parent_, folder)) ChangeFolder(folder);
  return std::nullopt;
}

std::optional<int> ShapeImportDialog::Confirm() {
  if (file_.empty()) {
    CreateMessageBox(parent_, Xlate("Warning"),
                     Xlate("Select a file to be imported before continuing."), kBoxExclamation);
    return std::nullopt;
  }
  options_.createPoints = createPoints_;
  options_.nameField = nameField_ - 1;
  options_.codeField = codeField_ - 1;
  return kOk;
}

}  // namespace ui
