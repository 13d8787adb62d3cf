// The host's dialog for choosing a job folder.
#pragma once

#include <optional>

#include "services/cloud.h"
#include "services/dialog.h"

/// Scripts know it as "job-folder", with the key folder.
class JobFolderDialog : public Dialog {
 public:
  explicit JobFolderDialog(tdk::WString folder) : folder_(std::move(folder)) {}
  const tdk::WString& Folder() const { return folder_; }

  std::string_view Name() const override { return "job-folder"; }
  tdk::WString Title() const override;
  DialogState State() const override;
  DialogSet Set(std::string_view key, const DialogState& value) override;
  std::vector<std::string_view> Buttons() const override { return {"OK", "Cancel"}; }
  std::optional<int> Press(std::string_view button) override;

 private:
  tdk::WString folder_;
};

/// Lets the user choose; `folder` is shown at first and holds the chosen one after true. The
/// manager is for hosts that keep jobs elsewhere.
bool DlgSelectJobFolder(ICloudManager* cloud, CWnd* parent, tdk::WString& folder);
