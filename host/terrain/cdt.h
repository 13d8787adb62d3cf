// The triangulation that models are built with.
#pragma once

#include <CGAL/Constrained_Delaunay_triangulation_2.h>
#include <CGAL/Exact_predicates_inexact_constructions_kernel.h>
#include <CGAL/Triangulation_face_base_with_info_2.h>
#include <CGAL/Triangulation_vertex_base_with_info_2.h>

#include <array>
#include <vector>

#include "tdk/geometry.h"

namespace terrain {

inline constexpr int kNoPosition = -1;

struct VertexInfo {
  int position = kNoPosition;  ///< among the points
};
struct FaceInfo {
  bool isKept = false;
  std::array<bool, 3> isInContour{};  ///< by the edge opposite to each vertex
};

using Kernel = CGAL::Exact_predicates_inexact_constructions_kernel;
using VertexBase = CGAL::Triangulation_vertex_base_with_info_2<VertexInfo, Kernel>;
using FaceBase =
    CGAL::Triangulation_face_base_with_info_2<FaceInfo, Kernel,
                                              CGAL::Constrained_triangulation_face_base_2<Kernel>>;
using Storage = CGAL::Triangulation_data_structure_2<VertexBase, FaceBase>;
using PlainCdt =
    CGAL::Constrained_Delaunay_triangulation_2<Kernel, Storage, CGAL::Exact_predicates_tag>;

/// Gives the places where breaklines cross an elevation: the mean of what both lines have there.
class Cdt : public PlainCdt {
 public:
  /// `points` gets the crossings appended. Not owned.
  explicit Cdt(std::vector<tdk::geom::PNT_3D>& points) : points_(points) {}

  std::size_t Crossings() const { return crossings_; }

 protected:
  Vertex_handle intersect(Face_handle face, int edge, Vertex_handle from,
                          Vertex_handle to) override;

 private:
  double ElevationOn(Vertex_handle from, Vertex_handle to, const Point& place) const;

  std::vector<tdk::geom::PNT_3D>& points_;
  std::size_t crossings_ = 0;
};

}  // namespace terrain
