// The tests of the desktop, without a screen. With --screenshots FOLDER [JOB…]: pictures of its
// windows instead.
#include <gtest/gtest.h>

#include <QApplication>
#include <QSettings>
#include <QTemporaryDir>

#include "host/cad/cad_files.h"
#include "host/geodesy/lazy_geodesy.h"
#include "host/gis/shape_files.h"
#include "tests/desktop/screenshots.h"

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  testing::InitGoogleTest(&argc, argv);
  QApplication application(argc, argv);
  const QTemporaryDir settings;
  QSettings::setDefaultFormat(QSettings::IniFormat);
  QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, settings.path());
  QApplication::setOrganizationName("Kalvio");
  QApplication::setApplicationName("kalvio-desktop-tests");
  LazyGeodesy::Install();
  CadFiles::Install();
  ShapeFiles::Install();
  const QStringList words = QApplication::arguments();
  if (words.size() >= 3 && words[1] == "--screenshots") {
    return TakeScreenshots(words[2], words.mid(3));
  }
  return RUN_ALL_TESTS();
}
