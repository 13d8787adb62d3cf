#include "tests/desktop/screenshots_job.h"

#include <cmath>
#include <filesystem>
#include <fstream>

#include "apps/desktop/qt_text.h"
#include "counts.h"

namespace {

constexpr double kTurn = 6.283185307179586;

void AddTotalStation(CLibCmp& library) {
  library.AddJob(true)->SetLabels("WALL", "R. Neri", "TS-1", "2026-05-04");
  constexpr int kPoints = 24;
  for (int station = 0; station < 2; ++station) {
    CSta& set = *library.AddSta(0, true);
    set.SetNomCoord(station == 0 ? "S1" : "S2", "nail", 1500 + 60 * station, 2500, 101.2);
    set.SetAltStr(1.62);
    for (int i = 0; i < kPoints; ++i) {
      CPun& point = *library.AddPun(0, station, true);
      const double angle = kTurn * i / kPoints;
      const double distance = 18 + (i * 7) % 13;
      point.SetDtIntAng(distance, 98.5 + 0.1 * i, 400.0 * i / kPoints, 0);
      point.SetNomCoord(tdk::WString(std::to_string(100 * (station + 1) + i)),
                        i % 3 == 0 ? "WALL" : "TREE",
                        1500 + 60 * station + distance * std::sin(angle),
                        2500 + distance * std::cos(angle), 101 + 0.1 * i);
      point.SetAltPri(1.5);
    }
  }
}

void AddKnown(CLibPnt& library) {
  library.AddGrp(true)->SetLabels("known.csv", "", "", "");
  constexpr double kPlaces[][3] = {{1460, 2520, 101.9}, {1590, 2531, 102.4}, {1530, 2470, 100.7}};
  for (int i = 0; i < 3; ++i) {
    library.AddPtn(0, true)->SetNomCoord(tdk::WString("K" + std::to_string(i + 1)), "pillar",
                                         kPlaces[i][0], kPlaces[i][1], kPlaces[i][2]);
  }
}

}  // namespace

std::string ExampleFolder() {
  namespace fs = std::filesystem;
  const fs::path folder = fs::temp_directory_path() / "kalvio-example/survey";
  for (const char* const name : {"2025", "2026"}) fs::create_directories(folder / name);
  for (const char* const name : {"wall.jb2", "traverse.jb2", "plan.dxf"}) {
    std::ofstream(folder / name) << '\n';
  }
  return folder.string();
}

void FillExample(HostDocument& document) {
  AddTotalStation(*document.GetLibCmp());
  AddKnown(*document.GetLibPnt());
  document.GetLibGps()->AddGrp(true)->SetNomeGrp("base 1");
  document.GetCadEngine()->AddDrawing(0, "KERBS", true, false, false);
}

ExchangeReport ExampleReport(HostDocument& document) {
  ExchangeReport report{Translated("JB2 file import"), {}};
  report.Tell(ToQt(ExampleFolder() + "/roma.jb2"));
  report.Tell(Translated("came in: {1}", {tdk::WString(InWords(CountsOf(document) - Counts{}))}));
  report.Tell(Translated("new: {1}: {2}", {Xlate("Jobs"), "VIA ROMA"}), JobNode{NodeKind::kJob});
  report.Warn(
      Fill(Xlate("station {1}: the height of {2} is {3} mm off"), {"S2", "S1", "12"}).ToUtf8(),
      "S2", document);
  return report;
}
