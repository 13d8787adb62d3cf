// Writes LandXML 1.0 documents.
#pragma once

#include "formats/landxml/landxml_selection.h"

namespace platform {
class OutputFile;
}

namespace landxml {

/// Writes the whole file. When it cannot be opened or completed an older one stays as it was, and
/// nothing is said here (see platform/file_trouble.h).
void WriteLandXmlDocument(const LandXmlSelection& selection);

/// Declaration, root start tag, project, units and application. `path` is the project's name.
void WriteLandXmlHeader(platform::OutputFile& file, const tdk::WString& path);

/// One `Survey` element of a total-station job; nothing inside it when the library does not hold
/// the job.
void WriteTsSurvey(platform::OutputFile& file, const CLibCmp& library, const CJob& job);

/// One `Survey` element of a GPS group; without points when the library does not hold the group.
void WriteGpsSurvey(platform::OutputFile& file, const CLibGps& library, const CGrpGps& group);

/// One `CgPoints` element of a group of known points; nothing when the library does not hold the
/// group.
void WriteCgPoints(platform::OutputFile& file, const CLibPnt& library, const CGrpPnt& group);

/// One `Surface` element of a terrain model.
void WriteSurface(platform::OutputFile& file, const CDtmPrj& model);

/// One `Alignment` element of a road, with its geometry, main height line and cross sections as far
/// as the road has them.
void WriteAlignment(platform::OutputFile& file, const CRoad& road);

}  // namespace landxml
