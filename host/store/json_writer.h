// JSON text, written piece by piece in a layout that people can read and compare line by line.
#pragma once

#include <concepts>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "host/store/fields.h"
#include "model/undefined.h"

/// Each appends one value. An undefined number becomes null; bytes that are no UTF-8 become
/// U+FFFD, for JSON has no way to hold them.
void AppendJson(std::string& text, const std::string& value);
void AppendJson(std::string& text, double value);
void AppendJson(std::string& text, bool value);
void AppendJsonWhole(std::string& text, std::int64_t value);
void AppendJsonWhole(std::string& text, std::uint64_t value);

template <std::integral Whole>
void AppendJson(std::string& text, Whole value) {
  using Widest = std::conditional_t<std::is_signed_v<Whole>, std::int64_t, std::uint64_t>;
  AppendJsonWhole(text, static_cast<Widest>(value));
}

/// A list of which nothing is defined becomes null as a whole.
template <class Part, std::size_t size>
void AppendJson(std::string& text, const std::array<Part, size>& parts) {
  bool isNull = std::is_floating_point_v<Part>;
  if constexpr (std::is_floating_point_v<Part>) {
    for (const Part part : parts) isNull = isNull && !IsDefined(static_cast<double>(part));
  }
  if (isNull) {
    text += "null";
    return;
  }
  std::string_view before = "[";
  for (const Part& part : parts) {
    text += before;
    AppendJson(text, part);
    before = ", ";
  }
  text += ']';
}

/// Writes a document from its first character to its last. Objects and lists are indented by two
/// blanks, one member or element a line; WriteLine puts a whole object on one line.
class JsonWriter {
 public:
  using Sink = std::function<void(std::string_view)>;

  /// `sink` takes the text in pieces; it must live as long as the writer.
  explicit JsonWriter(const Sink& sink) : sink_(sink) {}

  void BeginObject() { Begin('{'); }
  void EndObject() { End('}'); }
  void BeginList() { Begin('['); }
  void EndList() { End(']'); }

  /// Starts the next element of the open list, or the next member of the open object; its value
  /// must follow.
  void NextElement() { NextLine(); }
  void NextMember(std::string_view key) {
    NextLine();
    AppendKey(key);
  }

  template <class Value>
  void WriteMember(std::string_view key, const Value& value) {
    NextMember(key);
    AppendJson(text_, value);
  }
  /// A member whose value is JSON already.
  void WriteRawMember(std::string_view key, std::string_view value) {
    NextMember(key);
    text_ += value;
  }

  template <class Record>
  void WriteMembers(const Record& record) {
    ForEachField<Record>([&](const auto& field) { WriteMember(field.key, record.*field.member); });
  }

  template <class Record>
  void WriteLine(const Record& record) {
    WriteLine(record, [](std::string_view) { return true; });
  }
  /// `wants` says by its key whether a field is written; `more` is put before the closing bracket.
  template <class Record, class Wants>
  void WriteLine(const Record& record, const Wants& wants, std::string_view more = {}) {
    NextElement();
    std::string_view before = "{";
    ForEachField<Record>([&](const auto& field) {
      if (!wants(field.key)) return;
      text_ += before;
      AppendKey(field.key);
      AppendJson(text_, record.*field.member);
      before = ", ";
    });
    text_.append(more).append(1, '}');
    if (text_.size() >= kPieceSize) Flush();
  }
  /// An element that is JSON already, on a line of its own.
  void WriteRawElement(std::string_view value) {
    NextElement();
    text_ += value;
    if (text_.size() >= kPieceSize) Flush();
  }
  /// A list of numbers on a line of its own.
  template <class Number, std::size_t size>
  void WriteRow(const std::array<Number, size>& row) {
    NextElement();
    std::string_view before = "[";
    for (const Number number : row) {
      text_ += before;
      AppendJson(text_, number);
      before = ", ";
    }
    text_ += ']';
    if (text_.size() >= kPieceSize) Flush();
  }

  /// Ends the document.
  void Finish();

 private:
  static constexpr std::size_t kPieceSize = 64 * 1024;

  void Begin(char bracket);
  void End(char bracket);
  void NextLine();
  void AppendLineStart();
  void AppendKey(std::string_view key);
  void Flush();

  const Sink& sink_;
  std::string text_;
  std::size_t depth_ = 0;
  bool isEmpty_ = true;  // nothing in the open object or list yet
};
