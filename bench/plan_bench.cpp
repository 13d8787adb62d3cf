// kalvio-bench-plan: a large job on the desktop: until it is opened and seen, against loading it
// alone; and how long the plan takes to be drawn anew while it is moved.
#include <QApplication>
#include <QMouseEvent>
#include <QSettings>
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <random>

#include "apps/desktop/main_window.h"
#include "apps/desktop/plan/plan_view.h"
#include "folder.h"
#include "host/document/host_document.h"
#include "host/store/job_store.h"
#include "job_session.h"
#include "measure.h"

namespace bench {
namespace {

constexpr int kPoints = 1'000'000;
constexpr int kStations = 1000;
constexpr double kOpenNoSlower = 3;   // times loading the job
constexpr double kMostToRedraw = 50;  // milliseconds
constexpr int kSteps = 61;

std::string Name(char kind, int i) {
  char text[16];
  std::snprintf(text, sizeof text, "%c%06d", kind, i);
  return text;
}

// Stations every 200 metres, their points in the squares around them.
void Fill(CLibCmp& library) {
  constexpr int kColumns = 40;
  constexpr double kSide = 200;  // metres
  std::mt19937 random(1);
  std::uniform_real_distribution<double> within(-kSide / 2, kSide / 2);
  library.AddJob(true)->SetLabels("LARGE", "", "", "");
  for (int i = 0; i < kStations; ++i) {
    const double east = 1e5 + kSide * (i % kColumns);
    const double north = 2e5 + kSide * (i / kColumns);
    CSta& station = *library.AddSta(0, true);
    station.SetNomCoord(tdk::WString(Name('S', i)), "nail", east, north, 100);
    for (int k = 0; k < kPoints / kStations; ++k) {
      CPun& point = *library.AddPun(&station, true);
      point.SetNomCoord(tdk::WString(Name('P', i * (kPoints / kStations) + k)), "TREE",
                        east + within(random), north + within(random), 101);
    }
  }
}

double LoadSeconds(const std::string& path) {
  HostDocument document;
  return SecondsOf([&] { LoadJob(path, document); });
}

double OpenSeconds(const Module& module, const std::string& path) {
  MainWindow window(module, DialogShape{});
  window.show();
  QApplication::processEvents();
  return SecondsOf([&] {
    window.OpenJob(path);
    window.repaint();
    QApplication::processEvents();
  });
}

void SendMouse(QWidget& widget, QEvent::Type type, const QPointF& at) {
  const Qt::MouseButton button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
  QMouseEvent event(type, at, widget.mapToGlobal(at), button, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(&widget, &event);
}

// The plan is dragged to and fro.
Runs Redraws(plan::PlanView& plan) {
  Runs runs;
  const QPointF middle(plan.width() / 2.0, plan.height() / 2.0);
  SendMouse(plan, QEvent::MouseButtonPress, middle);
  for (int i = 1; i <= kSteps; ++i) {
    const double angle = 0.4 * i;
    const QPointF at = middle + QPointF(80 * std::sin(angle), 60 * std::sin(2 * angle));
    runs.Add(SecondsOf([&] {
      SendMouse(plan, QEvent::MouseMove, at);
      plan.repaint();
    }));
  }
  SendMouse(plan, QEvent::MouseButtonRelease, middle);
  return runs;
}

bool Print(Row row, bool isKept) {
  row.kept = isKept;
  PrintRow(row);
  return isKept;
}

bool PrintRedraws(const std::string& what, const Runs& runs) {
  constexpr double kMilliseconds = 1e3;
  return Print({.what = what,
                .figure = Figure(runs, kMilliseconds, 1, "ms"),
                .limit = Number(kMostToRedraw, 0) + " ms"},
               runs.Median() * kMilliseconds <= kMostToRedraw);
}

bool Run() {
  const Folder folder;
  const std::string path = folder.File("job");
  {
    HostDocument document;
    Fill(*document.GetLibCmp());
    SaveJob(path, document);
  }
  const Module module;
  constexpr int kRounds = 5;
  const std::vector<Runs> runs = Interleaved(
      kRounds, {[&] { return OpenSeconds(module, path); }, [&] { return LoadSeconds(path); }});
  const std::string size = JobSize(kPoints, kStations);
  const double ratio = runs[0].Minimum() / runs[1].Minimum();
  bool allKept = Print({.what = "opened and seen on the desktop; bare: loaded, " + size,
                        .figure = Figure(runs[0], 1, 2, "s"),
                        .bare = Figure(runs[1], 1, 2, "s"),
                        .ratio = Number(ratio, 2),
                        .limit = Number(kOpenNoSlower, 0)},
                       ratio <= kOpenNoSlower);

  MainWindow window(module, DialogShape{});
  window.show();
  window.OpenJob(path);
  auto& plan = *window.findChild<plan::PlanView*>();
  allKept =
      PrintRedraws("the plan moved by a step, all of it seen, median", Redraws(plan)) && allKept;
  constexpr int kZooms = 4;  // each by one and a half: five times
  for (const int times : {5, 25, 125}) {
    for (int i = 0; i < kZooms; ++i) plan.ZoomIn();
    allKept =
        PrintRedraws("the same, about " + Number(times, 0) + " times as large", Redraws(plan)) &&
        allKept;
  }
  return allKept;
}

}  // namespace
}  // namespace bench

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  const bench::Folder settings;
  QSettings::setDefaultFormat(QSettings::IniFormat);
  QSettings::setPath(QSettings::IniFormat, QSettings::UserScope,
                     QString::fromStdString(settings.File("settings")));
  try {
    return bench::Run() ? 0 : 1;
  } catch (const std::exception& error) {
    std::fprintf(stderr, "kalvio-bench-plan: %s\n", error.what());
    return 2;
  }
}
