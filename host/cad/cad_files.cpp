#include "host/cad/cad_files.h"

#include "host/cad/dxf/dxf_reader.h"
#include "host/cad/dxf/dxf_writer.h"
#include "services/translate.h"

CadLoad CadFiles::LoadDxf(const tdk::WString& path, CTcadEng& engine) {
  return ReadDxf(path, engine);
}

CadLoad CadFiles::LoadDwg(const tdk::WString& /*path*/, CTcadEng& /*engine*/) {
  CadLoad load;
  load.errorText = Xlate("this version cannot read DWG files; save the drawing as DXF");
  return load;
}

bool CadFiles::SaveDxf(const CadSave& how, const CTcadEng& engine) {
  const DxfWritten written = WriteDxfCounting(how, engine);
  leftOut_ = written.leftOut;
  return written.isWritten;
}

bool CadFiles::SaveDwg(const CadSave& /*how*/, const CTcadEng& /*engine*/) { return false; }

CadFiles& CadFiles::Install() {
  static CadFiles files;
  ICadFiles::SetCurrent(&files);
  return files;
}
