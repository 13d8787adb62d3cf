#include "formats/text/column_text.h"
#include "formats/text/missing_coordinates.h"
#include "formats/text/text_writers.h"
#include "platform/output_file.h"
#include "services/progress.h"

namespace text {
namespace {

constexpr char kQuote = '"';

// A text that holds the separator is quoted, and quoted again when names are to be: the pairs add
// up.
void AppendQuoted(std::string& line, const std::string& text, char separator, bool quoteNames) {
  const std::size_t pairs =
      (text.find(separator) != std::string::npos ? 1U : 0U) + (quoteNames ? 1U : 0U);
  line.append(pairs, kQuote).append(text).append(pairs, kQuote);
}

void AppendPoint(std::string& line, const TextExchangeSettings& settings, const CEgn& point) {
  const auto separator = static_cast<char>(settings.separator);
  for (const int field : settings.fieldCode) {
    if (field == kName || field == kDescr) {
      AppendQuoted(line, (field == kName ? point.GetNome() : point.GetSecScri()).ToUtf8(),
                   separator, settings.quoteNames);
    } else {
      AppendColumn(line, settings.kind, point, field);
    }
    line += separator;
  }
  line += '\n';
}

}  // namespace

void WriteDelimited(CWnd* parent, const Libraries& from, const TextExchangeSettings& settings) {
  platform::OutputFile file;
  if (!file.Open(settings.filePath.ToUtf8())) return;
  MissingCoordinates missing(settings);
  ProgressSteps progress(PointCount(from, settings));
  file.Buffer().append(static_cast<std::size_t>(settings.headerRows), '\n');
  ForEachPoint(from, settings, [&](const CEgn& point) {
    missing.Look(point);
    AppendPoint(file.Buffer(), settings, point);
    file.FlushIfLarge();
    progress.Step();
  });
  if (file.Commit()) missing.Tell(parent);
}

}  // namespace text
