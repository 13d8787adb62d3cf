// What a loader leaves out or changes, for the user.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "tdk/wstring.h"

namespace landxml_load {

class Remarks {
 public:
  /// "line 12: …"; line 0 names none.
  void Add(std::uint64_t line, const tdk::WString& text);
  void Add(const tdk::WString& text) { Add(0, text); }

  const std::vector<std::string>& All() const { return all_; }
  std::vector<std::string>& All() { return all_; }

 private:
  std::vector<std::string> all_;
};

/// A number as a text of a remark.
tdk::WString InWords(std::uint64_t number);

}  // namespace landxml_load
