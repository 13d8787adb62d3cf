// The first two records: what the file is about.
#pragma once

#include "host/cadastre/dat_draft.h"
#include "model/cadastre.h"

namespace dat {

/// Tells as faults what is missing or wrong in the data of the heading.
void CheckHeading(const cadastre::Survey& survey, DatDraft& draft);

/// Records 0 and 9.
void WriteHeading(const cadastre::Survey& survey, DatDraft& draft);

}  // namespace dat
