// Coordinates of flat entities, which are those of a plane with a direction of its own.
#pragma once

#include "model/drawing_entities.h"

namespace cad_reader {

class Plane {
 public:
  /// The world's own.
  Plane() = default;
  /// The plane that a direction of any length stands on; X and Y follow from it by a rule that all
  /// programs share.
  explicit Plane(const cad::Point& direction);

  bool IsWorld() const { return kind_ == Kind::kWorld; }
  /// Seen from below: X runs the other way.
  bool IsMirrored() const { return kind_ == Kind::kMirrored; }
  bool IsTilted() const { return kind_ == Kind::kTilted; }

  cad::Point ToWorld(const cad::Point& point) const;
  /// Direction of a line in the plane, as seen from above, degrees.
  double DirectionToWorld(double degrees) const;

 private:
  enum class Kind { kWorld, kMirrored, kTilted };
  Kind kind_ = Kind::kWorld;
  cad::Point x_{1, 0, 0};
  cad::Point y_{0, 1, 0};
  cad::Point z_{0, 0, 1};
};

double Radians(double degrees);
double Degrees(double radians);
/// Within [0, 360).
double WithinTurn(double degrees);

}  // namespace cad_reader
