// Whatever a JB2 file holds, the reader takes it, and what it took can be written and read again.
#include "formats/jb2/jb2_reader.h"
#include "formats/jb2/jb2_writer.h"
#include "memory_file.h"

namespace {

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
