// Traverses, contours and fiducial points: records that name points of the survey.
#pragma once

#include "host/cadastre/dat_draft.h"
#include "model/cadastre.h"

namespace dat {

/// Records 3. Their layout is not certain, so they are written only where the job's settings ask
/// for them.
void WriteTraverses(const cadastre::Survey& survey, DatDraft& draft);
/// Records 7.
void WriteContours(const cadastre::Survey& survey, DatDraft& draft);
/// Records 8.
void WriteFiducials(const cadastre::Survey& survey, DatDraft& draft);

/// Tells of names that no set-up or observation of the draft has.
void CheckNames(DatDraft& draft);

}  // namespace dat
