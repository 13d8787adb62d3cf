// Whatever a JB2 file holds, the reader takes it, and what it took can be written and read again.
#include <sys/mman.h>
#include <unistd.h>

#include <cstdint>
#include <cstdlib>
#include <string>

#include "formats/jb2/jb2_reader.h"
#include "formats/jb2/jb2_writer.h"

namespace {

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

int Read(CLibCmp& library, const MemoryFile& file) {
  if (!jb2::Jb2Reader(nullptr, &library, file.Path()).Run()) std::abort();
  return library.GetJobArSize();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const MemoryFile input;
  input.Fill(data, size);
  CLibCmp library;
  const int jobs = Read(library, input);
  const MemoryFile written;
  jb2::Jb2Writer(&library).Write(written.Path());
  CLibCmp again;
  if (Read(again, written) != jobs) std::abort();
  return 0;
}
