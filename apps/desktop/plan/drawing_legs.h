// The entities of a drawing as straight legs and texts.
#pragma once

#include <string>
#include <vector>

#include "apps/desktop/plan/plan_lines.h"
#include "model/tcad_eng.h"

namespace plan {

/// A text in the plane.
struct PlanText {
  plot::Place at;       ///< its lower left corner, metres
  double height = 0;    ///< metres
  double rotation = 0;  ///< degrees, counter-clockwise
  std::string text;     ///< UTF-8

  const plot::Place& Where() const { return at; }
};

struct DrawingParts {
  std::vector<Leg> legs;              ///< `source`: position in `colors`
  std::vector<std::uint16_t> colors;  ///< colour index of each entity, never by layer or block
  std::vector<PlanText> texts;
};

/// What lies on each drawing of the engine, by id; the first place is empty. What the host draws of
/// its own libraries is left out: a plan shows those themselves. Inserts are taken apart.
std::vector<DrawingParts> PartsOf(const CTcadEng& engine);

}  // namespace plan
