#include <QApplication>
#include <QScreen>
#include <optional>

#include "apps/desktop/dialogs/handheld_style.h"
#include "apps/desktop/icons.h"
#include "apps/desktop/main_window.h"
#include "apps/desktop/user_settings.h"
#include "console.h"
#include "failure.h"
#include "host/cad/cad_files.h"
#include "host/geodesy/lazy_geodesy.h"
#include "host/gis/shape_files.h"
#include "language.h"
#include "services/translate.h"

namespace {

// What can be said without a screen; nothing when windows are wanted.
std::optional<std::string> TextFor(std::string_view word) {
  if (word == "--version") return std::string("kalvio-desktop ") + KALVIO_VERSION + "\n";
  if (word != "--help" && word != "-h") return std::nullopt;
  return Xlate(
             "Usage: kalvio-desktop [JOB|FILE]...\n\n"
             "Opens a job folder or .json document and imports files into it. Without a word, a "
             "new job.\n")
      .ToUtf8();
}

int Run() {
  const Module module;
  const DialogShape shape = CPalmDevice::SelectIdDlgStd(QGuiApplication::primaryScreen()->size());
  UseStyleFor(shape);
  MainWindow window(module, shape);
  window.show();
  window.OpenSoon(QApplication::arguments().mid(1));
  return QApplication::exec();
}

}  // namespace

int main(int argc, char** argv) {
  QCoreApplication::setOrganizationName("Kalvio");
  QCoreApplication::setApplicationName("kalvio-desktop");
  QCoreApplication::setApplicationVersion(KALVIO_VERSION);
  StartLanguage(ChosenLanguage());
  if (const auto text = argc > 1 ? TextFor(argv[1]) : std::nullopt) {
    console::Out(*text);
    return console::FinishOutput() ? 0 : exit_status::kFailed;
  }
  const QApplication application(argc, argv);
  QGuiApplication::setDesktopFileName("kalvio-desktop");
  QApplication::setWindowIcon(ProgramIcon());
  LazyGeodesy::Install();
  CadFiles::Install();
  ShapeFiles::Install();
  try {
    return Run();
  } catch (const std::exception& error) {
    console::Err(std::string("kalvio-desktop: ") + error.what() + "\n");
    return exit_status::kFailed;
  }
}
