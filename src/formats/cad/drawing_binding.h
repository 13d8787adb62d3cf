// Which drawings the data of a job is shown in, while it is exported through another engine.
#pragma once

#include <functional>
#include <vector>

#include "model/exchange_context.h"
#include "model/tcad_eng.h"

namespace cad {

/// The drawing of `engine` that is like the one of `source`: same state and colour, under the first
/// name that is free or its own ("CAD", "CAD_name", "CAD_name2", …). Made when there is none. 0 for
/// drawing 0.
int CompatibleDrawing(const CTcadEng& source, int drawing, CTcadEng& engine);

/// Binds every library, job, group, road and theme to drawings of another engine, and back again at
/// its end.
class DrawingBinding {
 public:
  /// `document` with the engine that its data is bound to now; nothing is owned.
  DrawingBinding(ExchangeContext& document, CTcadEng& engine);
  ~DrawingBinding();
  DrawingBinding(const DrawingBinding&) = delete;
  DrawingBinding& operator=(const DrawingBinding&) = delete;

 private:
  template <class Object>
  void Bind(Object* object);
  void BindLibraries();
  void BindObjects();
  void BindThemes(gis::CLibGis& library);

  ExchangeContext& document_;
  CTcadEng& engine_;
  std::vector<std::function<void()>> restore_;  // in the order in which it happens
};

}  // namespace cad
