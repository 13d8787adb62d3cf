// The functions that the exchange module exports: one for each exchange command.
//
// Each runs its exchange modally on the calling thread and returns 1 when the exchange ran, 0 when
// it was cancelled or impossible. `parent` owns the dialogs and message boxes and leads to the
// host's user interface. All objects stay the host's. A null pointer is answered with 0. No
// exception leaves the module.
#pragma once

#include "model/exchange_context.h"
#include "services/window.h"

#if defined(__GNUC__)
#define KALVIO_EXPORT __attribute__((visibility("default")))
#else
#define KALVIO_EXPORT
#endif

extern "C" {

/// Asks for an image and puts its path into `path` (untouched on cancel); the host loads the image.
KALVIO_EXPORT int FImportImageFile(CWnd* parent, tdk::WString& path, int unused);
KALVIO_EXPORT int FImportJB2File(CWnd* parent, ExchangeContext* document, int unused);
KALVIO_EXPORT int FImportJB3File(CWnd* parent, ExchangeContext* document, int unused);
KALVIO_EXPORT int FImportTXTFile(CWnd* parent, ExchangeContext* document, int unused);
KALVIO_EXPORT int FImportCSVFile(CWnd* parent, ExchangeContext* document, int unused);
KALVIO_EXPORT int FImportDXFDWGFile(CWnd* parent, ExchangeContext* document, int unused);
KALVIO_EXPORT int FExportJB2File(CWnd* parent, ExchangeContext* document, int unused);
/// `applicationName` and `applicationVersion` go into the file.
KALVIO_EXPORT int FExportJB3File(CWnd* parent, ExchangeContext* document,
                                 const tdk::WString* applicationName,
                                 const tdk::WString* applicationVersion);
KALVIO_EXPORT int FExportTXTFile(CWnd* parent, ExchangeContext* document, int unused);
KALVIO_EXPORT int FExportCSVFile(CWnd* parent, ExchangeContext* document, int unused);
KALVIO_EXPORT int FExportDXFDWGFile(CWnd* parent, ExchangeContext* document, int unused);
KALVIO_EXPORT int FExportDATFile(CWnd* parent, ExchangeContext* document, int unused);
KALVIO_EXPORT int FExportEntInFileShape(CWnd* parent, gis::CLibGis* gis);
/// `link` creates the points that the user asks for; may be null.
KALVIO_EXPORT bool FImportEntFromFileShape(CWnd* parent, gis::CLibGis* gis,
                                           gis::ILinkImportedEnt* link, bool unused);
KALVIO_EXPORT int FExportLandXMLFile(CWnd* parent, ExchangeContext* document, int unused);
/// Does nothing.
KALVIO_EXPORT void DummyVexa4modExport();
}
