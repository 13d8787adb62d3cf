#include "host/store/row_text.h"

#include "host/store/gis_records.h"
#include "platform/numbers.h"

namespace {

constexpr std::string_view kNull = "-";

void AppendPlain(std::string& text, const gis::Value& value) {
  if (const auto* whole = std::get_if<std::int64_t>(&value)) platform::AppendWhole(text, *whole);
  if (const auto* real = std::get_if<double>(&value)) platform::AppendShortest(text, *real);
  if (const auto* date = std::get_if<gis::Date>(&value)) text += DateText(*date);
  if (const auto* flag = std::get_if<bool>(&value)) text += *flag ? '1' : '0';
  if (gis::IsNull(value)) text += kNull;
}

template <class Parsed>
std::optional<gis::Value> ValueOf(const std::optional<Parsed>& parsed) {
  if (!parsed) return std::nullopt;
  return gis::Value(*parsed);
}

std::optional<gis::Value> PlainIn(std::string_view text, gis::FieldType type) {
  switch (type) {
    case gis::FieldType::kInteger: return ValueOf(platform::ParseWhole(text));
    case gis::FieldType::kReal: return ValueOf(platform::ParseDecimal(text));
    case gis::FieldType::kDate: return ValueOf(DateIn(text));
    case gis::FieldType::kBool:
      if (text == "1" || text == "0") return gis::Value(text == "1");
      break;
    case gis::FieldType::kText: break;
  }
  return std::nullopt;
}

// Takes the text of so many bytes that follows.
std::optional<gis::Value> TakeText(std::string_view& text, std::string_view count) {
  const auto size = platform::ParseWhole(count);
  if (!size || *size < 0 || static_cast<std::uint64_t>(*size) > text.size()) return std::nullopt;
  const std::string_view taken = text.substr(0, static_cast<std::size_t>(*size));
  text.remove_prefix(taken.size());
  return gis::Value(taken);
}

std::optional<gis::Value> TakeValue(std::string_view& text, gis::FieldType type) {
  const std::size_t end = text.find_first_of(":;");
  if (end == std::string_view::npos) return std::nullopt;
  const std::string_view word = text.substr(0, end);
  const bool isText = text[end] == ':';
  text.remove_prefix(end + 1);
  if (!isText && word == kNull) return gis::Value();
  if (isText != (type == gis::FieldType::kText)) return std::nullopt;
  return isText ? TakeText(text, word) : PlainIn(word, type);
}

}  // namespace

void AppendRowValue(std::string& text, const gis::Value& value) {
  if (const auto* given = std::get_if<std::string_view>(&value)) {
    platform::AppendWhole(text, static_cast<std::int64_t>(given->size()));
    text.append(":").append(*given);
  } else {
    AppendPlain(text, value);
    text += ';';
  }
}

bool TakeRowValues(std::string_view text, const gis::CTable& table,
                   std::vector<gis::Value>& values) {
  values.clear();
  for (int i = 0; i < table.GetNumFields(); ++i) {
    const auto value = TakeValue(text, table.GetField(i).type);
    if (!value) return false;
    values.push_back(*value);
  }
  return text.empty();
}
