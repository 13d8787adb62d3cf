#include "apps/desktop/plan/terrain_legs.h"

#include <algorithm>

namespace plan {
namespace {

using plot::Place;

Place PlaceOf(const tdk::geom::PNT_2D& point) { return {point.getX(), point.getY()}; }

struct Side {
  std::int32_t to;  // the vertex with the larger number
  std::uint32_t triangle;
};

template <class OnSide>
void VisitSides(const CTris& triangles, const OnSide& onSide) {
  for (int i = 0; i < triangles.GetNoTris(); ++i) {
    const CTri& triangle = triangles.GetTriAt(i);
    for (int k = 0; k < 3; ++k) {
      const auto [from, to] =
          std::minmax({triangle.GetVerIndex(k), triangle.GetVerIndex((k + 1) % 3)});
      onSide(from, Side{to, static_cast<std::uint32_t>(i)});
    }
  }
}

}  // namespace

std::vector<Leg> TriangleSides(const CDtmPrj& model) {
  const CTris& triangles = model.GetTris();
  // By the vertex with the smaller number: those of one vertex lie together, and few are alike.
  std::vector<std::size_t> ends(static_cast<std::size_t>(triangles.GetNoTriVrts()) + 1, 0);
  VisitSides(triangles, [&](int from, Side) { ++ends[static_cast<std::size_t>(from) + 1]; });
  for (std::size_t i = 1; i < ends.size(); ++i) ends[i] += ends[i - 1];
  std::vector<Side> sides(ends.back());
  std::vector<std::size_t> next(ends.begin(), ends.end() - 1);
  VisitSides(triangles,
             [&](int from, Side side) { sides[next[static_cast<std::size_t>(from)]++] = side; });
  std::vector<Leg> legs;
  legs.reserve(sides.size() / 2 + 1);
  for (std::size_t vertex = 0; vertex + 1 < ends.size(); ++vertex) {
    const auto first = sides.begin() + static_cast<std::ptrdiff_t>(ends[vertex]);
    const auto last = sides.begin() + static_cast<std::ptrdiff_t>(ends[vertex + 1]);
    std::sort(first, last, [](const Side& a, const Side& b) { return a.to < b.to; });
    const auto end =
        std::unique(first, last, [](const Side& a, const Side& b) { return a.to == b.to; });
    const Place from = PlaceOf(triangles.GetTriVrtAt(static_cast<int>(vertex)));
    for (auto side = first; side != end; ++side) {
      legs.push_back({from, PlaceOf(triangles.GetTriVrtAt(side->to)), side->triangle});
    }
  }
  return legs;
}

std::vector<Leg> Breaklines(const CDtmPrj& model) {
  std::vector<Leg> legs;
  for (int i = 0; i < model.GetVncs().GetNoVncs(); ++i) {
    const tdk::geom::LINE_3D& line = model.GetVncs().GetVncAt(i).GetCoords();
    legs.push_back({PlaceOf(line.getStart()), PlaceOf(line.getEnd()), 0});
  }
  for (const CCnts* const contours : {&model.GetOuterCnts(), &model.GetIslandCnts()}) {
    for (int i = 0; i < contours->GetNoCnts(); ++i) {
      const CCnt& contour = contours->GetCntAt(i);
      const int count = contour.GetNoVrts();
      for (int k = 0; k < count; ++k) {
        legs.push_back({PlaceOf(contour.GetVrt(k)), PlaceOf(contour.GetVrt((k + 1) % count)), 0});
      }
    }
  }
  return legs;
}

}  // namespace plan
