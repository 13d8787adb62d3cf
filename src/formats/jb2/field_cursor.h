// Cuts the fields of one JB2 line, in order.
#pragma once

#include <algorithm>
#include <string_view>

#include "formats/jb2/jb2_records.h"
#include "services/number_text.h"
#include "tdk/wstring.h"

namespace jb2 {

class FieldCursor {
 public:
  /// `line` with its prefix; a line shorter than that has empty fields only.
  explicit FieldCursor(std::string_view line)
      : rest_(line.substr(std::min<std::size_t>(kPrefixLength, line.size()))) {}

  /// The next field in the system's code page, without white space around it. A field that no
  /// separator closes is empty, and so are all after it.
  std::string_view Next() {
    const std::size_t end = rest_.find(kSeparator);
    if (end == std::string_view::npos) return {};
    const std::string_view field = rest_.substr(0, end);
    rest_.remove_prefix(end + 1);
    return Trimmed(field);
  }

  tdk::WString NextText() { return tdk::ConvertString(Next(), 0); }
  double NextNumber() { return DoubleDaCString(Next()); }

 private:
  static bool IsWhite(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }

  static std::string_view Trimmed(std::string_view field) {
    while (!field.empty() && IsWhite(field.front())) field.remove_prefix(1);
    while (!field.empty() && IsWhite(field.back())) field.remove_suffix(1);
    return field;
  }

  std::string_view rest_;
};

}  // namespace jb2
