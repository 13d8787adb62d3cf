// The coordinates of a job's points, once its set-ups have theirs.
#pragma once

#include "host/survey/computation.h"
#include "host/survey/network.h"

namespace survey {

/// Writes the coordinates of stations and points into the library and fills `result`, whose set-ups
/// are there already, with what was placed, averaged and missing.
void PlacePointsOf(const Network& net, const ComputationSettings& settings, JobResult& result);

}  // namespace survey
