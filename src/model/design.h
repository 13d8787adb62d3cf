// Cadastral data and GIS themes as far as exchanges reach them so far: each is shown in a target
// drawing.
#pragma once

#include "model/library_base.h"

/// Cadastral survey data.
class CCts : public TargetDrawingHolder {};

namespace gis {

class CTheme {
 private:
  friend class CLibGis;
  int targetDrawing_ = 0;
};

/// Receives the points that an import creates for GIS entities.
class ILinkImportedEnt {
 public:
  virtual ~ILinkImportedEnt();
};

class CLibGis : public TargetDrawingHolder {
 public:
  int GetThemeTargetDrawing(const CTheme* theme) const { return theme->targetDrawing_; }
  void SetThemeTargetDrawing(CTheme* theme, int drawing) { theme->targetDrawing_ = drawing; }
};

}  // namespace gis
