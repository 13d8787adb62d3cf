#include "frame/file_exchange.h"

#include "services/cloud.h"
#include "services/file_dialog.h"
#include "services/jobs_folder.h"
#include "services/message_box.h"
#include "services/translate.h"

namespace frame {

std::optional<tdk::WString> AskForFile(CWnd* parent, const tdk::WString& title,
                                       const tdk::WString& extensions, Direction direction,
                                       const tdk::WString& initialName) {
  CDlgImportExportGeneric dialog(CCloudManager::GetInstance(), parent, -1);
  dialog.SetVars(CJobsFolder::GetJobNameFolderWthSlash(), title, extensions,
                 direction == Direction::kImport, initialName);
  if (dialog.DoModal() != Dialog::kOk) return std::nullopt;
  tdk::WString path;
  dialog.GetVars(path);
  return path;
}

void TellNothingToExport(CWnd* parent) {
  CreateMessageBox(parent, Xlate("Warning"), Xlate("There are no data to export."),
                   kBoxExclamation);
}

}  // namespace frame
