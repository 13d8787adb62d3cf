// The records of polylines and their vertices; see entity_records.h.
#pragma once

#include <cstdint>
#include <vector>

#include "host/cad/dwg/place.h"
#include "host/cad/dwg/version.h"

namespace dwg {

/// A flat polyline in one record.
struct LightPolylineRecord {
  bool isClosed = false;
  double elevation = 0;
  double thickness = 0;
  double width = 0;
  bool hasWidths = false;  ///< some that are not 0, which is not written
  Place direction = kUp;
  std::vector<Place> points;   ///< flat
  std::vector<double> bulges;  ///< none, or as many as points
};
namespace light_flags {
inline constexpr unsigned kDirection = 1;
inline constexpr unsigned kThickness = 2;
inline constexpr unsigned kWidth = 4;
inline constexpr unsigned kElevation = 8;
inline constexpr unsigned kBulges = 16;
inline constexpr unsigned kWidths = 32;
inline constexpr unsigned kClosed = 512;
}  // namespace light_flags

inline std::uint16_t FlagsOf(const LightPolylineRecord& it) {
  using namespace light_flags;
  return static_cast<std::uint16_t>(
      (it.isClosed ? kClosed : 0) | (it.elevation != 0 ? kElevation : 0) |
      (it.bulges.empty() ? 0 : kBulges) | (it.direction == kUp ? 0 : kDirection) |
      (it.thickness != 0 ? kThickness : 0) | (it.width != 0 ? kWidth : 0));
}

template <class S>
void LightPoints(S& s, std::vector<Place>& points) {
  for (std::size_t i = 0; i < points.size(); ++i) {
    if (i == 0 || !s.Is2000()) {
      s.RawFlat(points[i]);
    } else {
      s.Near(points[i].x, points[i - 1].x);
      s.Near(points[i].y, points[i - 1].y);
    }
  }
}

template <class S>
void Data(S& s, LightPolylineRecord& it) {
  using namespace light_flags;
  std::uint16_t flags = FlagsOf(it);
  s.Short(flags);
  const auto has = [&](unsigned flag) { return (flags & flag) != 0; };
  it.isClosed = has(kClosed);
  if (has(kWidth)) s.Double(it.width);
  if (has(kElevation)) s.Double(it.elevation);
  if (has(kThickness)) s.Double(it.thickness);
  if (has(kDirection)) s.Point(it.direction);
  auto points = static_cast<std::uint32_t>(it.points.size());
  auto bulges = static_cast<std::uint32_t>(it.bulges.size());
  std::uint32_t widths = 0;
  s.Count(points, 4);
  if (has(kBulges)) s.Count(bulges, 2);
  if (has(kWidths)) s.Count(widths, 4);
  if constexpr (S::kReads) {
    it.points.resize(points);
    it.bulges.resize(bulges);
  }
  LightPoints(s, it.points);
  for (double& bulge : it.bulges) s.Double(bulge);
  for (std::uint32_t i = 0; i < 2 * widths; ++i) {
    double width = 0;
    s.Double(width);
    it.hasWidths = it.hasWidths || width != 0;
  }
}

/// What polylines with records of their own for their vertices refer to.
struct VertexChain {
  Handle first = 0;
  Handle last = 0;
  Handle end = 0;
};
template <class S>
void References(S& s, VertexChain& it) {
  s.Reference(Link::kSoftPointer, it.first);
  s.Reference(Link::kSoftPointer, it.last);
  s.Reference(Link::kHardOwner, it.end);
}

struct FlatPolylineRecord {
  std::uint16_t flags = 0;
  double startWidth = 0;
  double endWidth = 0;
  double thickness = 0;
  double elevation = 0;
  Place direction = kUp;
  VertexChain vertices;
};
template <class S>
void Data(S& s, FlatPolylineRecord& it) {
  s.Short(it.flags);
  s.Shorts({0});  // kind of curve
  s.Double(it.startWidth);
  s.Double(it.endWidth);
  s.Thickness(it.thickness);
  s.Double(it.elevation);
  s.Extrusion(it.direction);
}
template <class S>
void References(S& s, FlatPolylineRecord& it) {
  References(s, it.vertices);
}

struct SpacePolylineRecord {
  std::uint8_t smoothing = 0;  ///< not 0: what it was made from is among its vertices
  std::uint8_t flags = 0;
  VertexChain vertices;
};
template <class S>
void Data(S& s, SpacePolylineRecord& it) {
  s.Byte(it.smoothing);
  s.Byte(it.flags);
}
template <class S>
void References(S& s, SpacePolylineRecord& it) {
  References(s, it.vertices);
}

struct MeshRecord {
  std::uint16_t flags = 0;
  std::uint16_t sizes[4] = {};  ///< rows, columns; the same of its smoothed form
  VertexChain vertices;
};
template <class S>
void Data(S& s, MeshRecord& it) {
  s.Short(it.flags);
  s.Shorts({0});  // kind of surface
  for (std::uint16_t& size : it.sizes) s.Short(size);
}
template <class S>
void References(S& s, MeshRecord& it) {
  References(s, it.vertices);
}

struct FlatVertexRecord {
  std::uint8_t flags = 0;
  Place at;
  double bulge = 0;
};
template <class S>
void Data(S& s, FlatVertexRecord& it) {
  s.Byte(it.flags);
  s.Point(it.at);
  double width = 0;
  s.Double(width);
  if (width >= 0) s.Doubles({0});  // at its end; a negative width is that of both ends
  s.Double(it.bulge);
  s.Doubles({0});  // direction there
}

struct SpaceVertexRecord {
  std::uint8_t flags = 0;
  Place at;
};
template <class S>
void Data(S& s, SpaceVertexRecord& it) {
  s.Byte(it.flags);
  s.Point(it.at);
}

struct FaceVertexRecord {
  std::uint16_t corners[4] = {};
};
template <class S>
void Data(S& s, FaceVertexRecord& it) {
  for (std::uint16_t& corner : it.corners) s.Short(corner);
}

/// Records without handles of their own.
template <class S, class Record>
void References(S& /*s*/, Record& /*it*/) {}

}  // namespace dwg
