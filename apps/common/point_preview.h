// What the columns of a text or CSV file were read as.
#pragma once

#include <span>
#include <string>
#include <vector>

class HostDocument;

/// The kinds of points by the numbers that the module's dialogs know them by.
enum class PointKind { kKnown = 0, kControl = 1, kTotalStation = 2, kGps = 3 };

struct PointPreview {
  std::vector<int> columns;                    ///< codes of the columns that a point keeps
  std::vector<std::vector<std::string>> rows;  ///< a text for each of them, UTF-8
  int total = 0;                               ///< points there are, shown or not
};

/// The last points that came into `document`: control records, or the last group of known points.
/// `columns`: codes of the basic layout, in the order of the file; dates and times are read and
/// dropped. At most `most` rows, where that is not negative.
PointPreview PreviewOf(HostDocument& document, PointKind kind, std::span<const int> columns,
                       int most);
