// The entities of a drawing as records.
#pragma once

#include <vector>

#include "host/cad/dwg/record_writer.h"
#include "host/cad/dwg/text_records.h"
#include "host/cad/dwg/write_plan.h"
#include "host/cad/writing/attributes.h"

namespace dwg {

/// Entities that were written, one behind the other.
struct EntityChain {
  Handle first = 0;
  Handle last = 0;
};

class EntityWriter {
 public:
  /// Keeps both.
  EntityWriter(RecordWriter& records, const FilePlan& plan);

  /// Writes the entities of the model space.
  EntityChain WriteModel();
  /// Writes the attribute definitions and the entities of a block.
  EntityChain WriteBlock(int position);
  /// The inserts of a block that were written so far, wherever they are.
  const std::vector<Handle>& InsertsOf(int position) const {
    return inserts_[static_cast<std::size_t>(position)];
  }

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
  std::size_t NextWritten(const std::vector<cad::Entity>& entities, std::size_t from,
                          int block) const;
  void WriteEntities(const std::vector<cad::Entity>& entities, int block);
  void WriteDefinition(const cad::AttributeDefinition& definition, bool isLast);
  // The next entity of the chain is of that many records.
  void BeginEntity(Handle records, bool isLast);
  Handle RecordsOf(const cad::Shape& shape) const;
  bool IsLight(const cad::PolylineShape& polyline) const;

  void WriteLightPolyline(const cad::PolylineShape& polyline);
  void WriteFlatPolyline(const cad::PolylineShape& polyline);
  void WriteSpacePolyline(const cad::PolylineShape& polyline);
  void WriteMultiText(const cad::TextShape& text);
  void WriteAttributes(const cad::InsertShape& insert);
  // The records that belong to the entity, and the one behind them.
  EntityHead PartHead(std::size_t part, std::size_t parts) const;
  void EndParts(std::size_t parts);

  template <class Record>
  void Put(Type type, Record&& record) {
    records_.Entity(type, own_, head_, record);
  }

  RecordWriter& records_;
  const FilePlan& plan_;
  Handle next_;
  Handle own_ = 0;
  EntityHead head_;  // of the entity that is being written
  EntityChain chain_;
  std::vector<std::vector<Handle>> inserts_;  // by the positions of their blocks
};

}  // namespace dwg
