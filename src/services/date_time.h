// Moments as dates and times of day.
#pragma once

#include <cstdint>

struct UtcTime {
  int day = 0;
  int month = 0;
  int year = 0;
  int hour = 0;
  int minute = 0;
  int second = 0;
};

/// Milliseconds since 1970, UTC, as a date and a time; a fraction of a second is cut.
UtcTime FUtcMsToUtcTime(std::uint64_t milliseconds);
