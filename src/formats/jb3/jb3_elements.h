// The values of single JB3 elements: attributes into objects of the host. Attributes that an
// element does not have leave the object as it is; unknown ones are ignored.
#pragma once

#include <string>

#include "model/gps.h"
#include "model/total_station.h"

class TiXmlElement;

namespace jb3 {

/// Northing, easting, elevation in metres, undefined where the file has none.
struct PlaneCoordinates {
  double north = UndefinedValue;
  double east = UndefinedValue;
  double elevation = UndefinedValue;

  /// Sets the coordinates of `object` when all three are defined.
  void ApplyTo(CEgn& object) const;
};

PlaneCoordinates ReadPlaneCoordinates(const TiXmlElement& element, PlaneCoordinates before = {});

struct KnownPointValues {
  std::string type;            ///< "generic", "ctrl" or anything else; empty when there is none
  const char* name = nullptr;  ///< in the system's code page; null: the file has none
  const char* desc = nullptr;
  PlaneCoordinates place;

  void ApplyTo(CEgn& object) const;
};

KnownPointValues ReadKnownPointValues(const TiXmlElement& element);

/// "Grp01" for 1.
tdk::WString KnownGroupName(int number);

void ReadJobLabels(const TiXmlElement& element, CJob& job);
void ReadNameAndText(const TiXmlElement& element, CEgn& object);
void ReadStationValues(const TiXmlElement& element, CSta& station);
void ReadRawObservation(const TiXmlElement& element, CPun& point);
void ReadGpsBaseValues(const TiXmlElement& element, CGrpGps& group);
void ReadGpsPointValues(const TiXmlElement& element, CPunGps& point);
void ReadGeocentric(const TiXmlElement& element, CGrpGps& group);
void ReadGeocentric(const TiXmlElement& element, CPunGps& point);
void ReadPrecision(const TiXmlElement& element, CPunGps& point);
void ReadSatellites(const TiXmlElement& element, CPunGps& point);

}  // namespace jb3
