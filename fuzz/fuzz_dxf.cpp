// Whatever a DXF file holds, the reader takes it or refuses it with a reason, and what is in the
// engine then can be drawn.
#include "drawing_check.h"
#include "host/cad/dxf/dxf_reader.h"
#include "memory_file.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const MemoryFile input;
  input.Fill(data, size);
  CTcadEng engine(0, nullptr, false);
  const CadLoad load = ReadDxf(input.Path(), engine);
  if (load.isLoaded != load.errorText.IsEmpty()) std::abort();
  if (load.isLoaded && load.errorLine != 0) std::abort();
  DrawingCheck::Run(engine);
  return 0;
}
