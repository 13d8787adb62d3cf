#include "host/survey/point_placing.h"

#include <algorithm>

#include "host/survey/expect.h"
#include "host/survey/place.h"
#include "host/survey/place_mean.h"
#include "host/survey/tolerances.h"

namespace survey {

namespace {

void Clear(CEgn& point) { point.SetCoord(UndefinedValue, UndefinedValue, UndefinedValue); }

PointTrouble TroubleOf(const CPun& point) {
  return IsDefined(point.GetDato0()) ? PointTrouble::kNoAngle : PointTrouble::kNoDistance;
}

// One set-up's points.
class Placing {
 public:
  Placing(const Network& net, const ComputationSettings& settings, JobResult& result)
      : library_(net.Library()),
        job_(net.Job()),
        isAnew_(settings.isAnew),
        how_{0, settings.reduction, settings.addPrismOffset},
        result_(result) {}

  void Station(CSta& station, const SetUpResult& setUp) const {
    if (setUp.method != SetUpMethod::kNone) {
      // Also where they were there: the elevation may be new.
      station.SetCoord(setUp.mark.x, setUp.mark.y, setUp.mark.z);
    } else if (isAnew_) {
      Clear(station);
    }
  }

  void Points(SetUpResult& setUp) {
    const bool isOriented = IsDefined(setUp.orientation);
    how_.orientation = setUp.orientation;
    const double height = library_.GetStaAt(job_, setUp.station)->GetAltStr();
    const PolarOrigin origin({setUp.mark, height}, how_.orientation, how_.reduction);
    const auto points = library_.PointsOf(job_, setUp.station);
    for (int i = 0; i < static_cast<int>(points.size()); ++i) {
      ExpectNext(points, static_cast<std::size_t>(i));
      CPun& point = *points[static_cast<std::size_t>(i)];
      if (!isAnew_ && HasPlan(point)) {
        ++setUp.kept;
        continue;
      }
      if (isOriented) {
        // As CalcolaCoordAssolute does it for one.
        const Place place = origin.Locate(point.ObservationToUse(how_), point.GetAltPri());
        point.SetCoord(place.x, place.y, place.z);
      } else if (isAnew_) {
        Clear(point);
      }
      if (HasPlan(point)) {
        ++setUp.placed;
      } else {
        ++setUp.missing;
        const PointTrouble trouble = isOriented ? TroubleOf(point) : PointTrouble::kStation;
        result_.missing.push_back({setUp.station, i, trouble});
      }
    }
  }

 private:
  const CLibCmp& library_;
  int job_;
  bool isAnew_;
  CCalcDsOr how_;
  JobResult& result_;
};

// Points that had coordinates before keep them, and have no part in a mean.
class Averaging {
 public:
  explicit Averaging(const Network& net) : net_(net) {}

  /// To be called before any point is placed.
  void RememberKept(bool isAnew) {
    isPlacedNow_.resize(net_.AllSights().size());
    std::transform(net_.AllSights().begin(), net_.AllSights().end(), isPlacedNow_.begin(),
                   [&](const Sight& it) { return isAnew || !HasPlan(*it.point); });
  }

  void Average(const Target& target, JobResult& result) const {
    std::vector<CPun*> points;
    std::vector<Place> places;
    for (const int index : net_.SightsOf(target)) {
      CPun* const point = net_.AllSights()[static_cast<std::size_t>(index)].point;
      if (!isPlacedNow_[static_cast<std::size_t>(index)] || !HasPlan(*point)) continue;
      points.push_back(point);
      places.push_back(PlaceOf(*point));
    }
    if (points.size() < 2) return;
    const PlaceMean mean = MeanOf(places);
    const bool isOnePoint = mean.spread <= kLargestSpread && mean.heightSpread <= kLargestSpread;
    result.repeated.push_back({std::string(target.name), static_cast<int>(points.size()), mean.mean,
                               mean.spread, mean.heightSpread, isOnePoint});
    if (!isOnePoint) return;
    for (CPun* const point : points) point->SetCoord(mean.mean.x, mean.mean.y, mean.mean.z);
  }

  void AverageAll(JobResult& result) const {
    const auto targets = net_.Targets();
    for (std::size_t i = 0; i < targets.size(); ++i) {
      const bool isMark = targets[i].known != nullptr || !targets[i].setUps.empty();
      if (!isMark && targets[i].sightCount > 1) Average(targets[i], result);
    }
  }

 private:
  const Network& net_;
  std::vector<char> isPlacedNow_;
};

}  // namespace

void PlacePointsOf(const Network& net, const ComputationSettings& settings, JobResult& result) {
  Averaging averaging(net);
  averaging.RememberKept(settings.isAnew);
  Placing placing(net, settings, result);
  for (SetUpResult& setUp : result.setUps) {
    placing.Station(*net.SetUps()[static_cast<std::size_t>(setUp.station)].station, setUp);
    placing.Points(setUp);
  }
  averaging.AverageAll(result);
}

}  // namespace survey
