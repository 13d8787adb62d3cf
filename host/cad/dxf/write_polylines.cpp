#include <algorithm>

#include "host/cad/dxf/write_entities.h"
#include "host/cad/writing/geometry.h"

namespace dxf_writer {
namespace {

constexpr EntityKind kLightPolyline{"0\nLWPOLYLINE\n", "100\nAcDbPolyline\n"};
// Flat ones with vertices are in R12 alone.
constexpr EntityKind kFlatPolyline{"0\nPOLYLINE\n", ""};
constexpr EntityKind kFlatVertex{"0\nVERTEX\n", ""};
constexpr EntityKind kSpacePolyline{"0\nPOLYLINE\n", "100\nAcDb3dPolyline\n"};
constexpr EntityKind kSpaceVertex{"0\nVERTEX\n", "100\nAcDbVertex\n100\nAcDb3dPolylineVertex\n"};

constexpr int kClosed = 1;
constexpr int kInSpace = 8;
constexpr int kVertexInSpace = 32;

}  // namespace

void EntityWriter::operator()(const cad::PolylineShape& polyline) {
  if (!IsFlat(polyline)) {
    WriteSpacePolyline(polyline);
  } else if (tags_.Is2000()) {
    WriteLightPolyline(polyline);
  } else {
    WriteFlatPolyline(polyline);
  }
}

void EntityWriter::WriteLightPolyline(const cad::PolylineShape& polyline) {
  Begin(kLightPolyline);
  tags_.Whole<90>(static_cast<std::int64_t>(polyline.points.size()));
  tags_.Whole<70>(polyline.isClosed ? kClosed : 0);
  tags_.Real<38>(polyline.points.front().getZ());
  for (std::size_t i = 0; i < polyline.points.size(); ++i) {
    tags_.FlushIfLarge();
    tags_.Place<10>(polyline.points[i].getX(), polyline.points[i].getY());
    tags_.RealUnless<42>(0, BulgeAt(polyline, i));
  }
}

Handle EntityWriter::BeginPolyline(const EntityKind& kind, double elevation, int flags) {
  const Handle handle = Begin(kind);
  tags_.Whole<66>(1);
  tags_.Place<10>({0, 0, elevation});
  tags_.Whole<70>(flags);
  return handle;
}

void EntityWriter::WriteFlatVertex(const cad::Point& point, double bulge, Handle polyline) {
  Begin(kFlatVertex, polyline);
  tags_.Place<10>(point);
  tags_.RealUnless<42>(0, bulge);
}

void EntityWriter::WriteFlatPolyline(const cad::PolylineShape& polyline) {
  const Handle handle =
      BeginPolyline(kFlatPolyline, polyline.points.front().getZ(), polyline.isClosed ? kClosed : 0);
  for (std::size_t i = 0; i < polyline.points.size(); ++i) {
    WriteFlatVertex(polyline.points[i], BulgeAt(polyline, i), handle);
  }
  End(handle);
}

void EntityWriter::WriteSpacePolyline(const cad::PolylineShape& polyline) {
  const Handle handle =
      BeginPolyline(kSpacePolyline, 0, kInSpace | (polyline.isClosed ? kClosed : 0));
  for (const cad::Point& point : polyline.points) {
    Begin(kSpaceVertex, handle);
    tags_.Place<10>(point);
    tags_.Whole<70>(kVertexInSpace);
  }
  End(handle);
}

void EntityWriter::WriteChords(const cad::EllipseShape& ellipse) {
  const EllipseChords chords = ChordsOf(ellipse);
  const Handle handle =
      BeginPolyline(kFlatPolyline, ellipse.center.getZ(), chords.isClosed ? kClosed : 0);
  for (const cad::Point& point : chords.Points()) WriteFlatVertex(point, 0, handle);
  End(handle);
}

}  // namespace dxf_writer
