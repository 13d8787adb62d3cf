#include <algorithm>
#include <cstdlib>

#include "host/cad/dxf/read_entities.h"

namespace dxf_reader {
namespace {

// Flags of a polyline.
constexpr int kClosed = 1;
constexpr int kSmoothed = 4;
constexpr int kInSpace = 8;
constexpr int kMesh = 16;
constexpr int kMeshClosed = 32;  // across its other direction
constexpr int kPolyface = 64;
// Flags of a vertex.
constexpr int kControlPoint = 16;
constexpr int kPlaceOfPolyface = 64;
constexpr int kOfPolyface = 128;

bool HasBulge(double bulge) { return bulge != 0; }

}  // namespace

// ---- Flat ones with all points in one record ----

void EntityReader::ReadLightPolyline() {
  line_ = {};
  fields_.Read(pairs_, [this] { return KeepLightVertex(); });
  line_.isClosed = fields_.HasFlag(70, kClosed);
  const double elevation = fields_.Real(38);
  for (cad::Point& point : line_.points) point = {point.getX(), point.getY(), elevation};
}

bool EntityReader::KeepLightVertex() {
  const int code = pairs_.Code();
  if (code == 10) {
    line_.points.emplace_back(pairs_.Real(), 0.0, 0.0);
    line_.bulges.push_back(0);
  } else if (code == 20 && !line_.points.empty()) {
    line_.points.back() = {line_.points.back().getX(), pairs_.Real(), 0};
  } else if (code == 42 && !line_.bulges.empty()) {
    line_.bulges.back() = pairs_.Real();
  } else if (code == 40 || code == 41 || code == 43) {
    isWide_ = isWide_ || pairs_.Real() != 0;
  }
  return code == 10 || code == 20 || (code >= 40 && code <= 43);
}

// `line_`, in the plane of the entity.
void EntityReader::PutFlat() {
  if (line_.points.empty()) {
    context_.notes.Count(Note::kNoShape);
    return;
  }
  if (std::none_of(line_.bulges.begin(), line_.bulges.end(), HasBulge)) line_.bulges.clear();
  const Plane plane = PlaneOf();
  if (plane.IsTilted() && !line_.bulges.empty()) {
    line_ = WithoutBulges(line_);
    context_.notes.Count(Note::kTiltedCurve);
  }
  if (!plane.IsWorld()) {
    for (cad::Point& point : line_.points) point = plane.ToWorld(point);
    for (double& bulge : line_.bulges) bulge = -bulge;
  }
  Put(std::move(line_));
}

// ---- Those with a record for each vertex ----

void EntityReader::TakePolyline() {
  ReadVertices();
  if (fields_.HasFlag(70, kPolyface)) {
    TakePolyface();
  } else if (fields_.HasFlag(70, kMesh)) {
    TakeMesh();
  } else if (fields_.HasFlag(70, kInSpace)) {
    TakeSpacePolyline();
  } else {
    TakeFlatPolyline();
  }
}

void EntityReader::ReadVertices() {
  vertices_.clear();
  while (pairs_.Text() == "VERTEX") {
    part_.Read(pairs_);
    KeepVertex();
  }
  if (pairs_.Text() == "SEQEND") SkipRecord();
}

// What a smoothed polyline was made from is not part of its shape.
void EntityReader::KeepVertex() {
  const int flags = part_.Whole(70);
  if (fields_.HasFlag(70, kSmoothed) && (flags & kControlPoint) != 0) return;
  Vertex vertex{part_.PointAt(10), part_.Real(42), flags, {}};
  for (int i = 0; i < 4; ++i) vertex.corners[i] = std::abs(part_.Whole(71 + i));
  vertices_.push_back(vertex);
}

// The elevation is the polyline's; some programs give it to the vertices only. Arcs lie in one.
void EntityReader::TakeFlatPolyline() {
  const bool isWide = fields_.Real(40) != 0 || fields_.Real(41) != 0;
  if (isWide && !fields_.HasOwnLooks()) context_.notes.Count(Note::kLooks);
  line_ = {};
  line_.isClosed = fields_.HasFlag(70, kClosed);
  const double elevation = fields_.Real(30);
  bool hasBulges = false;
  for (const Vertex& vertex : vertices_) {
    hasBulges = hasBulges || vertex.bulge != 0;
    const double own = vertex.at.getZ();
    line_.points.emplace_back(vertex.at.getX(), vertex.at.getY(), own != 0 ? own : elevation);
    line_.bulges.push_back(vertex.bulge);
  }
  if (hasBulges) {
    const double first = line_.points.front().getZ();
    for (cad::Point& point : line_.points) point = {point.getX(), point.getY(), first};
  }
  PutFlat();
}

void EntityReader::TakeSpacePolyline() {
  cad::PolylineShape line;
  line.isClosed = fields_.HasFlag(70, kClosed);
  for (const Vertex& vertex : vertices_) line.points.push_back(vertex.at);
  if (line.points.empty()) {
    context_.notes.Count(Note::kNoShape);
  } else {
    Put(std::move(line));
  }
}

// ---- Faces ----

// Rows of vertices; the faces lie between neighbours. How many there are the vertices have to bear
// out.
void EntityReader::TakeMesh() {
  const bool isSmoothed = fields_.HasFlag(70, kSmoothed);
  const auto rows = static_cast<std::size_t>(std::max(0, fields_.Whole(isSmoothed ? 73 : 71)));
  const auto columns = static_cast<std::size_t>(std::max(0, fields_.Whole(isSmoothed ? 74 : 72)));
  if (rows < 2 || columns < 2 || rows * columns > vertices_.size()) {
    context_.notes.Count(Note::kNoShape);
    return;
  }
  const auto at = [&](std::size_t row, std::size_t column) {
    return vertices_[row % rows * columns + column % columns].at;
  };
  const std::size_t lastRow = fields_.HasFlag(70, kClosed) ? rows : rows - 1;
  const std::size_t lastColumn = fields_.HasFlag(70, kMeshClosed) ? columns : columns - 1;
  for (std::size_t row = 0; row < lastRow; ++row) {
    for (std::size_t column = 0; column < lastColumn; ++column) {
      PutFace({at(row, column), at(row, column + 1), at(row + 1, column + 1), at(row + 1, column)});
    }
  }
}

// Vertices first, then faces that name three or four of them by their numbers, from 1.
void EntityReader::TakePolyface() {
  std::vector<cad::Point> places;
  for (const Vertex& vertex : vertices_) {
    if ((vertex.flags & kPlaceOfPolyface) != 0) places.push_back(vertex.at);
  }
  for (const Vertex& face : vertices_) {
    if ((face.flags & kPlaceOfPolyface) != 0 || (face.flags & kOfPolyface) == 0) continue;
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

void EntityReader::PutFace(std::vector<cad::Point> points) {
  if (points.empty()) {
    context_.notes.Count(Note::kBadFace);
  } else {
    Put(cad::FaceShape{std::move(points)});
  }
}

}  // namespace dxf_reader
