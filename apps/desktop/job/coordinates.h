// Coordinates from observations, for the open job.
#pragma once

#include "apps/desktop/job/exchange_report.h"

/// Works out the coordinates of stations and points from what was measured, and plane coordinates
/// of GPS points through their groups' reference systems. `isAnew`: also those that have some.
ExchangeReport WorkOutCoordinates(HostDocument& document, bool isAnew);
