#include "host/survey/resection_start.h"

#include <algorithm>
#include <optional>

namespace survey {

namespace {

// So many targets make 190 pairs or 1140 threes, which is plenty to find some without a blunder.
constexpr std::size_t kTried = 20;

constexpr double kLeastApart = 0.001;  // metres

// As seen from a set-up at (0, 0) whose zero direction is north.
Place Local(const TargetSight& sight) {
  const double angle = sight.direction / kGonPerRadian;
  return {sight.distance * std::sin(angle), sight.distance * std::cos(angle), 0};
}

// Turns the line between two targets as seen onto the line between their places, middle onto
// middle.
std::optional<SetUpState> FromPair(const TargetSight& one, const TargetSight& other) {
  const Place first = Local(one);
  const Place second = Local(other);
  if (PlaneDistance(first, second) < kLeastApart ||
      PlaneDistance(one.place, other.place) < kLeastApart) {
    return std::nullopt;
  }
  const double turn = (Azimuth(one.place, other.place) - Azimuth(first, second)) / kGonPerRadian;
  const double east = (first.x + second.x) / 2;
  const double north = (first.y + second.y) / 2;
  const double cosine = std::cos(turn);
  const double sine = std::sin(turn);
  return SetUpState{
      {(one.place.x + other.place.x) / 2 - (east * cosine + north * sine),
       (one.place.y + other.place.y) / 2 - (north * cosine - east * sine), UndefinedValue},
      turn};
}

struct Vector {
  double x;
  double y;
};

double Cotangent(double gon) { return 1 / std::tan(gon / kGonPerRadian); }

// The set-up lies on three circles, one through each two of the targets; their radical axes meet
// there. x is north and y is east here, so that angles turn the same way as directions.
std::optional<SetUpState> FromThree(const TargetSight& a, const TargetSight& b,
                                    const TargetSight& c) {
  const Vector first{a.place.y - b.place.y, a.place.x - b.place.x};
  const Vector third{c.place.y - b.place.y, c.place.x - b.place.x};
  const double ab = Cotangent(b.direction - a.direction);
  const double bc = Cotangent(c.direction - b.direction);
  const double ca = (1 - ab * bc) / (ab + bc);
  const Vector circleAb{first.x + ab * first.y, first.y - ab * first.x};
  const Vector circleBc{third.x - bc * third.y, third.y + bc * third.x};
  const Vector circleCa{third.x + first.x + ca * (third.y - first.y),
                        third.y + first.y - ca * (third.x - first.x)};
  const double power =
      first.x * third.x + first.y * third.y + ca * (first.x * third.y - third.x * first.y);
  const double determinant = (circleAb.x - circleBc.x) * (circleBc.y - circleCa.y) -
                             (circleAb.y - circleBc.y) * (circleBc.x - circleCa.x);
  const Place mark{b.place.x + power * (circleBc.x - circleAb.x) / determinant,
                   b.place.y + power * (circleAb.y - circleBc.y) / determinant, UndefinedValue};
  // Also when targets and set-up lie on one circle, or two directions are alike or opposite.
  if (!std::isfinite(mark.x) || !std::isfinite(mark.y)) return std::nullopt;
  return SetUpState{mark, (Azimuth(mark, a.place) - a.direction) / kGonPerRadian};
}

// Evenly out of all, so that a crowd in one place does not hide the others.
std::vector<TargetSight> SomeOf(std::span<const TargetSight> sights, bool withDistance) {
  std::vector<TargetSight> chosen;
  std::copy_if(sights.begin(), sights.end(), std::back_inserter(chosen),
               [&](const TargetSight& it) { return !withDistance || it.HasDistance(); });
  if (chosen.size() <= kTried) return chosen;
  for (std::size_t i = 0; i < kTried; ++i) chosen[i] = chosen[i * chosen.size() / kTried];
  chosen.resize(kTried);
  return chosen;
}

void Keep(std::optional<SetUpState> start, std::vector<SetUpState>& starts) {
  if (start) starts.push_back(*start);
}

std::vector<SetUpState> FromPairs(std::span<const TargetSight> sights) {
  const std::vector<TargetSight> some = SomeOf(sights, /*withDistance=*/true);
  std::vector<SetUpState> starts;
  for (std::size_t i = 0; i < some.size(); ++i) {
    for (std::size_t j = i + 1; j < some.size(); ++j) Keep(FromPair(some[i], some[j]), starts);
  }
  return starts;
}

std::vector<SetUpState> FromThrees(std::span<const TargetSight> sights) {
  const std::vector<TargetSight> some = SomeOf(sights, /*withDistance=*/false);
  std::vector<SetUpState> starts;
  for (std::size_t i = 0; i < some.size(); ++i) {
    for (std::size_t j = i + 1; j < some.size(); ++j) {
      for (std::size_t k = j + 1; k < some.size(); ++k) {
        Keep(FromThree(some[i], some[j], some[k]), starts);
      }
    }
  }
  return starts;
}

}  // namespace

bool HasEnoughSights(std::span<const TargetSight> sights) {
  const auto distances = std::count_if(sights.begin(), sights.end(),
                                       [](const TargetSight& it) { return it.HasDistance(); });
  return distances >= 2 || sights.size() >= 3;
}

std::vector<SetUpState> ResectionStarts(std::span<const TargetSight> sights) {
  std::vector<SetUpState> starts = FromPairs(sights);
  return starts.empty() ? FromThrees(sights) : starts;
}

}  // namespace survey
