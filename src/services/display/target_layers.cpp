#include "services/display/target_layers.h"

#include "services/translate.h"

namespace display {

int TargetLayers::Of(const char* part) const {
  if (target_ != 0) return target_;
  const tdk::WString name = Xlate(part);
  const tdk::WString layer = object_.IsEmpty() ? name : object_ + "_" + name;
  return engine_.AddDrawing(0, layer, /*visible=*/true, /*locked=*/false, /*isPrivate=*/false);
}

}  // namespace display
