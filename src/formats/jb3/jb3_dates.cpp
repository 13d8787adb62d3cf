#include "formats/jb3/jb3_dates.h"

#include <algorithm>
#include <array>
#include <tuple>

#include "platform/code_page.h"
#include "platform/numbers.h"
#include "services/number_text.h"

namespace jb3 {
namespace {

void AppendPadded(std::string& text, int value, std::size_t digits) {
  std::string number;
  platform::AppendWhole(number, value < 0 ? -value : value);
  if (value < 0) text += '-';
  const std::size_t length = number.size() + (value < 0 ? 1 : 0);
  if (length < digits) text.append(digits - length, '0');
  text += number;
}

char DividerOf(const std::string& text) {
  for (const char divider : {'\\', '/', '-'}) {
    if (text.find(divider) != std::string::npos) return divider;
  }
  return '\0';
}

int FullYear(int year) {
  if (year >= 100) return year;
  return year + (year < 70 ? 2000 : 1900);
}

std::string DateFromParts(const std::string& text, char divider) {
  const std::size_t first = text.find(divider);
  const std::size_t second = text.find(divider, first + 1);
  if (second == std::string::npos) return {};
  const std::string parts[] = {text.substr(0, first), text.substr(first + 1, second - first - 1),
                               text.substr(second + 1)};
  if (std::any_of(std::begin(parts), std::end(parts),
                  [](const auto& part) { return part.empty(); })) {
    return {};
  }
  const auto number = [](const std::string& part) {
    return ShortDaString32000(tdk::WString(part));
  };
  return DateText(number(parts[0]), number(parts[1]), FullYear(number(parts[2])));
}

struct CalendarDay {
  int year;
  int month;
  int day;
  auto operator<=>(const CalendarDay&) const =
      default;  // NOLINT(modernize-use-nullptr): made by the compiler
};

std::string TextOf(const CalendarDay& date) {
  if (date == CalendarDay{0, 0, 0}) return {};
  return DateText(date.day, date.month, date.year);
}

// HH:MM, to the nearest minute, so that the last half minute of a day is 24:00.
std::string MinuteText(unsigned long milliseconds) {
  const unsigned long minutes = (milliseconds + 30000) / 60000;
  std::string text;
  AppendPadded(text, static_cast<int>(minutes / 60), 2);
  text += ':';
  AppendPadded(text, static_cast<int>(minutes % 60), 2);
  return text;
}

bool CountsForSpan(const CPunGps& point) {
  return !point.IsCodedNP() && point.GetYear() != 0 && point.GetMonth() != 0 &&
         point.GetDay() != 0 && point.GetTod() != 0;
}

}  // namespace

std::string DateText(int day, int month, int year) {
  std::string text;
  AppendPadded(text, day, 2);
  text += '-';
  AppendPadded(text, month, 2);
  text += '-';
  AppendPadded(text, year, 4);
  return text;
}

std::string TimeText(unsigned long milliseconds) {
  const auto seconds = static_cast<int>(milliseconds / 1000);
  std::string text;
  AppendPadded(text, seconds / 3600, 2);
  text += ':';
  AppendPadded(text, seconds / 60 % 60, 2);
  text += ':';
  AppendPadded(text, seconds % 60, 2);
  return text;
}

std::string NormalisedDate(const tdk::WString& date) {
  constexpr std::size_t kShortest = 6;
  constexpr std::size_t kLongest = 10;
  constexpr std::size_t kUndivided = 8;
  // A byte for each character, as it is written.
  std::string text;
  platform::AppendCodePageFromUtf8(text, date.ToUtf8());
  if (text.size() < kShortest || text.size() > kLongest) return {};
  if (const char divider = DividerOf(text)) return DateFromParts(text, divider);
  if (text.size() != kUndivided) return {};
  return text.substr(0, 2) + '-' + text.substr(2, 2) + '-' + text.substr(4);
}

GroupSpan SpanOf(const CLibGps& library, int group) {
  CalendarDay earliest{2100, 12, 31};
  CalendarDay latest{1900, 1, 1};
  unsigned long first = 86'400'000;
  unsigned long last = 0;
  bool any = false;
  for (int i = 0; i < library.GetPunArSize(group); ++i) {
    const CPunGps& point = *library.GetPunAt(group, i);
    if (!CountsForSpan(point)) continue;
    const CalendarDay date{point.GetYear(), point.GetMonth(), point.GetDay()};
    earliest = std::min(earliest, date);
    latest = std::max(latest, date);
    first = std::min(first, point.GetTod());
    last = std::max(last, point.GetTod());
    any = true;
  }
  if (!any) return {};
  return {TextOf(earliest), MinuteText(first), TextOf(latest), MinuteText(last)};
}

}  // namespace jb3
