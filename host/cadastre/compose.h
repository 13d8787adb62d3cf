// The land agency's text ("libretto delle misure") of a cadastral survey; docs/formats/dat.md.
#pragma once

#include <string>
#include <vector>

#include "model/cadastre.h"
#include "model/gps.h"
#include "model/total_station.h"

namespace dat {

struct DatText {
  std::string bytes;                  ///< the file, in its 8-bit code page
  std::vector<tdk::WString> faults;   ///< in the user's language; the file must not be written
  std::vector<tdk::WString> remarks;  ///< what was left out or put otherwise
};

/// Composes the whole text from the cadastral data and the two libraries of observations.
DatText Compose(const CCts& cadastre, const CLibCmp& surveys, const CLibGps& gps);

}  // namespace dat
