// Coordinates of a whole job, as the options say.
#pragma once

#include "arguments.h"
#include "host/document/host_document.h"
#include "host/survey/computation.h"
#include "survey_words.h"

/// The open job's settings with what --again, --refraction and --add-prism-constant change. Throws
/// Failure (bad usage).
survey::ComputationSettings ComputationOptions(const Arguments& arguments);

/// The value of --crs, empty without it; throws Failure when it is no reference system that is
/// known.
tdk::WString ReferenceSystemOption(const Arguments& arguments);

/// Of total-station points from their observations, of GPS points through their group's reference
/// system.
ComputationReport ComputeJob(HostDocument& document, const survey::ComputationSettings& settings);
