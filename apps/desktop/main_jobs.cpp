// Jobs of the main window: a new one, opened and saved ones.
#include <QStatusBar>

#include "apps/desktop/dialogs/qt_views.h"
#include "apps/desktop/main_window.h"
#include "apps/desktop/user_settings.h"
#include "job_session.h"
#include "platform/paths.h"
#include "services/file_dialog.h"
#include "services/job_folder_dialog.h"
#include "services/jobs_folder.h"
#include "services/message_box.h"
#include "services/translate.h"

bool MainWindow::MayLeave() {
  if (!job_.IsChanged()) return true;
  QtViews views(this, shape_);
  return views.ShowMessage(
             Xlate("Warning"),
             Xlate("The job has changes that are not saved. Go on without saving them?"),
             kBoxExclamation | kBoxYesNo) == kAnswerYes;
}

void MainWindow::NewJob() {
  if (!MayLeave()) return;
  statusBar()->clearMessage();
  job_.New();
  UseChosenAngleUnit();
  ShowJob();
}

void MainWindow::OpenJob(const std::string& path) {
  Guarded([&] {
    QtViews views(this, shape_);
    views.AllowCancel(true);
    job_.Open(path, views.Progress());
    AddRecentJob(path);
  });
  ShowJob();
}

void MainWindow::OpenOrImport(const std::string& path) {
  if (IsJob(path)) {
    if (MayLeave()) OpenJob(path);
    return;
  }
  if (const ExchangeCommand* const command = ImportOf(path)) return Run(*command, path);
  TellFailure(path + ": " + Xlate("the extension says no format that can be read").ToUtf8());
}

std::optional<std::string> MainWindow::AskForFolder() {
  QtViews views(this, shape_);
  CWnd window(&views);
  tdk::WString folder = CJobsFolder::GetJobNameFolderNoSlash();
  if (!DlgSelectJobFolder(CCloudManager::GetInstance(), &window, folder)) return std::nullopt;
  return platform::NativePath(folder.ToUtf8());
}

std::optional<std::string> MainWindow::AskForDocument(bool isOpen) {
  QtViews views(this, shape_);
  CWnd window(&views);
  CDlgImportExportGeneric dialog(CCloudManager::GetInstance(), &window, -1);
  dialog.SetVars(CJobsFolder::GetJobNameFolderWthSlash(),
                 isOpen ? Xlate("Open a JSON document") : Xlate("Save as a JSON document"), "json",
                 isOpen, {});
  if (dialog.DoModal() != Dialog::kOk) return std::nullopt;
  tdk::WString path;
  dialog.GetVars(path);
  return platform::NativePath(path.ToUtf8());
}

void MainWindow::AskAndOpen(bool isFolder) {
  if (!MayLeave()) return;
  if (const auto path = isFolder ? AskForFolder() : AskForDocument(true)) OpenJob(*path);
}

void MainWindow::Save() {
  if (!job_.Path()) return SaveAs(true);
  SaveTo(*job_.Path());
}

void MainWindow::SaveAs(bool isFolder) {
  if (const auto path = isFolder ? AskForFolder() : AskForDocument(false)) SaveTo(*path);
}

void MainWindow::SaveTo(const std::string& path) {
  Guarded([&] {
    QtViews views(this, shape_);
    job_.SaveTo(path, views.Progress());
    AddRecentJob(path);
  });
  ShowJob();
}
