// What a fuzz target reads from and writes to.
#pragma once

#include <sys/mman.h>
#include <unistd.h>

#include <cstdint>
#include <cstdlib>
#include <string>

#include "tdk/wstring.h"

// A file in memory, reached by a path.
class MemoryFile {
 public:
  MemoryFile() : file_(memfd_create("fuzz", 0)) {}
  ~MemoryFile() { close(file_); }
  MemoryFile(const MemoryFile&) = delete;
  MemoryFile& operator=(const MemoryFile&) = delete;

  void Fill(const std::uint8_t* data, std::size_t size) const {
    if (write(file_, data, size) != static_cast<ssize_t>(size)) std::abort();
  }
  tdk::WString Path() const { return tdk::WString("/proc/self/fd/" + std::to_string(file_)); }

 private:
  int file_;
};
