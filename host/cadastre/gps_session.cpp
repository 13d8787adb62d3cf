#include "host/cadastre/gps_session.h"

#include <algorithm>
#include <vector>

#include "platform/numbers.h"
#include "services/number_text.h"

namespace dat {
namespace {

constexpr unsigned long kMinute = 60'000;
constexpr std::size_t kDateDigits = 8;

bool IsMoment(const Moment& moment) {
  return moment.year > 0 && moment.month >= 1 && moment.month <= 12 && moment.day >= 1 &&
         moment.day <= 31 && moment.hour >= 0 && moment.hour < 24 && moment.minute >= 0 &&
         moment.minute < 60;
}

std::optional<Moment> Checked(const Moment& moment) {
  return IsMoment(moment) ? std::optional(moment) : std::nullopt;
}

// The groups of digits; one of eight, a date without separators, is cut in three.
std::vector<std::string> Numbers(std::string_view text) {
  std::vector<std::string> numbers;
  bool isOpen = false;
  for (const char c : text) {
    const bool isDigit = c >= '0' && c <= '9';
    if (isDigit && !isOpen) numbers.emplace_back();
    if (isDigit) numbers.back() += c;
    isOpen = isDigit;
  }
  if (!numbers.empty() && numbers[0].size() == kDateDigits) {
    const std::string date = numbers[0];
    numbers[0] = date.substr(4);
    numbers.insert(numbers.begin(), {date.substr(0, 2), date.substr(2, 2)});
  }
  return numbers;
}

int Value(const std::string& digits) {
  constexpr std::size_t kMostDigits = 4;
  if (digits.size() > kMostDigits) return -1;
  return static_cast<int>(platform::ParseWhole(digits).value_or(-1));
}

}  // namespace

std::optional<Moment> MomentOf(const CPunGps& point) {
  const auto minutes = static_cast<int>(point.GetTod() / kMinute);
  return Checked({point.GetYear(), point.GetMonth(), point.GetDay(), minutes / 60, minutes % 60});
}

std::optional<Moment> MomentOf(std::string_view text) {
  constexpr std::size_t kNeeded = 5;
  const std::vector<std::string> numbers = Numbers(text);
  if (numbers.size() < kNeeded) return std::nullopt;
  const bool yearIsFirst = numbers[0].size() == 4;
  return Checked({Value(numbers[yearIsFirst ? 0 : 2]), Value(numbers[1]),
                  Value(numbers[yearIsFirst ? 2 : 0]), Value(numbers[3]), Value(numbers[4])});
}

std::string Text(const std::optional<Moment>& moment) {
  if (!moment) return {};
  const auto digits = [](int value, int count) {
    return StringDaDoubleConZeri(value, count).ToUtf8();
  };
  return digits(moment->day, 2) + digits(moment->month, 2) + digits(moment->year, 4) + '-' +
         digits(moment->hour, 2) + ':' + digits(moment->minute, 2);
}

void Session::Take(const std::optional<Moment>& moment) {
  if (!moment) return;
  start = start ? std::min(*start, *moment) : *moment;
  end = end ? std::max(*end, *moment) : *moment;
}

}  // namespace dat
