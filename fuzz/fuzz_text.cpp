// Whatever a text file holds, both readers take it in bounded time, and what they took can be
// written and read again. The first bytes choose the layout.
#include "formats/text/text_readers.h"
#include "formats/text/text_writers.h"
#include "host/document/host_document.h"
#include "memory_file.h"

namespace {

constexpr std::size_t kChoices = 8;

text::TextExchangeSettings SettingsFrom(const std::uint8_t* choices) {
  text::TextExchangeSettings settings;
  settings.kind = choices[0] % 2;  // known and control points need no target
  settings.jobIndex = settings.unitIndex = text::kAllUnits;
  settings.separator = static_cast<char16_t>(" ,\t;"[choices[1] % 4]);
  settings.quoteNames = (choices[0] & 2) != 0;
  settings.headerRows = choices[0] / 64;
  for (std::size_t i = 0; i < text::kBasicColumns; ++i) {
    settings.fieldCode[i] = choices[2 + i] % 8;
    settings.fieldLength[i] = choices[2 + i] / 8 % 100 + 1;
  }
  return settings;
}

int CountOf(HostDocument& document) {
  return document.GetLibPnt()->GetPtnArSize(0) + document.GetLibCmp()->GetOriArSize();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size < kChoices) return 0;
  text::TextExchangeSettings settings = SettingsFrom(data);
  const MemoryFile input;
  input.Fill(data + kChoices, size - kChoices);
  settings.filePath = input.Path();
  HostDocument document;
  const text::Libraries libraries{document.GetLibCmp(), document.GetLibGps(), document.GetLibPnt()};
  text::ReadDelimited(nullptr, libraries, settings);
  text::ReadFixedLength(nullptr, libraries, settings);
  // At most a point for each line of both readings.
  if (CountOf(document) > 2 * static_cast<int>(size)) std::abort();
  const MemoryFile written;
  settings.filePath = written.Path();
  text::WriteFixedLength(nullptr, libraries, settings);
  text::ReadFixedLength(nullptr, libraries, settings);
  return 0;
}
