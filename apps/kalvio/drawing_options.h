// How drawings, LandXML and Shape files are exchanged, as the options say.
#pragma once

#include "arguments.h"
#include "landxml_parts.h"
#include "services/dialog.h"

struct DrawingOptions {
  int dxfVersion = 2;  ///< positions in the list of the module's dialog
  int dwgVersion = 0;
  bool explode = false;
  bool withHidden = false;
};
DrawingOptions ReadDrawingOptions(const Arguments& arguments);

/// Fills the module's dialog of drawing files. False when it does not take it.
bool FillCadFile(Dialog& dialog, const std::string& path, const DrawingOptions& options);

struct OutputOptions {
  LandXmlParts parts;
  DrawingOptions drawing;
  tdk::WString crs;          ///< of Shape files that are written; empty: not known
  bool makesPoints = false;  ///< of the features of a Shape file that is read
};
