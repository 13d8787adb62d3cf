// Plane coordinates for what GPS measured, and GPS coordinates for plane points.
#pragma once

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
