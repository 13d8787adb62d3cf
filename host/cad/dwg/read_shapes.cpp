#include <algorithm>
#include <cstdlib>
#include <optional>
#include <utility>

#include "host/cad/dwg/read_drawing.h"

namespace dwg {
namespace {

// The fourth of a triangle is the third once more.
std::vector<cad::Point> CornersOf(const Place (&corners)[4], std::optional<double> elevation) {
  std::vector<cad::Point> points;
  for (int i = 0; i < 4; ++i) {
    if (i == 3 && corners[3] == corners[2]) break;
    points.emplace_back(corners[i].x, corners[i].y, elevation.value_or(corners[i].z));
  }
  return points;
}

}  // namespace

void DrawingReader::TakePoint(OpenRecord& open) {
  const auto record = TakeRecord<PointRecord>(open);
  looks_.TakeExtent(record.thickness);
  sink_.Put(cad::PointShape{record.at});
}

void DrawingReader::TakeLine(OpenRecord& open) {
  const auto record = TakeRecord<LineRecord>(open);
  looks_.TakeExtent(record.thickness);
  sink_.Put(cad::LineShape{record.from, record.to});
}

void DrawingReader::TakeCircle(OpenRecord& open) {
  const auto record = TakeRecord<CircleRecord>(open);
  looks_.TakeExtent(record.thickness);
  sink_.PutCircle(record.center, record.radius, cad_reader::Plane(record.direction));
}

void DrawingReader::TakeArc(OpenRecord& open) {
  const auto record = TakeRecord<ArcRecord>(open);
  looks_.TakeExtent(record.circle.thickness);
  sink_.PutArc({record.circle.center, record.circle.radius, cad_reader::Degrees(record.start),
                cad_reader::Degrees(record.end)},
               cad_reader::Plane(record.circle.direction));
}

void DrawingReader::TakeEllipse(OpenRecord& open) {
  const auto record = TakeRecord<EllipseRecord>(open);
  sink_.PutEllipse({record.center, record.major, record.direction, record.ratio,
                    cad_reader::Degrees(record.start), cad_reader::Degrees(record.end)});
}

void DrawingReader::TakeSpline(OpenRecord& open) {
  auto record = TakeRecord<SplineRecord>(open);
  constexpr std::uint32_t kBeyondAll = 1000;
  cad_reader::Spline spline;
  spline.degree = static_cast<int>(std::min(record.degree, kBeyondAll));
  spline.isClosed = record.isClosed;
  spline.knots = std::move(record.knots);
  spline.weights = std::move(record.weights);
  spline.controls.assign(record.controls.begin(), record.controls.end());
  spline.fits.assign(record.fits.begin(), record.fits.end());
  sink_.PutSpline(spline);
}

void DrawingReader::TakeFace(OpenRecord& open) {
  sink_.Put(cad::FaceShape{CornersOf(TakeRecord<FaceRecord>(open).corners, std::nullopt)});
}

void DrawingReader::TakeSolid(OpenRecord& open) {
  const auto record = TakeRecord<SolidRecord>(open);
  looks_.TakeExtent(record.thickness);
  sink_.PutSolid(CornersOf(record.corners, record.elevation), cad_reader::Plane(record.direction));
}

// ---- Polylines ----

void DrawingReader::TakeLightPolyline(OpenRecord& open) {
  auto record = TakeRecord<LightPolylineRecord>(open);
  looks_.TakeExtent(record.thickness);
  looks_.TakeExtent(record.hasWidths ? 1 : record.width);
  cad::PolylineShape line;
  line.isClosed = record.isClosed;
  line.points.reserve(record.points.size());
  for (const Place& point : record.points) {
    line.points.emplace_back(point.x, point.y, record.elevation);
  }
  line.bulges = std::move(record.bulges);
  if (!line.bulges.empty()) line.bulges.resize(line.points.size());
  sink_.PutFlat(std::move(line), cad_reader::Plane(record.direction));
}

void DrawingReader::CollectVertices(Handle owner, cad_reader::VertexLine& line) {
  ForEachPart(owner, [&](unsigned type, OpenRecord& open) {
    cad_reader::Vertex vertex;
    if (type == kFlatVertex) {
      const auto record = TakeRecord<FlatVertexRecord>(open);
      vertex = {record.at, record.bulge, record.flags, {}};
    } else if (type == kPolyfaceFace) {
      const auto record = TakeRecord<FaceVertexRecord>(open);
      vertex.flags = cad_reader::kVertexOfPolyface;
      for (int i = 0; i < 4; ++i) {
        vertex.corners[i] = std::abs(static_cast<std::int16_t>(record.corners[i]));
      }
    } else if (type != kAttribute) {
      const auto record = TakeRecord<SpaceVertexRecord>(open);
      vertex = {record.at, 0, record.flags, {}};
    } else {
      return;
    }
    line.vertices.push_back(vertex);
  });
}

void DrawingReader::TakeFlatPolyline(OpenRecord& open) {
  const auto record = TakeRecord<FlatPolylineRecord>(open);
  for (const double extent : {record.thickness, record.startWidth, record.endWidth}) {
    looks_.TakeExtent(extent);
  }
  constexpr int kOwnFlags = cad_reader::kLineClosed | cad_reader::kLineSmoothed;
  cad_reader::VertexLine line;
  line.flags = record.flags & kOwnFlags;
  line.elevation = record.elevation;
  CollectVertices(open.own, line);
  sink_.PutVertexLine(line, cad_reader::Plane(record.direction));
}

void DrawingReader::TakeSpacePolyline(OpenRecord& open) {
  const auto record = TakeRecord<SpacePolylineRecord>(open);
  cad_reader::VertexLine line;
  line.flags = cad_reader::kLineInSpace | (record.flags & cad_reader::kLineClosed) |
               (record.smoothing != 0 ? cad_reader::kLineSmoothed : 0);
  CollectVertices(open.own, line);
  sink_.PutVertexLine(line, {});
}

void DrawingReader::TakeMesh(OpenRecord& open) {
  const auto record = TakeRecord<MeshRecord>(open);
  constexpr int kOwnFlags =
      cad_reader::kLineClosed | cad_reader::kLineSmoothed | cad_reader::kLineMeshClosed;
  cad_reader::VertexLine line;
  line.flags = cad_reader::kLineMesh | (record.flags & kOwnFlags);
  const bool isSmoothed = (record.flags & cad_reader::kLineSmoothed) != 0;
  line.rows = record.sizes[isSmoothed ? 2 : 0];
  line.columns = record.sizes[isSmoothed ? 3 : 1];
  CollectVertices(open.own, line);
  sink_.PutVertexLine(line, {});
}

void DrawingReader::TakePolyface(OpenRecord& open) {
  cad_reader::VertexLine line;
  line.flags = cad_reader::kLinePolyface;
  CollectVertices(open.own, line);
  sink_.PutVertexLine(line, {});
}

}  // namespace dwg
