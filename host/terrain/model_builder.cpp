#include "host/terrain/model_builder.h"

namespace terrain {
namespace {

using Face = Cdt::Face_handle;
using tdk::geom::PNT_3D;

// Faces turn counter-clockwise, so this is the edge's start with the face to the left.
Cdt::Vertex_handle StartOf(const Edge& edge) { return edge.face->vertex(Cdt::ccw(edge.opposite)); }
bool IsBoundary(const Edge& edge) {
  return edge.face->info().isKept && !edge.face->neighbor(edge.opposite)->info().isKept;
}

// The boundary edge that begins where `edge` ends, turning about that vertex through kept faces, so
// that contours which touch in one point stay apart.
Edge NextInContour(const Edge& edge) {
  const auto pivot = edge.face->vertex(Cdt::cw(edge.opposite));
  Edge next{edge.face, Cdt::ccw(edge.opposite)};
  while (!IsBoundary(next)) {
    const Face beyond = next.face->neighbor(next.opposite);
    next = {beyond, Cdt::cw(beyond->index(pivot))};
  }
  return next;
}

std::vector<int> ContourFrom(const Edge& first) {
  std::vector<int> positions;
  Edge edge = first;
  do {
    edge.face->info().isInContour[static_cast<std::size_t>(edge.opposite)] = true;
    positions.push_back(StartOf(edge)->info().position);
    edge = NextInContour(edge);
  } while (!(edge == first));
  positions.push_back(positions.front());
  return positions;
}

// Twice the area, positive when the contour turns counter-clockwise. Counted from the first vertex:
// coordinates in the millions would drown it.
double AreaOf(const CCnt& contour) {
  const PNT_3D& origin = contour.GetVrt(0);
  double area = 0;
  for (int i = 1; i < contour.GetNoVrts(); ++i) {
    const PNT_3D& a = contour.GetVrt(i - 1);
    const PNT_3D& b = contour.GetVrt(i);
    area += (a.getX() - origin.getX()) * (b.getY() - origin.getY()) -
            (b.getX() - origin.getX()) * (a.getY() - origin.getY());
  }
  return area;
}

bool HasLongSide(Face face, double longestSquared) {
  for (int i = 0; i < 3; ++i) {
    const auto& from = face->vertex(Cdt::ccw(i))->point();
    const auto& to = face->vertex(Cdt::cw(i))->point();
    if (CGAL::squared_distance(from, to) > longestSquared) return true;
  }
  return false;
}

}  // namespace

// Faces are looked at in their order in memory, neighbours in the plane; points are not.
void AddVertices(Cdt& cdt, const std::vector<PNT_3D>& points, CTris& triangulation) {
  std::vector<int> vertexAt(points.size(), kNoPosition);
  for (const auto vertex : cdt.finite_vertex_handles()) {
    vertexAt[static_cast<std::size_t>(vertex->info().position)] = 0;
  }
  triangulation.Reserve(cdt.number_of_vertices(), cdt.number_of_faces());
  for (std::size_t i = 0; i < points.size(); ++i) {
    if (vertexAt[i] == kNoPosition) continue;
    vertexAt[i] = triangulation.GetNoTriVrts();
    triangulation.AddTriVrt(points[i]);
  }
  for (const auto vertex : cdt.finite_vertex_handles()) {
    int& position = vertex->info().position;
    position = vertexAt[static_cast<std::size_t>(position)];
  }
}

std::vector<Edge> AddTriangles(Cdt& cdt, double longestSide, CTris& triangulation,
                               std::uint64_t& leftOut) {
  leftOut = 0;
  for (const Face face : cdt.finite_face_handles()) {
    face->info().isKept = longestSide == 0 || !HasLongSide(face, longestSide * longestSide);
    leftOut += face->info().isKept ? 0 : 1;
  }
  std::vector<Edge> boundary;
  for (const Face face : cdt.finite_face_handles()) {
    if (!face->info().isKept) continue;
    triangulation.AddTri(face->vertex(0)->info().position, face->vertex(1)->info().position,
                         face->vertex(2)->info().position);
    for (int i = 0; i < 3; ++i) {
      if (IsBoundary({face, i})) boundary.push_back({face, i});
    }
  }
  return boundary;
}

void AddContours(const std::vector<Edge>& boundary, CDtmPrj& model) {
  for (const Edge& first : boundary) {
    if (first.face->info().isInContour[static_cast<std::size_t>(first.opposite)]) continue;
    CCnt contour;
    for (const int vertex : ContourFrom(first)) {
      contour.AddVrt(model.GetTris().GetTriVrtAt(vertex));
    }
    const bool isOuter = AreaOf(contour) > 0;
    (isOuter ? model.GetOuterCnts() : model.GetIslandCnts()).AddCnt() = std::move(contour);
  }
}

}  // namespace terrain
