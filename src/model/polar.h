// One observation and the place it leads to.
#pragma once

#include "model/undefined.h"

class CSta;

/// Slope distance in metres, zenith angle and horizontal direction in gon.
struct Observation {
  double slopeDistance = UndefinedValue;
  double zenith = UndefinedValue;
  double horizontal = UndefinedValue;
};

/// Easting, northing, elevation in metres.
struct Place {
  double x = UndefinedValue;
  double y = UndefinedValue;
  double z = UndefinedValue;
};

/// Where an instrument stands, and the height of its axis above that mark.
struct Instrument {
  Place mark;
  double height = 0;
};

Instrument InstrumentOf(const CSta& station);

/// Whether a line of sight is taken for one over a curved earth, bent by the air.
struct Reduction {
  bool isCurved = false;
  /// The refraction coefficient: the earth's radius divided by that of the line of sight.
  double refraction = 0.13;
};

/// What a line of sight covers, from the instrument's axis to the prism: metres across and up. In
/// face two it goes backwards, so `across` is negative there. Undefined when a part is.
struct Ray {
  double across = UndefinedValue;
  double up = UndefinedValue;
};
Ray RayOf(double slopeDistance, double zenith, const Reduction& reduction = {});

/// The parts of RayOf on a flat earth.
double HeightDifference(double slopeDistance, double zenith);
double HorizontalDistance(double slopeDistance, double zenith);

/// An oriented instrument, made ready for many observations. `orientation` is the azimuth of the
/// zero direction (gon, clockwise from north).
class PolarOrigin {
 public:
  PolarOrigin(const Instrument& instrument, double orientation, const Reduction& reduction);

  /// The place that an observation leads to; see Locate.
  Place Locate(const Observation& observation, double prismHeight) const;

 private:
  Place mark_;
  double axis_;  // elevation; undefined without the mark's
  double orientation_;
  Reduction reduction_;
};

/// The place that an observation leads to. `orientation` is the azimuth of the zero direction (gon,
/// clockwise from north). Easting and northing are undefined without distance, angles or the mark's
/// easting and northing, the elevation also without the mark's elevation.
Place Locate(const Instrument& instrument, const Observation& observation, double prismHeight,
             double orientation, const Reduction& reduction = {});

/// The observation of a place, the reverse of Locate: directions within 0..400 gon, zenith angles
/// within 0..200. All of it is undefined when a coordinate is, or when the prism would stand in the
/// instrument's axis.
Observation Observe(const Instrument& instrument, const Place& target, double prismHeight,
                    double orientation, const Reduction& reduction = {});

/// Azimuth of the way from one place to another, gon within 0..400, clockwise from north; 0 when
/// they are the same.
double Azimuth(const Place& from, const Place& to);
/// The same angle within 0..400 gon.
double FullCircle(double angle);
