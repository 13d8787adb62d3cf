#include "formats/jb3/jb3_reader.h"
#include "formats/jb3/jb3_writer.h"
#include "frame/exchanges.h"
#include "frame/file_exchange.h"
#include "services/translate.h"

namespace frame {
namespace {

constexpr const char* kExtension = "jb3";

bool HasLibraries(ExchangeContext& document) {
  return document.GetLibCmp() != nullptr && document.GetLibGps() != nullptr &&
         document.GetLibPnt() != nullptr;
}

bool IsEmpty(ExchangeContext& document) {
  return document.GetLibCmp()->GetJobArSize() == 0 && document.GetLibGps()->GetGrpArSize() == 0 &&
         document.GetLibPnt()->GetGrpArSize() == 0 && document.GetLibCmp()->GetOriArSize() == 0;
}

}  // namespace

int ImportJb3(CWnd* parent, ExchangeContext& document) {
  const auto path = AskForFile(parent, Xlate("JB3 file import"), kExtension, Direction::kImport);
  if (!path || !HasLibraries(document)) return 0;
  return jb3::Jb3Reader(parent, document, *path).Read() ? 1 : 0;
}

int ExportJb3(CWnd* parent, ExchangeContext& document, const tdk::WString& name,
              const tdk::WString& version) {
  if (!HasLibraries(document)) return 0;
  if (IsEmpty(document)) {
    TellNothingToExport(parent);
    return 0;
  }
  const auto path = AskForFile(parent, Xlate("JB3 file export"), kExtension, Direction::kExport);
  if (!path) return 0;
  jb3::Jb3Writer(document).Write(*path, name, version);
  return 1;
}

}  // namespace frame
