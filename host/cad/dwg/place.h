// Points with numbers that a record's description can reach one by one.
#pragma once

#include "model/drawing_entities.h"

namespace dwg {

struct Place {
  double x = 0;
  double y = 0;
  double z = 0;

  Place() = default;
  Place(double atX, double atY, double atZ) : x(atX), y(atY), z(atZ) {}
  // Records have places where entities have points: each is the other wherever it is asked for.
  // NOLINTBEGIN(google-explicit-constructor)
  Place(const cad::Point& point) : x(point.getX()), y(point.getY()), z(point.getZ()) {}
  operator cad::Point() const { return {x, y, z}; }
  // NOLINTEND(google-explicit-constructor)

  bool operator==(const Place&) const = default;
};

/// Straight up: the direction of what lies flat.
inline const Place kUp{0, 0, 1};

}  // namespace dwg
