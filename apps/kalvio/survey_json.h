// The report of a computation for programs.
#pragma once

#include <string>

#include "host/document/host_document.h"
#include "survey_words.h"

/// One JSON object. Lengths in metres, angles in gon; what is undefined is null.
std::string SurveyJson(HostDocument& document, const ComputationReport& report);
