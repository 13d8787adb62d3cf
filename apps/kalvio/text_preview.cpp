#include "text_preview.h"

#include "console.h"
#include "point_preview.h"
#include "services/translate.h"
#include "table.h"

namespace {

constexpr int kRowsShown = 10;

}  // namespace

void PreviewPoints(HostDocument& document, const TextOptions& options, bool all) {
  const PointPreview preview = PreviewOf(document, options.kind.value_or(PointKind::kKnown),
                                         options.columns, all ? -1 : kRowsShown);
  std::vector<std::string> head;
  for (const int column : preview.columns) head.emplace_back(ColumnName(column));
  Table table;
  table.Add(head);
  for (const auto& row : preview.rows) table.Add(row);
  const int more = preview.total - static_cast<int>(preview.rows.size());
  console::Out(Xlate("Points as they are read").ToUtf8() + "\n" + table.Text());
  if (more > 0) {
    console::Out(Fill(Xlate("and {1} more"),
                      {tdk::WString(console::Number(static_cast<std::uint64_t>(more)))})
                     .ToUtf8() +
                 "\n");
  }
}
