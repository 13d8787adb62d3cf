#include "platform/text_reader.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <utility>

#include "platform/file_trouble.h"
#include "platform/paths.h"

namespace platform {
namespace {

constexpr std::size_t kBlockSize = 256 * 1024;

}  // namespace

TextReader::~TextReader() {
  if (file_ >= 0) close(file_);
}

bool TextReader::Open(std::string_view path) {
  path_ = NativePath(path);
  const auto fail = [&](int error) {
    ReportFileTrouble(FileTrouble::Action::kOpen, path_, error);
    if (file_ >= 0) close(std::exchange(file_, -1));
    return false;
  };
  file_ = open(path_.c_str(), O_RDONLY | O_CLOEXEC);
  if (file_ < 0) return fail(errno);
  struct stat facts {};
  if (fstat(file_, &facts) != 0) return fail(errno);
  if (S_ISDIR(facts.st_mode)) return fail(EISDIR);
  size_ = S_ISREG(facts.st_mode) ? static_cast<std::uint64_t>(facts.st_size) : 0;
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
    const ssize_t got = read(file_, block_.data() + end_, block_.size() - end_);
    if (got < 0 && errno == EINTR) continue;
    if (got < 0) ReportFileTrouble(FileTrouble::Action::kRead, path_, errno);
    if (got <= 0) atEnd_ = true;
    if (got > 0) end_ += static_cast<std::size_t>(got);
  }
  return begin_ != end_;
}

std::optional<std::string_view> TextReader::NextPiece(std::size_t limit) {
  // One byte more than the limit: a CR LF that straddles it still counts as one character.
  if (file_ < 0 || !Fill(limit + 1)) return std::nullopt;
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
