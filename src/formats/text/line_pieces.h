// Lines of a text file in UTF-8, a piece at a time.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/text_reader.h"

namespace text {

/// Pieces of at most 254 characters, each of which counts as a line. A byte-order mark is skipped.
class LinePieces {
 public:
  bool Open(std::string_view path) { return file_.Open(path); }
  /// Line end included; valid until the next call. Nothing at the end of the file.
  std::optional<std::string_view> Next();

  std::uint64_t Position() const { return file_.Position(); }
  std::uint64_t Size() const { return file_.Size(); }

 private:
  std::optional<std::string_view> Completed(std::string_view piece);

  platform::TextReader file_;
  std::string piece_;
  bool isFirst_ = true;
};

}  // namespace text
