// The points of a job that terrain models are made of.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "host/document/host_document.h"
#include "host/terrain/triangulation.h"

namespace terrain {

/// Which points of a job.
struct Kinds {
  bool totalStation = true;
  bool gps = true;
  bool known = true;
  bool control = true;
};

struct Choice {
  Kinds kinds;
  /// Codes whose points form breaklines, each code one line, in the order of the points. A code
  /// that ends in "*" stands for all that begin so, each of them a line of its own.
  std::vector<std::string> breaklineCodes;
  /// Longest side of a triangle and longest leg of a breakline, metres; 0: no limit.
  double longestSide = 0;
};

struct Chosen {
  Source source;
  std::uint64_t incomplete = 0;  ///< points without all three coordinates, which are left out
  std::uint64_t breaklines = 0;  ///< lines of one leg and more
  std::uint64_t longLegs = 0;    ///< legs that were left out as too long
  std::vector<std::string> unusedCodes;  ///< of the breaklines: no point has them
};

/// Collects the points, stations and GPS bases included, in the order of the libraries: total
/// station, GPS, known, control.
Chosen Choose(HostDocument& document, const Choice& choice);

}  // namespace terrain
