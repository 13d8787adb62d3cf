#include "services/date_time.h"

#include <chrono>

UtcTime FUtcMsToUtcTime(std::uint64_t milliseconds) {
  using namespace std::chrono;
  constexpr std::uint64_t kDay = 86'400'000;
  const sys_days day{days(static_cast<int>(milliseconds / kDay))};
  const year_month_day date(day);
  const auto second = static_cast<int>(milliseconds % kDay / 1000);
  return {static_cast<int>(static_cast<unsigned>(date.day())),
          static_cast<int>(static_cast<unsigned>(date.month())),
          static_cast<int>(date.year()),
          second / 3600,
          second / 60 % 60,
          second % 60};
}
