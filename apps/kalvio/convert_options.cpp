#include "convert_options.h"

#include <algorithm>
#include <array>

#include "failure.h"
#include "platform/numbers.h"
#include "services/translate.h"

namespace {

constexpr std::size_t kMostColumns = 6;
// Settings hold whole numbers up to this one.
constexpr std::int64_t kMostOfSetting = 32000;
constexpr std::array<std::string_view, 8> kColumns = {"name",  "north", "east", "elev",
                                                      "descr", "date",  "time", "-"};

std::vector<std::string> Split(const std::string& list) {
  std::vector<std::string> parts;
  for (std::size_t start = 0; start <= list.size();) {
    const std::size_t comma = std::min(list.find(',', start), list.size());
    parts.push_back(list.substr(start, comma - start));
    start = comma + 1;
  }
  return parts;
}

[[noreturn]] void Refuse(const char* option, const std::string& value) {
  throw BadUsage(Fill(Xlate("{1} cannot be \"{2}\""), {option, tdk::WString(value)}).ToUtf8());
}

bool IsColumn(const std::string& name) {
  return std::find(kColumns.begin(), kColumns.end(), name) != kColumns.end();
}

bool IsNumberFrom(std::int64_t least, const std::string& text) {
  const auto number = platform::ParseWhole(text);
  return number && *number >= least && *number <= kMostOfSetting;
}

bool IsWidth(const std::string& text) { return IsNumberFrom(1, text); }
bool IsRowCount(const std::string& text) { return IsNumberFrom(0, text); }

bool IsReferenceSystem(const std::string& text) {
  const std::size_t colon = text.find(':');
  return colon != std::string::npos && colon > 0 && colon + 1 < text.size();
}

void CheckList(const Arguments& arguments, const char* option,
               bool (*isRight)(const std::string& part)) {
  const auto list = arguments.Value(option);
  if (!list) return;
  const auto parts = Split(*list);
  if (parts.size() > kMostColumns || !std::all_of(parts.begin(), parts.end(), isRight)) {
    Refuse(option, *list);
  }
}

void CheckOne(const Arguments& arguments, const char* option,
              bool (*isRight)(const std::string& value)) {
  const auto value = arguments.Value(option);
  if (value && !isRight(*value)) Refuse(option, *value);
}

}  // namespace

void CheckLayoutOptions(const Arguments& arguments) {
  CheckList(arguments, "--columns", IsColumn);
  CheckList(arguments, "--widths", IsWidth);
  CheckOne(arguments, "--header-rows", IsRowCount);
  CheckOne(arguments, "--crs", IsReferenceSystem);
}
