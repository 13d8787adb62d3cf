// One function for each exchange that is built, as the exports call it: pointers are there,
// exceptions are caught outside. Each returns what the export returns.
#pragma once

#include "model/exchange_context.h"
#include "services/window.h"

namespace frame {

int ImportImage(CWnd* parent, tdk::WString& path);

int ImportJb2(CWnd* parent, ExchangeContext& document);
int ExportJb2(CWnd* parent, ExchangeContext& document);

int ImportJb3(CWnd* parent, ExchangeContext& document);
/// Name and version are those of the application, as it wants them in the file.
int ExportJb3(CWnd* parent, ExchangeContext& document, const tdk::WString& name,
              const tdk::WString& version);

/// `isText`: a text file, else a CSV file.
int ImportText(CWnd* parent, ExchangeContext& document, bool isText);
int ExportText(CWnd* parent, ExchangeContext& document, bool isText);

int ExportLandXml(CWnd* parent, ExchangeContext& document);

/// Themes of the GIS library as Shape files.
int ExportShape(CWnd* parent, gis::CLibGis& library);
/// `link` receives the points that are created, and may be null. The outcome is told by message
/// alone.
void ImportShape(CWnd* parent, gis::CLibGis& library, gis::ILinkImportedEnt* link);

/// The land agency's text of a cadastral survey.
int ExportDat(CWnd* parent, ExchangeContext& document);

/// DXF and DWG.
int ImportDrawing(CWnd* parent, ExchangeContext& document);
int ExportDrawing(CWnd* parent, ExchangeContext& document);

}  // namespace frame
