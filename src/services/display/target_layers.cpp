#include "services/display/target_layers.h"

#include "services/translate.h"

namespace display {

int TargetLayers::Of(const char* part) const {
  if (target_ != 0) return target_;
  for (const auto& [known, drawing] : known_) {
    if (known == part) return drawing;
  }
  return known_.emplace_back(part, Make(part)).second;
}

int TargetLayers::Make(const char* part) const {
  const tdk::WString name = Xlate(part);
  const tdk::WString layer = object_.IsEmpty() ? name : object_ + "_" + name;
  return engine_.AddDrawing(0, layer, /*visible=*/true, /*locked=*/false, /*isPrivate=*/false);
}

}  // namespace display
