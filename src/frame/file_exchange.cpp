#include "frame/file_exchange.h"

#include "frame/string_table.h"
#include "services/cloud.h"
#include "services/file_dialog.h"
#include "services/jobs_folder.h"
#include "services/message_box.h"
#include "services/translate.h"
#include "tdk/string_loader.h"

namespace frame {

std::optional<tdk::WString> AskForFile(CWnd* parent, const tdk::WString& title,
                                       const tdk::WString& extensions, Direction direction) {
  CDlgImportExportGeneric dialog(CCloudManager::GetInstance(), parent, -1);
  dialog.SetVars(CJobsFolder::GetJobNameFolderWthSlash(), title, extensions,
                 direction == Direction::kImport, /*initialName=*/{});
  if (dialog.DoModal() != Dialog::kOk) return std::nullopt;
  tdk::WString path;
  dialog.GetVars(path);
  return path;
}

void TellNothingToExport(CWnd* parent) {
  CreateMessageBox(parent, Xlate("Warning"), Xlate("There are no data to export."),
                   kBoxExclamation);
}

int TellNotBuiltYet(CWnd* parent, const char* format) {
  const tdk::WString text = Xlate(tdk::CStringLoader::Load(kTextNotBuiltYet));
  CreateMessageBox(parent, Xlate("Warning"), Fill(text, {format}), kBoxExclamation);
  return 0;
}

}  // namespace frame
