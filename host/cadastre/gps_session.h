// From when to when a GPS group was measured.
#pragma once

#include <compare>
#include <optional>
#include <string>
#include <string_view>

#include "model/gps.h"

namespace dat {

/// A minute of a day.
struct Moment {
  int year = 0;
  int month = 0;
  int day = 0;
  int hour = 0;
  int minute = 0;

  auto operator<=>(const Moment&) const = default;
};

/// When a point was measured; nothing when it does not say.
std::optional<Moment> MomentOf(const CPunGps& point);

/// The moment in a text such as "20/11/2025 09:05", "2025-11-20 09:05:30" or "20112025-09:05".
/// Nothing when it has no time of day, or is no date.
std::optional<Moment> MomentOf(std::string_view text);

/// DDMMYYYY-hh:mm; empty for nothing.
std::string Text(const std::optional<Moment>& moment);

struct Session {
  std::optional<Moment> start;
  std::optional<Moment> end;

  void Take(const std::optional<Moment>& moment);
};

}  // namespace dat
