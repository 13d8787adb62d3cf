#include "formats/landxml/landxml_document.h"
#include "frame/exchanges.h"
#include "frame/file_exchange.h"
#include "services/translate.h"
#include "ui/landxml_wizard.h"

namespace frame {

int ExportLandXml(CWnd* parent, ExchangeContext& document) {
  if (document.GetLibCmp() == nullptr || document.GetLibGps() == nullptr ||
      document.GetLibPnt() == nullptr) {
    return 0;
  }
  ui::LandXmlWizard wizard(document);
  wizard.Run(parent);
  const auto path = AskForFile(parent, Xlate("LandXML file export"), "xml", Direction::kExport);
  if (path) {
    landxml::LandXmlSelection selection = wizard.Selection();
    selection.path = *path;
    landxml::WriteLandXmlDocument(selection);
  }
  return 1;  // once the file dialog has been shown, whatever came of it
}

}  // namespace frame
