#include "frame/exchanges.h"
#include "frame/file_exchange.h"
#include "services/translate.h"

namespace frame {

int ImportImage(CWnd* parent, tdk::WString& path) {
  const auto chosen = AskForFile(parent, Xlate("Image import"),
                                 Xlate("bmp;tif;tiff;png;jpg;jpeg;jfif"), Direction::kImport);
  if (!chosen) return 0;
  path = *chosen;
  return 1;
}

}  // namespace frame
