// Plain JSON values on their way into fields.
#pragma once

#include <array>
#include <concepts>
#include <cstdint>
#include <limits>
#include <string>
#include <utility>
#include <variant>

/// null, a flag, a whole number (unsigned ones that need it as such), any other number, a text (not
/// owned).
using JsonValue =
    std::variant<std::nullptr_t, bool, std::int64_t, std::uint64_t, double, const std::string*>;

/// How a value is shown in a complaint.
std::string InWords(const JsonValue& value);

/// Each puts a value into a field. Returns nothing when it fits there, else, with the field
/// untouched, what was expected: "a text".
std::string Put(const JsonValue& value, std::string& text);
std::string Put(const JsonValue& value, bool& flag);
/// null is undefined; a number beyond a single-precision field fits no better than a text.
std::string Put(const JsonValue& value, double& number);
std::string Put(const JsonValue& value, float& number);

/// "a whole number from -1 to 4"
std::string ExpectedWhole(std::int64_t least, std::uint64_t most);

template <std::integral Whole>
std::string Put(const JsonValue& value, Whole& number) {
  const auto take = [&](auto given) {
    if (!std::in_range<Whole>(given)) return false;
    number = static_cast<Whole>(given);
    return true;
  };
  const auto* const whole = std::get_if<std::int64_t>(&value);
  const auto* const natural = std::get_if<std::uint64_t>(&value);
  if ((whole != nullptr && take(*whole)) || (natural != nullptr && take(*natural))) return {};
  using Limits = std::numeric_limits<Whole>;
  return ExpectedWhole(static_cast<std::int64_t>(Limits::min()),
                       static_cast<std::uint64_t>(Limits::max()));
}
