// Surveys of a LandXML file: set-ups with raw observations as jobs, GPS positions as groups.
#pragma once

#include "host/landxml/load_context.h"

namespace landxml_load {

/// Adds what one `Survey` holds: a job when there is a set-up in it, a GPS group when there is a
/// position.
void ReadSurvey(const XmlElement& survey, PointFinder& points, LoadContext& context);

/// The set-ups of a survey as a job; nothing without one.
void ReadSetUps(const XmlElement& survey, PointFinder& points, LoadContext& context);
/// The GPS positions of a survey as a group; nothing without one.
void ReadGpsPositions(const XmlElement& survey, PointFinder& points, LoadContext& context);

/// The name of a survey.
tdk::WString SurveyName(const XmlElement& survey);

/// Name, code and coordinates of an element that names a point. The name of one without a name is
/// that of the point it refers to.
void StorePoint(const XmlElement* element, PointFinder& points, const Units& units, CEgn& point);

}  // namespace landxml_load
