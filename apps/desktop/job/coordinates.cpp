#include "apps/desktop/job/coordinates.h"

#include "apps/desktop/qt_text.h"
#include "host/geodesy/gps_positions.h"
#include "host/survey/compute.h"
#include "survey_words.h"

ExchangeReport WorkOutCoordinates(HostDocument& document, bool isAnew) {
  CompletePositions(*document.GetLibGps(), {});
  survey::ComputationSettings settings = survey::ReadComputationSettings();
  settings.isAnew = isAnew;
  const survey::SurveyResult result =
      survey::ComputeCoordinates(*document.GetLibCmp(), *document.GetLibPnt(), settings);
  ExchangeReport report{Translated(ToXlate("Coordinates")), {}};
  for (const std::string& line : SummaryLines(result)) report.Tell(ToQt(line));
  for (const Remark& each : StrandedStations(result)) report.Warn(each.text, each.about, document);
  for (const Remark& each : WhatStandsOut(result)) report.Warn(each.text, each.about, document);
  if (report.lines.empty()) report.Tell(Translated(ToXlate("There is nothing to work out.")));
  return report;
}
