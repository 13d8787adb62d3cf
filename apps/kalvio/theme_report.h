// What the GIS themes of a job hold, as text for people.
#pragma once

namespace gis {
class CLibGis;
}

/// Prints the themes, their fields and reference systems; nothing when there are none. `all`: lists
/// in full.
void ReportThemes(const gis::CLibGis& library, bool all);

/// Prints in what the texts of the Shape file read last were.
void ReportEncoding();
