// One file brought into a job, through the module or by the host itself, or out of it.
#pragma once

#include <string>
#include <vector>

#include "counts.h"
#include "drawing_options.h"
#include "module.h"
#include "progress_line.h"
#include "text_options.h"

struct Exchange {
  Counts counts;                     ///< what came in, or went out
  Counts leftBack;                   ///< export: what the job holds but such a file does not
  std::vector<std::string> remarks;  ///< what the module said on the way
};

/// Reads `path` into the document; throws Failure when nothing came in. `makesPoints`: of the
/// features of a Shape file, as known points.
Exchange ImportFile(const Module& module, const std::string& path, HostDocument& document,
                    const TextOptions& options, ProgressLine& progress, bool makesPoints = false);

/// Writes the document to `path`; throws Failure when the file was not written.
Exchange ExportFile(const Module& module, const std::string& path, HostDocument& document,
                    const TextOptions& options, const OutputOptions& output,
                    ProgressLine& progress);

/// Throws Failure (bad usage) when an input is also what is written, by whatever name.
void RefuseOneForBoth(const std::string& input, const std::string& output);

/// Tells the remarks on standard error, the first ten of them and how many more there are.
void TellRemarks(const std::string& path, const std::vector<std::string>& remarks);
