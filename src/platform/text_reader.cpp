#include "platform/text_reader.h"

#include <algorithm>
#include <cstring>

namespace platform {
namespace {

constexpr std::size_t kBlockSize = 256 * 1024;

}  // namespace

bool TextReader::Open(std::string_view path) {
  if (!file_.Open(path)) return false;
  block_.resize(kBlockSize);
  return true;
}

// Brings at least `wanted` unread bytes into the block, or all that the file still has. True when
// any are there.
bool TextReader::Fill(std::size_t wanted) {
  if (end_ - begin_ >= wanted || atEnd_) return begin_ != end_;
  std::memmove(block_.data(), block_.data() + begin_, end_ - begin_);
  end_ -= begin_;
  begin_ = 0;
  while (end_ < wanted && !atEnd_) {
    const std::size_t got = file_.Read(block_.data() + end_, block_.size() - end_);
    atEnd_ = got == 0;
    end_ += got;
  }
  return begin_ != end_;
}

std::optional<std::string_view> TextReader::NextPiece(std::size_t limit) {
  // One byte more than the limit: a CR LF that straddles it still counts as one character.
  if (!file_.IsOpen() || !Fill(limit + 1)) return std::nullopt;
  char* const start = block_.data() + begin_;
  const std::size_t window = std::min(end_ - begin_, limit + 1);
  std::size_t taken = std::min(window, limit);
  std::size_t length = taken;
  if (void* found = std::memchr(start, '\n', window)) {
    char* const lineFeed = static_cast<char*>(found);
    const auto raw = static_cast<std::size_t>(lineFeed - start) + 1;
    if (raw > 1 && lineFeed[-1] == '\r') {
      lineFeed[-1] = '\n';
      taken = raw;
      length = raw - 1;
    } else if (raw <= limit) {
      taken = length = raw;
    }
  }
  begin_ += taken;
  position_ += taken;
  return std::string_view(start, length);
}

}  // namespace platform
