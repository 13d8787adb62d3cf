// Jobs as folders with a database and a settings file.
#pragma once

#include "host/store/job_store.h"

/// As LoadJob and SaveJob, for a path that names a folder (native path).
void LoadFolderJob(const std::string& folder, HostDocument& document, const JobProgress& progress);
void SaveFolderJob(const std::string& folder, HostDocument& document, const JobProgress& progress);
