#include "host/cad/dxf/read_entities.h"

namespace dxf_reader {

void EntityReader::TakeInsert() {
  cad::InsertShape insert;
  insert.block = context_.blocks.IdOf(fields_.Text(2));
  insert.at = fields_.PointAt(10);
  insert.scale = {fields_.Real(41, 1), fields_.Real(42, 1), fields_.Real(43, 1)};
  insert.rotation = fields_.Real(50);
  ReadAttributes(insert.attributes);
  const Plane plane = PlaneOf();
  if (plane.IsTilted()) context_.notes.Count(Note::kTiltedInsert);
  sink_.PutInsert(std::move(insert),
                  {fields_.Whole(70, 1), fields_.Whole(71, 1), fields_.Real(44), fields_.Real(45)},
                  plane);
}

void EntityReader::ReadAttributes(std::vector<cad::Attribute>& attributes) {
  while (pairs_.Text() == "ATTRIB") {
    part_.Read(pairs_);
    attributes.push_back({context_.text.Name(part_.Text(2)), context_.text.Line(part_.Text(1))});
  }
  if (pairs_.Text() == "SEQEND") SkipRecord();
}

}  // namespace dxf_reader
