// Fields of a stored object, described once for the JSON reader, the JSON writer and the database.
#pragma once

#include <array>
#include <span>
#include <string_view>
#include <tuple>
#include <type_traits>

/// One field of a plain record. What it holds when it is left out is what a new record holds.
template <class Record, class Value>
struct Field {
  std::string_view key;  ///< in JSON, and the name of its column
  Value Record::*member;
  std::span<const std::string_view> parts =
      {};  ///< for a list: what its parts are called in columns
};
template <class Record, class Value>
Field(std::string_view, Value Record::*) -> Field<Record, Value>;
template <class Record, class Value>
Field(std::string_view, Value Record::*, std::span<const std::string_view>) -> Field<Record, Value>;

template <class Value>
inline constexpr bool kIsList = false;
template <class Part, std::size_t size>
inline constexpr bool kIsList<std::array<Part, size>> = true;

/// Calls `visit` with each field of `Record`, in the order in which they are written.
template <class Record, class Visit>
void ForEachField(Visit&& visit) {
  static constexpr auto fields = Record::Fields();
  std::apply([&](const auto&... field) { (visit(field), ...); }, fields);
}

/// Whether `Record` has a field of that key.
template <class Record>
bool HasField(std::string_view key) {
  static constexpr auto fields = Record::Fields();
  return std::apply([&](const auto&... field) { return ((field.key == key) || ...); }, fields);
}
