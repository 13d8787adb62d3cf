// Drawing files of the reference host.
#pragma once

#include "host/cad/writing/written.h"
#include "model/cad_files.h"

/// Reads and writes DXF and DWG.
class CadFiles : public ICadFiles {
 public:
  CadLoad LoadDxf(const tdk::WString& path, CTcadEng& engine) override;
  CadLoad LoadDwg(const tdk::WString& path, CTcadEng& engine) override;
  bool SaveDxf(const CadSave& how, const CTcadEng& engine) override;
  bool SaveDwg(const CadSave& how, const CTcadEng& engine) override;

  std::vector<tdk::WString> SaveNotes() const override;

  /// What came of the last save.
  const CadWritten& Written() const { return written_; }

  /// The files of this process; made current at the first call.
  static CadFiles& Install();

 private:
  CadWritten written_;
};
