// Height lines of a LandXML alignment: its profile and its cross sections.
#pragma once

#include "host/landxml/load_context.h"

namespace landxml_load {

/// The vertices of a `ProfAlign` with their vertical curves, into the main height line of `road`.
void ReadProfile(const XmlElement& profile, CRoad& road, LoadContext& context);

/// All `CrossSect` of a `CrossSects`.
void ReadCrossSections(const XmlElement& sections, CRoad& road, LoadContext& context);

}  // namespace landxml_load
