// Writes the drawing engine's drawings as DWG.
#pragma once

#include "host/cad/writing/written.h"
#include "model/cad_files.h"

/// Writes all that is not private: version R14 (AC1014) for TCAD_DWG_R14, 2000 (AC1015) for all
/// others. Private blocks are written when something inserts them. When the file cannot be
/// completed an older one stays as it was.
CadWritten WriteDwgCounting(const CadSave& how, const CTcadEng& engine);
