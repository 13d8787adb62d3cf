#include "host/terrain/cdt.h"

#include <cmath>

namespace terrain {

double Cdt::ElevationOn(Vertex_handle from, Vertex_handle to, const Point& place) const {
  const auto& a = points_[static_cast<std::size_t>(from->info().position)];
  const auto& b = points_[static_cast<std::size_t>(to->info().position)];
  const double whole = std::hypot(b.getX() - a.getX(), b.getY() - a.getY());
  const double part = std::hypot(place.x() - a.getX(), place.y() - a.getY());
  return whole == 0 ? a.getZ() : a.getZ() + (b.getZ() - a.getZ()) * (part / whole);
}

Cdt::Vertex_handle Cdt::intersect(Face_handle face, int edge, Vertex_handle from,
                                  Vertex_handle to) {
  const Vertex_handle a = face->vertex(cw(edge));
  const Vertex_handle b = face->vertex(ccw(edge));
  const Vertex_handle crossing = PlainCdt::intersect(face, edge, from, to);
  if (crossing->info().position != kNoPosition) return crossing;  // a point lies there already
  const Point& place = crossing->point();
  const double z = (ElevationOn(a, b, place) + ElevationOn(from, to, place)) / 2;
  crossing->info().position = static_cast<int>(points_.size());
  points_.emplace_back(place.x(), place.y(), z);
  ++crossings_;
  return crossing;
}

}  // namespace terrain
