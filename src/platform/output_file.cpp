#include "platform/output_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <system_error>
#include <utility>

#include "platform/numbers.h"
#include "platform/paths.h"

namespace platform {
namespace {

constexpr int kFlags = O_WRONLY | O_CREAT | O_CLOEXEC;
constexpr mode_t kMode = 0666;

// A link is followed, so that the file it names is replaced, or created, and not the link.
std::string FollowLinks(std::string path) {
  constexpr int kMostLinks = 40;  // as many as the system follows
  for (int links = 0; links < kMostLinks; ++links) {
    const std::unique_ptr<char, decltype(&std::free)> resolved(realpath(path.c_str(), nullptr),
                                                               &std::free);
    if (resolved) return resolved.get();
    std::error_code error;
    if (std::filesystem::exists(path, error)) break;  // a pipe under /dev/fd: no path leads to it
    const auto next = std::filesystem::read_symlink(path, error);
    if (error) break;
    path = std::filesystem::path(path).replace_filename(next).string();
  }
  return path;
}

// Unlike any other name in the folder as long as this process lives.
std::string TemporaryName(const std::string& target) {
  static int counter = 0;
  const std::string_view name = FileName(target);
  std::string temporary = target.substr(0, target.size() - name.size());
  temporary.append(".").append(name.substr(0, 100)).append(".part-");
  AppendWhole(temporary, getpid());
  temporary += '-';
  AppendWhole(temporary, ++counter);
  return temporary;
}

bool WriteAll(int file, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t written = write(file, bytes.data(), bytes.size());
    if (written < 0 && errno == EINTR) continue;
    if (written < 0) return false;
    bytes.remove_prefix(static_cast<std::size_t>(written));
  }
  return true;
}

}  // namespace

OutputFile::~OutputFile() { Discard(); }

bool OutputFile::Start(std::string_view path, bool inPlaceToo) {
  Discard();
  target_ = FollowLinks(NativePath(path));
  failed_ = false;
  buffer_.clear();
  struct stat facts {};
  const bool exists = stat(target_.c_str(), &facts) == 0;
  if (exists && S_ISDIR(facts.st_mode)) return Fail(FileTrouble::Action::kCreate, EISDIR);
  if (exists && access(target_.c_str(), W_OK) != 0) {
    return Fail(FileTrouble::Action::kCreate, errno);
  }
  if (!exists || S_ISREG(facts.st_mode)) {
    if (MakeTemporary()) {
      // A file system without modes may refuse; the text is what matters.
      if (exists) static_cast<void>(fchmod(file_, facts.st_mode & 07777));
      return true;
    }
    if (!exists || !inPlaceToo) return Fail(FileTrouble::Action::kCreate, errno);
  }
  file_ = open(target_.c_str(), kFlags | O_TRUNC, kMode);
  return file_ >= 0 || Fail(FileTrouble::Action::kCreate, errno);
}

bool OutputFile::MakeTemporary() {
  temporary_ = TemporaryName(target_);
  file_ = open(temporary_.c_str(), kFlags | O_EXCL, kMode);
  if (file_ < 0) temporary_.clear();
  return file_ >= 0;
}

bool OutputFile::Fail(FileTrouble::Action action, int error) {
  if (!failed_) ReportFileTrouble(action, target_, error);
  failed_ = true;
  return false;
}

void OutputFile::Flush() {
  if (IsOpen() && !failed_ && !WriteAll(file_, buffer_)) {
    Fail(FileTrouble::Action::kWrite, errno);
  }
  buffer_.clear();
}

void OutputFile::Overwrite(std::uint64_t position, std::string_view bytes) {
  Flush();
  while (IsOpen() && !failed_ && !bytes.empty()) {
    const ssize_t written = pwrite(file_, bytes.data(), bytes.size(), static_cast<off_t>(position));
    if (written < 0 && errno == EINTR) continue;
    if (written < 0) {
      Fail(FileTrouble::Action::kWrite, errno);
      return;
    }
    position += static_cast<std::uint64_t>(written);
    bytes.remove_prefix(static_cast<std::size_t>(written));
  }
}

bool OutputFile::Commit() { return Complete() && Place(); }

bool OutputFile::Complete() {
  if (!IsOpen()) return false;
  Flush();
  // The close may be the first to say that the disk is full.
  if (close(std::exchange(file_, -1)) != 0) Fail(FileTrouble::Action::kWrite, errno);
  if (failed_) Discard();
  return !failed_;
}

bool OutputFile::Place() {
  const bool moves = !failed_ && !temporary_.empty();
  const bool isThere = !moves || std::rename(temporary_.c_str(), target_.c_str()) == 0;
  return Placed(isThere ? 0 : errno);
}

bool OutputFile::Placed(int error) {
  if (error != 0) Fail(FileTrouble::Action::kWrite, error);
  if (!failed_) temporary_.clear();
  const bool complete = !failed_;
  Discard();
  return complete;
}

void OutputFile::Discard() {
  if (file_ >= 0) close(file_);
  file_ = -1;
  if (!temporary_.empty()) unlink(temporary_.c_str());
  temporary_.clear();
}

}  // namespace platform
