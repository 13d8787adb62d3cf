// The report of a computation for people.
#pragma once

#include <string>

#include "host/document/host_document.h"
#include "survey_words.h"

/// Stations with method, orientation and residuals; points that were measured more than once; those
/// without coordinates, and why. `all`: lists in full; else long ones are cut, and tell by how
/// much.
std::string SurveyText(HostDocument& document, const ComputationReport& report, bool all);
