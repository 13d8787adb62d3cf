// Reads points from lines of columns.
#pragma once

#include "formats/text/point_walk.h"
#include "services/window.h"

namespace text {

// Each adds a point for every line of the file, in one batch of changes. A file that cannot be
// opened changes nothing and is not reported here (see platform/file_trouble.h). The user is told
// once of characters that were folded or dropped; `parent` also of lines that became no point and
// of columns that hold no number.

/// Columns divided by the settings' separator; empty columns do not count.
void ReadDelimited(CWnd* parent, const Libraries& into, const TextExchangeSettings& settings);
/// Columns of fixed widths.
void ReadFixedLength(CWnd* parent, const Libraries& into, const TextExchangeSettings& settings);

}  // namespace text
