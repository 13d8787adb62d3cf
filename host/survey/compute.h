// Coordinates from observations.
#pragma once

#include "host/survey/computation.h"
#include "model/total_station.h"

namespace survey {

/// Works out coordinates, in metres, for the stations and points of every job, each job from the
/// known and control points that it refers to by name. The change is bracketed like an import.
SurveyResult ComputeCoordinates(CLibCmp& library, const CLibPnt& known,
                                const ComputationSettings& settings);

}  // namespace survey
