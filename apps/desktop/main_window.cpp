#include "apps/desktop/main_window.h"

#include <QClipboard>
#include <QCloseEvent>
#include <QGuiApplication>
#include <QLabel>
#include <QMimeData>
#include <QStatusBar>
#include <QTableView>
#include <QTimer>
#include <QTreeView>

#include "apps/desktop/dialogs/qt_views.h"
#include "apps/desktop/job/coordinates.h"
#include "apps/desktop/job/copied_text.h"
#include "apps/desktop/job/crs_dialog.h"
#include "apps/desktop/job/exchange_runner.h"
#include "apps/desktop/job/report_window.h"
#include "apps/desktop/plan/plan_view.h"
#include "apps/desktop/qt_text.h"
#include "apps/desktop/user_settings.h"
#include "host/geodesy/gps_positions.h"
#include "services/message_box.h"
#include "services/number_text.h"

MainWindow::MainWindow(const Module& module, const DialogShape& shape)
    : module_(module), shape_(shape) {
  setObjectName("main");
  setAcceptDrops(true);
  MakeViews();
  MakeMenus();
  job_.onLeaving = [this] { ShowNothing(); };
  UseChosenAngleUnit();
  ShowJob();
  constexpr QSize kUsual(1180, 760);
  resize(shape.isHandheld ? shape.screen : kUsual);
  if (!shape.isHandheld) RestoreWindow(*this);
}

MainWindow::~MainWindow() { job_.onLeaving = nullptr; }

// ---- What is shown ----

void MainWindow::ShowJob() {
  tree_.Show(&job_.Document());
  plan_->ShowJob(job_.Document());
  treeView_->setCurrentIndex(tree_.index(0, 0));
  treeView_->expand(tree_.index(0, 0));
  undo_->setEnabled(job_.CanUndo());
  const QString name = job_.Path() ? ToQt(*job_.Path()) : Translated(ToXlate("new job"));
  setWindowTitle(name + (job_.IsChanged() ? "* – " : " – ") + "Kalvio Exchange");
  counts_->setText(ToQt(InWords(CountsOf(job_.Document()))));
  counts_->setToolTip(counts_->text());
}

void MainWindow::ShowNothing() {
  if (report_) report_->close();  // its objects go
  plan_->Clear();
  table_.Show(nullptr, {});
  tree_.Show(nullptr);
}

// A place is told to the millimetre, as the points are.
void MainWindow::ShowPlace(double easting, double northing) {
  place_->setText(Translated(ToXlate("E {1}  N {2}"),
                             {StringDaDouble(easting, 0, 3), StringDaDouble(northing, 0, 3)}));
}

void MainWindow::ShowPicked(const plan::Found& found) {
  statusBar()->showMessage(ToQt(found.text).replace('\n', "  "));
  if (found.point != nullptr) GoTo(NodeOf(job_.Document(), *found.point));
}

void MainWindow::ShowTable(const JobNode& node) {
  if (tree_.rowCount() == 0) return;
  table_.Show(&job_.Document(), node);
  tableView_->resizeColumnsToContents();
  if (table_.Shown() != node) tableView_->selectRow(RowOf(node));
  plan_->Highlight(PointOf(job_.Document(), node));
}

void MainWindow::GoTo(const JobNode& node) {
  if (RowOf(node) >= ChildCount(job_.Document(), ParentOf(node))) return;
  const QModelIndex index = tree_.IndexOf(node);
  treeView_->setCurrentIndex(index);
  treeView_->scrollTo(index);
}

void MainWindow::ShowReport(ReportWindow* report) {
  if (report_) {
    report_->setObjectName({});  // it goes a little later
    report_->close();
  }
  report_ = report;
  report->onObject = [this](const JobNode& node) { GoTo(node); };
  report->show();
}

// ---- Work ----

// Nothing may be thrown through the toolkit.
void MainWindow::Guarded(const std::function<void()>& action) {
  statusBar()->clearMessage();  // it was about the job as it is now
  try {
    action();
  } catch (const ExchangeStopped&) {
    statusBar()->showMessage(Translated(ToXlate("stopped")));
  } catch (const std::exception& error) {
    TellFailure(error.what());
  }
}

void MainWindow::TellFailure(const std::string& text) {
  QtViews views(this, shape_);
  views.ShowMessage(Xlate("Error"), tdk::WString(text), kBoxExclamation);
}

void MainWindow::Run(const ExchangeCommand& command, const std::optional<std::string>& path) {
  std::optional<ExchangeReport> report;
  Guarded([&] {
    ExchangeRunner runner(job_, module_, this, shape_);
    report = runner.Run(command, path);
  });
  if (const tdk::WString crs = KeptReferenceSystem(); command.isImport && !crs.IsEmpty()) {
    CompletePositions(*job_.Document().GetLibGps(), crs);
  }
  ShowJob();
  if (report) ShowReport(new ReportWindow(std::move(*report), shape_, this));
}

void MainWindow::Undo() {
  Guarded([&] {
    QtViews views(this, shape_);
    job_.Undo(views.Progress());
  });
  if (report_) report_->close();
  ShowJob();
}

// The tree when it is there that the user works, else the table.
void MainWindow::Copy() {
  QGuiApplication::clipboard()->setText(focusWidget() == treeView_ ? ShownText(*treeView_)
                                                                   : ShownText(*tableView_));
}

void MainWindow::Compute(bool isAnew) {
  std::optional<ExchangeReport> report;
  Guarded([&] { report = WorkOutCoordinates(job_.Document(), isAnew); });
  job_.MarkChanged();
  ShowJob();
  if (report) ShowReport(new ReportWindow(std::move(*report), shape_, this));
}

// ---- Events ----

void MainWindow::closeEvent(QCloseEvent* event) {
  if (MayLeave()) {
    if (!shape_.isHandheld) KeepWindow(*this);
    event->accept();
  } else {
    event->ignore();
  }
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event) {
  if (event->mimeData()->hasUrls()) event->acceptProposedAction();
}

void MainWindow::dropEvent(QDropEvent* event) {
  QStringList paths;
  for (const QUrl& url : event->mimeData()->urls()) {
    if (url.isLocalFile()) paths.append(url.toLocalFile());
  }
  event->acceptProposedAction();
  OpenSoon(paths);  // for the drop must have ended before a dialog is shown
}

void MainWindow::OpenSoon(const QStringList& paths) {
  QTimer::singleShot(0, this, [this, paths] {
    for (const QString& path : paths) OpenOrImport(ToUtf8(path));
  });
}
