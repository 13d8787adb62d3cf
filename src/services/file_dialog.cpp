#include "services/file_dialog.h"

#include <nlohmann/json.hpp>

#include "platform/paths.h"

CDlgImportExportGeneric::CDlgImportExportGeneric(ICloudManager* /*cloud*/, CWnd* parent,
                                                 int /*resource*/)
    : parent_(parent) {}

CDlgImportExportGeneric::~CDlgImportExportGeneric() = default;

void CDlgImportExportGeneric::SetVars(const tdk::WString& folder, const tdk::WString& title,
                                      const tdk::WString& extensions, bool isImport,
                                      const tdk::WString& initialName) {
  folder_ = folder;
  title_ = title;
  extensions_ = extensions;
  isImport_ = isImport;
  initialName_ = initialName;
}

int CDlgImportExportGeneric::DoModal() { return ShowDialog(parent_, *this); }

void CDlgImportExportGeneric::GetVars(tdk::WString& path) const {
  if (path_.IsEmpty()) {
    const std::string& extensions = extensions_.ToUtf8();
    const std::string name =
        initialName_.ToUtf8() + '.' + extensions.substr(0, extensions.find(';'));
    path = tdk::WString(platform::JoinPath(folder_.ToUtf8(), name));
  } else if (platform::IsAbsolutePath(path_.ToUtf8())) {
    path = path_;
  } else {
    path = tdk::WString(platform::JoinPath(folder_.ToUtf8(), path_.ToUtf8()));
  }
}

std::string_view CDlgImportExportGeneric::Name() const { return "file"; }
tdk::WString CDlgImportExportGeneric::Title() const { return title_; }

DialogState CDlgImportExportGeneric::State() const {
  return {{"folder", folder_.ToUtf8()},
          {"extensions", extensions_.ToUtf8()},
          {"import", isImport_},
          {"initialName", initialName_.ToUtf8()}};
}

DialogSet CDlgImportExportGeneric::Set(std::string_view key, const DialogState& value) {
  tdk::WString* target = nullptr;
  if (key == "path") target = &path_;
  if (key == "folder") target = &folder_;
  if (key == "initialName") target = &initialName_;
  // What the module asks for is shown, but nobody can change it.
  if (key == "extensions" || key == "import") return DialogSet::kWrongValue;
  if (target == nullptr) return DialogSet::kUnknownKey;
  if (!value.is_string()) return DialogSet::kWrongValue;
  *target = tdk::WString(value.get<std::string>());
  return DialogSet::kDone;
}

std::vector<std::string_view> CDlgImportExportGeneric::Buttons() const { return {"OK", "Cancel"}; }

std::optional<int> CDlgImportExportGeneric::Press(std::string_view button) {
  return button == "OK" ? kOk : kCancel;
}
