#include "services/number_text.h"

#include <algorithm>
#include <cmath>

#include "model/undefined.h"
#include "platform/numbers.h"

namespace {

bool IsAllZeros(std::string_view number) {
  return number.find_first_of("123456789") == std::string_view::npos;
}

void AppendNumber(std::string& text, double value, int decimals) {
  const std::size_t start = text.size();
  platform::AppendFixed(text, value, decimals);
  if (text[start] == '-' && IsAllZeros(std::string_view(text).substr(start))) text.erase(start, 1);
}

}  // namespace

void AppendCStringDaDouble(std::string& text, double value, int decimals) {
  AppendNumber(text, std::isfinite(value) ? value : UndefinedValue, decimals);
}

tdk::WString CStringDaDouble(double value, int width, int decimals) {
  std::string text;
  AppendCStringDaDouble(text, value, decimals);
  const std::size_t integerPart = std::min(text.find('.'), text.size());
  const auto wanted = static_cast<std::size_t>(std::max(width, 0));
  if (integerPart < wanted) text.insert(0, wanted - integerPart, ' ');
  return tdk::WString(std::move(text));
}

tdk::WString StringDaDouble(double value, int width, int decimals) {
  return IsDefined(value) ? CStringDaDouble(value, width, decimals) : tdk::WString();
}

tdk::WString StringDaDoubleConZeri(double value, int digits) {
  if (!IsDefined(value)) return {};
  std::string text;
  AppendNumber(text, value, 0);
  const std::size_t sign = text.front() == '-' ? 1 : 0;
  const auto wanted = static_cast<std::size_t>(std::max(digits, 0));
  if (text.size() - sign < wanted) text.insert(sign, wanted - (text.size() - sign), '0');
  return tdk::WString(std::move(text));
}

double DoubleDaString(const tdk::WString& text) { return DoubleDaCString(text.ToUtf8()); }

double DoubleDaCString(std::string_view text) {
  return platform::ParseDecimalPrefix(text, UndefinedValue);
}

std::int16_t ShortDaString32000(const tdk::WString& text) {
  const std::int64_t value = platform::ParseWholePrefix(text.ToUtf8()).value_or(0);
  return static_cast<std::int16_t>(std::clamp<std::int64_t>(value, -32000, 32000));
}
