// Files read in text mode, a piece of a line at a time.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "platform/input_file.h"

namespace platform {

/// Reads a file as a text-mode line-reading call does: CR LF reaches the caller as LF, a line that
/// is longer than the caller's limit comes in pieces. Holds one block of the file, whatever the
/// length of its lines.
class TextReader {
 public:
  /// Opens `path` (backslashes allowed). False, and trouble reported, when that fails or a folder
  /// is there.
  bool Open(std::string_view path);

  /// The next piece: the characters up to and with the next line feed, at most `limit` (1..32,768)
  /// of them. Valid until the next call. Nothing at the end of the file; a read error ends it too,
  /// and is reported.
  std::optional<std::string_view> NextPiece(std::size_t limit);

  /// Bytes handed out so far, and the size of the file (0 when it has none, as a pipe).
  std::uint64_t Position() const { return position_; }
  std::uint64_t Size() const { return file_.Size(); }

 private:
  bool Fill(std::size_t wanted);

  InputFile file_;
  std::vector<char> block_;
  std::size_t begin_ = 0;
  std::size_t end_ = 0;
  std::uint64_t position_ = 0;
  bool atEnd_ = false;
};

}  // namespace platform
