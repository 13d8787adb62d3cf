// The whole program: a window, its menus, the module, files.
#include <QAction>
#include <QClipboard>
#include <QLabel>
#include <QMimeData>
#include <QStatusBar>
#include <QTabWidget>
#include <QTableView>
#include <QToolBar>
#include <QToolButton>
#include <QTreeView>

#include "apps/desktop/dialogs/handheld_style.h"
#include "apps/desktop/dialogs/qt_views.h"
#include "apps/desktop/job/report_window.h"
#include "apps/desktop/main_window.h"
#include "apps/desktop/plan/plan_view.h"
#include "apps/desktop/qt_text.h"
#include "apps/desktop/user_settings.h"
#include "services/jobs_folder.h"
#include "services/measure_system.h"
#include "tests/desktop/driver.h"
#include "tests/run_kalvio.h"
#include "tests/support/temporary_folder.h"

using namespace desktop_test;

namespace {

class WholeWindow : public testing::Test {
 protected:
  WholeWindow() {
    SetLanguage("en");
    CJobsFolder::SetJobFolder(tdk::WString(folder.Path()));
    window.show();
  }
  ~WholeWindow() override {
    SetLanguage("en");
    EXPECT_FALSE(driver.HasStepsLeft());
  }

  void Trigger(const char* action) {
    auto* const found = window.findChild<QAction*>(action);
    ASSERT_NE(found, nullptr) << action;
    found->trigger();
    QApplication::processEvents();
  }
  /// The lines of the report that is shown; empty when there is none.
  QString Report() const {
    const auto* const report = static_cast<ReportWindow*>(window.findChild<QDialog*>("report"));
    return report == nullptr ? QString() : report->Report().AsText();
  }
  std::string TreeText(const QModelIndex& index) const {
    return index.data().toString().toStdString();
  }

  TemporaryFolder folder;
  Module module;
  MainWindow window{module, DialogShape{}};
  Driver driver;
};

TEST_F(WholeWindow, ImportsAndExportsAsTheCommandLineDoes) {
  folder.Write("field.jb2", e2e::SmallJb2());
  folder.Write("known.csv", "S1;1000;2000;100;\nS2;1010;2000;100;\n");
  driver.Then({{"path", folder.File("field.jb2")}});
  Trigger("FImportJB2File");
  EXPECT_TRUE(Report().contains("1 job, 2 stations, 3 points")) << Report().toStdString();

  driver.Then({{"kind", 0}, {"file", "known"}});
  driver.Then({{"fields", {0, 2, 1, 3, 4, 7}}});
  Trigger("FImportCSVFile");
  EXPECT_TRUE(Report().contains("2 known points")) << Report().toStdString();

  auto& tree = Find<QTreeView>(window, "tree");
  const QAbstractItemModel& model = *tree.model();
  const QModelIndex jobs = model.index(0, 0);
  EXPECT_EQ(TreeText(jobs), "Jobs (1)");
  EXPECT_EQ(model.rowCount(model.index(0, 0, jobs)), 2);
  EXPECT_EQ(TreeText(model.index(2, 0)), "Known Points (1)");
  EXPECT_FALSE(static_cast<plan::PlanView&>(Find<QWidget>(window, "plan")).Model().Marks().empty());

  Trigger("compute");
  EXPECT_TRUE(Report().contains("worked out the coordinates of")) << Report().toStdString();

  driver.Then({{"version", 2}, {"path", "desktop.dxf"}});
  Trigger("FExportDXFDWGFile");
  driver.Then({{"kind", 2}, {"file", "desktop"}});
  driver.Then({{"fields", {0, 2, 1, 3, 4, 7}}, {"headerRows", 0}});
  Trigger("FExportCSVFile");

  for (const char* const output : {"kalvio.dxf", "kalvio.csv"}) {
    const auto run = e2e::RunKalvio(
        {"convert", folder.File("field.jb2"), folder.File("known.csv"), folder.File(output)});
    ASSERT_EQ(run.status, 0) << run.err;
  }
  EXPECT_EQ(ReadBytes(folder.File("desktop.csv")), ReadBytes(folder.File("kalvio.csv")));
  EXPECT_TRUE(ReadBytes(folder.File("desktop.dxf")) == ReadBytes(folder.File("kalvio.dxf")));
}

TEST_F(WholeWindow, UndoesTheLastImport) {
  auto& undo = *window.findChild<QAction*>("undo");
  EXPECT_FALSE(undo.isEnabled());
  window.OpenOrImport(folder.Write("field.jb2", e2e::SmallJb2()));
  EXPECT_TRUE(undo.isEnabled());
  EXPECT_EQ(window.Job().Document().GetLibCmp()->GetJobArSize(), 1);
  Trigger("undo");
  EXPECT_EQ(window.Job().Document().GetLibCmp()->GetJobArSize(), 0);
  EXPECT_FALSE(undo.isEnabled());
  EXPECT_EQ(TreeText(Find<QTreeView>(window, "tree").model()->index(0, 0)), "Jobs (0)");
}

TEST_F(WholeWindow, ImportsDroppedFilesWithoutAskingWhich) {
  QMimeData data;
  data.setUrls({QUrl::fromLocalFile(Q(folder.Write("field.jb2", e2e::SmallJb2()))),
                QUrl::fromLocalFile(Q(folder.Write("p.csv", "A;1;2;3;x\n")))});
  driver.Then([](QDialog& dialog) {
    EXPECT_EQ(dialog.objectName(), "text-main");
    EXPECT_EQ(Find<QListWidget>(dialog, "files").currentItem()->text(), "p");
    Press(dialog, "OK");
  });
  driver.Then({{"fields", {0, 2, 1, 3, 4, 7}}});
  QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(&window, &enter);
  QDropEvent drop(QPointF(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(&window, &drop);
  EXPECT_TRUE(QTest::qWaitFor([this] {
    return window.Job().Document().GetLibPnt()->GetGrpArSize() == 1 && !driver.HasStepsLeft();
  }));
  EXPECT_EQ(window.Job().Document().GetLibCmp()->GetJobArSize(), 1);
  EXPECT_EQ(window.Job().Document().GetLibPnt()->GetGrpArSize(), 1);
}

TEST_F(WholeWindow, TellsAFileThatIsNotThere) {
  driver.Answer("OK");
  window.OpenOrImport(folder.File("nothing.jb2"));
  ASSERT_EQ(driver.messages.size(), 1u);
  EXPECT_EQ(window.Job().Document().GetLibCmp()->GetJobArSize(), 0);
}

TEST_F(WholeWindow, TellsAFileOfNoFormat) {
  driver.Answer("OK");
  window.OpenOrImport(folder.Write("a.zip", "x"));
  ASSERT_EQ(driver.messages.size(), 1u);
  EXPECT_NE(driver.messages[0].find("a.zip"), std::string::npos);
}

TEST_F(WholeWindow, LeadsFromTheReportToTheObject) {
  window.OpenOrImport(folder.Write("field.jb2", e2e::SmallJb2()));
  auto* const report = window.findChild<QDialog*>("report");
  ASSERT_NE(report, nullptr);
  auto& lines = Find<QListWidget>(*report, "lines");
  const auto found = lines.findItems("new: Jobs:", Qt::MatchStartsWith);
  ASSERT_EQ(found.size(), 1);
  Q_EMIT lines.itemClicked(found[0]);
  auto& tree = Find<QTreeView>(window, "tree");
  EXPECT_TRUE(tree.currentIndex().parent().isValid());
  EXPECT_EQ(Find<QTableView>(window, "table").model()->rowCount(), 2) << "its stations";
  Press(*report, "Copy");
  EXPECT_EQ(QGuiApplication::clipboard()->text(), Report());
}

TEST_F(WholeWindow, SavesOpensAndRemembersAJob) {
  window.OpenOrImport(folder.Write("field.jb2", e2e::SmallJb2()));
  const std::string job = folder.File("job");
  driver.Then({{"folder", job}});
  Trigger("saveFolder");
  EXPECT_FALSE(window.Job().IsChanged());
  Trigger("new");
  EXPECT_EQ(window.Job().Document().GetLibCmp()->GetJobArSize(), 0);
  window.OpenOrImport(job);
  EXPECT_EQ(window.Job().Document().GetLibCmp()->GetJobArSize(), 1);
  ASSERT_FALSE(RecentJobs().isEmpty());
  EXPECT_EQ(RecentJobs().front(), Q(job));
  driver.Then({{"path", "copy"}});
  Trigger("saveDocument");
  EXPECT_TRUE(std::filesystem::exists(job + "/copy.json"));
}

TEST_F(WholeWindow, AsksBeforeChangesAreLost) {
  window.OpenOrImport(folder.Write("field.jb2", e2e::SmallJb2()));
  driver.Answer("No");
  EXPECT_FALSE(window.close());
  driver.Answer("Yes");
  EXPECT_TRUE(window.close());
}

TEST_F(WholeWindow, ChangesItsLanguage) {
  Trigger("language.it");
  EXPECT_EQ(Language(), "it");
  EXPECT_EQ(ChosenLanguage(), "it");
  EXPECT_EQ(TreeText(Find<QTreeView>(window, "tree").model()->index(2, 0)), "Punti noti (0)");
  Trigger("language.en");
  EXPECT_EQ(Language(), "en");
}

TEST_F(WholeWindow, ShowsAnglesInTheChosenUnit) {
  window.OpenOrImport(folder.Write("field.jb2", e2e::SmallJb2()));
  window.GoTo({NodeKind::kStation, 0, 0});
  auto& table = Find<QTableView>(window, "table");
  const QString gon = table.model()->index(0, 6).data().toString();
  Trigger("angle.2");
  window.GoTo({NodeKind::kJobs});
  window.GoTo({NodeKind::kStation, 0, 0});
  EXPECT_NE(table.model()->index(0, 6).data().toString(), gon);
  EXPECT_TRUE(table.model()->index(0, 6).data().toString().contains(QChar(0xb0)));
  Trigger("angle.0");
}

TEST_F(WholeWindow, KeepsTheUnitOfAnglesForNewJobs) {
  Trigger("angle.1");
  Trigger("new");
  EXPECT_EQ(static_cast<int>(CMeasureSystem::GetAngleUnit()), 1);
  Trigger("angle.0");
}

TEST_F(WholeWindow, GivesItsReferenceSystemToWhatComesLater) {
  driver.Then({{"crs", "EPSG:32632"}});
  Trigger("referenceSystem");
  window.OpenOrImport(KALVIO_SAMPLES "/gps.jb3");
  CLibGps& gps = *window.Job().Document().GetLibGps();
  ASSERT_GT(gps.GetGrpArSize(), 0);
  EXPECT_EQ(gps.GetGrpAt(0)->GetCrs().ToUtf8(), "EPSG:32632");
  ASSERT_GT(gps.GetPunArSize(0), 0);
  EXPECT_TRUE(IsDefined(gps.GetPunAt(0, 0)->GetCoordX()));
}

TEST_F(WholeWindow, CopiesTheTreeAndTheTable) {
  window.OpenOrImport(folder.Write("field.jb2", e2e::SmallJb2()));
  window.GoTo({NodeKind::kStation, 0, 0});
  auto& table = Find<QTableView>(window, "table");
  table.setFocus();
  Trigger("copy");
  QString text = QGuiApplication::clipboard()->text();
  EXPECT_TRUE(text.startsWith("Name\tDescr.\tEast")) << text.toStdString();
  EXPECT_EQ(text.count('\n'), 3) << "titles and two points";
  table.selectRow(1);
  Trigger("copy");
  EXPECT_EQ(QGuiApplication::clipboard()->text().count('\n'), 2);
  window.activateWindow();
  Find<QTreeView>(window, "tree").setFocus();
  Trigger("copy");
  text = QGuiApplication::clipboard()->text();
  EXPECT_TRUE(text.startsWith("Jobs (1)\n\t")) << text.toStdString();
  EXPECT_TRUE(text.contains("\n\t\tS1 (2)\n")) << text.toStdString();
}

TEST_F(WholeWindow, AReportGoesWithTheJobThatItIsAbout) {
  window.OpenOrImport(folder.Write("field.jb2", e2e::SmallJb2()));
  EXPECT_NE(Report(), "");
  driver.Answer("Yes");
  Trigger("new");
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_EQ(Report(), "");
}

TEST_F(WholeWindow, TellsThePathOfAnImage) {
  window.OpenOrImport(folder.Write("site.png", "no picture"));
  EXPECT_TRUE(Report().contains("site.png")) << Report().toStdString();
  EXPECT_TRUE(Report().contains("path of an image only")) << Report().toStdString();
  EXPECT_FALSE(window.Job().IsChanged());
}

TEST_F(WholeWindow, LeadsFromThePlanToThePoint) {
  window.Job().Document().GetLibPnt()->AddGrp(true);
  window.Job().Document().GetLibPnt()->AddPtn(0, true)->SetNomCoord("P7", "c", 10, 20, 3);
  window.ShowJob();
  auto& plan = static_cast<plan::PlanView&>(Find<QWidget>(window, "plan"));
  const plot::Place at = plan.Window().ToPixels({10, 20});
  QTest::mouseClick(&plan, Qt::LeftButton, {}, {static_cast<int>(at.x), static_cast<int>(at.y)});
  EXPECT_EQ(TreeText(Find<QTreeView>(window, "tree").currentIndex()), "P7");
  QTest::mouseMove(&plan, {static_cast<int>(at.x), static_cast<int>(at.y)});
  EXPECT_TRUE(Find<QLabel>(window, "place").text().startsWith("E "));
}

TEST_F(WholeWindow, HasATextForEveryTool) {
  for (auto* const button : window.findChild<QToolBar*>("tools")->findChildren<QToolButton*>()) {
    if (button->objectName() == "qt_toolbar_ext_button") continue;
    EXPECT_FALSE(button->accessibleName().isEmpty());
    EXPECT_FALSE(button->icon().isNull()) << button->accessibleName().toStdString();
    EXPECT_FALSE(button->toolTip().isEmpty());
  }
}

TEST(HandheldWindow, ShowsOneViewAtATime) {
  const Module module;
  const DialogShape shape = CPalmDevice::SelectIdDlgStd({240, 320});
  UseStyleFor(shape);
  {
    MainWindow window(module, shape);
    window.show();
    EXPECT_EQ(window.size(), shape.screen);
    auto& pages = Find<QTabWidget>(window, "pages");
    ASSERT_EQ(pages.count(), 4);
    for (int page = 0; page < pages.count(); ++page) {
      pages.setCurrentIndex(page);
      EXPECT_TRUE(pages.widget(page)->isVisible());
      EXPECT_FALSE(pages.tabIcon(page).isNull());
      EXPECT_FALSE(pages.tabToolTip(page).isEmpty());
    }
  }
  UseStyleFor({});
}

TEST_F(WholeWindow, SetsTheReferenceSystemOfGpsGroups) {
  window.Job().Document().GetLibGps()->AddGrp(true);
  driver.Then({{"crs", "EPSG:0"}});
  driver.Answer("OK");
  Trigger("referenceSystem");
  EXPECT_TRUE(window.Job().Document().GetLibGps()->GetGrpAt(0)->GetCrs().IsEmpty());
  driver.Then({{"crs", "EPSG:32632"}});
  Trigger("referenceSystem");
  EXPECT_EQ(window.Job().Document().GetLibGps()->GetGrpAt(0)->GetCrs().ToUtf8(), "EPSG:32632");
}

TEST_F(WholeWindow, ACancelledExchangeLeavesNoReportAndNoUndo) {
  driver.Push("Cancel");
  Trigger("FImportJB2File");
  EXPECT_EQ(Report(), "");
  EXPECT_FALSE(window.Job().CanUndo());
  EXPECT_FALSE(window.Job().IsChanged());
}

class StoppedWork : public WholeWindow {
 protected:
  StoppedWork() {
    std::string text = "J|long|\nS|1|\n";
    for (int i = 0; i < 20'000; ++i) text += "P|" + std::to_string(i) + "|\n";
    folder.Write("long.jb2", text);
    QtViews::patience = 0;
  }
  ~StoppedWork() override { QtViews::patience = before_; }

  /// Runs an exchange of `file` and stops it as soon as it tells how far it is.
  void Stop(const char* action, const std::string& file, bool replaces) {
    driver.Then({{"path", folder.File(file)}});
    if (replaces) driver.Answer("Yes");
    QTimer user;
    QObject::connect(&user, &QTimer::timeout, [] {
      for (QWidget* const window : QApplication::topLevelWidgets()) {
        if (window->objectName() == "wait") QTest::keyClick(window, Qt::Key_Escape);
      }
    });
    user.start(0);
    Trigger(action);
    EXPECT_EQ(Report(), "");
    EXPECT_EQ(window.statusBar()->currentMessage(), "stopped");
  }

 private:
  int before_ = QtViews::patience;
};

TEST_F(StoppedWork, AnImportLeavesTheJobAsItWas) {
  Stop("FImportJB2File", "long.jb2", /*replaces=*/false);
  EXPECT_EQ(window.Job().Document().GetLibCmp()->GetJobArSize(), 0);
  EXPECT_FALSE(window.Job().CanUndo());
  EXPECT_FALSE(window.Job().IsChanged());
}

TEST_F(StoppedWork, AnExportLeavesTheOldFile) {
  CLibCmp& library = *window.Job().Document().GetLibCmp();
  library.AddJob(true);
  library.AddSta(0, true);
  for (int i = 0; i < 20'000; ++i) library.AddPun(0, 0, true)->SetNome("P");
  folder.Write("old.jb3", "old");
  Stop("FExportJB3File", "old.jb3", /*replaces=*/true);
  EXPECT_EQ(ReadBytes(folder.File("old.jb3")), "old");
}

TEST_F(WholeWindow, TellsWhenThereIsNothingToExport) {
  driver.Answer("OK");
  Trigger("FExportJB2File");
  EXPECT_EQ(driver.messages, std::vector<std::string>{"There are no data to export."});
}

}  // namespace
