#include "point_preview.h"

#include <algorithm>

#include "host/document/host_document.h"
#include "platform/numbers.h"

namespace {

// Columns by the numbers of the layout.
enum { kName = 0, kNorth = 1, kEast = 2, kElev = 3, kDescr = 4, kDate = 5 };

std::string Cell(const CEgn& point, int column) {
  if (column == kName) return point.GetNome().ToUtf8();
  if (column == kDescr) return point.GetSecScri().ToUtf8();
  const double value = column == kNorth  ? point.GetCoordY()
                       : column == kEast ? point.GetCoordX()
                                         : point.GetCoordZ();
  std::string text;
  platform::AppendFixed(text, value, 3);
  return text;
}

int CountOf(HostDocument& document, PointKind kind) {
  const CLibPnt& known = *document.GetLibPnt();
  return kind == PointKind::kControl ? document.GetLibCmp()->GetOriArSize()
                                     : known.GetPtnArSize(known.GetGrpArSize() - 1);
}

const CEgn& PointAt(HostDocument& document, PointKind kind, int index) {
  if (kind == PointKind::kControl) return *document.GetLibCmp()->GetOriAt(index);
  const CLibPnt& known = *document.GetLibPnt();
  return *known.GetPtnAt(known.GetGrpArSize() - 1, index);
}

}  // namespace

PointPreview PreviewOf(HostDocument& document, PointKind kind, std::span<const int> columns,
                       int most) {
  PointPreview preview;
  std::copy_if(columns.begin(), columns.end(), std::back_inserter(preview.columns),
               [](int column) { return column < kDate; });
  preview.total = CountOf(document, kind);
  const int shown = most < 0 ? preview.total : std::min(preview.total, most);
  for (int i = 0; i < shown; ++i) {
    std::vector<std::string>& row = preview.rows.emplace_back();
    for (const int column : preview.columns) {
      row.push_back(Cell(PointAt(document, kind, i), column));
    }
  }
  return preview;
}
