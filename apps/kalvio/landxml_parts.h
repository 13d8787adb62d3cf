// Which parts of a job go into a LandXML file.
#pragma once

#include "arguments.h"
#include "counts.h"

struct LandXmlParts {
  bool roads = true;
  bool jobs = true;
  bool gps = true;
  bool points = true;
  bool surfaces = true;

  /// Whether the list of that key, in the dialogs of the export, is chosen.
  bool Has(std::string_view list) const;
};

/// The value of --select; everything without it. Throws Failure (bad usage).
LandXmlParts ReadLandXmlParts(const Arguments& arguments);

/// What is chosen of `counts`.
Counts OfParts(Counts counts, const LandXmlParts& parts);
