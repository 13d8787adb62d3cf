// What a drawing holds, as text for people.
#pragma once

class CTcadEng;

/// Prints its layers, how many entities of each kind it has, and its extents; nothing of an empty
/// one. `all`: lists in full.
void ReportDrawing(const CTcadEng& engine, bool all);
