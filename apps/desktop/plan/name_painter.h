// Names and codes beside the points of the plan, as many as have room.
#pragma once

#include <QPainter>
#include <vector>

#include "apps/desktop/plan/plan_model.h"
#include "apps/desktop/plan/view_window.h"

namespace plan {

/// `marks` in the order of their importance: the later ones take what room is left.
void PaintNames(const PlanModel& model, const ViewWindow& view,
                const std::vector<std::uint32_t>& marks, QPainter& painter);

}  // namespace plan
