// Settings of the main window: language, unit of angles, reference system.
#include <QStatusBar>

#include "apps/desktop/dialogs/qt_views.h"
#include "apps/desktop/job/crs_dialog.h"
#include "apps/desktop/main_window.h"
#include "apps/desktop/user_settings.h"
#include "host/geodesy/gps_positions.h"
#include "services/ini_file.h"
#include "services/translate.h"

namespace {

// Where the host keeps the unit of angles.
constexpr const char* kMeasures = "Misure";
constexpr const char* kAngleUnit = "UnitaAngoli";

}  // namespace

void MainWindow::SetLanguageTo(const std::string& language) {
  statusBar()->clearMessage();
  SetLanguage(language);
  ChooseLanguage(language);
  MakeMenus();
  NameViews();
  ShowJob();
}

// A job that has no unit of its own yet gets the one that was chosen last.
void MainWindow::UseChosenAngleUnit() {
  constexpr int kNone = -1;
  const bool hasOwn = CIniFile().ReadLong(kMeasures, kAngleUnit, kNone) != kNone;
  if (const auto chosen = ChosenAngleUnit(); chosen && !hasOwn) {
    CIniFile().WriteLong(kMeasures, kAngleUnit, *chosen);
  }
}

void MainWindow::SetAngleUnit(int unit) {
  CIniFile().WriteLong(kMeasures, kAngleUnit, unit);
  ChooseAngleUnit(unit);
  Guarded([&] { job_.KeepSettings(); });
  ShowJob();
}

void MainWindow::AskReferenceSystem() {
  QtViews views(this, shape_);
  CWnd window(&views);
  CLibGps& gps = *job_.Document().GetLibGps();
  ReferenceSystemDialog dialog(&window, gps);
  if (::ShowDialog(&window, dialog) != Dialog::kOk) return;
  KeepReferenceSystem(dialog.Crs());
  Guarded([&] { job_.KeepSettings(); });
  if (!dialog.Crs().IsEmpty()) {
    for (int i = 0; i < gps.GetGrpArSize(); ++i) gps.GetGrpAt(i)->SetCrs(dialog.Crs());
    CompletePositions(gps, dialog.Crs());
    if (gps.GetGrpArSize() > 0) job_.MarkChanged();
  }
  ShowJob();
}
