// Jobs as JSON documents.
#pragma once

#include "host/store/job_store.h"

/// As LoadJob and SaveJob, for a path that names a JSON document (native path).
void LoadJsonJob(const std::string& path, HostDocument& document, const JobProgress& progress);
void SaveJsonJob(const std::string& path, HostDocument& document, const JobProgress& progress);
