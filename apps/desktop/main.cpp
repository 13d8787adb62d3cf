#include <QApplication>
#include <QScreen>
#include <cstdlib>

#include "apps/desktop/dialogs/handheld_style.h"
#include "apps/desktop/main_window.h"
#include "apps/desktop/qt_text.h"
#include "apps/desktop/user_settings.h"
#include "console.h"
#include "failure.h"
#include "host/cad/cad_files.h"
#include "host/geodesy/lazy_geodesy.h"
#include "host/gis/shape_files.h"

namespace {

// The user's choice, else that of the first of these variables that is set.
void StartLanguage() {
  if (const std::string chosen = ChosenLanguage(); !chosen.empty()) {
    SetLanguage(chosen);
    return;
  }
  for (const char* variable : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
    const char* const value = std::getenv(variable);
    if (value == nullptr || *value == '\0') continue;
    SetLanguage(value);
    return;
  }
}

int Run(QApplication& application) {
  const Module module;
  const DialogShape shape =
      CPalmDevice::SelectIdDlgStd(QGuiApplication::primaryScreen()->size());
  UseStyleFor(shape);
  MainWindow window(module, shape);
  window.show();
  const QStringList words = application.arguments().mid(1);
  QMetaObject::invokeMethod(
      &window,
      [&window, words] {
        for (const QString& word : words) window.OpenOrImport(ToUtf8(word));
      },
      Qt::QueuedConnection);
  return QApplication::exec();
}

}  // namespace

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QApplication::setOrganizationName("Kalvio");
  QApplication::setApplicationName("kalvio-desktop");
  QApplication::setApplicationVersion(KALVIO_VERSION);
  QApplication::setWindowIcon(QIcon::fromTheme("kalvio-desktop"));
  LazyGeodesy::Install();
  CadFiles::Install();
  ShapeFiles::Install();
  StartLanguage();
  try {
    return Run(application);
  } catch (const std::exception& error) {
    console::Err(std::string("kalvio-desktop: ") + error.what() + "\n");
    return exit_status::kFailed;
  }
}
