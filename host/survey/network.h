// One job as a net: set-ups, and the targets that tie them together.
#pragma once

#include <span>
#include <string_view>
#include <vector>

#include "host/survey/known_places.h"
#include "host/survey/name_keys.h"
#include "model/total_station.h"

namespace survey {

/// A sight of a target. Points that nothing else refers to are no targets: nearly all are such.
struct Sight {
  int setUp;
  int target;
  CPun* point;
};

struct SetUp {
  CSta* station;
  int target = -1;  ///< that of its name; -1 without a name
  int pointCount = 0;
  int firstSight = 0;
  int sightCount = 0;
};

struct Target {
  std::string_view name;
  const Place* known = nullptr;  ///< null when it is no known point
  std::vector<int> setUps;       ///< those that stand on it
  int firstSight = 0;            ///< of SightsOf
  int sightCount = 0;
};

class Network {
 public:
  /// With the names of set-ups and known points as targets. `known` and the library must outlive it
  /// and stay as they are but for coordinates.
  Network(const CLibCmp& library, int job, const KnownPlaces& known);

  /// Names that occur more than once become targets, too. Those that are there stay as they are,
  /// but sights are numbered anew.
  void AddRepeatedNames();

  int Job() const { return job_; }
  const CLibCmp& Library() const { return library_; }
  std::span<const SetUp> SetUps() const { return setUps_; }
  std::span<const Target> Targets() const { return targets_; }
  /// In the order of the points.
  std::span<const Sight> SightsFrom(const SetUp& setUp) const {
    return {sights_.data() + setUp.firstSight, static_cast<std::size_t>(setUp.sightCount)};
  }
  /// Indices into AllSights, in order.
  std::span<const int> SightsOf(const Target& target) const {
    return {sightsByTarget_.data() + target.firstSight,
            static_cast<std::size_t>(target.sightCount)};
  }
  std::span<const Sight> AllSights() const { return sights_; }

 private:
  void ReadSetUps();
  void ReadNames();
  void ReadSights(std::span<const std::uint32_t> points);
  void AddSight(int setUp, CPun* point);
  int TargetOf(std::string_view name);
  void OrderSightsByTarget();

  const CLibCmp& library_;
  const KnownPlaces& known_;
  int job_;
  std::vector<ShortKey> keys_;             // of the names of all points, in order
  std::vector<std::uint64_t> laterKeys_;   // of names that may occur more than once
  std::vector<std::uint32_t> markPoints_;  // that may have the name of a set-up or a known point
  std::unordered_map<std::string_view, int> targetsByName_;
  bool hasRepeated_ = false;
  std::vector<SetUp> setUps_;
  std::vector<Target> targets_;
  std::vector<Sight> sights_;
  std::vector<int> sightsByTarget_;
};

}  // namespace survey
