#include "host/gis/ring_order.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>

namespace shape {
namespace {

// Edges by the height at which they are, so that a level meets only a few of them.
class EdgeBands {
 public:
  struct Edge {
    std::uint32_t ring;
    std::uint32_t start;  // position of its first vertex
  };

  explicit EdgeBands(std::span<const Ring> rings) : rings_(rings) {
    FindExtent();
    bands_.resize(BandCount());
    ForEachEdge([this](const Edge& edge, double low, double high) {
      const std::size_t last = BandOf(high);
      for (std::size_t band = BandOf(low); band <= last; ++band) bands_[band].push_back(edge);
    });
  }

  // Calls `visit` with the ring and the x of each edge that crosses the level.
  template <class Visit>
  void ForEachCrossing(double level, const Visit& visit) const {
    for (const Edge& edge : bands_[BandOf(level)]) {
      const Ring& ring = rings_[edge.ring];
      const double y1 = ring.y[edge.start];
      const double y2 = ring.y[edge.start + 1];
      if ((y1 <= level) == (y2 <= level)) continue;
      const double x1 = ring.x[edge.start];
      const double x2 = ring.x[edge.start + 1];
      visit(edge.ring, x1 + (level - y1) / (y2 - y1) * (x2 - x1));
    }
  }

 private:
  template <class Visit>
  void ForEachEdge(const Visit& visit) const {
    for (std::uint32_t r = 0; r < rings_.size(); ++r) {
      const std::span<const double> y = rings_[r].y;
      for (std::uint32_t v = 0; v + 1 < y.size(); ++v) {
        visit(Edge{r, v}, std::min(y[v], y[v + 1]), std::max(y[v], y[v + 1]));
      }
    }
  }

  void FindExtent() {
    low_ = std::numeric_limits<double>::max();
    double high = std::numeric_limits<double>::lowest();
    ForEachEdge([&](const Edge&, double edgeLow, double edgeHigh) {
      low_ = std::min(low_, edgeLow);
      high = std::max(high, edgeHigh);
    });
    height_ = high > low_ ? high - low_ : 0;
  }

  // As many as there are edges, but so that all edges together lie in few more bands than there are
  // edges.
  std::size_t BandCount() const {
    constexpr double kMost = 1 << 20;
    double edges = 0;
    double heights = 0;
    ForEachEdge([&](const Edge&, double low, double high) {
      ++edges;
      heights += high - low;
    });
    if (!(height_ > 0) || !std::isfinite(heights)) return 1;
    return static_cast<std::size_t>(
        std::clamp(edges * height_ / std::max(heights, height_), 1.0, kMost));
  }

  std::size_t BandOf(double y) const {
    if (!(height_ > 0)) return 0;
    const double band = (y - low_) / height_ * static_cast<double>(bands_.size());
    if (!(band > 0)) return 0;
    return std::min(static_cast<std::size_t>(band), bands_.size() - 1);
  }

  std::span<const Ring> rings_;
  double low_ = 0;
  double height_ = 0;
  std::vector<std::vector<Edge>> bands_;
};

struct Place {
  double x;
  double y;
};

// Rings that cross a level an odd number of times on one side of a place have it inside.
class RingCounter {
 public:
  void Toggle(std::uint32_t ring) {
    const auto found = std::ranges::find(odd_, ring);
    if (found == odd_.end()) {
      odd_.push_back(ring);
    } else {
      odd_.erase(found);
    }
  }
  const std::vector<std::uint32_t>& Odd() const { return odd_; }

 private:
  std::vector<std::uint32_t> odd_;
};

// A level between two heights of the ring, so that no vertex of it lies there.
double LevelOf(const Ring& ring) {
  const double first = ring.y[0];
  const auto other = std::ranges::find_if(ring.y, [&](double y) { return y != first; });
  if (other == ring.y.end()) return first;
  double nearest = *other;
  for (const double y : ring.y) {
    if (y != first && std::fabs(y - first) < std::fabs(nearest - first) &&
        (y > first) == (nearest > first)) {
      nearest = y;
    }
  }
  return first + (nearest - first) / 2;
}

// A place inside a ring, on its level: between the first two edges that it meets there.
Place PlaceIn(std::uint32_t ring, double level, const EdgeBands& edges) {
  std::vector<double> crossings;
  edges.ForEachCrossing(level, [&](std::uint32_t crossed, double x) {
    if (crossed == ring) crossings.push_back(x);
  });
  if (crossings.size() < 2) return {std::numeric_limits<double>::quiet_NaN(), level};
  std::ranges::sort(crossings);
  return {crossings[0] + (crossings[1] - crossings[0]) / 2, level};
}

}  // namespace

double TwiceArea(const Ring& ring) {
  double area = 0;
  for (std::size_t v = 0; v + 1 < ring.x.size(); ++v) {
    // From the first vertex, which keeps large coordinates from eating the digits.
    area += (ring.x[v] - ring.x[0]) * (ring.y[v + 1] - ring.y[0]) -
            (ring.x[v + 1] - ring.x[0]) * (ring.y[v] - ring.y[0]);
  }
  return area;
}

std::vector<bool> AreHoles(std::span<const Ring> rings) {
  std::vector<bool> holes(rings.size(), false);
  if (rings.size() < 2) return holes;
  std::vector<double> areas;
  for (const Ring& ring : rings) areas.push_back(std::fabs(TwiceArea(ring)));
  const EdgeBands edges(rings);
  for (std::uint32_t r = 0; r < rings.size(); ++r) {
    if (rings[r].y.empty() || areas[r] == 0) continue;
    const Place place = PlaceIn(r, LevelOf(rings[r]), edges);
    RingCounter around;
    edges.ForEachCrossing(place.y, [&](std::uint32_t ring, double x) {
      if (areas[ring] > areas[r] && x < place.x) around.Toggle(ring);
    });
    holes[r] = around.Odd().size() % 2 != 0;
  }
  return holes;
}

}  // namespace shape
