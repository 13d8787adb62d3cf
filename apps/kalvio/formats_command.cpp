#include "commands.h"
#include "console.h"
#include "failure.h"
#include "formats.h"
#include "services/translate.h"
#include "table.h"

int RunFormats() {
  const auto answer = [](Exchanged exchanged) {
    if (exchanged == Exchanged::kNever) return std::string("–");
    return exchanged == Exchanged::kNow ? Xlate("yes").ToUtf8() : Xlate("not yet").ToUtf8();
  };
  Table table;
  table.Add({Xlate("format").ToUtf8(), Xlate("extension").ToUtf8(), Xlate("import").ToUtf8(),
             Xlate("export").ToUtf8()});
  for (const FormatRow& row : FormatTable()) {
    table.Add({row.name, row.extension, answer(row.read), answer(row.written)});
  }
  console::Out(table.Text());
  return exit_status::kRan;
}
