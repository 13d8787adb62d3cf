#include "host/store/json_writer.h"

#include <algorithm>
#include <cmath>
#include <nlohmann/json.hpp>
#include <utility>

#include "platform/numbers.h"

namespace {

// True when a text goes between quotation marks as it stands.
bool IsPlain(std::string_view text) {
  return std::all_of(text.begin(), text.end(),
                     [](char c) { return c >= ' ' && c <= '~' && c != '"' && c != '\\'; });
}

}  // namespace

void AppendJson(std::string& text, const std::string& value) {
  using Json = nlohmann::ordered_json;
  if (IsPlain(value)) {
    text.append(1, '"').append(value).append(1, '"');
  } else {
    text += Json(value).dump(-1, ' ', false, Json::error_handler_t::replace);
  }
}

void AppendJson(std::string& text, double value) {
  if (!IsDefined(value)) {
    text += "null";
  } else if (value == 0 && std::signbit(value)) {
    text += "-0.0";  // without the decimal it would be a whole number, and lose its sign
  } else {
    platform::AppendShortest(text, value);
  }
}

void AppendJson(std::string& text, bool value) { text += value ? "true" : "false"; }

void AppendJsonWhole(std::string& text, std::int64_t value) { platform::AppendWhole(text, value); }

void AppendJsonWhole(std::string& text, std::uint64_t value) {
  if (std::in_range<std::int64_t>(value)) {
    platform::AppendWhole(text, static_cast<std::int64_t>(value));
  } else {
    text += nlohmann::ordered_json(value).dump();
  }
}

void JsonWriter::Begin(char bracket) {
  text_ += bracket;
  ++depth_;
  isEmpty_ = true;
}

void JsonWriter::End(char bracket) {
  --depth_;
  if (!isEmpty_) AppendLineStart();
  text_ += bracket;
  isEmpty_ = false;
}

void JsonWriter::NextLine() {
  if (!isEmpty_) text_ += ',';
  AppendLineStart();
  isEmpty_ = false;
}

void JsonWriter::AppendLineStart() { text_.append(1, '\n').append(depth_ * 2, ' '); }

void JsonWriter::AppendKey(std::string_view key) {
  AppendJson(text_, std::string(key));
  text_ += ": ";
}

void JsonWriter::Flush() {
  sink_(text_);
  text_.clear();
}

void JsonWriter::Finish() {
  text_ += '\n';
  Flush();
}
