#include "host/survey/known_places.h"

#include <cmath>

#include "host/survey/place.h"

namespace survey {

namespace {

constexpr double kSamePlace = 0.001;  // metres

bool Differ(const Place& one, const Place& other) {
  if (PlaneDistance(one, other) > kSamePlace) return true;
  return IsDefined(one.z) && IsDefined(other.z) && std::abs(one.z - other.z) > kSamePlace;
}

std::size_t CountOf(const CLibPnt& known, const CLibConOri& control) {
  auto count = static_cast<std::size_t>(control.GetOriArSize());
  for (int group = 0; group < known.GetGrpArSize(); ++group) {
    count += static_cast<std::size_t>(known.GetPtnArSize(group));
  }
  return count;
}

}  // namespace

KnownPlaces::KnownPlaces(const CLibPnt& known, const CLibConOri& control)
    : names_(CountOf(known, control)) {
  for (int group = 0; group < known.GetGrpArSize(); ++group) {
    for (int i = 0; i < known.GetPtnArSize(group); ++i) Add(*known.GetPtnAt(group, i));
  }
  for (int i = 0; i < control.GetOriArSize(); ++i) Add(*control.GetOriAt(i));
}

const Place* KnownPlaces::Find(std::string_view name) const {
  const auto found = places_.find(name);
  return found == places_.end() ? nullptr : &found->second;
}

void KnownPlaces::Add(const CEgn& point) {
  const std::string_view name = point.NameUtf8();
  if (name.empty() || !HasPlan(point)) return;
  const Place place = PlaceOf(point);
  const auto [at, isNew] = places_.try_emplace(name, place);
  if (isNew) {
    names_.Add(KeyOf(name));
    return;
  }
  if (Differ(at->second, place)) clashes_.push_back({std::string(name), at->second, place});
  if (!IsDefined(at->second.z)) at->second.z = place.z;
}

}  // namespace survey
