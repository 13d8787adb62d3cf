// Shapes that are computed from what a file has.
#pragma once

#include <vector>

#include "host/cad/reading/plane.h"
#include "model/drawing_entities.h"

namespace cad_reader {

/// Whether no number of a shape is beyond all measure.
bool IsFinite(const cad::Shape& shape);
bool IsFinite(const cad::Point& point);

/// Part of an ellipse around `center`: the points at `center` + cos t * `x` + sin t * `y` with t
/// from `start` to `end`, degrees, the end greater.
struct Curve {
  cad::Point center;
  cad::Point x;
  cad::Point y;
  double start = 0;
  double end = 360;
};

/// The curve as points that lie close to each other; a whole turn is closed.
cad::PolylineShape PointsOf(const Curve& curve);

/// The polyline with the points of its arcs instead of its bulges.
cad::PolylineShape WithoutBulges(const cad::PolylineShape& line);

struct Spline {
  int degree = 3;
  bool isClosed = false;
  std::vector<double> knots;
  std::vector<double> weights;  ///< empty: all 1
  std::vector<cad::Point> controls;
  std::vector<cad::Point> fits;  ///< points that it goes through
};

/// Points of the spline; none when its numbers make none.
cad::PolylineShape PointsOf(const Spline& spline);

}  // namespace cad_reader
