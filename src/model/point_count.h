// How much there is in the libraries of points: what a progress is measured by.
#pragma once

#include <cstdint>

#include "model/gps.h"
#include "model/known_points.h"
#include "model/total_station.h"

/// Stations, their points and the control records.
std::uint64_t PointCount(const CLibCmp& library);
/// Bases and the points of their groups.
std::uint64_t PointCount(const CLibGps& library);
std::uint64_t PointCount(const CLibPnt& library);
