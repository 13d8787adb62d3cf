// Themes into ".shp" files.
#pragma once

#include <cstdint>

#include "host/gis/remarks.h"
#include "host/gis/shp_types.h"
#include "host/gis/streams.h"
#include "model/gis_theme.h"

namespace shape {

/// How a theme's features are written.
struct ShpLayout {
  ShapeKind kind{};
  bool writesMeasures = false;
  std::uint64_t size = 0;          ///< bytes of the ".shp" file, at most
  std::uint64_t mostVertices = 0;  ///< of a feature
};

/// `withHeights`: whether each vertex has one in the file.
ShpLayout LayOut(const gis::CTheme& theme, bool withHeights);

/// Bytes of a file with so many shapes.
std::uint64_t ShpSize(const ShapeKind& kind, bool writesMeasures, std::uint64_t shapes,
                      std::uint64_t parts, std::uint64_t vertices);

/// Writes the features and then `nullShapes` more shapes that are nowhere. Rings are closed, outer
/// ones run clockwise and holes counter-clockwise. False when it could not be done.
bool WriteShp(const gis::CTheme& theme, int nullShapes, const ShpLayout& layout, OutputStream& shp,
              OutputStream& shx, Remarks& remarks);

}  // namespace shape
