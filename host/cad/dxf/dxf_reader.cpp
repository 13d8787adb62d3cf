#include "host/cad/dxf/dxf_reader.h"

#include <algorithm>
#include <limits>

#include "host/cad/dxf/read_document.h"

namespace {

using dxf_reader::Failure;

void TellFailure(const Failure& failure, CadLoad& load) {
  constexpr std::uint64_t kMost = std::numeric_limits<int>::max();
  load.errorLine = static_cast<int>(std::min(failure.line, kMost));
  load.errorText = failure.reason;
}

void ReadPairs(dxf_reader::PairStream& pairs, CTcadEng& engine, CadLoad& load) {
  dxf_reader::Context context(pairs, engine);
  try {
    dxf_reader::DocumentReader(context).Read();
    load.isLoaded = true;
  } catch (const Failure& failure) {
    TellFailure(failure, load);
  }
  load.notes = context.notes.Lines();
}

}  // namespace

CadLoad ReadDxf(const tdk::WString& path, CTcadEng& engine) {
  CadLoad load;
  try {
    dxf_reader::PairStream pairs(path);
    ReadPairs(pairs, engine, load);
  } catch (const Failure& failure) {
    TellFailure(failure, load);
  }
  return load;
}
