// What a command works on: a job, files that are read into it, or both.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "arguments.h"
#include "host/document/host_document.h"
#include "progress_line.h"
#include "text_options.h"

struct Sources {
  std::optional<std::string> job;  ///< the first word, where that is one
  std::vector<std::string> files;

  /// What is named first.
  const std::string& First() const { return job ? *job : files.front(); }
};

/// Takes the words apart; throws Failure for a file that is not there or cannot be read.
Sources CheckedSources(const Arguments& arguments);

/// Which features of Shape files become known points as well.
enum class FeaturePoints { kOfAll, kOfPoints };

/// Reads the files into the document, and tells what the readers remark.
void ReadFiles(const Sources& sources, HostDocument& document, const TextOptions& layout,
               ProgressLine& progress, FeaturePoints points = FeaturePoints::kOfAll);
