#include "frame/exports.h"

#include "frame/exchanges.h"
#include "frame/guard.h"

using frame::Guarded;

int FImportImageFile(CWnd* parent, tdk::WString& path, int /*unused*/) {
  return Guarded(
      parent, [&] { return frame::ImportImage(parent, path); }, &path);
}

int FImportJB2File(CWnd* parent, ExchangeContext* document, int /*unused*/) {
  return Guarded(
      parent, [&] { return frame::ImportJb2(parent, *document); }, document);
}

int FExportJB2File(CWnd* parent, ExchangeContext* document, int /*unused*/) {
  return Guarded(
      parent, [&] { return frame::ExportJb2(parent, *document); }, document);
}

int FExportLandXMLFile(CWnd* parent, ExchangeContext* document, int /*unused*/) {
  return Guarded(
      parent, [&] { return frame::ExportLandXml(parent, *document); }, document);
}

int FImportJB3File(CWnd* parent, ExchangeContext* document, int /*unused*/) {
  return Guarded(
      parent, [&] { return frame::ImportJb3(parent, *document); }, document);
}

int FExportJB3File(CWnd* parent, ExchangeContext* document, const tdk::WString* name,
                   const tdk::WString* version) {
  // An application that does not say what it is called has an empty name.
  const auto text = [](const tdk::WString* words) { return words ? *words : tdk::WString(); };
  return Guarded(
      parent, [&] { return frame::ExportJb3(parent, *document, text(name), text(version)); },
      document);
}

int FImportTXTFile(CWnd* parent, ExchangeContext* document, int /*unused*/) {
  return Guarded(
      parent, [&] { return frame::ImportText(parent, *document, /*isText=*/true); }, document);
}

int FExportTXTFile(CWnd* parent, ExchangeContext* document, int /*unused*/) {
  return Guarded(
      parent, [&] { return frame::ExportText(parent, *document, /*isText=*/true); }, document);
}

int FImportCSVFile(CWnd* parent, ExchangeContext* document, int /*unused*/) {
  return Guarded(
      parent, [&] { return frame::ImportText(parent, *document, /*isText=*/false); }, document);
}

int FExportCSVFile(CWnd* parent, ExchangeContext* document, int /*unused*/) {
  return Guarded(
      parent, [&] { return frame::ExportText(parent, *document, /*isText=*/false); }, document);
}

int FImportDXFDWGFile(CWnd* parent, ExchangeContext* document, int /*unused*/) {
  return Guarded(
      parent, [&] { return frame::ImportDrawing(parent, *document); }, document);
}

int FExportDXFDWGFile(CWnd* parent, ExchangeContext* document, int /*unused*/) {
  return Guarded(
      parent, [&] { return frame::ExportDrawing(parent, *document); }, document);
}

int FExportDATFile(CWnd* parent, ExchangeContext* document, int /*unused*/) {
  return Guarded(
      parent, [&] { return frame::ExportDat(parent, *document); }, document);
}

int FExportEntInFileShape(CWnd* parent, gis::CLibGis* gis) {
  return Guarded(
      parent, [&] { return frame::ExportShape(parent, *gis); }, gis);
}

bool FImportEntFromFileShape(CWnd* parent, gis::CLibGis* gis, gis::ILinkImportedEnt* link,
                             bool /*unused*/) {
  const auto import = [&] {
    frame::ImportShape(parent, *gis, link);
    return 1;
  };
  return Guarded(parent, import, gis) != 0;
}

void DummyVexa4modExport() {}
