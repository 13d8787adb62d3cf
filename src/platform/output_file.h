// Files written whole or not at all.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/file_trouble.h"

namespace platform {

/// A file that replaces its target when it is complete. The text goes into a new file beside the
/// target, which takes the target's place in Commit; until then, and whenever anything fails, the
/// old file stays as it was. Where that cannot be (a device, a pipe, a folder that takes no new
/// files) the target itself is written. Every failure is reported through file_trouble.h.
class OutputFile {
 public:
  OutputFile() = default;
  /// Without a Commit before it, nothing of what was written remains.
  ~OutputFile();
  OutputFile(const OutputFile&) = delete;
  OutputFile& operator=(const OutputFile&) = delete;

  /// Starts the file for `path` (backslashes allowed). False when it cannot be created.
  bool Open(std::string_view path) { return Start(path, /*inPlaceToo=*/true); }
  /// The same, but never writes over an old file: false, with that one untouched, where the folder
  /// takes no new files. For files that belong together (output_set.h).
  bool OpenBeside(std::string_view path) { return Start(path, /*inPlaceToo=*/false); }
  bool IsOpen() const { return file_ >= 0; }

  /// Where the next text is appended; pass it on with Flush now and then, FlushIfLarge between
  /// records.
  std::string& Buffer() { return buffer_; }
  void FlushIfLarge() {
    if (buffer_.size() >= kFlushSize) Flush();
  }
  void Flush();
  /// Puts bytes over others that were written before, `position` bytes from the beginning. That
  /// fails where the target itself is written and is no file on a disk.
  void Overwrite(std::uint64_t position, std::string_view bytes);

  /// Completes the file. False, with the old file untouched, when anything could not be written.
  bool Commit();

  // Commit in two steps, for files that belong together (output_set.h).
  /// Writes out all of it. False, with nothing left of it, when anything could not be written.
  bool Complete();
  /// Takes the target's place. False, with the old file untouched, when that fails.
  bool Place();
  /// What Place does once its file was moved, or not, by somebody else: an errno value, or 0.
  bool Placed(int error);
  /// Where it is until then; empty where the target itself is written.
  const std::string& Temporary() const { return temporary_; }
  /// What it replaces, once it is open.
  const std::string& Target() const { return target_; }

 private:
  static constexpr std::size_t kFlushSize = 256 * 1024;

  bool Start(std::string_view path, bool inPlaceToo);
  bool MakeTemporary();
  bool Fail(FileTrouble::Action action, int error);
  void Discard();

  std::string target_;     // where the text is to be in the end
  std::string temporary_;  // where it is until then; empty: the target is written itself
  std::string buffer_;
  int file_ = -1;
  bool failed_ = false;
};

}  // namespace platform
