// What stands in the columns of a point.
#pragma once

#include <string>

#include "formats/text/text_fields.h"
#include "model/egn.h"
#include "model/gps.h"
#include "model/total_station.h"

namespace text {

/// Appends whole numbers divided by `divider`, each filled with zeros to two digits.
void AppendTwoDigitParts(std::string& text, std::initializer_list<int> parts, char divider);

/// Whether a point has a time, and its parts; a total-station point without one has the time 0, a
/// GPS point neither a year nor a time of day.
bool HasDate(const CPun& point);
bool HasDate(const CPunGps& point);
bool HasTime(const CPunGps& point);
/// Appends hours, minutes and seconds of a GPS point's time of day; the seconds are whole.
void AppendTimeOfDay(std::string& text, unsigned long milliseconds, char divider);

/// Appends a column of the basic layout. `point` is of the type that goes with `kind`.
void AppendColumn(std::string& text, int kind, const CEgn& point, int field);

}  // namespace text
