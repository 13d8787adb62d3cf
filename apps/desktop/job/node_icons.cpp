#include "apps/desktop/job/node_icons.h"

#include <map>

#include "apps/desktop/icons.h"
#include "apps/desktop/plan/mark_painter.h"

namespace {

QIcon NewIcon(NodeKind kind) {
  using enum NodeKind;
  switch (kind) {
    case kStation: return plan::MarkIcon(plot::MarkKind::kStation);
    case kPoint: return plan::MarkIcon(plot::MarkKind::kMeasured);
    case kGpsGroup: return plan::MarkIcon(plot::MarkKind::kGpsBase);
    case kGpsGroups:
    case kGpsPoint: return plan::MarkIcon(plot::MarkKind::kGps);
    case kKnownGroups:
    case kKnownPoint: return plan::MarkIcon(plot::MarkKind::kKnown);
    case kControls:
    case kControl: return plan::MarkIcon(plot::MarkKind::kControl);
    case kKnownGroup: return IconOf(Picture::kGroup);
    case kSurfaces:
    case kSurface: return IconOf(Picture::kTerrain);
    case kRoads:
    case kRoad: return IconOf(Picture::kRoad);
    case kThemes:
    case kTheme:
    case kFeature: return IconOf(Picture::kTheme);
    case kLayers:
    case kLayer: return IconOf(Picture::kLayers);
    default: return IconOf(Picture::kBook);
  }
}

}  // namespace

const QIcon& IconOf(NodeKind kind) {
  static std::map<NodeKind, QIcon> icons;
  const auto found = icons.find(kind);
  return found != icons.end() ? found->second : icons.emplace(kind, NewIcon(kind)).first->second;
}
