#include "services/job_folder_dialog.h"

#include <nlohmann/json.hpp>

#include "services/translate.h"

tdk::WString JobFolderDialog::Title() const { return Xlate("Job folder"); }

DialogState JobFolderDialog::State() const { return {{"folder", folder_.ToUtf8()}}; }

DialogSet JobFolderDialog::Set(std::string_view key, const DialogState& value) {
  if (key != "folder") return DialogSet::kUnknownKey;
  if (!value.is_string()) return DialogSet::kWrongValue;
  folder_ = tdk::WString(value.get<std::string>());
  return DialogSet::kDone;
}

std::optional<int> JobFolderDialog::Press(std::string_view button) {
  return button == "OK" ? kOk : kCancel;
}

bool DlgSelectJobFolder(ICloudManager* /*cloud*/, CWnd* parent, tdk::WString& folder) {
  JobFolderDialog dialog(folder);
  if (ShowDialog(parent, dialog) != Dialog::kOk) return false;
  folder = dialog.Folder();
  return true;
}
