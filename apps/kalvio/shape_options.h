// How the module's dialogs of Shape files are answered.
#pragma once

#include <string>

#include "services/dialog.h"

/// Chooses the file, and whether its features become points: called by the field that looks like
/// one of names, with the code of the one that looks like one of codes. False when the dialog does
/// not take it.
bool FillShapeImport(Dialog& dialog, const std::string& path, bool makesPoints);

/// All themes, as they are, into the folder of `path`.
bool FillShapeExport(Dialog& dialog, const std::string& path);
