// Set-ups and what was observed from them.
#pragma once

#include "host/cadastre/dat_draft.h"
#include "model/total_station.h"

namespace dat {

/// Records 1 and 2 of all jobs, in the library's order.
void WriteTotalStation(const CLibCmp& library, DatDraft& draft);

}  // namespace dat
