// LandXML files of any program into a job.
#pragma once

#include <string>
#include <vector>

#include "host/document/host_document.h"
#include "host/landxml/xml_stream.h"

/// Adds what a LandXML file (1.0, 1.1, 1.2, 2.0) holds to `document`: surfaces as terrain models,
/// alignments as roads, point groups as groups of known points, surveys as jobs and GPS groups. All
/// in metres and gon. `path` is a native path. Gives back remarks on what was left out or changed,
/// most with the line of the file. Throws LoadError, "FILE: line 12: reason", for a file that
/// cannot be read to its end; of that file surfaces and points may be in the job, roads and surveys
/// are not.
std::vector<std::string> LoadLandXml(const std::string& path, HostDocument& document,
                                     const landxml_load::LoadProgress& progress = {});
