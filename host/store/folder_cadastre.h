// The cadastral survey in a job's database.
#pragma once

#include "host/store/database.h"
#include "model/cadastre.h"

void WriteCadastre(const Database& database, const CCts& cadastre);

/// Fills an empty survey; nothing to do in a database that has no tables of it. Throws JobError for
/// a job that is damaged.
void ReadCadastre(const Database& database, CCts& cadastre);
