// The points of a job as a theme.
#pragma once

#include <cstdint>
#include <memory>

#include "host/document/host_document.h"

namespace shape {

/// A theme of points and its table, which belong to nobody yet.
struct SurveyTheme {
  std::unique_ptr<gis::CTheme> theme;
  std::unique_ptr<gis::CTable> table;  ///< NAME, CODE, NOTE, KIND and GROUP
  std::uint64_t withoutPlace = 0;      ///< points without plane coordinates, which are not in it
};

/// All points of the job in the order of its libraries: stations and observed points, GPS bases and
/// points, known points, control points. In 3D when one of them has a height. KIND is station,
/// observed, base, gps, known or control; GROUP the name of the job or group.
SurveyTheme MakeSurveyTheme(HostDocument& document, const tdk::WString& name);

}  // namespace shape
