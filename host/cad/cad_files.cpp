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
  if (leftOut_ == 0) return {};
  std::string number;
  platform::AppendWhole(number, static_cast<std::int64_t>(leftOut_));
  return {Fill(Xlate("entities whose numbers make no shape, or whose block is not there, are left "
                     "out ({1})"),
               {tdk::WString(number)})};
}

bool CadFiles::SaveDxf(const CadSave& how, const CTcadEng& engine) {
  const auto exploded = how.ExplodesBlocks() ? WithoutFieldBookBlocks(engine) : nullptr;
  const DxfWritten written = WriteDxfCounting(how, exploded == nullptr ? engine : *exploded);
  leftOut_ = written.leftOut;
  return written.isWritten;
}

bool CadFiles::SaveDwg(const CadSave& how, const CTcadEng& engine) {
  const auto exploded = how.ExplodesBlocks() ? WithoutFieldBookBlocks(engine) : nullptr;
  const DwgWritten written = WriteDwgCounting(how, exploded == nullptr ? engine : *exploded);
  leftOut_ = written.leftOut;
  return written.isWritten;
}

CadFiles& CadFiles::Install() {
  static CadFiles files;
  ICadFiles::SetCurrent(&files);
  return files;
}
