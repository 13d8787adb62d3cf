// Whether a text that comes in blocks is UTF-8.
#pragma once

#include <string>
#include <string_view>

namespace platform {

class Utf8Check {
 public:
  /// Looks at the next block; a character may go on in the one after it.
  void Add(std::string_view block);
  /// Whether all that was added is UTF-8 (a character that is cut off at the very end is none).
  bool IsUtf8() const { return isGood_ && rest_.empty(); }

 private:
  bool isGood_ = true;
  std::string rest_;  // the first bytes of a character
};

}  // namespace platform
