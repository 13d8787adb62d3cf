// Files read in blocks, byte by byte as they are.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace platform {

class InputFile {
 public:
  InputFile() = default;
  ~InputFile();
  InputFile(const InputFile&) = delete;
  InputFile& operator=(const InputFile&) = delete;

  /// Opens `path` (backslashes allowed). False, and trouble reported, when that fails or a folder
  /// is there.
  bool Open(std::string_view path);
  bool IsOpen() const { return file_ >= 0; }

  /// Reads at most `size` bytes; 0 at the end of the file and at a read error, which is reported.
  std::size_t Read(char* bytes, std::size_t size);

  /// The same from a place in the file; for files that have a size.
  std::size_t ReadAt(std::uint64_t position, char* bytes, std::size_t size);

  /// Size of the file; 0 when it has none, as a pipe.
  std::uint64_t Size() const { return size_; }

 private:
  std::string path_;
  int file_ = -1;
  std::uint64_t size_ = 0;
};

}  // namespace platform
