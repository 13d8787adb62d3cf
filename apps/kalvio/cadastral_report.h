// The cadastral data of a job for people.
#pragma once

#include "host/document/host_document.h"

/// Prints all that there is; a line about it when there is nothing.
void ReportCadastre(const CCts& cadastre);

/// Prints what a DAT file of the job still needs, or that it could be written.
void ReportDatFaults(HostDocument& document);
