#include <cstdlib>
#include <utility>

#include "host/cad/dxf/read_entities.h"

namespace dxf_reader {

// ---- Flat ones with all points in one record ----

void EntityReader::ReadLightPolyline() {
  line_ = {};
  fields_.Read(pairs_, [this] { return KeepLightVertex(); });
  line_.isClosed = fields_.HasFlag(70, kLineClosed);
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
    looks_.TakeExtent(pairs_.Real());
  }
  return code == 10 || code == 20 || (code >= 40 && code <= 43);
}

void EntityReader::TakeLightPolyline() { sink_.PutFlat(std::move(line_), PlaneOf()); }

// ---- Those with a record for each vertex ----

void EntityReader::TakePolyline() {
  ReadVertices();
  vertices_.flags = fields_.Whole(70);
  vertices_.elevation = fields_.Real(30);
  const bool isSmoothed = fields_.HasFlag(70, kLineSmoothed);
  constexpr int kKinds = 8 | 16 | 64;  // lines in space, meshes
  const bool isFlat = (vertices_.flags & kKinds) == 0;
  if (isFlat) {
    for (const int code : {40, 41}) looks_.TakeExtent(fields_.Real(code));
  }
  vertices_.rows = fields_.Whole(isSmoothed ? 73 : 71);
  vertices_.columns = fields_.Whole(isSmoothed ? 74 : 72);
  sink_.PutVertexLine(vertices_, PlaneOf());
}

void EntityReader::ReadVertices() {
  vertices_.vertices.clear();
  while (pairs_.Text() == "VERTEX") {
    part_.Read(pairs_);
    KeepVertex();
  }
  if (pairs_.Text() == "SEQEND") SkipRecord();
}

void EntityReader::KeepVertex() {
  Vertex vertex{part_.PointAt(10), part_.Real(42), part_.Whole(70), {}};
  for (int i = 0; i < 4; ++i) vertex.corners[i] = std::abs(part_.Whole(71 + i));
  vertices_.vertices.push_back(vertex);
}

}  // namespace dxf_reader
