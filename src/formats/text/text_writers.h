// Writes points as lines of columns, in UTF-8.
#pragma once

#include "formats/text/point_walk.h"
#include "formats/text/text_layouts.h"
#include "services/window.h"

namespace text {

// When a file cannot be created or completed an older one stays as it was, and nothing is said here
// (see platform/file_trouble.h). `parent` (may be null) is told of points without coordinates,
// whose columns hold the undefined value in full.

/// Columns divided by a separator.
void WriteDelimited(CWnd* parent, const Libraries& from, const TextExchangeSettings& settings);

/// Columns of fixed widths. Widths that are too small for the points are raised, in the settings
/// too, and the user is told once.
void WriteFixedLength(CWnd* parent, const Libraries& from, TextExchangeSettings& settings);

/// Every point of every GPS group, or of every station, with the fields of the full catalogue. A
/// path that is not absolute lies in the folder of this library. The name is kept in the settings.
void WriteFullGps(const Libraries& from, const FullLayout& layout, const tdk::WString& path);
void WriteFullTotalStation(const Libraries& from, const FullLayout& layout,
                           const tdk::WString& path);

}  // namespace text
