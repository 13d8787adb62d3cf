// From a triangulation to a terrain model.
#pragma once

#include "host/terrain/cdt.h"
#include "host/terrain/triangulation.h"

namespace terrain {

/// An edge of a face, the one that lies opposite to one of its vertices.
struct Edge {
  Cdt::Face_handle face;
  int opposite = 0;

  bool operator==(const Edge&) const = default;
};

/// Numbers the vertices of the triangulation in the order of the points, adds them to the model and
/// changes the positions that they know into those.
void AddVertices(Cdt& cdt, const std::vector<tdk::geom::PNT_3D>& points, CTris& triangulation);

/// Adds the faces without a side that is longer than `longestSide` (metres, 0: all of them), and
/// gives back the edges that have such a face on one side only. `leftOut`: how many faces are not
/// added.
std::vector<Edge> AddTriangles(Cdt& cdt, double longestSide, CTris& triangulation,
                               std::uint64_t& leftOut);

/// Joins the edges to closed lines: outer contours and holes.
void AddContours(const std::vector<Edge>& boundary, CDtmPrj& model);

}  // namespace terrain
