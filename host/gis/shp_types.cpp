#include "host/gis/shp_types.h"

#include <shapefil.h>

namespace shape {
namespace {

using enum gis::EntityType;

constexpr ShapeKind kKinds[] = {
    {SHPT_POINT, kPoint, false, false, false},      {SHPT_POINTZ, kPoint, false, true, false},
    {SHPT_POINTM, kPoint, false, false, true},      {SHPT_MULTIPOINT, kPoint, true, false, false},
    {SHPT_MULTIPOINTZ, kPoint, true, true, false},  {SHPT_MULTIPOINTM, kPoint, true, false, true},
    {SHPT_ARC, kLine, false, false, false},         {SHPT_ARCZ, kLine, false, true, false},
    {SHPT_ARCM, kLine, false, false, true},         {SHPT_POLYGON, kPolygon, false, false, false},
    {SHPT_POLYGONZ, kPolygon, false, true, false},  {SHPT_POLYGONM, kPolygon, false, false, true},
    {SHPT_MULTIPATCH, kPolygon, false, true, false}};

}  // namespace

std::optional<ShapeKind> KindOf(int type) {
  for (const ShapeKind& kind : kKinds) {
    if (kind.type == type) return kind;
  }
  return std::nullopt;
}

// Measures may go with heights.
int TypeOf(gis::EntityType entity, bool isMany, bool hasHeights, bool hasMeasures) {
  for (const ShapeKind& kind : kKinds) {
    if (kind.entity == entity && kind.isMany == isMany && kind.hasHeights == hasHeights &&
        kind.hasMeasures == (hasMeasures && !hasHeights)) {
      return kind.type;
    }
  }
  return SHPT_NULL;
}

}  // namespace shape
