// A terrain model of the points of a job, as the options say.
#pragma once

#include <string>

#include "arguments.h"
#include "host/document/host_document.h"
#include "host/terrain/points.h"

/// Which points, breaklines and limit --points, --codes and --max-edge choose. Throws Failure (bad
/// usage).
terrain::Choice TerrainChoice(const Arguments& arguments);

/// What a model has become.
struct TerrainReport {
  const CDtmPrj* model = nullptr;
  terrain::Chosen chosen;  ///< without its points
  terrain::Findings findings;

  /// What was left out or stands out: a line each.
  std::vector<std::string> Remarks() const;
};

bool HasTerrain(HostDocument& document, const std::string& name);

/// "terrain", or the first of "terrain 2", "terrain 3", … that the job does not have.
std::string FreeTerrainName(HostDocument& document);

/// Adds a terrain model to the job. Throws Failure when there is one of that name already, or when
/// the points make no triangle.
TerrainReport MakeTerrain(HostDocument& document, const std::string& name,
                          const terrain::Choice& choice);

/// "1,000 points, 1,985 triangles, 1 outer contour, 3 breaklines"
std::string InWords(const TerrainReport& report);
