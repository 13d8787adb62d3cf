// Terrain models from points.
#pragma once

#include <cstdint>
#include <utility>
#include <vector>

#include "model/terrain.h"

namespace terrain {

/// What a model is made of. Coordinates in metres, all of them defined.
struct Source {
  std::vector<tdk::geom::PNT_3D> points;
  /// Legs of breaklines, as positions of two points each.
  std::vector<std::pair<int, int>> breaklines;
  /// Triangles with a longer side in plan are left out, metres; 0: none is.
  double longestSide = 0;
};

struct Findings {
  std::uint64_t samePlace = 0;      ///< points in the place of an earlier one, which holds
  std::uint64_t crossings = 0;      ///< places where breaklines cross: vertices of their own
  std::uint64_t longTriangles = 0;  ///< left out for a side that is too long
};

/// Makes constrained Delaunay triangulations. The vertices of a model are its points in their
/// order, then crossings; triangles turn counter-clockwise; contours are closed, the first point
/// being the last too: outer ones counter-clockwise, holes clockwise.
class ITriangulator {
 public:
  virtual ~ITriangulator();
  /// Fills `model`, which must be empty, and leaves its name. Without three points that are not in
  /// one line there are no triangles.
  virtual Findings Triangulate(Source source, CDtmPrj& model) = 0;
};

/// The triangulator of this process, loaded (libkalvio_terrain.so, beside this library) when it is
/// first asked for; null when it cannot be loaded.
ITriangulator* Triangulator();

}  // namespace terrain

/// What libkalvio_terrain.so offers: a new triangulator that the caller owns.
extern "C" __attribute__((visibility("default"))) terrain::ITriangulator* KalvioMakeTriangulator();
