#include "host/cadastre/compose.h"

#include "host/cadastre/dat_gps.h"
#include "host/cadastre/dat_heading.h"
#include "host/cadastre/dat_lines.h"
#include "host/cadastre/dat_total_station.h"
#include "services/translate.h"

namespace dat {
namespace {

void RemarkOnTexts(DatDraft& draft) {
  const TextChanges& changes = draft.changes;
  draft.RemarkOf(changes.separators, Xlate("| in a text became / ({1})"));
  draft.RemarkOf(changes.letters, Xlate("letters that the file cannot hold became ? ({1})"));
  draft.RemarkOf(changes.reportWords,
                 Xlate("the word TECNICA, which begins the report, became TECN. ({1})"));
  draft.RemarkOf(changes.numericNotes, Xlate("notes that are numbers begin with COD ({1})"));
}

}  // namespace

DatText Compose(const CCts& cadastre, const CLibCmp& surveys, const CLibGps& gps) {
  const cadastre::Survey& survey = cadastre.Survey();
  DatDraft draft;
  CheckHeading(survey, draft);
  WriteHeading(survey, draft);
  WriteTraverses(survey, draft);
  WriteTotalStation(surveys, draft);
  WriteGps(gps, draft);
  if (draft.surveyed.empty()) draft.Remark(Xlate("there are no observations"));
  WriteContours(survey, draft);
  WriteFiducials(survey, draft);
  CheckNames(draft);
  RemarkOnTexts(draft);
  return {std::move(draft.bytes), std::move(draft.faults), std::move(draft.remarks)};
}

}  // namespace dat
