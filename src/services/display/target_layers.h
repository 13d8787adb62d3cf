// The drawings that the parts of one job, group, road or model are drawn on.
#pragma once

#include <utility>
#include <vector>

#include "model/tcad_eng.h"

namespace display {

/// Where the object, or its library, has a target drawing, all of it lies there. Else each part has
/// a layer of its own, called by the object and the part.
class TargetLayers {
 public:
  /// `target`: 0 for none. Nothing is owned.
  TargetLayers(CTcadEng& engine, int target, const tdk::WString& object)
      : engine_(engine), target_(target), object_(object) {}

  /// The drawing of a part, made when it is first asked for. `part`: untranslated, a constant.
  int Of(const char* part) const;

 private:
  int Make(const char* part) const;

  CTcadEng& engine_;
  int target_;
  tdk::WString object_;
  // By the places of the parts' texts: points come by the million.
  mutable std::vector<std::pair<const char*, int>> known_;
};

/// The first target that there is: the object's own, else its library's.
inline int TargetOf(int own, int library) { return own != 0 ? own : library; }

}  // namespace display
