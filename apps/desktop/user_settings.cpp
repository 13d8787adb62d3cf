#include "apps/desktop/user_settings.h"

#include <QSettings>

#include "apps/desktop/qt_text.h"
#include "job_session.h"

namespace {

constexpr const char* kRecent = "recentJobs";
constexpr const char* kLanguage = "language";

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

std::string ChosenLanguage() { return ToUtf8(QSettings().value(kLanguage).toString()); }

void ChooseLanguage(const std::string& language) {
  QSettings().setValue(kLanguage, ToQt(language));
}
