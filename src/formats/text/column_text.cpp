#include "formats/text/column_text.h"

#include "platform/numbers.h"
#include "services/date_time.h"
#include "services/number_text.h"

namespace text {
namespace {

constexpr char kDateDivider = '-';
constexpr char kTimeDivider = ':';

void AppendCoordinate(std::string& text, double value) {
  AppendCStringDaDouble(text, value, kCoordinateDecimals);
}

void AppendDate(std::string& text, const CPun& point) {
  if (!HasDate(point)) return;
  const UtcTime time = FUtcMsToUtcTime(point.GetDateTime());
  AppendTwoDigitParts(text, {time.day, time.month, time.year}, kDateDivider);
}

void AppendDate(std::string& text, const CPunGps& point) {
  if (!HasDate(point)) return;
  AppendTwoDigitParts(text, {point.GetDay(), point.GetMonth(), point.GetYear()}, kDateDivider);
}

void AppendTime(std::string& text, const CPun& point) {
  if (!HasDate(point)) return;
  const UtcTime time = FUtcMsToUtcTime(point.GetDateTime());
  AppendTwoDigitParts(text, {time.hour, time.minute, time.second}, kTimeDivider);
}

void AppendTime(std::string& text, const CPunGps& point) {
  if (HasTime(point)) AppendTimeOfDay(text, point.GetTod(), kTimeDivider);
}

template <class Append>
void AppendMoment(int kind, const CEgn& point, Append append) {
  if (kind == kTotalStation) append(static_cast<const CPun&>(point));
  if (kind == kGpsGroups) append(static_cast<const CPunGps&>(point));
}

}  // namespace

void AppendTwoDigitParts(std::string& text, std::initializer_list<int> parts, char divider) {
  bool isFirst = true;
  for (const int part : parts) {
    if (!isFirst) text += divider;
    isFirst = false;
    if (part >= 0 && part < 10) text += '0';
    platform::AppendWhole(text, part);
  }
}

bool HasDate(const CPun& point) { return point.GetDateTime() > 0; }
bool HasDate(const CPunGps& point) { return point.GetYear() != 0; }
bool HasTime(const CPunGps& point) { return HasDate(point) || point.GetTod() != 0; }

void AppendTimeOfDay(std::string& text, unsigned long milliseconds, char divider) {
  const auto seconds = static_cast<int>(milliseconds / 1000);
  AppendTwoDigitParts(text, {seconds / 3600, seconds / 60 % 60, seconds % 60}, divider);
}

void AppendColumn(std::string& text, int kind, const CEgn& point, int field) {
  switch (field) {
    case kName: text += point.GetNome().ToUtf8(); break;
    case kNorth: return AppendCoordinate(text, point.GetCoordY());
    case kEast: return AppendCoordinate(text, point.GetCoordX());
    case kElev: return AppendCoordinate(text, point.GetCoordZ());
    case kDescr: text += point.GetSecScri().ToUtf8(); break;
    case kDate: return AppendMoment(kind, point, [&](const auto& each) { AppendDate(text, each); });
    case kTime: return AppendMoment(kind, point, [&](const auto& each) { AppendTime(text, each); });
    default: break;
  }
}

}  // namespace text
