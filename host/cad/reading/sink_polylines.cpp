#include <algorithm>

#include "host/cad/reading/sink.h"

namespace cad_reader {
namespace {

bool HasBulge(double bulge) { return bulge != 0; }

// What a smoothed polyline was made from is not part of its shape.
bool IsOfShape(const VertexLine& line, const Vertex& vertex) {
  return (line.flags & kLineSmoothed) == 0 || (vertex.flags & kVertexControl) == 0;
}

}  // namespace

// In the plane of the entity.
void EntitySink::PutFlat(cad::PolylineShape line, const Plane& plane) {
  if (line.points.empty() || !IsFinite(cad::Shape(line))) {
    notes_.Count(Note::kNoShape);
    return;
  }
  if (std::none_of(line.bulges.begin(), line.bulges.end(), HasBulge)) line.bulges.clear();
  if (plane.IsTilted() && !line.bulges.empty()) {
    line = WithoutBulges(line);
    notes_.Count(Note::kTiltedCurve);
  }
  if (!plane.IsWorld()) {
    for (cad::Point& point : line.points) point = plane.ToWorld(point);
    for (double& bulge : line.bulges) bulge = -bulge;
  }
  Put(std::move(line));
}

void EntitySink::PutVertexLine(const VertexLine& line, const Plane& plane) {
  if ((line.flags & kLinePolyface) != 0) {
    PutPolyface(line);
  } else if ((line.flags & kLineMesh) != 0) {
    PutMesh(line);
  } else if ((line.flags & kLineInSpace) != 0) {
    PutVerticesInSpace(line);
  } else {
    PutFlatVertices(line, plane);
  }
}

// The elevation is the polyline's; some programs give it to the vertices only. Arcs lie in one.
void EntitySink::PutFlatVertices(const VertexLine& from, const Plane& plane) {
  cad::PolylineShape line;
  line.isClosed = (from.flags & kLineClosed) != 0;
  bool hasBulges = false;
  for (const Vertex& vertex : from.vertices) {
    if (!IsOfShape(from, vertex)) continue;
    hasBulges = hasBulges || vertex.bulge != 0;
    const double own = vertex.at.getZ();
    line.points.emplace_back(vertex.at.getX(), vertex.at.getY(), own != 0 ? own : from.elevation);
    line.bulges.push_back(vertex.bulge);
  }
  if (hasBulges) {
    const double first = line.points.front().getZ();
    for (cad::Point& point : line.points) point = {point.getX(), point.getY(), first};
  }
  PutFlat(std::move(line), plane);
}

void EntitySink::PutVerticesInSpace(const VertexLine& from) {
  cad::PolylineShape line;
  line.isClosed = (from.flags & kLineClosed) != 0;
  for (const Vertex& vertex : from.vertices) {
    if (IsOfShape(from, vertex)) line.points.push_back(vertex.at);
  }
  if (line.points.empty()) {
    notes_.Count(Note::kNoShape);
  } else {
    Put(std::move(line));
  }
}

// ---- Faces ----

// Rows of vertices; the faces lie between neighbours. How many there are the vertices have to bear
// out.
void EntitySink::PutMesh(const VertexLine& line) {
  std::vector<cad::Point> places;
  for (const Vertex& vertex : line.vertices) {
    if (IsOfShape(line, vertex)) places.push_back(vertex.at);
  }
  const auto rows = static_cast<std::size_t>(std::max(0, line.rows));
  const auto columns = static_cast<std::size_t>(std::max(0, line.columns));
  if (rows < 2 || columns < 2 || rows * columns > places.size()) {
    notes_.Count(Note::kNoShape);
    return;
  }
  const auto at = [&](std::size_t row, std::size_t column) {
    return places[row % rows * columns + column % columns];
  };
  const std::size_t lastRow = (line.flags & kLineClosed) != 0 ? rows : rows - 1;
  const std::size_t lastColumn = (line.flags & kLineMeshClosed) != 0 ? columns : columns - 1;
  for (std::size_t row = 0; row < lastRow; ++row) {
    for (std::size_t column = 0; column < lastColumn; ++column) {
      PutFace({at(row, column), at(row, column + 1), at(row + 1, column + 1), at(row + 1, column)});
    }
  }
}

// Vertices first, then faces that name three or four of them by their numbers, from 1.
void EntitySink::PutPolyface(const VertexLine& line) {
  std::vector<cad::Point> places;
  for (const Vertex& vertex : line.vertices) {
    if ((vertex.flags & kVertexOfMesh) != 0) places.push_back(vertex.at);
  }
  for (const Vertex& face : line.vertices) {
    if ((face.flags & kVertexOfMesh) != 0 || (face.flags & kVertexOfPolyface) == 0) continue;
    std::vector<cad::Point> points;
    std::size_t named = 0;
    for (const int corner : face.corners) {
      const auto number = static_cast<std::size_t>(corner);
      if (number != 0) ++named;
      if (number != 0 && number <= places.size()) points.push_back(places[number - 1]);
    }
    if (points.size() != named || named < 3) points.clear();
    PutFace(std::move(points));
  }
}

void EntitySink::PutFace(std::vector<cad::Point> points) {
  if (points.empty()) {
    notes_.Count(Note::kBadFace);
  } else {
    Put(cad::FaceShape{std::move(points)});
  }
}

}  // namespace cad_reader
