// What the GPS side of the model asks of the host's geodesy.
#pragma once

#include <string>

#include "model/undefined.h"
#include "tdk/wstring.h"

/// Three geocentric coordinates (WGS 84), metres.
struct Geocentric {
  double x = UndefinedValue;
  double y = UndefinedValue;
  double z = UndefinedValue;

  bool IsComplete() const { return IsDefined(x) && IsDefined(y) && IsDefined(z); }
};

/// Latitude and longitude in radians, ellipsoidal height in metres (WGS 84).
struct Geographic {
  double lat = UndefinedValue;
  double lon = UndefinedValue;
  double height = UndefinedValue;

  bool IsComplete() const { return IsDefined(lat) && IsDefined(lon) && IsDefined(height); }
};

/// Easting, northing, elevation in metres, in a plane reference system.
struct PlanePosition {
  double east = UndefinedValue;
  double north = UndefinedValue;
  double elev = UndefinedValue;
};

/// The way between one plane reference system and GPS coordinates. Each answers false, with the
/// result untouched, for a place that cannot be transformed.
class ICoordTransform {
 public:
  virtual ~ICoordTransform();
  virtual bool ToGeographic(const PlanePosition& plane, Geographic& place) const = 0;
  virtual bool ToPlane(const Geographic& place, PlanePosition& plane) const = 0;
};

/// Geodesy of the host. The model works without: positions are then not derived, and no reference
/// system is valid.
class IGeodesy {
 public:
  virtual ~IGeodesy();

  /// False, with the result untouched, when the host cannot say.
  virtual bool ToGeographic(const Geocentric& from, Geographic& to) = 0;
  virtual bool ToGeocentric(const Geographic& from, Geocentric& to) = 0;
  /// The transformation of a plane reference system named AUTHORITY:CODE; it lives as long as this
  /// object. Null when there is no such system or it is none of plane coordinates.
  virtual const ICoordTransform* TransformOf(const tdk::WString& crs) = 0;
  /// The reference system named AUTHORITY:CODE as the text of a ".prj" file (WKT 1 as GIS programs
  /// write it); empty when the host cannot say.
  virtual std::string WktOf(const tdk::WString& crs);

  /// The geodesy of this process; null when there is none. Not owned.
  static IGeodesy* Current();
  static void SetCurrent(IGeodesy* geodesy);
};
