// Which shapes can be written.
#pragma once

#include "model/drawing_entities.h"
#include "model/undefined.h"

namespace cad_writer {

/// Defined, and small enough on either side of zero that sums are numbers, too.
inline bool IsNumber(double value) {
  return value < UndefinedValueLimit && value > -UndefinedValueLimit;
}

inline bool IsPlace(const cad::Point& point) {
  return IsNumber(point.getX()) && IsNumber(point.getY()) && IsNumber(point.getZ());
}

/// Whether all numbers of a shape are defined and make such a shape: readers refuse a circle
/// without radius and the like, or repair them as each sees fit.
bool IsSound(const cad::Shape& shape);

bool IsSound(const cad::AttributeDefinition& definition);

}  // namespace cad_writer
