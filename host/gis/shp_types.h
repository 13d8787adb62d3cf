// The kinds of shapes in a ".shp" file.
#pragma once

#include <optional>

#include "model/gis_theme.h"

namespace shape {

struct ShapeKind {
  int type;  ///< one of the library's SHPT_…
  gis::EntityType entity;
  bool isMany;  ///< of points: several a shape
  bool hasHeights;
  bool hasMeasures;  ///< in every file; one with heights may have them or not
};

/// Nothing for a type that there is not; a file of null shapes only has none either.
std::optional<ShapeKind> KindOf(int type);

/// The type of a file.
int TypeOf(gis::EntityType entity, bool isMany, bool hasHeights, bool hasMeasures);

}  // namespace shape
