#include "frame/exports.h"

#include "frame/exchanges.h"
#include "frame/file_exchange.h"
#include "frame/guard.h"

using frame::Guarded;

namespace {

int NotBuiltYet(CWnd* parent, const void* needed, const char* format) {
  return Guarded(
      parent, [&] { return frame::TellNotBuiltYet(parent, format); }, needed);
}

}  // namespace

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
  return NotBuiltYet(parent, document, "DAT");
}

int FExportEntInFileShape(CWnd* parent, gis::CLibGis* gis) {
  return NotBuiltYet(parent, gis, "Shape");
}

bool FImportEntFromFileShape(CWnd* parent, gis::CLibGis* gis, gis::ILinkImportedEnt* /*link*/,
                             bool /*unused*/) {
  return NotBuiltYet(parent, gis, "Shape") != 0;
}

void DummyVexa4modExport() {}
