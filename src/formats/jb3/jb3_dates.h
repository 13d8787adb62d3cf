// Dates and times of JB3 documents.
#pragma once

#include <string>

#include "model/gps.h"

namespace jb3 {

/// A job's date as DD-MM-YYYY: the parts of `date`, divided by "\", "/" or "-", keep their order,
/// and a year of two digits is 20YY below 70, else 19YY. Eight characters without a divider are
/// DDMMYYYY. Empty when it is neither. In the
/// system's code page.
std::string NormalisedDate(const tdk::WString& date);

/// DD-MM-YYYY, each part filled with zeros.
std::string DateText(int day, int month, int year);

/// HH:MM:SS of a time of day in milliseconds; the fraction of a second is cut.
std::string TimeText(unsigned long milliseconds);

/// When a group was observed; all texts are empty when none of its points has a date and a time.
struct GroupSpan {
  std::string startDate;
  std::string startTime;
  std::string endDate;
  std::string endTime;
};

/// The earliest and latest date and, independently, the earliest and latest time of day: a group
/// that was observed over midnight starts at the smallest clock time. Points with an NP code do not
/// count.
GroupSpan SpanOf(const CLibGps& library, int group);

}  // namespace jb3
