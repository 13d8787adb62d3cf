// Draws the plan: what can be seen at the scale of the view, and no more.
#pragma once

#include <QImage>

#include "apps/desktop/plan/plan_model.h"
#include "apps/desktop/plan/view_window.h"

namespace plan {

struct PictureOptions {
  double pixelRatio = 1;              ///< device pixels of a pixel
  const CEgn* highlighted = nullptr;  ///< a point with a ring around it
};

/// The whole view, with a scale bar. So long as there are few enough points to tell apart they are
/// symbols with names; more of them are dots, one a pixel.
QImage PaintPlan(const PlanModel& model, const ViewWindow& view, const PictureOptions& options);

/// Which of the marks a view of this size shows as symbols: the more important first. Empty when
/// there are too many. For those who look for what is at a place, too.
std::vector<std::uint32_t> SymbolsIn(const PlanModel& model, const ViewWindow& view);

}  // namespace plan
