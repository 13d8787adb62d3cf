#include <CGAL/Spatial_sort_traits_adapter_2.h>
#include <CGAL/property_map.h>
#include <CGAL/spatial_sort.h>

#include <algorithm>
#include <utility>

#include "host/terrain/model_builder.h"

namespace terrain {
namespace {

using tdk::geom::PNT_3D;

using Place = std::pair<Kernel::Point_2, int>;  // and its position among the points

// In an order in which neighbours are neighbours in the plane: that makes insertion fast.
std::vector<Place> SortedPlaces(const std::vector<PNT_3D>& points) {
  std::vector<Place> places;
  places.reserve(points.size());
  for (const PNT_3D& point : points) {
    places.emplace_back(Kernel::Point_2(point.getX(), point.getY()),
                        static_cast<int>(places.size()));
  }
  using PointOf = CGAL::First_of_pair_property_map<Place>;
  CGAL::spatial_sort(places.begin(), places.end(),
                     CGAL::Spatial_sort_traits_adapter_2<Kernel, PointOf>());
  return places;
}

using Vertices = std::vector<Cdt::Vertex_handle>;

// Of points in one place the first holds. `vertices` gets the vertex of each point, unless it is
// empty.
void Insert(const std::vector<PNT_3D>& points, Cdt& cdt, Vertices& vertices) {
  Cdt::Face_handle hint;
  for (const auto& [place, position] : SortedPlaces(points)) {
    const Cdt::Vertex_handle vertex = cdt.insert(place, hint);
    hint = vertex->face();
    int& first = vertex->info().position;
    first = first == kNoPosition ? position : std::min(first, position);
    if (!vertices.empty()) vertices[static_cast<std::size_t>(position)] = vertex;
  }
}

void InsertBreaklines(const Source& source, const Vertices& vertices, Cdt& cdt, CVncs& lines) {
  for (const auto& [from, to] : source.breaklines) {
    const auto start = vertices[static_cast<std::size_t>(from)];
    const auto end = vertices[static_cast<std::size_t>(to)];
    if (start == end) continue;
    lines.AddVnc({source.points[static_cast<std::size_t>(start->info().position)],
                  source.points[static_cast<std::size_t>(end->info().position)]});
    cdt.insert_constraint(start, end);
  }
}

class Engine : public ITriangulator {
 public:
  Findings Triangulate(Source source, CDtmPrj& model) override {
    Findings findings;
    Cdt cdt(source.points);
    Vertices vertices(source.breaklines.empty() ? 0 : source.points.size());
    Insert(source.points, cdt, vertices);
    findings.samePlace = source.points.size() - cdt.number_of_vertices();
    InsertBreaklines(source, vertices, cdt, model.GetVncs());
    findings.crossings = cdt.Crossings();
    AddVertices(cdt, source.points, model.GetTris());
    AddContours(AddTriangles(cdt, source.longestSide, model.GetTris(), findings.longTriangles),
                model);
    return findings;
  }
};

}  // namespace
}  // namespace terrain

extern "C" terrain::ITriangulator* KalvioMakeTriangulator() { return new terrain::Engine; }
