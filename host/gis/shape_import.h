// A set of Shape files into a theme and its table.
#pragma once

#include "model/shape_files.h"

namespace shape {

ShapeOutcome ImportShapeFile(const ShapeImport& what);

/// See FGetEntTypeFromFileShp.
int EntityTypeOfFile(const tdk::WString& path);

/// See FGetFieldFromFileDbf.
bool FieldsOfFile(const tdk::WString& dbfPath, std::vector<tdk::WString>& fields);

}  // namespace shape
