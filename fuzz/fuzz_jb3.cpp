// Whatever a JB3 file holds, the reader takes it or refuses it whole, and what it took can be
// written and read again.
#include "formats/jb3/jb3_reader.h"
#include "formats/jb3/jb3_writer.h"
#include "host/document/host_document.h"
#include "memory_file.h"

namespace {

bool IsEmpty(HostDocument& document) {
  return document.GetLibCmp()->GetJobArSize() == 0 && document.GetLibGps()->GetGrpArSize() == 0 &&
         document.GetLibPnt()->GetGrpArSize() == 0 && document.GetLibCmp()->GetOriArSize() == 0;
}

bool Read(HostDocument& document, const MemoryFile& file) {
  return jb3::Jb3Reader(nullptr, document, file.Path()).Read();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const MemoryFile input;
  input.Fill(data, size);
  HostDocument document;
  const bool isJb3 = Read(document, input);
  if (!isJb3 && !IsEmpty(document)) std::abort();
  const MemoryFile written;
  jb3::Jb3Writer(document).Write(written.Path(), "fuzz", "1");
  HostDocument again;
  if (!Read(again, written)) std::abort();
  if (again.GetLibGps()->GetGrpArSize() != document.GetLibGps()->GetGrpArSize()) std::abort();
  if (again.GetLibCmp()->GetOriArSize() != document.GetLibCmp()->GetOriArSize()) std::abort();
  return 0;
}
