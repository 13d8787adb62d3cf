#include "formats/text/text_readers.h"
#include "formats/text/text_writers.h"
#include "frame/exchanges.h"
#include "ui/text_main_dialog.h"

namespace frame {
namespace {

bool IsComplete(const text::Libraries& libraries) {
  return libraries.totalStation != nullptr && libraries.gps != nullptr &&
         libraries.known != nullptr;
}

// Shows the main dialog; what the exchange is about, when there is one to run.
bool AskForText(CWnd* parent, const text::Libraries& libraries, bool isImport, bool isText,
                text::TextExchangeSettings& settings) {
  if (!IsComplete(libraries)) return false;
  ui::CDlgImpExpFileTxtCsv dialog(parent, libraries, isImport, isText, settings);
  return ShowDialog(parent, dialog) == Dialog::kOk;
}

text::Libraries LibrariesOf(ExchangeContext& document) {
  return {document.GetLibCmp(), document.GetLibGps(), document.GetLibPnt()};
}

}  // namespace

int ImportText(CWnd* parent, ExchangeContext& document, bool isText) {
  const text::Libraries libraries = LibrariesOf(document);
  text::TextExchangeSettings settings;
  if (!AskForText(parent, libraries, /*isImport=*/true, isText, settings)) return 0;
  if (settings.fixedLength) {
    text::ReadFixedLength(parent, libraries, settings);
  } else {
    text::ReadDelimited(parent, libraries, settings);
  }
  return 1;
}

int ExportText(CWnd* parent, ExchangeContext& document, bool isText) {
  const text::Libraries libraries = LibrariesOf(document);
  text::TextExchangeSettings settings;
  if (!AskForText(parent, libraries, /*isImport=*/false, isText, settings)) return 0;
  if (settings.fixedLength) {
    text::WriteFixedLength(parent, libraries, settings);
  } else {
    text::WriteDelimited(parent, libraries, settings);
  }
  return 1;
}

}  // namespace frame
