// How far the points of a job reach, and what of them is missing.
#pragma once

#include <array>
#include <cstdint>

#include "model/undefined.h"

class CEgn;
class HostDocument;

/// The defined coordinates along one axis, metres.
struct Extent {
  double least = UndefinedValue;  ///< undefined when there is no coordinate
  double most = UndefinedValue;
  std::uint64_t undefined = 0;  ///< points that have none

  void Add(double coordinate);
};

struct Extents {
  std::array<Extent, 3> axes;         ///< easting, northing, elevation
  std::uint64_t points = 0;           ///< of all kinds, stations and GPS bases included
  std::uint64_t withoutDistance = 0;  ///< observed from a station, but without a slope distance
  bool hasDesign = false;             ///< more than points is among it

  void Add(const CEgn& point);
};

Extents ExtentsOf(HostDocument& document);
