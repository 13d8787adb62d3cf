// The drawing in a job's database.
#pragma once

#include "host/store/database.h"
#include "host/store/progress.h"
#include "model/tcad_eng.h"

void WriteDrawing(const Database& database, const CTcadEng& engine, PointProgress& progress);

/// Fills the engine, which must hold no more than its first layer. Throws JobError for a job that
/// is damaged.
void ReadDrawing(const Database& database, CTcadEng& engine, PointProgress& progress);
