// Writes the drawing engine's drawings as DXF.
#pragma once

#include "host/cad/writing/written.h"
#include "model/cad_files.h"

/// Writes all that is not private: version R12 (AC1009) for TCAD_DXF_R12, 2000 (AC1015) for all
/// others. Private blocks are written when something inserts them. When the file cannot be
/// completed an older one stays as it was.
CadWritten WriteDxfCounting(const CadSave& how, const CTcadEng& engine);

/// The same; false when the file could not be written.
bool WriteDxf(const CadSave& how, const CTcadEng& engine);
