#include "apps/desktop/dialogs/file_name_dialog.h"

#include <nlohmann/json.hpp>

#include "platform/folder_list.h"
#include "platform/paths.h"
#include "services/file_name.h"
#include "services/message_box.h"
#include "services/translate.h"

namespace {

bool IsOneOf(const std::string& extensions, const std::string& extension) {
  return !extension.empty() &&
         (';' + extensions + ';').find(';' + extension + ';') != std::string::npos;
}

std::string First(const std::string& extensions) {
  return extensions.substr(0, extensions.find(';'));
}

// A drawing gets the extension of the version that is chosen; the first two are DWG.
std::string Written(const DialogState& state, const std::string& path) {
  if (!state.contains("version")) return path;
  const char* const extension = state.value("version", 0) < 2 ? ".dwg" : ".dxf";
  return EliminaEstensioneFile(tdk::WString(path)).ToUtf8() + extension;
}

}  // namespace

bool FileNameDialog::IsFor(const Dialog& dialog) {
  return dialog.Name() == "file" || dialog.Name() == "cad-file";
}

FileNameDialog::FileNameDialog(Dialog& file, CWnd* parent) : file_(file), parent_(parent) {
  const auto offered = file.State().value("initialName", std::string());
  if (!offered.empty()) Set("path", offered);
}

DialogState FileNameDialog::State() const {
  DialogState state = file_.State();
  state["path"] = typed_;
  return state;
}

DialogSet FileNameDialog::Set(std::string_view key, const DialogState& value) {
  if (key != "path" || !value.is_string()) return file_.Set(key, value);
  const auto name = value.get<std::string>();
  const DialogSet outcome = file_.Set(key, WithExtension(file_.State(), name));
  if (outcome == DialogSet::kDone) typed_ = name;
  return outcome;
}

std::optional<int> FileNameDialog::Press(std::string_view button) {
  if (button == "OK" && !MayBeTaken()) return std::nullopt;
  return file_.Press(button);
}

std::string FileNameDialog::FullPath(const DialogState& state, const std::string& name) const {
  return platform::IsAbsolutePath(name)
             ? name
             : platform::JoinPath(state.value("folder", std::string()), name);
}

std::string FileNameDialog::WithExtension(const DialogState& state, const std::string& name) const {
  const auto extensions = state.value("extensions", std::string());
  if (name.empty() || IsOneOf(extensions, platform::Extension(name))) return name;
  if (state.value("import", true) && platform::IsThere(FullPath(state, name))) return name;
  return name + '.' + First(extensions);
}

bool FileNameDialog::MayBeTaken() const {
  const DialogState state = file_.State();
  const bool isImport = state.value("import", true);
  const std::string path = FullPath(state, WithExtension(state, typed_));
  const auto refuse = [&](const char* text) {
    CreateMessageBox(parent_, Xlate("Error"), Xlate(text), kBoxExclamation);
    return false;
  };
  if (typed_.empty() && !isImport)
    return refuse(ToXlate("Enter a valid name for the export file."));
  if (isImport) {
    const bool isThere = !typed_.empty() && platform::IsThere(path);
    return isThere || refuse(ToXlate("Select a valid file to import."));
  }
  return !platform::IsThere(Written(state, path)) ||
         CreateMessageBox(parent_, Xlate("Warning"), Xlate("Export file exists. Overwrite it?"),
                          kBoxExclamation | kBoxYesNo) == kAnswerYes;
}
