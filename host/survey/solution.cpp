#include "host/survey/solution.h"

#include <algorithm>

#include "host/survey/orientation.h"
#include "host/survey/place_mean.h"
#include "host/survey/resection.h"
#include "host/survey/sight_mean.h"

namespace survey {

namespace {

void Push(int setUp, std::vector<int>& list, std::vector<char>& isIn) {
  char& mark = isIn[static_cast<std::size_t>(setUp)];
  if (mark == 0) list.push_back(setUp);
  mark = 1;
}

// In the order of the job, so that the result does not depend on how they came in.
std::vector<int> TakeAll(std::vector<int>& list, std::vector<char>& isIn) {
  std::vector<int> taken = std::move(list);
  list.clear();
  for (const int setUp : taken) isIn[static_cast<std::size_t>(setUp)] = 0;
  std::sort(taken.begin(), taken.end());
  return taken;
}

template <class Flags>
std::vector<int> Used(const std::vector<TargetSight>& sights, const Flags& isUsed) {
  std::vector<int> used;
  for (std::size_t i = 0; i < sights.size(); ++i) {
    if (isUsed[i]) used.push_back(sights[i].target);
  }
  return used;
}

SetUpTrouble InWordsOfSetUp(ResectionTrouble trouble) {
  switch (trouble) {
    case ResectionTrouble::kTooFewSights: return SetUpTrouble::kTooFewSights;
    case ResectionTrouble::kUndetermined: return SetUpTrouble::kUndetermined;
    case ResectionTrouble::kDoesNotFit: return SetUpTrouble::kDoesNotFit;
    case ResectionTrouble::kNone: break;
  }
  return SetUpTrouble::kNone;
}

}  // namespace

Solution::Solution(Network& net, const ComputationSettings& settings)
    : net_(net),
      how_{0, settings.reduction, settings.addPrismOffset},
      isAnew_(settings.isAnew),
      states_(net.SetUps().size()),
      placed_(net.Targets().size()),
      isToOrient_(states_.size()),
      isToResect_(states_.size()) {
  for (const SetUp& setUp : net.SetUps()) {
    if (setUp.pointCount > 0) ++unsolved_;
  }
}

void Solution::Run() {
  PlaceWhatIsKnown();
  if (!isAnew_) PlaceKeptMarks();
  BeginSomewhere();
  Spread();
  if (unsolved_ == 0) return;
  net_.AddRepeatedNames();
  placed_.resize(net_.Targets().size());
  while (PlacePoints()) Spread();
}

void Solution::Spread() {
  while (OrientWave() || ResectWave()) {
  }
}

void Solution::PlaceWhatIsKnown() {
  for (int target = 0; target < static_cast<int>(placed_.size()); ++target) {
    const Place* const known = TargetAt(target).known;
    if (known == nullptr) continue;
    SetPlace(target, *known, Rank::kKnown);
    PutSetUpsOn(target, SetUpMethod::kKnown);
  }
}

void Solution::PlaceKeptMarks() {
  for (int i = 0; i < static_cast<int>(states_.size()); ++i) {
    const CSta& station = *SetUpAt(i).station;
    if (!HasPlan(station)) continue;
    Put(i, PlaceOf(station), SetUpMethod::kKept);
    const int target = SetUpAt(i).target;
    if (target >= 0 && PlacedAt(target).rank == Rank::kNone) {
      SetPlace(target, PlaceOf(station), Rank::kSetUp);
    }
  }
  for (int target = 0; target < static_cast<int>(placed_.size()); ++target) {
    if (IsMark(target)) PutSetUpsOn(target, SetUpMethod::kKnown);  // again on the same mark
  }
}

// At the first set-up that saw anything, when nothing is known.
void Solution::BeginSomewhere() {
  const bool isSomethingKnown =
      std::any_of(states_.begin(), states_.end(), [](const State& it) { return it.IsPlaced(); }) ||
      std::any_of(placed_.begin(), placed_.end(),
                  [](const PlacedTarget& it) { return it.rank != Rank::kNone; });
  if (isSomethingKnown || states_.empty()) return;
  const auto setUps = net_.SetUps();
  const auto first =
      std::find_if(setUps.begin(), setUps.end(), [](const SetUp& it) { return it.pointCount > 0; });
  const int begin = first == setUps.end() ? 0 : static_cast<int>(first - setUps.begin());
  isAssumed_ = true;
  PlaceAlsoItsTarget(begin, {0, 0, 0}, SetUpMethod::kAssumed);
  Oriented(begin, 0);
  PlaceMarksSightedFrom({begin});
}

bool Solution::OrientWave() {
  std::vector<int> oriented;
  for (const int setUp : TakeAll(toOrient_, isToOrient_)) {
    if (!At(setUp).IsOriented() && Orient(setUp)) oriented.push_back(setUp);
  }
  PlaceMarksSightedFrom(oriented);
  return !oriented.empty();
}

bool Solution::ResectWave() {
  std::vector<int> resected;
  for (const int setUp : TakeAll(toResect_, isToResect_)) {
    if (!At(setUp).IsPlaced() && ResectAt(setUp)) resected.push_back(setUp);
  }
  PlaceMarksSightedFrom(resected);
  return !resected.empty();
}

// Points on which oriented set-ups agree help the others.
bool Solution::PlacePoints() {
  const std::vector<int> from = std::move(withNewPoints_);
  withNewPoints_.clear();
  if (unsolved_ == 0) return false;
  bool hasPlaced = false;
  for (const int setUp : from) {
    for (const Sight& sight : net_.SightsFrom(SetUpAt(setUp))) {
      if (PlacedAt(sight.target).rank != Rank::kNone) continue;
      const PlaceMean mean = MeanOfTarget(sight.target);
      if (!IsDefined(mean.mean.x) || mean.spread > kLargestSpread) continue;
      SetPlace(sight.target, mean.mean, Rank::kPoint);
      hasPlaced = true;
    }
  }
  return hasPlaced;
}

bool Solution::Orient(int setUp) {
  State& state = At(setUp);
  state.trouble = SetUpTrouble::kNoOrientation;
  std::vector<TargetSight> sights = BestTargets(setUp);
  if (sights.empty() && state.method == SetUpMethod::kKept) sights = OwnKeptPoints(setUp);
  const auto mean = OrientationOf(state.mark, sights);
  if (!mean) return false;
  state.used = Used(sights, mean->isUsed);
  state.orientationSpread = mean->spread;
  TakeElevation(setUp, sights);
  Oriented(setUp, mean->value);
  return true;
}

bool Solution::ResectAt(int setUp) {
  const std::vector<TargetSight> sights = PlacedTargets(setUp, /*withPoints=*/true);
  const Resection resection = Resect(sights);
  At(setUp).trouble = InWordsOfSetUp(resection.trouble);
  if (resection.trouble != ResectionTrouble::kNone) return false;
  PlaceAlsoItsTarget(setUp, resection.mark, SetUpMethod::kResected);
  At(setUp).used = Used(sights, resection.isUsed);
  At(setUp).markSigma = resection.markSigma;
  TakeElevation(setUp, sights);
  Oriented(setUp, resection.orientation);
  return true;
}

void Solution::Oriented(int setUp, double orientation) {
  At(setUp).orientation = orientation;
  At(setUp).trouble = SetUpTrouble::kNone;
  withNewPoints_.push_back(setUp);
  if (SetUpAt(setUp).pointCount > 0) --unsolved_;
}

// Where only easting and northing are known.
void Solution::TakeElevation(int setUp, const std::vector<TargetSight>& sights) {
  Place& mark = At(setUp).mark;
  if (IsDefined(mark.z)) return;
  mark.z = ElevationOf(sights);
  const int target = SetUpAt(setUp).target;
  if (target < 0 || IsDefined(PlacedAt(target).place.z)) return;
  placed_[static_cast<std::size_t>(target)].place.z = mark.z;
}

// A mark gets the mean of what all oriented set-ups sighted, not only the new ones.
void Solution::PlaceMarksSightedFrom(const std::vector<int>& setUps) {
  for (const int setUp : setUps) {
    for (const Sight& sight : net_.SightsFrom(SetUpAt(setUp))) {
      if (TargetAt(sight.target).setUps.empty() || IsMark(sight.target)) continue;
      const Place place = MeanOfTarget(sight.target).mean;
      if (!IsDefined(place.x)) continue;
      SetPlace(sight.target, place, Rank::kSetUp);
      PutSetUpsOn(sight.target, SetUpMethod::kSighted);
    }
  }
}

void Solution::SetPlace(int target, const Place& place, Rank rank) {
  placed_[static_cast<std::size_t>(target)] = {place, rank};
  for (const int index : net_.SightsOf(TargetAt(target))) {
    const int setUp = net_.AllSights()[static_cast<std::size_t>(index)].setUp;
    if (At(setUp).IsOriented()) continue;
    if (At(setUp).IsPlaced())
      Push(setUp, toOrient_, isToOrient_);
    else
      Push(setUp, toResect_, isToResect_);
  }
}

void Solution::Put(int setUp, const Place& mark, SetUpMethod method) {
  State& state = At(setUp);
  state.mark = mark;
  state.method = method;
  state.trouble = SetUpTrouble::kNoOrientation;
  Push(setUp, toOrient_, isToOrient_);
}

void Solution::PutSetUpsOn(int target, SetUpMethod method) {
  for (const int setUp : TargetAt(target).setUps) {
    if (!At(setUp).IsPlaced()) Put(setUp, PlacedAt(target).place, method);
  }
}

void Solution::PlaceAlsoItsTarget(int setUp, const Place& mark, SetUpMethod method) {
  Put(setUp, mark, method);
  const int target = SetUpAt(setUp).target;
  if (target < 0) return;
  SetPlace(target, mark, Rank::kSetUp);
  PutSetUpsOn(target, method);
}

bool Solution::IsMark(int target) const { return PlacedAt(target).rank <= Rank::kSetUp; }

PlaceMean Solution::MeanOfTarget(int target) const {
  std::vector<Place> places;
  for (const int index : net_.SightsOf(TargetAt(target))) {
    const Sight& sight = net_.AllSights()[static_cast<std::size_t>(index)];
    const State& from = StateOf(sight.setUp);
    if (!from.IsOriented()) continue;
    const Instrument instrument{from.mark, SetUpAt(sight.setUp).station->GetAltStr()};
    const Place place = Locate(instrument, sight.point->ObservationToUse(how_),
                               sight.point->GetAltPri(), from.orientation, how_.reduction);
    if (IsDefined(place.x)) places.push_back(place);
  }
  return MeanOf(places);
}

std::vector<TargetSight> Solution::PlacedTargets(int setUp, bool withPoints) const {
  const auto from = net_.SightsFrom(SetUpAt(setUp));
  std::vector<Sight> sights;
  std::copy_if(from.begin(), from.end(), std::back_inserter(sights), [&](const Sight& it) {
    const Rank rank = PlacedAt(it.target).rank;
    return it.target != SetUpAt(setUp).target && rank <= (withPoints ? Rank::kPoint : Rank::kSetUp);
  });
  std::stable_sort(sights.begin(), sights.end(),
                   [](const Sight& a, const Sight& b) { return a.target < b.target; });
  std::vector<TargetSight> result;
  for (auto first = sights.begin(); first != sights.end();) {
    const auto last = std::find_if(first, sights.end(),
                                   [&](const Sight& it) { return it.target != first->target; });
    if (auto mean = MeanOfSights({first, last}, SetUpAt(setUp).station->GetAltStr(), how_)) {
      const PlacedTarget& target = PlacedAt(mean->target);
      mean->place = target.place;
      mean->placeSigma = target.rank == Rank::kKnown ? kKnownSigma : kComputedSigma;
      result.push_back(*mean);
    }
    first = last;
  }
  return result;
}

// Known points; without any, set-ups; without any, points.
std::vector<TargetSight> Solution::BestTargets(int setUp) const {
  std::vector<TargetSight> sights = PlacedTargets(setUp, /*withPoints=*/true);
  Rank best = Rank::kNone;
  for (const TargetSight& sight : sights) best = std::min(best, PlacedAt(sight.target).rank);
  std::erase_if(sights, [&](const TargetSight& it) { return PlacedAt(it.target).rank != best; });
  return sights;
}

// A set-up that came with coordinates may have come with points that have them, too.
std::vector<TargetSight> Solution::OwnKeptPoints(int setUp) const {
  const SetUp& own = SetUpAt(setUp);
  int job = 0;
  int station = 0;
  net_.Library().GetIndiciDiSta(own.station, job, station);
  std::vector<TargetSight> sights;
  for (int i = 0; i < own.pointCount; ++i) {
    CPun* const point = net_.Library().GetPunAt(job, station, i);
    if (!HasPlan(*point)) continue;
    const Sight sight{setUp, -1, point};
    auto mean = MeanOfSights({&sight, 1}, own.station->GetAltStr(), how_);
    if (!mean) continue;
    mean->place = PlaceOf(*point);
    sights.push_back(*mean);
  }
  return sights;
}

}  // namespace survey
