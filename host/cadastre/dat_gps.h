// GPS bases with the baselines to what was measured from them.
#pragma once

#include "host/cadastre/dat_draft.h"
#include "model/gps.h"

namespace dat {

/// Records 1, 6 and 2 of all groups, in the library's order.
void WriteGps(const CLibGps& library, DatDraft& draft);

}  // namespace dat
