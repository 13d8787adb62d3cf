#include "tests/desktop/screenshots.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QTabWidget>
#include <array>

#include "apps/desktop/dialogs/dialog_view.h"
#include "apps/desktop/dialogs/handheld_style.h"
#include "apps/desktop/dialogs/message_view.h"
#include "apps/desktop/dialogs/wait_view.h"
#include "apps/desktop/job/report_window.h"
#include "apps/desktop/main_window.h"
#include "module.h"
#include "services/translate.h"
#include "tests/desktop/every_dialog.h"
#include "tests/desktop/example_site.h"
#include "tests/desktop/screenshots_job.h"

namespace {

constexpr std::array kScreens = {QSize(240, 320), QSize(320, 240), QSize(480, 640), QSize(640, 480),
                                 QSize(1280, 1024)};

class Camera {
 public:
  explicit Camera(const QString& folder) : folder_(folder) { QDir().mkpath(folder); }

  void Take(QWidget& window, const QString& name) {
    window.show();
    QApplication::processEvents();
    if (!window.grab().save(folder_ + '/' + name + ".png")) failed_ = true;
  }
  bool HasFailed() const { return failed_; }

 private:
  QString folder_;
  bool failed_ = false;
};

// The points that an example of a file would be read as.
class ExamplePreview : public PreviewSource {
 public:
  std::optional<PointPreview> Preview(std::string_view /*dialog*/,
                                      const DialogState& /*layout*/) override {
    return PointPreview{{0, 2, 1, 3, 4},
                        {{"A1", "1500.000", "2500.000", "101.250", "pillar"},
                         {"A2", "1533.421", "2512.906", "102.417", "nail"},
                         {"A3", "1560.118", "2498.731", "103.008", ""}},
                        3};
  }
};

void TakeDialogs(Camera& camera, const DialogShape& shape, const QString& end) {
  ExamplePreview preview;
  int number = 1;
  for (const auto& dialog : desktop_test::EveryDialog(ExampleFolder())) {
    DialogView view(*dialog, shape, &preview, nullptr);
    const QString name = QString::fromStdString(std::string(dialog->Name()));
    camera.Take(view, QString("%1-%2-%3").arg(number++, 2, 10, QChar('0')).arg(name, end));
  }
}

void TakeOthers(Camera& camera, const DialogShape& shape, const QString& end) {
  MessageView question(QString::fromStdString(Xlate("Warning").ToUtf8()),
                       QString::fromStdString(Xlate("Export file exists. Overwrite it?").ToUtf8()),
                       52, shape, nullptr);
  camera.Take(question, "20-question-" + end);
  MessageView message(
      QString::fromStdString(Xlate("Error !").ToUtf8()),
      QString::fromStdString(Xlate("Numeric data must be at least 12 long!").ToUtf8()), 48, shape,
      nullptr);
  camera.Take(message, "21-message-" + end);
  WaitView wait(shape, true, nullptr);
  wait.ShowProgress(2, 5);
  camera.Take(wait, "22-wait-" + end);
}

void TakeMain(Camera& camera, const Module& module, const DialogShape& shape, const QString& end) {
  MainWindow window(module, shape);
  camera.Take(window, "30-empty-" + end);
  FillSite(window.Job().Document());
  window.ShowJob();
  window.GoTo({NodeKind::kStation, 0, 1});
  camera.Take(window, "31-main-" + end);
  if (auto* const pages = window.findChild<QTabWidget*>("pages")) {
    for (int page = 1; page < pages->count(); ++page) {
      pages->setCurrentIndex(page);
      camera.Take(window, QString("31-main-page%1-").arg(page + 1) + end);
    }
  }
  auto* const report = new ReportWindow(ExampleReport(window.Job().Document()), shape, &window);
  camera.Take(*report, "32-report-" + end);
}

// Jobs that the user named, as the main window shows them.
void TakeJobs(Camera& camera, const Module& module, const QStringList& jobs) {
  for (qsizetype i = 0; i < jobs.size(); ++i) {
    MainWindow window(module, DialogShape{});
    window.show();
    window.OpenJob(jobs[i].toStdString());
    camera.Take(window, QString("40-job-%1").arg(i + 1));
  }
}

}  // namespace

int TakeScreenshots(const QString& folder, const QStringList& jobs) {
  const Module module;
  Camera camera(folder);
  for (const char* const language : {"en", "it"}) {
    SetLanguage(language);
    for (const QSize& screen : kScreens) {
      const DialogShape shape = CPalmDevice::SelectIdDlgStd(screen);
      const QString end =
          QString("%1x%2-%3").arg(screen.width()).arg(screen.height()).arg(language);
      UseStyleFor(shape);
      TakeDialogs(camera, shape, end);
      TakeOthers(camera, shape, end);
      TakeMain(camera, module, shape, end);
    }
  }
  SetLanguage("en");
  TakeJobs(camera, module, jobs);
  return camera.HasFailed() ? 1 : 0;
}
