// A survey of a road through a village, for pictures: points, terrain, a road, houses, kerbs.
#pragma once

#include "host/document/host_document.h"

/// The same every time.
void FillSite(HostDocument& document);
