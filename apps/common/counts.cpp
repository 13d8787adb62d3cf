#include "counts.h"

#include "console.h"
#include "host/document/host_document.h"
#include "services/translate.h"

namespace {

void CountTotalStation(const CLibCmp& library, Counts& counts) {
  counts.jobs = static_cast<std::uint64_t>(library.GetJobArSize());
  for (int job = 0; job < library.GetJobArSize(); ++job) {
    counts.stations += static_cast<std::uint64_t>(library.GetStaArSize(job));
    for (int sta = 0; sta < library.GetStaArSize(job); ++sta) {
      counts.points += static_cast<std::uint64_t>(library.GetPunArSize(job, sta));
    }
  }
  counts.controlPoints = static_cast<std::uint64_t>(library.GetOriArSize());
}

void CountDesign(HostDocument& document, Counts& counts) {
  const CLibDtm& models = *document.GetLibDtm();
  counts.surfaces = static_cast<std::uint64_t>(models.GetPrjArSize());
  for (int i = 0; i < models.GetPrjArSize(); ++i) {
    counts.triangles += static_cast<std::uint64_t>(models.GetPrjAt(i)->GetTris().GetNoTris());
  }
  counts.roads = static_cast<std::uint64_t>(document.GetLibRoad()->GetRoadArSize());
  counts.entities = static_cast<std::uint64_t>(document.GetCadEngine()->Entities().size());
  const gis::CLibGis& themes = *document.GetLibGis();
  counts.themes = static_cast<std::uint64_t>(themes.GetNumThemes());
  for (int i = 0; i < themes.GetNumThemes(); ++i) {
    counts.features += static_cast<std::uint64_t>(themes.GetTheme(i)->GetNumFeatures());
  }
}

}  // namespace

Counts CountsOf(HostDocument& document) {
  Counts counts;
  CountTotalStation(*document.GetLibCmp(), counts);
  const CLibGps& gps = *document.GetLibGps();
  counts.gpsGroups = static_cast<std::uint64_t>(gps.GetGrpArSize());
  for (int i = 0; i < gps.GetGrpArSize(); ++i) {
    counts.gpsPoints += static_cast<std::uint64_t>(gps.GetPunArSize(i));
  }
  const CLibPnt& known = *document.GetLibPnt();
  counts.knownGroups = static_cast<std::uint64_t>(known.GetGrpArSize());
  for (int i = 0; i < known.GetGrpArSize(); ++i) {
    counts.knownPoints += static_cast<std::uint64_t>(known.GetPtnArSize(i));
  }
  CountDesign(document, counts);
  return counts;
}

Counts operator-(const Counts& more, const Counts& less) {
  return {more.jobs - less.jobs,
          more.stations - less.stations,
          more.points - less.points,
          more.gpsGroups - less.gpsGroups,
          more.gpsPoints - less.gpsPoints,
          more.knownGroups - less.knownGroups,
          more.knownPoints - less.knownPoints,
          more.controlPoints - less.controlPoints,
          more.surfaces - less.surfaces,
          more.triangles - less.triangles,
          more.roads - less.roads,
          more.entities - less.entities,
          more.themes - less.themes,
          more.features - less.features};
}

Counts Within(const Counts& counts, const Carried& carried) {
  Counts part{counts.jobs, counts.stations, counts.points};
  if (carried.gps) {
    part.gpsGroups = counts.gpsGroups;
    part.gpsPoints = counts.gpsPoints;
  }
  if (carried.known) {
    part.knownGroups = counts.knownGroups;
    part.knownPoints = counts.knownPoints;
  }
  if (carried.controls) part.controlPoints = counts.controlPoints;
  if (carried.design) {
    part.surfaces = counts.surfaces;
    part.triangles = counts.triangles;
    part.roads = counts.roads;
  }
  if (carried.drawing) part.entities = counts.entities;
  if (carried.themes) {
    part.themes = counts.themes;
    part.features = counts.features;
  }
  return part;
}

std::string InWords(const Counts& counts) {
  std::string text;
  const auto add = [&](std::uint64_t value, const tdk::WString& one, const tdk::WString& many) {
    if (value == 0) return;
    if (!text.empty()) text += ", ";
    text += console::Count(value, one, many);
  };
  add(counts.jobs, Xlate("{1} job"), Xlate("{1} jobs"));
  add(counts.stations, Xlate("{1} station"), Xlate("{1} stations"));
  add(counts.points, Xlate("{1} point"), Xlate("{1} points"));
  add(counts.gpsGroups, Xlate("{1} GPS group"), Xlate("{1} GPS groups"));
  add(counts.gpsPoints, Xlate("{1} GPS point"), Xlate("{1} GPS points"));
  add(counts.knownGroups, Xlate("{1} group of known points"), Xlate("{1} groups of known points"));
  add(counts.knownPoints, Xlate("{1} known point"), Xlate("{1} known points"));
  add(counts.controlPoints, Xlate("{1} control point"), Xlate("{1} control points"));
  add(counts.surfaces, Xlate("{1} terrain model"), Xlate("{1} terrain models"));
  add(counts.triangles, Xlate("{1} triangle"), Xlate("{1} triangles"));
  add(counts.roads, Xlate("{1} road"), Xlate("{1} roads"));
  add(counts.entities, Xlate("{1} drawn entity"), Xlate("{1} drawn entities"));
  add(counts.themes, Xlate("{1} theme"), Xlate("{1} themes"));
  add(counts.features, Xlate("{1} feature"), Xlate("{1} features"));
  return text.empty() ? Xlate("nothing").ToUtf8() : text;
}
