#include "apps/desktop/user_settings.h"

#include <QSettings>

#include "apps/desktop/qt_text.h"
#include "job_session.h"

namespace {

constexpr const char* kRecent = "recentJobs";
constexpr const char* kLanguage = "language";
constexpr const char* kAngleUnit = "angleUnit";
constexpr const char* kGeometry = "window/geometry";
constexpr const char* kState = "window/state";

}  // namespace

QStringList RecentJobs() { return QSettings().value(kRecent).toStringList(); }

void AddRecentJob(const std::string& path) {
  constexpr int kMost = 10;
  const QString absolute = ToQt(AbsolutePath(path));
  QStringList jobs = RecentJobs();
  jobs.removeAll(absolute);
  jobs.prepend(absolute);
  QSettings().setValue(kRecent, jobs.mid(0, kMost));
}

std::optional<std::string> ChosenLanguage() {
  const std::string language = ToUtf8(QSettings().value(kLanguage).toString());
  return language.empty() ? std::nullopt : std::optional(language);
}

void ChooseLanguage(const std::string& language) {
  QSettings().setValue(kLanguage, ToQt(language));
}

std::optional<int> ChosenAngleUnit() {
  bool isNumber = false;
  const int unit = QSettings().value(kAngleUnit).toInt(&isNumber);
  return isNumber ? std::optional(unit) : std::nullopt;
}

void ChooseAngleUnit(int unit) { QSettings().setValue(kAngleUnit, unit); }

void KeepWindow(const QMainWindow& window) {
  QSettings settings;
  settings.setValue(kGeometry, window.saveGeometry());
  settings.setValue(kState, window.saveState());
}

void RestoreWindow(QMainWindow& window) {
  const QSettings settings;
  window.restoreGeometry(settings.value(kGeometry).toByteArray());
  window.restoreState(settings.value(kState).toByteArray());
}
