#include "host/survey/network.h"

#include "host/survey/shared_names.h"

namespace survey {

// Reads the names first, then only those points again whose names are shared.
struct Network::Reader {
  Reader(Network& network, const KnownPlaces& known)
      : net(network), places(known), names(CountPoints() + net.setUps_.size()) {}

  std::size_t CountPoints() {
    std::size_t count = 0;
    for (int i = 0; i < net.library_.GetStaArSize(net.job_); ++i) {
      net.setUps_.push_back(
          {net.library_.GetStaAt(net.job_, i), -1, net.library_.GetPunArSize(net.job_, i)});
      count += static_cast<std::size_t>(net.setUps_.back().pointCount);
    }
    keys.reserve(count);
    return count;
  }

  void ReadNames() {
    for (int i = 0; i < Count(); ++i) {
      names.AddShared(SharedNames::KeyOf(At(i).station->NameUtf8()));
      for (int point = 0; point < At(i).pointCount; ++point) {
        keys.push_back(SharedNames::KeyOf(PointAt(i, point)->NameUtf8()));
        names.Add(keys.back());
      }
    }
  }

  void ReadSights() {
    std::size_t key = 0;
    for (int i = 0; i < Count(); ++i) {
      SetUp& setUp = At(i);
      setUp.target = TargetOf(setUp.station->NameUtf8());
      if (setUp.target >= 0) TargetAt(setUp.target).setUps.push_back(i);
      setUp.firstSight = static_cast<int>(net.sights_.size());
      for (int point = 0; point < setUp.pointCount; ++point) {
        const std::uint64_t name = keys[key++];
        if (names.IsShared(name) || places.MayKnow(name)) AddSight(i, PointAt(i, point));
      }
      setUp.sightCount = static_cast<int>(net.sights_.size()) - setUp.firstSight;
    }
  }

  void AddSight(int setUp, CPun* point) {
    const int target = TargetOf(point->NameUtf8());
    if (target < 0) return;
    net.sights_.push_back({setUp, target, point});
    ++TargetAt(target).sightCount;
  }

  // -1 for no name, which ties nothing together.
  int TargetOf(std::string_view name) {
    if (name.empty()) return -1;
    const auto [at, isNew] = targets.try_emplace(name, static_cast<int>(net.targets_.size()));
    if (isNew) net.targets_.push_back({name, places.Find(name), {}});
    return at->second;
  }

  int Count() const { return static_cast<int>(net.setUps_.size()); }
  SetUp& At(int setUp) const { return net.setUps_[static_cast<std::size_t>(setUp)]; }
  Target& TargetAt(int target) const { return net.targets_[static_cast<std::size_t>(target)]; }
  CPun* PointAt(int setUp, int point) const {
    return net.library_.GetPunAt(net.job_, setUp, point);
  }

  Network& net;
  const KnownPlaces& places;
  std::vector<std::uint64_t> keys;  // of all points, in order
  SharedNames names;
  std::unordered_map<std::string_view, int> targets;
};

Network::Network(const CLibCmp& library, int job, const KnownPlaces& known)
    : library_(library), job_(job) {
  Reader reader(*this, known);
  reader.ReadNames();
  reader.ReadSights();
  OrderSightsByTarget();
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
    sightsByTarget_[static_cast<std::size_t>(target.firstSight + target.sightCount++)] =
        static_cast<int>(i);
  }
}

}  // namespace survey
