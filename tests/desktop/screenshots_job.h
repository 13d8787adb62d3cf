// A small job, and what pictures of dialogs and reports show.
#pragma once

#include <string>

#include "apps/desktop/job/exchange_report.h"
#include "host/document/host_document.h"

/// A folder with some files, the same for every picture.
std::string ExampleFolder();
/// A small survey with known points, a road and a drawing layer.
void FillExample(HostDocument& document);
ExchangeReport ExampleReport(HostDocument& document);
