#include "host/cad/dwg/dwg_reader.h"

#include "host/cad/dwg/read_drawing.h"
#include "services/progress.h"

CadLoad ReadDwg(const tdk::WString& path, CTcadEng& engine) {
  CadLoad load;
  cad_reader::Notes notes;
  try {
    dwg::File file(path);
    // Every record is looked at twice.
    ProgressParts progress(2);
    progress.Begin(1);
    dwg::DrawingReader reader(file, engine, notes);
    progress.Begin(1);
    reader.Read();
    load.isLoaded = true;
  } catch (const dwg::Failure& failure) {
    load.errorText = failure.reason;
  }
  load.notes = notes.Lines();
  return load;
}
