#include "apps/desktop/plan/plan_lines.h"

namespace plan {
namespace {

// Legs that are many times longer than the usual one would make every view look at everything.
double LongFrom(const std::vector<Leg>& legs) {
  constexpr double kTimes = 20;
  double sum = 0;
  for (const Leg& leg : legs) sum += plot::Distance(leg.from, leg.to);
  return kTimes * sum / static_cast<double>(std::max<std::size_t>(legs.size(), 1));
}

}  // namespace

PlanLines::PlanLines(const std::vector<Leg>& legs) {
  const double longFrom = LongFrom(legs);
  std::vector<Leg> usual;
  usual.reserve(legs.size());
  for (const Leg& leg : legs) {
    extent_.Add(leg.from);
    extent_.Add(leg.to);
    const double length = plot::Distance(leg.from, leg.to);
    if (length > longFrom) {
      longLegs_.push_back(leg);
    } else {
      longest_ = std::max(longest_, length);
      usual.push_back(leg);
    }
  }
  grid_ = CellGrid<Leg>(std::move(usual));
}

}  // namespace plan
