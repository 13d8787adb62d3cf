// How much a job holds.
#pragma once

#include <cstdint>
#include <string>

class HostDocument;

struct Counts {
  std::uint64_t jobs = 0;
  std::uint64_t stations = 0;
  std::uint64_t points = 0;
  std::uint64_t gpsGroups = 0;
  std::uint64_t gpsPoints = 0;
  std::uint64_t knownGroups = 0;
  std::uint64_t knownPoints = 0;
  std::uint64_t controlPoints = 0;
  std::uint64_t surfaces = 0;
  std::uint64_t triangles = 0;
  std::uint64_t roads = 0;
  std::uint64_t entities = 0;  ///< of the drawing
  std::uint64_t themes = 0;    ///< of the GIS library
  std::uint64_t features = 0;  ///< of all themes

  bool IsNothing() const { return *this == Counts{}; }
  bool operator==(const Counts&) const = default;
};

/// What a file holds besides total-station jobs.
struct Carried {
  bool gps = false;
  bool known = false;
  bool controls = false;
  bool design = false;   ///< terrain models and roads
  bool drawing = false;  ///< what was drawn by hand or imported
  bool themes = false;   ///< GIS themes
};

Counts CountsOf(HostDocument& document);
Counts operator-(const Counts& more, const Counts& less);

/// The part of `counts` that such a file holds.
Counts Within(const Counts& counts, const Carried& carried);

/// "1 job, 3 stations, 105 points"; what there is none of is left out, all of it: "nothing".
std::string InWords(const Counts& counts);
