// Single JB3 elements built from objects of the host.
#pragma once

#include "model/gps.h"
#include "model/known_points.h"
#include "model/total_station.h"
#include "services/text_file_sink.h"

class TiXmlDocument;
class TiXmlElement;
class TiXmlNode;

namespace jb3 {

/// A new last child of `parent`, which owns it.
TiXmlElement& AppendElement(TiXmlNode& parent, const char* name);

/// Sets an attribute to the text in the system's code page.
void SetText(TiXmlElement& element, const char* attribute, const tdk::WString& text);

/// Sets the name, which is "empty" when there is none.
void SetName(TiXmlElement& element, const tdk::WString& name);

void SetJobLabels(TiXmlElement& element, const CJob& job);
/// Attributes and coordinates, without the points.
void BuildStation(TiXmlElement& element, const CSta& station);
void BuildPoint(TiXmlElement& element, const CPun& point);
void BuildGpsBase(TiXmlElement& element, const CLibGps& library, int group);
void BuildGpsPoint(TiXmlElement& element, const CPunGps& point);
void BuildKnownPoint(TiXmlElement& element, const CEgn& point, const char* type);

/// Prints the document as the XML library lays it out.
void Save(const TiXmlDocument& document, TextFileSink& sink);

}  // namespace jb3
