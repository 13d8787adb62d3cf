// What an export changes or leaves out without a word of its own.
#pragma once

#include <string>
#include <vector>

#include "formats.h"
#include "host/document/host_document.h"
#include "landxml_parts.h"

/// Appends what a LandXML file of these parts cannot hold of roads, and how many names make it one
/// that strict readers refuse.
void AddExportRemarks(HostDocument& document, const FormatRow& format, const LandXmlParts& parts,
                      std::vector<std::string>& remarks);
