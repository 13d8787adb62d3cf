#include "formats/jb2/jb2_reader.h"
#include "formats/jb2/jb2_writer.h"
#include "frame/exchanges.h"
#include "frame/file_exchange.h"
#include "services/translate.h"

namespace frame {
namespace {

constexpr const char* kExtension = "jb2";

}  // namespace

int ImportJb2(CWnd* parent, ExchangeContext& document) {
  CLibCmp* const library = document.GetLibCmp();
  if (library == nullptr) return 0;
  const auto path = AskForFile(parent, Xlate("JB2 file import"), kExtension, Direction::kImport);
  if (!path) return 0;
  return jb2::Jb2Reader(parent, library, *path).Run() ? 1 : 0;
}

int ExportJb2(CWnd* parent, ExchangeContext& document) {
  const CLibCmp* const library = document.GetLibCmp();
  if (library == nullptr) return 0;
  if (library->GetJobArSize() == 0) {
    TellNothingToExport(parent);
    return 0;
  }
  const auto path = AskForFile(parent, Xlate("JB2 file export"), kExtension, Direction::kExport);
  if (!path) return 0;
  jb2::Jb2Writer(library).Write(*path);
  return 1;
}

}  // namespace frame
