// Whatever a DWG file holds, the reader takes it or refuses it with a reason, what is in the engine
// then can be drawn, and can be written again.
#include "drawing_check.h"
#include "host/cad/dwg/dwg_reader.h"
#include "host/cad/dwg/dwg_writer.h"
#include "memory_file.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const MemoryFile input;
  input.Fill(data, size);
  CTcadEng engine(0, nullptr, false);
  const CadLoad load = ReadDwg(input.Path(), engine);
  if (load.isLoaded != load.errorText.IsEmpty()) std::abort();
  DrawingCheck::Run(engine);
  if (!load.isLoaded) return 0;
  const MemoryFile output;
  CadSave how;
  how.path = output.Path();
  how.version = size % 2 == 0 ? TCAD_DWG_R14 : TCAD_DWG_2000;
  if (!WriteDwgCounting(how, engine).isWritten) std::abort();
  CTcadEng back(0, nullptr, false);
  if (!ReadDwg(output.Path(), back).isLoaded) std::abort();
  return 0;
}
