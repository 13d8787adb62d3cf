// Alignments of a LandXML file as roads.
#pragma once

#include "host/landxml/load_context.h"

namespace landxml_load {

/// Adds the road of one `Alignment`, with what the host can hold of it. Without any element of
/// geometry there is no road, only a remark.
void ReadRoad(const XmlElement& alignment, PointFinder& points, LoadContext& context);

}  // namespace landxml_load
