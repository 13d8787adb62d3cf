// Terrain models and roads in a job's database.
#pragma once

#include "host/document/host_document.h"
#include "host/store/database.h"
#include "host/store/progress.h"

void WriteDesign(const Database& database, HostDocument& document, PointProgress& progress);

/// Fills the libraries, which must be empty. Throws JobError for a job that is damaged.
void ReadDesign(const Database& database, HostDocument& document, PointProgress& progress);
