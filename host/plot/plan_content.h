// What of a job a plan is made of.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "host/document/host_document.h"
#include "host/plot/line_work.h"

namespace plot {

/// In the order in which they are drawn and named: what is more important first.
enum class MarkKind {
  kStation,
  kGpsBase,
  kKnown,
  kControl,
  kGps,
  kManyKnown,  ///< a known point among so many that none of them stands out
  kMeasured
};
inline constexpr int kMarkKinds = 7;

/// Of more known points than this each is drawn small and named after the roads.
inline constexpr std::size_t kMostKnownThatStandOut = 200;

/// A point of the job that has plane coordinates.
struct Mark {
  Place place;
  const CEgn* point = nullptr;
  MarkKind kind = MarkKind::kMeasured;
};

struct PlanContent {
  std::vector<Mark> marks;  ///< by kind, each in the order of its library
  std::vector<const CDtmPrj*> models;
  std::vector<const CRoad*> roads;
  std::vector<LineWork> themes;
  std::vector<LineWork> drawings;  ///< layers of the drawing, hidden ones too
  std::uint64_t withoutPlace = 0;  ///< points without plane coordinates

  /// Whether there is nothing that has a place.
  bool IsEmpty() const;
};

/// Everything that has a place; models only with `terrain`, roads only when the host does not call
/// them empty. What it points to is the document's.
PlanContent ContentOf(HostDocument& document, bool terrain);

/// The entities of all layers.
std::uint64_t EntityCount(const PlanContent& content);

/// How far it reaches, metres.
Box ExtentOf(const PlanContent& content);

struct Elevations {
  double least = UndefinedValue;
  double most = UndefinedValue;  ///< undefined when there is no elevation
  void Add(double elevation);
  bool IsThere() const { return IsDefined(most); }
};
Elevations ElevationsOf(const std::vector<const CDtmPrj*>& models);
Elevations ElevationsOf(const PlanContent& content);

/// A text as a picture can show it: UTF-8, no control characters, on one line, not without end.
std::string DrawableText(const std::string& text);

}  // namespace plot
