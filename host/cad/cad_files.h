// Drawing files of the reference host.
#pragma once

#include <cstdint>

#include "model/cad_files.h"

/// Reads and writes DXF and DWG.
class CadFiles : public ICadFiles {
 public:
  CadLoad LoadDxf(const tdk::WString& path, CTcadEng& engine) override;
  CadLoad LoadDwg(const tdk::WString& path, CTcadEng& engine) override;
  bool SaveDxf(const CadSave& how, const CTcadEng& engine) override;
  bool SaveDwg(const CadSave& how, const CTcadEng& engine) override;

  std::vector<tdk::WString> SaveNotes() const override;

  /// How many entities the last save had to leave out: they have undefined numbers, or none that
  /// make a shape.
  std::uint64_t LeftOut() const { return leftOut_; }

  /// The files of this process; made current at the first call.
  static CadFiles& Install();

 private:
  std::uint64_t leftOut_ = 0;
};
