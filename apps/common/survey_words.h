// What a computation of coordinates found, in words.
#pragma once

#include <string>
#include <vector>

#include "host/geodesy/gps_positions.h"
#include "host/survey/computation.h"

class HostDocument;

/// All that a computation tells of a job.
struct ComputationReport {
  survey::SurveyResult survey;
  std::vector<GroupPositions> gps;
};

/// How many stations and points got coordinates and how many points have none, and where a job
/// begins of which nothing is known: a line each, none when there was nothing to compute.
std::vector<std::string> SummaryLines(const survey::SurveyResult& result);

/// A sentence and the name of the station or point that it is about.
struct Remark {
  std::string text;
  std::string about;
};

/// Which stations place no points, and why; and the same without names.
std::vector<Remark> StrandedStations(const survey::SurveyResult& result);
std::vector<std::string> Stranded(const survey::SurveyResult& result);

/// What stands out: blunders, points that are not one, known points that contradict each other; and
/// the same without names.
std::vector<Remark> WhatStandsOut(const survey::SurveyResult& result);
std::vector<std::string> Findings(const survey::SurveyResult& result);

/// In one word or a few, translated.
std::string InWords(survey::SetUpMethod method);
std::string InWords(survey::SetUpTrouble trouble);
std::string InWords(survey::PointTrouble trouble);
std::string InWords(NoPlane why);
