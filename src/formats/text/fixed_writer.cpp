#include <algorithm>
#include <vector>

#include "formats/text/column_text.h"
#include "formats/text/missing_coordinates.h"
#include "formats/text/text_writers.h"
#include "platform/code_page.h"
#include "platform/output_file.h"
#include "services/message_box.h"
#include "services/progress.h"

namespace text {
namespace {

struct LeastWidths {
  int name = 0;
  int descr = 0;
};

// Columns are as wide as what people see: characters, not bytes.
int WidthOf(const std::string& text) {
  return static_cast<int>(platform::IsAscii(text) ? text.size() : tdk::WString(text).Length());
}

LeastWidths LeastWidthsOf(const std::vector<const CEgn*>& points) {
  LeastWidths least;
  for (const CEgn* point : points) {
    least.name = std::max(least.name, WidthOf(point->GetNome().ToUtf8()));
    least.descr = std::max(least.descr, WidthOf(point->GetSecScri().ToUtf8()));
  }
  return least;
}

// True when a column was too narrow.
bool Widen(TextExchangeSettings& settings, const LeastWidths& least) {
  bool raised = false;
  for (std::size_t i = 0; i < kBasicColumns; ++i) {
    const int field = settings.fieldCode[i];
    int width = 0;
    if (field == kName) width = least.name;
    if (field == kDescr) width = least.descr;
    if (IsCoordinate(field)) width = kLeastCoordinateWidth;
    if (settings.fieldLength[i] >= width) continue;
    settings.fieldLength[i] = width;
    raised = true;
  }
  return raised;
}

// A text that is too long is written whole.
void AppendPadded(std::string& line, const std::string& text, int width, bool onTheLeft) {
  const int blanks = std::max(width - WidthOf(text), 0);
  if (onTheLeft) line.append(static_cast<std::size_t>(blanks), ' ');
  line += text;
  if (!onTheLeft) line.append(static_cast<std::size_t>(blanks), ' ');
}

void AppendPoint(std::string& line, const TextExchangeSettings& settings, const CEgn& point,
                 std::string& column) {
  for (std::size_t i = 0; i < kBasicColumns; ++i) {
    const int field = settings.fieldCode[i];
    const int width = settings.fieldLength[i];
    column.clear();
    AppendColumn(column, settings.kind, point, field);
    AppendPadded(line, column, width, field != kName && field != kDescr);
  }
  line += '\n';
}

}  // namespace

void WriteFixedLength(CWnd* parent, const Libraries& from, TextExchangeSettings& settings) {
  platform::OutputFile file;
  if (!file.Open(settings.filePath.ToUtf8())) return;
  std::vector<const CEgn*> points;
  ForEachPoint(from, settings, [&](const CEgn& point) { points.push_back(&point); });
  if (Widen(settings, LeastWidthsOf(points))) {
    CreateMessageBox(parent, Xlate("Warning"), Xlate("The lengths of some fields were increased"),
                     kBoxExclamation);
  }
  MissingCoordinates missing(settings);
  ProgressSteps progress(points.size());
  std::string column;
  file.Buffer().append(static_cast<std::size_t>(settings.headerRows), '\n');
  for (const CEgn* point : points) {
    missing.Look(*point);
    AppendPoint(file.Buffer(), settings, *point, column);
    file.FlushIfLarge();
    progress.Step();
  }
  if (file.Commit()) missing.Tell(parent);
}

}  // namespace text
