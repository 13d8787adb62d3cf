// The points that an exchange is about, one after the other.
#pragma once

#include "formats/text/text_fields.h"
#include "model/gps.h"
#include "model/known_points.h"
#include "model/total_station.h"

namespace text {

/// The libraries of a document; not owned.
struct Libraries {
  CLibCmp* totalStation;
  CLibGps* gps;
  CLibPnt* known;
};

/// Calls `visit` for every point of one unit: a group (`unit`), a station (`job`, `unit`), or the
/// list of control records.
template <class Visit>
void ForEachPointOfUnit(const Libraries& from, int kind, int job, int unit, Visit visit) {
  const auto each = [&](int count, auto pointAt) {
    for (int i = 0; i < count; ++i) visit(static_cast<const CEgn&>(*pointAt(i)));
  };
  switch (kind) {
    case kKnownPoints:
      return each(from.known->GetPtnArSize(unit),
                  [&](int i) { return from.known->GetPtnAt(unit, i); });
    case kControlPoints:
      return each(from.totalStation->GetOriArSize(),
                  [&](int i) { return from.totalStation->GetOriAt(i); });
    case kTotalStation:
      return each(from.totalStation->GetPunArSize(job, unit),
                  [&](int i) { return from.totalStation->GetPunAt(job, unit, i); });
    case kGpsGroups:
      return each(from.gps->GetPunArSize(unit), [&](int i) { return from.gps->GetPunAt(unit, i); });
    default: break;
  }
}

/// Calls `visit` for every unit's (job, unit) of a kind, in library order.
template <class Visit>
void ForEachUnit(const Libraries& from, int kind, Visit visit) {
  switch (kind) {
    case kKnownPoints:
      for (int i = 0; i < from.known->GetGrpArSize(); ++i) visit(0, i);
      break;
    case kControlPoints: visit(0, 0); break;
    case kTotalStation:
      for (int job = 0; job < from.totalStation->GetJobArSize(); ++job) {
        for (int i = 0; i < from.totalStation->GetStaArSize(job); ++i) visit(job, i);
      }
      break;
    case kGpsGroups:
      for (int i = 0; i < from.gps->GetGrpArSize(); ++i) visit(0, i);
      break;
    default: break;
  }
}

/// Calls `visit(const CEgn&)` for every point that the settings choose. A point of kind
/// kTotalStation is a CPun, one of kGpsGroups a CPunGps.
template <class Visit>
void ForEachPoint(const Libraries& from, const TextExchangeSettings& settings, Visit visit) {
  if (!settings.IsAllUnits()) {
    return ForEachPointOfUnit(from, settings.kind, settings.jobIndex, settings.unitIndex, visit);
  }
  ForEachUnit(from, settings.kind, [&](int job, int unit) {
    ForEachPointOfUnit(from, settings.kind, job, unit, visit);
  });
}

}  // namespace text
