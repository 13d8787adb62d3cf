// How a drawing is exported.
#pragma once

#include <span>

#include "model/tcad_eng.h"
#include "tdk/wstring.h"

namespace cad {

/// One entry of the list of versions.
struct VersionRow {
  unsigned text;  ///< number of its text in the string table
  enumTCAD_DXFDWG_VER version;
};
/// In the order of the list; the first two are DWG, all others DXF.
std::span<const VersionRow> VersionTable();
bool IsDwgVersion(int position);

/// What the dialog asks, as the settings keep it.
struct ExportOptions {
  int version = 0;  ///< position in the list
  bool explodesBlocks = false;
  bool withHidden = false;  ///< entities that are not displayed as well
};
ExportOptions ReadExportOptions();
void WriteExportOptions(const ExportOptions& options);

/// The path with the extension that the version calls for, whatever it had.
tdk::WString ExportPath(const tdk::WString& path, int version);

/// True when the last four characters are the extension (with its dot), letter case ignored.
bool EndsWith(const tdk::WString& path, std::string_view extension);

}  // namespace cad
