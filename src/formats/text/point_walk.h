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

/// How many points one unit has: a group (`unit`), a station (`job`, `unit`), or the list of
/// control records.
inline int UnitSize(const Libraries& from, int kind, int job, int unit) {
  switch (kind) {
    case kKnownPoints: return from.known->GetPtnArSize(unit);
    case kControlPoints: return from.totalStation->GetOriArSize();
    case kTotalStation: return from.totalStation->GetPunArSize(job, unit);
    case kGpsGroups: return from.gps->GetPunArSize(unit);
    default: return 0;
  }
}

/// Calls `visit` for every point of one unit.
template <class Visit>
void ForEachPointOfUnit(const Libraries& from, int kind, int job, int unit, Visit visit) {
  const auto each = [&, count = UnitSize(from, kind, job, unit)](auto pointAt) {
    for (int i = 0; i < count; ++i) visit(static_cast<const CEgn&>(*pointAt(i)));
  };
  switch (kind) {
    case kKnownPoints: return each([&](int i) { return from.known->GetPtnAt(unit, i); });
    case kControlPoints: return each([&](int i) { return from.totalStation->GetOriAt(i); });
    case kTotalStation:
      return each([&](int i) { return from.totalStation->GetPunAt(job, unit, i); });
    case kGpsGroups: return each([&](int i) { return from.gps->GetPunAt(unit, i); });
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

/// How many points all units of a kind have.
inline std::uint64_t PointCount(const Libraries& from, int kind) {
  std::uint64_t count = 0;
  ForEachUnit(from, kind, [&](int job, int unit) {
    count += static_cast<std::uint64_t>(UnitSize(from, kind, job, unit));
  });
  return count;
}

/// How many points the settings choose.
inline std::uint64_t PointCount(const Libraries& from, const TextExchangeSettings& settings) {
  if (settings.IsAllUnits()) return PointCount(from, settings.kind);
  return static_cast<std::uint64_t>(
      UnitSize(from, settings.kind, settings.jobIndex, settings.unitIndex));
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
