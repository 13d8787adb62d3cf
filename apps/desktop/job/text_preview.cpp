#include "apps/desktop/job/text_preview.h"

#include <QTemporaryDir>
#include <algorithm>
#include <fstream>
#include <nlohmann/json.hpp>

#include "apps/desktop/qt_text.h"
#include "host/document/host_document.h"
#include "platform/folder_list.h"
#include "platform/paths.h"
#include "services/jobs_folder.h"

namespace {

constexpr int kRowsShown = 8;
constexpr std::size_t kBytesRead = 64 * 1024;

// The beginning of a file up to its last whole line; all of a short one.
std::string Beginning(const std::string& path) {
  std::ifstream file(platform::NativePath(path), std::ios::binary);
  std::string text(kBytesRead, '\0');
  file.read(text.data(), static_cast<std::streamsize>(text.size()));
  text.resize(static_cast<std::size_t>(file.gcount()));
  if (text.size() < kBytesRead) return text;
  const std::size_t end = text.find_last_of("\r\n");
  return text.substr(0, end == std::string::npos ? text.size() : end + 1);
}

// Answers the dialogs of one import as the open ones stand.
class PreviewViews : public HostViews {
 public:
  PreviewViews(DialogState main, std::string_view dialog, const DialogState& layout)
      : main_(std::move(main)), dialog_(dialog), layout_(layout) {}

  int ShowDialog(Dialog& dialog) override {
    const DialogState& values = dialog.Name() == dialog_ ? layout_ : main_;
    for (const auto& [key, value] : values.items()) {
      if (!value.is_null()) dialog.Set(key, value);
    }
    return dialog.Press("OK").value_or(Dialog::kCancel);
  }
  int ShowMessage(const tdk::WString& /*caption*/, const tdk::WString& /*text*/,
                  unsigned /*flags*/) override {
    return 0;
  }
  void StartWait() override {}
  void EndWait() override {}

 private:
  DialogState main_;
  std::string_view dialog_;
  const DialogState& layout_;
};

// The job's own settings and folder stay out of it.
class Apart {
 public:
  Apart(JobSettings& settings, const std::string& folder)
      : settings_(JobSettings::Current()), folder_(CJobsFolder::GetJobNameFolderNoSlash()) {
    JobSettings::MakeCurrent(&settings);
    CJobsFolder::SetJobFolder(tdk::WString(folder));
  }
  ~Apart() {
    JobSettings::MakeCurrent(&settings_);
    CJobsFolder::SetJobFolder(folder_);
  }
  Apart(const Apart&) = delete;
  Apart& operator=(const Apart&) = delete;

 private:
  JobSettings& settings_;
  tdk::WString folder_;
};

const DialogState* MainState(const QtViews& views, DialogState& state) {
  for (Dialog* const dialog : views.Open()) {
    if (dialog->Name() != "text-main") continue;
    state = dialog->State();
    return &state;
  }
  return nullptr;
}

}  // namespace

std::optional<PointPreview> TextPreview::Preview(std::string_view dialog,
                                                 const DialogState& layout) {
  DialogState main;
  if (MainState(views_, main) == nullptr || main["files"].is_null()) return std::nullopt;
  const bool isText = !main["fieldType"].is_null();
  const auto name = main["file"].get<std::string>();
  const auto folder = main["folder"].get<std::string>();
  std::string path;
  const char* const extension = isText ? "txt" : "csv";
  for (const std::string& file : platform::FilesWithExtension(folder, extension)) {
    if (file.substr(0, file.rfind('.')) == name) path = platform::JoinPath(folder, file);
  }
  const QTemporaryDir copy;
  if (path.empty() || !copy.isValid()) return std::nullopt;
  const std::string copyFolder = ToUtf8(copy.path());
  std::ofstream(copyFolder + "/preview." + extension, std::ios::binary) << Beginning(path);

  // The layout is the same for every kind of point, and known points need no station and no group.
  DialogState values = {{"kind", static_cast<int>(PointKind::kKnown)}};
  if (isText) values["fieldType"] = main["fieldType"];
  values["file"] = "preview";
  HostDocument document;
  const Apart apart(document.Settings(), copyFolder);
  PreviewViews views(values, dialog, layout);
  CWnd window(&views);
  const CallResult result =
      module_.Call(isText ? "FImportTXTFile" : "FImportCSVFile", window, document);
  if (result.value != 1 || document.GetLibPnt()->GetGrpArSize() == 0) return std::nullopt;
  std::vector<int> columns = layout["fields"].get<std::vector<int>>();
  return PreviewOf(document, PointKind::kKnown, columns, kRowsShown);
}
