// What of the plan lies at a place.
#pragma once

#include <optional>
#include <string>

#include "apps/desktop/plan/plan_model.h"
#include "apps/desktop/plan/view_window.h"

namespace plan {

struct Found {
  LayerKind kind = LayerKind::kPoints;
  int position = 0;             ///< in its library; of a drawing: its id
  const CEgn* point = nullptr;  ///< of a point of the job
  std::string text;             ///< what it is, a line or more, in the user's language
};

/// The most important thing within a finger's breadth of the place (pixels): a point before a line.
/// Nothing when there is nothing that is shown.
std::optional<Found> FindAt(const PlanModel& model, const ViewWindow& view,
                            const plot::Place& pixels);

}  // namespace plan
