#include "host/cad/dwg/dwg_reader.h"

#include "host/cad/dwg/read_drawing.h"

CadLoad ReadDwg(const tdk::WString& path, CTcadEng& engine) {
  CadLoad load;
  cad_reader::Notes notes;
  try {
    dwg::File file(path);
    dwg::DrawingReader(file, engine, notes).Read();
    load.isLoaded = true;
  } catch (const dwg::Failure& failure) {
    load.errorText = failure.reason;
  }
  load.notes = notes.Lines();
  return load;
}
