#include "host/plot/contour_lines.h"

#include <algorithm>
#include <array>
#include <cstdint>

#include "host/plot/nice_numbers.h"
#include "model/undefined.h"

namespace plot {
namespace {

constexpr int kMostLevels = 1'000;
constexpr int kHeavyEvery = 5;
constexpr std::size_t kNone = static_cast<std::size_t>(-1);

// A side of triangles: its two vertices, the lower number first.
using SideKey = std::uint64_t;

SideKey KeyOf(int a, int b) {
  const auto [low, high] = std::minmax(a, b);
  return (static_cast<SideKey>(low) << 32) | static_cast<SideKey>(high);
}

// A line through one triangle: from one of its sides to another.
struct Leg {
  std::array<SideKey, 2> ends;
};

struct End {
  SideKey key;
  std::size_t position;  // twice that of its leg, plus one for its second end
  bool operator<(const End& other) const { return key < other.key; }
};

bool IsComplete(const tdk::geom::PNT_3D& vertex) {
  return IsDefined(vertex.getX()) && IsDefined(vertex.getY()) && IsDefined(vertex.getZ());
}

// Takes the legs of one elevation and hands out lines.
class Chain {
 public:
  Chain(const CTris& triangulation, double elevation, const std::vector<Leg>& legs)
      : triangulation_(triangulation), elevation_(elevation), legs_(legs) {
    JoinEnds();
  }

  // Open lines first, each from an end that no other leg has; what is left goes round.
  template <class Add>
  void HandOut(Add add) {
    std::vector<bool> isTaken(legs_.size());
    for (std::size_t end = 0; end < other_.size(); ++end) {
      if (other_[end] == kNone && !isTaken[end / 2]) add(Follow(end, isTaken));
    }
    for (std::size_t leg = 0; leg < legs_.size(); ++leg) {
      if (!isTaken[leg]) add(Follow(2 * leg, isTaken));
    }
  }

 private:
  // No more than two triangles share a side; a damaged triangulation, where more do, makes shorter
  // lines.
  void JoinEnds() {
    std::vector<End> ends;
    ends.reserve(2 * legs_.size());
    for (std::size_t i = 0; i < 2 * legs_.size(); ++i)
      ends.push_back({legs_[i / 2].ends[i % 2], i});
    std::sort(ends.begin(), ends.end());
    other_.assign(ends.size(), kNone);
    for (std::size_t i = 0; i + 1 < ends.size(); ++i) {
      if (ends[i].key != ends[i + 1].key) continue;
      other_[ends[i].position] = ends[i + 1].position;
      other_[ends[i + 1].position] = ends[i].position;
      ++i;
    }
  }

  Polyline Follow(std::size_t end, std::vector<bool>& isTaken) const {
    Polyline line = {PlaceOf(end)};
    while (end != kNone && !isTaken[end / 2]) {
      isTaken[end / 2] = true;
      line.push_back(PlaceOf(end ^ 1));
      end = other_[end ^ 1];
    }
    return line;
  }

  Place PlaceOf(std::size_t end) const {
    const SideKey key = legs_[end / 2].ends[end % 2];
    const auto& a = triangulation_.GetTriVrtAt(static_cast<int>(key >> 32));
    const auto& b = triangulation_.GetTriVrtAt(static_cast<int>(key & 0xFFFFFFFF));
    const double share = (elevation_ - a.getZ()) / (b.getZ() - a.getZ());
    return Between({a.getX(), a.getY()}, {b.getX(), b.getY()}, share);
  }

  const CTris& triangulation_;
  double elevation_;
  const std::vector<Leg>& legs_;
  std::vector<std::size_t> other_;  // the end that joins each end
};

// The legs of all elevations, by their number from the lowest one.
class Slicer {
 public:
  Slicer(const CTris& triangulation, double interval)
      : triangulation_(triangulation), interval_(interval) {
    double least = UndefinedValue;
    double most = -UndefinedValue;
    ForEachTriangle([&](const std::array<int, 3>& corners) {
      for (const int corner : corners) {
        const double z = triangulation_.GetTriVrtAt(corner).getZ();
        least = std::min(least, z);
        most = std::max(most, z);
      }
    });
    const Multiples levels = MultiplesWithin(least, most, interval, kMostLevels);
    first_ = levels.first;
    legs_.resize(static_cast<std::size_t>(levels.count));
    if (levels.count > 0) ForEachTriangle([this](const auto& corners) { Slice(corners); });
  }

  std::size_t Count() const { return legs_.size(); }
  double Multiple(std::size_t level) const { return first_ + static_cast<double>(level); }
  double Elevation(std::size_t level) const { return Multiple(level) * interval_; }
  const std::vector<Leg>& Legs(std::size_t level) const { return legs_[level]; }

 private:
  template <class Visit>
  void ForEachTriangle(Visit visit) const {
    for (int i = 0; i < triangulation_.GetNoTris(); ++i) {
      const CTri& triangle = triangulation_.GetTriAt(i);
      const std::array<int, 3> corners = {triangle.GetVerIndex(0), triangle.GetVerIndex(1),
                                          triangle.GetVerIndex(2)};
      if (std::all_of(corners.begin(), corners.end(), [this](int corner) {
            return IsComplete(triangulation_.GetTriVrtAt(corner));
          })) {
        visit(corners);
      }
    }
  }

  void Slice(const std::array<int, 3>& corners) {
    std::array<double, 3> z{};
    for (std::size_t k = 0; k < 3; ++k) z[k] = triangulation_.GetTriVrtAt(corners[k]).getZ();
    const auto [low, high] = std::minmax_element(z.begin(), z.end());
    const double last = static_cast<double>(legs_.size()) - 1;
    const double from = std::clamp(std::floor(*low / interval_) - first_, 0.0, last);
    const double to = std::clamp(std::ceil(*high / interval_) - first_, 0.0, last);
    for (auto level = static_cast<std::size_t>(from); level <= static_cast<std::size_t>(to);
         ++level) {
      Cut(corners, z, level);
    }
  }

  void Cut(const std::array<int, 3>& corners, const std::array<double, 3>& z, std::size_t level) {
    const double elevation = Elevation(level);
    Leg leg{};
    std::size_t ends = 0;
    for (std::size_t k = 0; k < 3; ++k) {
      const std::size_t next = (k + 1) % 3;
      if ((z[k] >= elevation) == (z[next] >= elevation)) continue;
      leg.ends[ends++] = KeyOf(corners[k], corners[next]);
    }
    if (ends == 2) legs_[level].push_back(leg);
  }

  const CTris& triangulation_;
  double interval_;
  double first_ = 0;
  std::vector<std::vector<Leg>> legs_;
};

}  // namespace

std::vector<ContourLine> ContourLines(const CTris& triangulation, double interval) {
  std::vector<ContourLine> lines;
  const Slicer slicer(triangulation, interval);
  for (std::size_t level = 0; level < slicer.Count(); ++level) {
    const double elevation = slicer.Elevation(level);
    const bool isFifth = std::fmod(slicer.Multiple(level), kHeavyEvery) == 0;
    Chain(triangulation, elevation, slicer.Legs(level)).HandOut([&](Polyline line) {
      lines.push_back({elevation, isFifth, std::move(line)});
    });
  }
  return lines;
}

}  // namespace plot
