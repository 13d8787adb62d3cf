// Drawing files whose every use is told in the transcript.
#pragma once

#include "model/cad_files.h"
#include "scripted_views.h"

/// Hands everything on to the drawing files that were current, as long as it lives.
class ToldCadFiles : public ICadFiles {
 public:
  /// Not owned.
  explicit ToldCadFiles(ScriptedViews& views);
  ~ToldCadFiles() override;
  ToldCadFiles(const ToldCadFiles&) = delete;
  ToldCadFiles& operator=(const ToldCadFiles&) = delete;

  CadLoad LoadDxf(const tdk::WString& path, CTcadEng& engine) override;
  CadLoad LoadDwg(const tdk::WString& path, CTcadEng& engine) override;
  bool SaveDxf(const CadSave& how, const CTcadEng& engine) override;
  bool SaveDwg(const CadSave& how, const CTcadEng& engine) override;
  std::vector<tdk::WString> SaveNotes() const override;

 private:
  void TellLoad(const char* call, const tdk::WString& path);
  void TellSave(const char* call, const CadSave& how);

  ScriptedViews& views_;
  ICadFiles* files_;
};
