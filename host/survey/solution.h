// Where the set-ups of a net stand and how they are oriented.
#pragma once

#include <vector>

#include "host/survey/computation.h"
#include "host/survey/network.h"
#include "host/survey/place_mean.h"
#include "host/survey/target_sight.h"

namespace survey {

/// Spreads from what is known, wave by wave: set-ups with coordinates are oriented, the marks that
/// they sighted get coordinates. Where that ends, a set-up is resected; where that ends too, points
/// that oriented set-ups placed serve as known ones.
class Solution {
 public:
  /// `net`, which gets its repeated names when they are needed, must outlive it.
  Solution(Network& net, const ComputationSettings& settings);

  void Run();

  struct State : SetUpFix {
    std::vector<int> used;  ///< targets that the orientation or the resection rests on

    bool IsPlaced() const { return IsDefined(mark.x); }
    bool IsOriented() const { return IsDefined(orientation); }
  };
  const State& StateOf(int setUp) const { return states_[static_cast<std::size_t>(setUp)]; }
  bool IsAssumed() const { return isAssumed_; }

  /// The targets with coordinates that a set-up sighted, but for itself; points that were placed
  /// only on the way are among them when `withPoints`.
  std::vector<TargetSight> PlacedTargets(int setUp, bool withPoints) const;
  /// Whether the place of a target is that of a known point or of a set-up.
  bool IsMark(int target) const;

 private:
  // The better a place is, the lower.
  enum class Rank : unsigned char { kKnown, kSetUp, kPoint, kNone };
  struct PlacedTarget {
    Place place;
    Rank rank = Rank::kNone;
  };

  State& At(int setUp) { return states_[static_cast<std::size_t>(setUp)]; }
  /// A target that the net got after the set-ups were done has no place.
  const PlacedTarget& PlacedAt(int target) const {
    static constexpr PlacedTarget kNowhere;
    const auto index = static_cast<std::size_t>(target);
    return index < placed_.size() ? placed_[index] : kNowhere;
  }
  const SetUp& SetUpAt(int setUp) const { return net_.SetUps()[static_cast<std::size_t>(setUp)]; }
  const Target& TargetAt(int target) const {
    return net_.Targets()[static_cast<std::size_t>(target)];
  }

  void PlaceWhatIsKnown();
  void PlaceKeptMarks();
  void BeginSomewhere();
  void Spread();
  bool OrientWave();
  bool ResectWave();
  bool PlacePoints();

  bool Orient(int setUp);
  bool ResectAt(int setUp);
  void Oriented(int setUp, double orientation);
  void TakeElevation(int setUp, const std::vector<TargetSight>& sights);
  void PlaceMarksSightedFrom(const std::vector<int>& setUps);

  void SetPlace(int target, const Place& place, Rank rank);
  void Put(int setUp, const Place& mark, SetUpMethod method);
  void PutSetUpsOn(int target, SetUpMethod method);
  void PlaceAlsoItsTarget(int setUp, const Place& mark, SetUpMethod method);

  PlaceMean MeanOfTarget(int target) const;
  std::vector<TargetSight> BestTargets(int setUp) const;
  std::vector<TargetSight> OwnKeptPoints(int setUp) const;

  Network& net_;
  const CCalcDsOr how_;
  const bool isAnew_;
  std::vector<State> states_;
  std::vector<PlacedTarget> placed_;
  bool isAssumed_ = false;
  // What the next wave looks at, each at most once.
  std::vector<int> toOrient_;
  std::vector<int> toResect_;
  std::vector<char> isToOrient_;
  std::vector<char> isToResect_;
  // Oriented set-ups whose points have not served yet.
  std::vector<int> withNewPoints_;
  std::size_t unsolved_ = 0;  // set-ups with points but without an orientation
};

}  // namespace survey
