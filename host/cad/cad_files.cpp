#include "host/cad/cad_files.h"

#include "host/cad/dwg/dwg_reader.h"
#include "host/cad/dwg/dwg_writer.h"
#include "host/cad/dxf/dxf_reader.h"
#include "host/cad/dxf/dxf_writer.h"

CadLoad CadFiles::LoadDxf(const tdk::WString& path, CTcadEng& engine) {
  return ReadDxf(path, engine);
}

CadLoad CadFiles::LoadDwg(const tdk::WString& path, CTcadEng& engine) {
  return ReadDwg(path, engine);
}

bool CadFiles::SaveDxf(const CadSave& how, const CTcadEng& engine) {
  const DxfWritten written = WriteDxfCounting(how, engine);
  leftOut_ = written.leftOut;
  return written.isWritten;
}

bool CadFiles::SaveDwg(const CadSave& how, const CTcadEng& engine) {
  const DwgWritten written = WriteDwgCounting(how, engine);
  leftOut_ = written.leftOut;
  return written.isWritten;
}

CadFiles& CadFiles::Install() {
  static CadFiles files;
  ICadFiles::SetCurrent(&files);
  return files;
}
