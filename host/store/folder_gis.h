// GIS themes in the database of a job folder.
#pragma once

#include "host/document/host_document.h"
#include "host/store/database.h"
#include "host/store/progress.h"

void WriteGis(const Database& database, const gis::CLibGis& library, PointProgress& progress);
void ReadGis(const Database& database, gis::CLibGis& library, PointProgress& progress);
