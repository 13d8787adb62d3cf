// The window of the program: the job as a tree, a plan and a table.
#pragma once

#include <QMainWindow>
#include <QPointer>
#include <functional>
#include <optional>

#include "apps/desktop/dialogs/dialog_shape.h"
#include "apps/desktop/job/desktop_job.h"
#include "apps/desktop/job/exchange_table.h"
#include "apps/desktop/job/job_table.h"
#include "apps/desktop/job/job_tree.h"
#include "module.h"

class QLabel;
class QTableView;
class QTabWidget;
class QToolBar;
class QTreeView;
class ReportWindow;
namespace plan {
class LayerList;
class PlanView;
struct Found;
}  // namespace plan

class MainWindow : public QMainWindow {
 public:
  /// `module` is not owned. `shape`: of the dialogs.
  MainWindow(const Module& module, const DialogShape& shape);
  ~MainWindow() override;

  DesktopJob& Job() { return job_; }
  /// Shows the job as it is now.
  void ShowJob();
  /// Each tells what goes wrong by a message box.
  void OpenJob(const std::string& path);
  /// A job is opened, any other file imported.
  void OpenOrImport(const std::string& path);
  /// The same with each of them, once the event at hand has ended.
  void OpenSoon(const QStringList& paths);
  void Run(const ExchangeCommand& command, const std::optional<std::string>& path = {});
  /// Selects a node in the tree and shows it in the table and the plan.
  void GoTo(const JobNode& node);

 protected:
  void closeEvent(QCloseEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;

 private:
  void MakeViews();
  void MakeTree();
  void MakeTable();
  void MakePlan();
  void MakeDesktopLayout();
  void MakeHandheldLayout();
  void NameViews();
  void MakeToolBar();
  void AddTool(QAction& action);
  void AddTool(QMenu& menu, const QIcon& icon);
  void MakeMenus();
  void MakeJobMenu();
  void MakeExchangeMenus();
  void MakeEditMenu();
  void MakeViewMenu();
  void MakeSettingsMenu();
  QAction* AddAction(QMenu& menu, const char* text, const char* name, std::function<void()> action);

  void ShowNothing();
  void ShowPicked(const plan::Found& found);
  void ShowPlace(double easting, double northing);
  void ShowTable(const JobNode& node);
  void ShowReport(ReportWindow* report);
  bool MayLeave();
  void Guarded(const std::function<void()>& action);
  void TellFailure(const std::string& text);

  void NewJob();
  void AskAndOpen(bool isFolder);
  void Save();
  void SaveAs(bool isFolder);
  void SaveTo(const std::string& path);
  std::optional<std::string> AskForFolder();
  std::optional<std::string> AskForDocument(bool isOpen);
  void Undo();
  void Copy();
  void Compute(bool isAnew);
  void SetLanguageTo(const std::string& language);
  void UseChosenAngleUnit();
  void SetAngleUnit(int unit);
  void AskReferenceSystem();

  const Module& module_;
  DialogShape shape_;
  DesktopJob job_;
  JobTree tree_;
  JobTable table_;
  QTreeView* treeView_ = nullptr;
  QTableView* tableView_ = nullptr;
  plan::PlanView* plan_ = nullptr;
  plan::LayerList* layers_ = nullptr;
  QTabWidget* pages_ = nullptr;  // of a handheld, which shows one view at a time
  QToolBar* tools_ = nullptr;
  QLabel* counts_ = nullptr;  // what there is
  QLabel* place_ = nullptr;   // where the pointer is
  QAction* undo_ = nullptr;
  QPointer<QDialog> report_;
};
