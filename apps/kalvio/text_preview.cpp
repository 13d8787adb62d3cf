#include "text_preview.h"

#include "console.h"
#include "host/document/host_document.h"
#include "layout.h"
#include "platform/numbers.h"
#include "services/translate.h"
#include "table.h"

namespace {

constexpr int kRowsShown = 10;

// Columns by the numbers of the options.
enum { kName = 0, kNorth = 1, kEast = 2, kElev = 3, kDescr = 4, kDate = 5 };

std::string Cell(const CEgn& point, int column) {
  switch (column) {
    case kName:
      return Printable(point.GetNome().ToUtf8());
    case kDescr:
      return Printable(point.GetSecScri().ToUtf8());
    default:
      break;
  }
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

void PreviewPoints(HostDocument& document, const TextOptions& options, bool all) {
  const PointKind kind = options.kind.value_or(PointKind::kKnown);
  std::vector<int> columns;
  std::vector<std::string> head;
  for (const int column : options.columns) {
    if (column >= kDate) continue;  // read and dropped
    columns.push_back(column);
    head.emplace_back(ColumnName(column));
  }
  const int count = CountOf(document, kind);
  const int shown = all ? count : std::min(count, kRowsShown);
  Table table;
  table.Add(head);
  for (int i = 0; i < shown; ++i) {
    std::vector<std::string> cells;
    cells.reserve(columns.size());
    for (const int column : columns) cells.push_back(Cell(PointAt(document, kind, i), column));
    table.Add(cells);
  }
  console::Out(Xlate("Points as they are read").ToUtf8() + "\n" + table.Text());
  if (shown < count) {
    console::Out(Fill(Xlate("and {1} more"),
                      {tdk::WString(console::Number(static_cast<std::uint64_t>(count - shown)))})
                     .ToUtf8() +
                 "\n");
  }
}
