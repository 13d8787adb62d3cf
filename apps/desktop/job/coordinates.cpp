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
  for (const std::string& line : Stranded(result)) report.Warn(line, document);
  for (const std::string& line : Findings(result)) report.Warn(line, document);
  if (report.lines.empty()) report.Tell(Translated(ToXlate("There is nothing to work out.")));
  return report;
}
