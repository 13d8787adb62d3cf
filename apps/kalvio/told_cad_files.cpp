#include "told_cad_files.h"

#include <nlohmann/json.hpp>

ToldCadFiles::ToldCadFiles(ScriptedViews& views) : views_(views), files_(ICadFiles::Current()) {
  ICadFiles::SetCurrent(this);
}
ToldCadFiles::~ToldCadFiles() { ICadFiles::SetCurrent(files_); }

CadLoad ToldCadFiles::LoadDxf(const tdk::WString& path, CTcadEng& engine) {
  TellLoad("LoadFileDXF", path);
  return files_ == nullptr ? CadLoad() : files_->LoadDxf(path, engine);
}
CadLoad ToldCadFiles::LoadDwg(const tdk::WString& path, CTcadEng& engine) {
  TellLoad("LoadFileDWG", path);
  return files_ == nullptr ? CadLoad() : files_->LoadDwg(path, engine);
}
bool ToldCadFiles::SaveDxf(const CadSave& how, const CTcadEng& engine) {
  TellSave("SaveFileDXF", how);
  return files_ != nullptr && files_->SaveDxf(how, engine);
}
bool ToldCadFiles::SaveDwg(const CadSave& how, const CTcadEng& engine) {
  TellSave("SaveFileDWG", how);
  return files_ != nullptr && files_->SaveDwg(how, engine);
}

std::vector<tdk::WString> ToldCadFiles::SaveNotes() const {
  return files_ == nullptr ? std::vector<tdk::WString>() : files_->SaveNotes();
}

void ToldCadFiles::TellLoad(const char* call, const tdk::WString& path) {
  views_.Print(
      {{"event", "cad"}, {"call", call}, {"args", nlohmann::ordered_json::array({path.ToUtf8()})}});
}

void ToldCadFiles::TellSave(const char* call, const CadSave& how) {
  nlohmann::ordered_json arguments = nlohmann::ordered_json::array({how.path.ToUtf8()});
  for (const bool flag : how.flags) arguments.push_back(flag);
  arguments.push_back(static_cast<int>(how.version));
  arguments.push_back(how.last);
  views_.Print({{"event", "cad"}, {"call", call}, {"args", std::move(arguments)}});
}
