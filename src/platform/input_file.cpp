#include "platform/input_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <utility>

#include "platform/file_trouble.h"
#include "platform/paths.h"

namespace platform {

InputFile::~InputFile() {
  if (file_ >= 0) close(file_);
}

bool InputFile::Open(std::string_view path) {
  path_ = NativePath(path);
  const auto fail = [&](int error) {
    ReportFileTrouble(FileTrouble::Action::kOpen, path_, error);
    if (file_ >= 0) close(std::exchange(file_, -1));
    return false;
  };
  if (file_ >= 0) close(std::exchange(file_, -1));
  file_ = open(path_.c_str(), O_RDONLY | O_CLOEXEC);
  if (file_ < 0) return fail(errno);
  struct stat facts {};
  if (fstat(file_, &facts) != 0) return fail(errno);
  if (S_ISDIR(facts.st_mode)) return fail(EISDIR);
  size_ = S_ISREG(facts.st_mode) ? static_cast<std::uint64_t>(facts.st_size) : 0;
  return true;
}

std::size_t InputFile::Read(char* bytes, std::size_t size) {
  for (;;) {
    const ssize_t got = read(file_, bytes, size);
    if (got >= 0) return static_cast<std::size_t>(got);
    if (errno == EINTR) continue;
    ReportFileTrouble(FileTrouble::Action::kRead, path_, errno);
    return 0;
  }
}

std::size_t InputFile::ReadAt(std::uint64_t position, char* bytes, std::size_t size) {
  for (;;) {
    const ssize_t got = pread(file_, bytes, size, static_cast<off_t>(position));
    if (got >= 0) return static_cast<std::size_t>(got);
    if (errno == EINTR) continue;
    ReportFileTrouble(FileTrouble::Action::kRead, path_, errno);
    return 0;
  }
}

}  // namespace platform
