#include "host/cad/dxf/write_entities.h"

#include "host/cad/writing/geometry.h"

namespace dxf_writer {
namespace {

constexpr EntityKind kPoint{"0\nPOINT\n", "100\nAcDbPoint\n"};
constexpr EntityKind kLine{"0\nLINE\n", "100\nAcDbLine\n"};
constexpr EntityKind kCircle{"0\nCIRCLE\n", "100\nAcDbCircle\n"};
constexpr EntityKind kArc{"0\nARC\n", "100\nAcDbCircle\n"};
constexpr EntityKind kEllipse{"0\nELLIPSE\n", "100\nAcDbEllipse\n"};
constexpr EntityKind kFace{"0\n3DFACE\n", "100\nAcDbFace\n"};
constexpr EntityKind kSolid{"0\nSOLID\n", "100\nAcDbTrace\n"};
constexpr EntityKind kSequenceEnd{"0\nSEQEND\n", ""};

}  // namespace

void EntityWriter::Write(const cad::Entity& entity, Handle owner) {
  layer_ = plan_.LayerPairs(entity.drawing);
  color_ = entity.color;
  owner_ = owner;
  std::visit(*this, entity.shape);
}

Handle EntityWriter::Begin(const EntityKind& kind, Handle owner) {
  tags_.FlushIfLarge();
  tags_.Lines(kind.start);
  Handle handle = 0;
  if (tags_.Is2000()) {
    handle = tags_.NextHandle();
    tags_.Reference<5>(handle);
    tags_.Reference<330>(owner);
  }
  tags_.Lines(layer_);
  if (color_ < cad::kByLayer) tags_.Whole<62>(color_);
  if (tags_.Is2000()) tags_.Lines(kind.classes);
  return handle;
}

// Ends the vertices of a polyline or the attributes of an insert.
void EntityWriter::End(Handle owner) { Begin(kSequenceEnd, owner); }

void EntityWriter::operator()(const cad::PointShape& point) {
  Begin(kPoint);
  tags_.Place<10>(point.at);
}

void EntityWriter::operator()(const cad::LineShape& line) {
  Begin(kLine);
  tags_.Place<10>(line.from);
  tags_.Place<11>(line.to);
}

void EntityWriter::operator()(const cad::CircleShape& circle) {
  Begin(kCircle);
  tags_.Place<10>(circle.center);
  tags_.Real<40>(circle.radius);
}

void EntityWriter::operator()(const cad::ArcShape& arc) {
  Begin(kArc);
  tags_.Place<10>(arc.center);
  tags_.Real<40>(arc.radius);
  tags_.Class("AcDbArc\n");
  tags_.Real<50>(arc.start);
  tags_.Real<51>(arc.end);
}

void EntityWriter::operator()(const cad::EllipseShape& ellipse) {
  if (!tags_.Is2000()) {
    WriteChords(ellipse);
    return;
  }
  Begin(kEllipse);
  tags_.Place<10>(ellipse.center);
  tags_.Place<11>({ellipse.major.getX(), ellipse.major.getY(), 0});
  tags_.Real<40>(ellipse.ratio);
  tags_.Real<41>(ellipse.start * kRadiansPerDegree);
  tags_.Real<42>(ellipse.end * kRadiansPerDegree);
}

// One of three corners has its last one twice.
void EntityWriter::operator()(const cad::FaceShape& face) {
  Begin(kFace);
  tags_.Place<10>(face.points[0]);
  tags_.Place<11>(face.points[1]);
  tags_.Place<12>(face.points[2]);
  tags_.Place<13>(face.points.back());
}

// The last two of four corners stand in the order of a Z.
void EntityWriter::operator()(const cad::SolidShape& solid) {
  Begin(kSolid);
  tags_.Place<10>(solid.points[0]);
  tags_.Place<11>(solid.points[1]);
  tags_.Place<12>(solid.points.back());
  tags_.Place<13>(solid.points[2]);
}

}  // namespace dxf_writer
