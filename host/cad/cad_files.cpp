#include "host/cad/cad_files.h"

#include "host/cad/dwg/dwg_reader.h"
#include "host/cad/dwg/dwg_writer.h"
#include "host/cad/dxf/dxf_reader.h"
#include "host/cad/dxf/dxf_writer.h"
#include "host/cad/field_book_blocks.h"
#include "platform/numbers.h"
#include "services/translate.h"

CadLoad CadFiles::LoadDxf(const tdk::WString& path, CTcadEng& engine) {
  return ReadDxf(path, engine);
}

CadLoad CadFiles::LoadDwg(const tdk::WString& path, CTcadEng& engine) {
  return ReadDwg(path, engine);
}

std::vector<tdk::WString> CadFiles::SaveNotes() const {
  std::vector<tdk::WString> notes;
  const auto tell = [&](const tdk::WString& pattern, std::uint64_t count) {
    std::string number;
    platform::AppendWhole(number, static_cast<std::int64_t>(count));
    if (count > 0) notes.push_back(Fill(pattern, {tdk::WString(number)}));
  };
  tell(Xlate(
           "entities whose numbers make no shape, or whose block is not there, are left out ({1})"),
       written_.leftOut);
  tell(Xlate(
           "polylines whose points are not equally high have straight legs in place of arcs ({1})"),
       written_.straightened);
  tell(Xlate("entities on layers that are not displayed are left out ({1})"), written_.hidden);
  return notes;
}

bool CadFiles::SaveDxf(const CadSave& how, const CTcadEng& engine) {
  const auto exploded = how.ExplodesBlocks() ? WithoutFieldBookBlocks(engine) : nullptr;
  written_ = WriteDxfCounting(how, exploded == nullptr ? engine : *exploded);
  return written_.isWritten;
}

bool CadFiles::SaveDwg(const CadSave& how, const CTcadEng& engine) {
  const auto exploded = how.ExplodesBlocks() ? WithoutFieldBookBlocks(engine) : nullptr;
  written_ = WriteDwgCounting(how, exploded == nullptr ? engine : *exploded);
  return written_.isWritten;
}

CadFiles& CadFiles::Install() {
  static CadFiles files;
  ICadFiles::SetCurrent(&files);
  return files;
}
