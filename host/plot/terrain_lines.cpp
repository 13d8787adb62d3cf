#include "host/plot/terrain_lines.h"

#include <algorithm>
#include <cstdint>

#include "model/undefined.h"

namespace plot {
namespace {

constexpr double kShortestSide = 0.8;  // the mean side of triangles that are drawn, millimetres

bool HasPlace(const tdk::geom::PNT_3D& vertex) {
  return IsDefined(vertex.getX()) && IsDefined(vertex.getY());
}

class Drawer {
 public:
  Drawer(const CDtmPrj& model, const Sheet& sheet) : model_(model), sheet_(sheet) {}

  TerrainLines Lines(double interval) {
    lines_.isTooFine = model_.GetTris().GetNoTris() > 0 && MeanSide() < kShortestSide;
    const bool hasOutline = model_.GetOuterCnts().GetNoCnts() > 0;
    // To find each side once takes time, where a model is fine.
    const std::vector<SideUse> sides =
        lines_.isTooFine && hasOutline ? std::vector<SideUse>{} : SidesOf(model_.GetTris());
    if (!lines_.isTooFine) {
      for (const SideUse& side : sides) AddLeg(Leg(side), lines_.sides);
    }
    AddOutline(sides);
    for (int i = 0; i < model_.GetVncs().GetNoVncs(); ++i) {
      const tdk::geom::LINE_3D& line = model_.GetVncs().GetVncAt(i).GetCoords();
      if (!HasPlace(line.getStart()) || !HasPlace(line.getEnd())) continue;
      AddLeg({OnSheet(line.getStart()), OnSheet(line.getEnd())}, lines_.breaklines);
    }
    if (interval > 0) AddContours(interval);
    return std::move(lines_);
  }

 private:
  struct SideUse {
    std::int32_t from;
    std::int32_t to;
    bool isInside;  ///< of two triangles
  };

  Place OnSheet(const tdk::geom::PNT_3D& vertex) const {
    return sheet_.OnSheet({vertex.getX(), vertex.getY()});
  }

  LineLeg Leg(const SideUse& side) const {
    return {OnSheet(model_.GetTris().GetTriVrtAt(side.from)),
            OnSheet(model_.GetTris().GetTriVrtAt(side.to))};
  }

  static std::vector<SideUse> SidesOf(const CTris& triangulation) {
    std::vector<std::uint64_t> keys;
    keys.reserve(3 * static_cast<std::size_t>(triangulation.GetNoTris()));
    for (int i = 0; i < triangulation.GetNoTris(); ++i) {
      for (int k = 0; k < 3; ++k) {
        const int a = triangulation.GetTriAt(i).GetVerIndex(k);
        const int b = triangulation.GetTriAt(i).GetVerIndex((k + 1) % 3);
        if (!HasPlace(triangulation.GetTriVrtAt(a)) || !HasPlace(triangulation.GetTriVrtAt(b))) {
          continue;
        }
        const auto [low, high] = std::minmax(a, b);
        keys.push_back((static_cast<std::uint64_t>(low) << 32) | static_cast<std::uint64_t>(high));
      }
    }
    std::sort(keys.begin(), keys.end());
    std::vector<SideUse> sides;
    for (auto key = keys.begin(); key != keys.end();) {
      const auto next = std::find_if(key, keys.end(), [&](std::uint64_t k) { return k != *key; });
      sides.push_back({static_cast<std::int32_t>(*key >> 32),
                       static_cast<std::int32_t>(*key & 0xFFFFFFFF), next - key > 1});
      key = next;
    }
    return sides;
  }

  // Of all triangles, in millimetres.
  double MeanSide() const {
    const CTris& triangulation = model_.GetTris();
    double sum = 0;
    for (int i = 0; i < triangulation.GetNoTris(); ++i) {
      for (int k = 0; k < 3; ++k) {
        const auto& a = triangulation.GetTriVrtAt(triangulation.GetTriAt(i).GetVerIndex(k));
        const auto& b =
            triangulation.GetTriVrtAt(triangulation.GetTriAt(i).GetVerIndex((k + 1) % 3));
        if (HasPlace(a) && HasPlace(b)) sum += Distance(OnSheet(a), OnSheet(b));
      }
    }
    return sum / 3 / triangulation.GetNoTris();
  }

  void AddLeg(LineLeg leg, std::vector<LineLeg>& legs) const {
    if (ClipLeg(sheet_.frame, leg.first, leg.second)) legs.push_back(leg);
  }

  void AddLine(const Polyline& line, std::vector<Polyline>& lines) const {
    for (Polyline& part : ClipLine(sheet_.frame, line, sheet_.pixel / 3)) {
      lines.push_back(std::move(part));
    }
  }

  // A model without contours of its own ends where its triangles do.
  void AddOutline(const std::vector<SideUse>& sides) {
    const CCnts& outer = model_.GetOuterCnts();
    for (const CCnts* const contours : {&outer, &model_.GetIslandCnts()}) {
      for (int i = 0; i < contours->GetNoCnts(); ++i) AddContour(contours->GetCntAt(i));
    }
    if (outer.GetNoCnts() > 0) return;
    for (const SideUse& side : sides) {
      if (side.isInside) continue;
      const LineLeg leg = Leg(side);
      AddLine({leg.first, leg.second}, lines_.outline);
    }
  }

  void AddContour(const CCnt& contour) {
    Polyline line;
    for (int i = 0; i < contour.GetNoVrts(); ++i) {
      if (HasPlace(contour.GetVrt(i))) line.push_back(OnSheet(contour.GetVrt(i)));
    }
    if (line.empty()) return;
    if (line.front() != line.back()) line.push_back(line.front());
    AddLine(line, lines_.outline);
  }

  void AddContours(double interval) {
    for (const ContourLine& contour : ContourLines(model_.GetTris(), interval)) {
      Polyline line;
      line.reserve(contour.line.size());
      for (const Place& place : contour.line) line.push_back(sheet_.OnSheet(place));
      std::vector<Polyline> parts;
      AddLine(line, parts);
      for (Polyline& part : parts) {
        lines_.contours.push_back({contour.elevation, contour.isFifth, std::move(part)});
      }
    }
  }

  const CDtmPrj& model_;
  const Sheet& sheet_;
  TerrainLines lines_;
};

}  // namespace

TerrainLines TerrainLinesOf(const CDtmPrj& model, const Sheet& sheet, double interval) {
  return Drawer(model, sheet).Lines(interval);
}

}  // namespace plot
