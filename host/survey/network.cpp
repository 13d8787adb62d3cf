#include "host/survey/network.h"

#include <algorithm>

#include "host/survey/expect.h"

namespace survey {

Network::Network(const CLibCmp& library, int job, const KnownPlaces& known)
    : library_(library), known_(known), job_(job) {
  ReadSetUps();
  ReadNames();
  ReadSights(markPoints_);
}

void Network::AddRepeatedNames() {
  if (hasRepeated_) return;
  hasRepeated_ = true;
  const std::vector<std::uint32_t> repeated = RepeatedPositions(keys_, laterKeys_);
  if (repeated.empty()) return;
  std::vector<std::uint32_t> all;
  std::set_union(markPoints_.begin(), markPoints_.end(), repeated.begin(), repeated.end(),
                 std::back_inserter(all));
  ReadSights(all);
}

void Network::ReadSetUps() {
  for (int i = 0; i < library_.GetStaArSize(job_); ++i) {
    CSta* const station = library_.GetStaAt(job_, i);
    const int target = TargetOf(station->NameUtf8());
    if (target >= 0) targets_[static_cast<std::size_t>(target)].setUps.push_back(i);
    setUps_.push_back({station, target, library_.GetPunArSize(job_, i)});
  }
}

// One pass over all points, which is most of what a large job costs here.
void Network::ReadNames() {
  std::size_t count = 0;
  KeyFilter setUpNames(setUps_.size());
  for (const SetUp& setUp : setUps_) {
    count += static_cast<std::size_t>(setUp.pointCount);
    setUpNames.Add(KeyOf(setUp.station->NameUtf8()));
  }
  keys_.reserve(count);
  LaterKeys later(count);
  for (int i = 0; i < static_cast<int>(setUps_.size()); ++i) {
    const auto points = library_.PointsOf(job_, i);
    for (std::size_t k = 0; k < points.size(); ++k) {
      ExpectNext(points, k, /*bytes=*/1);  // the name stands at the beginning
      const std::uint64_t key = KeyOf(points[k]->NameUtf8());
      if (setUpNames.Has(key) || known_.MayKnow(key)) {
        markPoints_.push_back(static_cast<std::uint32_t>(keys_.size()));
      }
      keys_.push_back(ShortOf(key));
      later.Add(key);
    }
  }
  laterKeys_ = later.Finish();
}

// `points` are numbered through the whole job, and in order.
void Network::ReadSights(std::span<const std::uint32_t> points) {
  sights_.clear();
  for (Target& target : targets_) target.sightCount = 0;
  std::size_t first = 0;  // of the set-up's points
  std::size_t next = 0;
  for (int i = 0; i < static_cast<int>(setUps_.size()); ++i) {
    SetUp& setUp = setUps_[static_cast<std::size_t>(i)];
    setUp.firstSight = static_cast<int>(sights_.size());
    const std::size_t end = first + static_cast<std::size_t>(setUp.pointCount);
    const auto ofSetUp = library_.PointsOf(job_, i);
    for (; next < points.size() && points[next] < end; ++next) {
      AddSight(i, ofSetUp[points[next] - first]);
    }
    setUp.sightCount = static_cast<int>(sights_.size()) - setUp.firstSight;
    first = end;
  }
  OrderSightsByTarget();
}

void Network::AddSight(int setUp, CPun* point) {
  const int target = TargetOf(point->NameUtf8());
  if (target < 0) return;
  sights_.push_back({setUp, target, point});
  ++targets_[static_cast<std::size_t>(target)].sightCount;
}

// -1 for no name, which ties nothing together.
int Network::TargetOf(std::string_view name) {
  if (name.empty()) return -1;
  const auto [at, isNew] = targetsByName_.try_emplace(name, static_cast<int>(targets_.size()));
  if (isNew) targets_.push_back({name, known_.Find(name), {}});
  return at->second;
}

void Network::OrderSightsByTarget() {
  int first = 0;
  for (Target& target : targets_) {
    target.firstSight = first;
    first += target.sightCount;
    target.sightCount = 0;
  }
  sightsByTarget_.resize(sights_.size());
  for (std::size_t i = 0; i < sights_.size(); ++i) {
    Target& target = targets_[static_cast<std::size_t>(sights_[i].target)];
    const int place = target.firstSight + target.sightCount++;
    sightsByTarget_[static_cast<std::size_t>(place)] = static_cast<int>(i);
  }
}

}  // namespace survey
