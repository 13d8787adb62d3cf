// The records of entities.
#pragma once

#include <span>
#include <string_view>

#include "host/cad/dxf/write_plan.h"
#include "host/cad/dxf/write_tags.h"
#include "host/cad/writing/attributes.h"

namespace dxf_writer {

/// What the records of one kind of entity have in common.
struct EntityKind {
  std::string_view start;    ///< the pair of its name
  std::string_view classes;  ///< the pairs of its classes, in version 2000
};

class EntityWriter {
 public:
  EntityWriter(Tags& tags, const Plan& plan) : tags_(tags), plan_(plan) {}

  /// Writes an entity that the plan has found fit. `owner`: the record of the block that it is in.
  void Write(const cad::Entity& entity, Handle owner);

  void BeginBlock(const cad::Block& block, const PlannedBlock& planned);
  void EndBlock(const PlannedBlock& planned);

  // Each shape of the entity that is being written.
  void operator()(const cad::PointShape& point);
  void operator()(const cad::LineShape& line);
  void operator()(const cad::PolylineShape& polyline);
  void operator()(const cad::CircleShape& circle);
  void operator()(const cad::ArcShape& arc);
  void operator()(const cad::EllipseShape& ellipse);
  void operator()(const cad::TextShape& text);
  void operator()(const cad::InsertShape& insert);
  void operator()(const cad::FaceShape& face);
  void operator()(const cad::SolidShape& solid);

 private:
  Handle Begin(const EntityKind& kind, Handle owner);
  Handle Begin(const EntityKind& kind) { return Begin(kind, owner_); }
  void End(Handle owner);

  void WriteLightPolyline(const cad::PolylineShape& polyline);
  void WriteFlatPolyline(const cad::PolylineShape& polyline);
  void WriteSpacePolyline(const cad::PolylineShape& polyline);
  void WriteChords(const cad::EllipseShape& ellipse);
  Handle BeginPolyline(const EntityKind& kind, double elevation, int flags);
  void WriteFlatVertex(const cad::Point& point, double bulge, Handle polyline);

  void WriteMultiLine(const cad::TextShape& text);
  void WriteLines(const cad::TextShape& text);
  void WriteTextLine(const TextLine& line);
  void PutTextLine(const TextLine& line);

  void WriteAttributes(const cad::InsertShape& insert, Handle owner);
  void WriteAttribute(const cad::Attribute& attribute, const TextLine& line, Handle owner);
  void WriteDefinition(const cad::AttributeDefinition& definition, Handle owner);

  Tags& tags_;
  const Plan& plan_;
  // Of the entity that is being written.
  std::string_view layer_;  // its pairs
  std::uint16_t color_ = cad::kByLayer;
  Handle owner_ = 0;
};

}  // namespace dxf_writer
