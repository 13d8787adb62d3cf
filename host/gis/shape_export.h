// A theme into a set of Shape files.
#pragma once

#include "model/shape_files.h"

namespace shape {

ShapeOutcome ExportShapeFile(const ShapeExport& what);

}  // namespace shape
