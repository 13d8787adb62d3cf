// Plane coordinates for what GPS measured, and GPS coordinates for plane points.
#pragma once

#include <vector>

#include "model/gps.h"

/// How many points, bases included, got plane coordinates and how many GPS coordinates.
struct CompletedPositions {
  int plane = 0;
  int geographic = 0;
};

/// Gives `crs` (AUTHORITY:CODE) to every group that has no reference system of its own.
void GiveReferenceSystem(CLibGps& library, const tdk::WString& crs);

/// Gives `crs` to every group that has no reference system of its own, then works
/// out what is missing of each base and point through its group's system: plane coordinates
/// (metres) where there is a GPS position, latitude, longitude and height where there are plane
/// coordinates. What is there is left as it is.
CompletedPositions CompletePositions(CLibGps& library, const tdk::WString& crs);

/// Why a GPS point has no plane coordinates.
enum class NoPlane {
  kNoSystem,       ///< its group has no reference system
  kUnknownSystem,  ///< the group's reference system is not known
  kNoPosition,     ///< it has no latitude, longitude and height
  kOutside         ///< its position is not within the reference system
};

struct GroupPositions {
  int group = 0;
  int withPlane = 0;  ///< points that have plane coordinates
  struct Missing {
    int point;
    NoPlane why;
  };
  std::vector<Missing> missing;
};

/// Which points of each group have plane coordinates, bases aside.
std::vector<GroupPositions> PlanePositions(const CLibGps& library);
