#include "host/store/json_values.h"

#include <type_traits>

#include "host/store/json_writer.h"
#include "model/undefined.h"

namespace {

constexpr std::size_t kShownText = 60;  // bytes

// Takes any kind of number. False, with `number` untouched, for what is none.
bool TakeNumber(const JsonValue& value, double& number) {
  if (const auto* const whole = std::get_if<std::int64_t>(&value)) {
    number = static_cast<double>(*whole);
  } else if (const auto* const natural = std::get_if<std::uint64_t>(&value)) {
    number = static_cast<double>(*natural);
  } else if (const auto* const real = std::get_if<double>(&value)) {
    number = *real;
  } else {
    return false;
  }
  return true;
}

}  // namespace

std::string InWords(const JsonValue& value) {
  std::string words;
  std::visit(
      [&](const auto& plain) {
        using Plain = std::decay_t<decltype(plain)>;
        if constexpr (std::is_same_v<Plain, std::nullptr_t>) {
          words = "null";
        } else if constexpr (std::is_same_v<Plain, const std::string*>) {
          AppendJson(words, plain->substr(0, kShownText));
        } else {
          AppendJson(words, plain);
        }
      },
      value);
  return words;
}

std::string Put(const JsonValue& value, std::string& text) {
  const auto* const given = std::get_if<const std::string*>(&value);
  if (given == nullptr) return "a text";
  text = **given;
  return {};
}

std::string Put(const JsonValue& value, bool& flag) {
  const auto* const given = std::get_if<bool>(&value);
  if (given == nullptr) return "true or false";
  flag = *given;
  return {};
}

std::string Put(const JsonValue& value, double& number) {
  double given = UndefinedValue;
  if (!std::holds_alternative<std::nullptr_t>(value) && !TakeNumber(value, given)) {
    return "a number or null";
  }
  number = IsDefined(given) ? given : UndefinedValue;
  return {};
}

std::string Put(const JsonValue& value, float& number) {
  double wide = UndefinedValue;
  std::string expected = Put(value, wide);
  if (!expected.empty()) return expected;
  const float narrow = ToSingle(wide);
  if (IsDefined(wide) && !IsDefined(static_cast<double>(narrow)))
    return "a number of single precision";
  number = narrow;
  return {};
}

std::string ExpectedWhole(std::int64_t least, std::uint64_t most) {
  std::string expected = "a whole number from ";
  AppendJsonWhole(expected, least);
  expected += " to ";
  AppendJsonWhole(expected, most);
  return expected;
}
