#include <cmath>
#include <utility>

#include "host/cad/dwg/read_drawing.h"

namespace dwg {
namespace {

cad::Point PlaceOf(const TextRecord& record) {
  const auto at = [&](const Place& flat) { return cad::Point(flat.x, flat.y, record.elevation); };
  return cad_reader::TextNumbers{at(record.at),       true,          at(record.alignment),
                                 record.hasAlignment, record.across, record.up}
      .Place();
}

}  // namespace

void DrawingReader::TakeText(OpenRecord& open) {
  const auto record = TakeRecord<TextRecord>(open);
  TakeTextLooks(record.thickness, record.style);
  looks_.TakeLetters(record.width, record.slant);
  sink_.PutText({PlaceOf(record), record.height, cad_reader::Degrees(record.rotation),
                 text_.Line(record.text)},
                cad_reader::Plane(record.direction));
}

// Its place and the direction of its lines are the world's.
void DrawingReader::TakeMultiText(OpenRecord& open) {
  const auto record = TakeRecord<MultiTextRecord>(open);
  TakeTextLooks(0, record.style);
  const double direction =
      cad_reader::WithinTurn(cad_reader::Degrees(std::atan2(record.along.y, record.along.x)));
  sink_.PutLines({record.at, record.height, direction, record.attachment, record.spacing,
                  text_.Lines(record.text)},
                 cad_reader::Plane(record.direction));
}

void DrawingReader::TakeDefinition(OpenRecord& open) {
  const AttributeRecord record = TakeRecord<AttributeDefinitionRecord>(open).attribute;
  const TextRecord& text = record.text;
  TakeTextLooks(text.thickness, text.style);
  sink_.PutDefinition(
      {text_.Name(record.tag), PlaceOf(text), text.height},
      {PlaceOf(text), text.height, cad_reader::Degrees(text.rotation), text_.Line(text.text)},
      record.flags, cad_reader::Plane(text.direction));
}

void DrawingReader::TakeInsert(OpenRecord& open) {
  PutInsert(open.own, TakeRecord<InsertRecord>(open), {});
}

void DrawingReader::TakeInsertArray(OpenRecord& open) {
  const auto record = TakeRecord<InsertArrayRecord>(open);
  PutInsert(open.own, record.insert,
            {record.columns, record.rows, record.columnWidth, record.rowHeight});
}

void DrawingReader::PutInsert(Handle own, const InsertRecord& record,
                              const cad_reader::InsertArray& array) {
  const auto found = blocks_.find(record.block);
  if (found == blocks_.end() || found->second.id < 0) {
    notes_.Count(cad_reader::Note::kUnknownBlock);
    return;
  }
  cad::InsertShape insert;
  insert.block = found->second.id;
  insert.at = record.at;
  insert.scale = record.scale;
  insert.rotation = cad_reader::Degrees(record.rotation);
  ForEachPart(own, [&](unsigned type, OpenRecord& part) {
    if (type != kAttribute) return;
    const auto attribute = TakeRecord<AttributeRecord>(part);
    insert.attributes.push_back({text_.Name(attribute.tag), text_.Line(attribute.text.text)});
  });
  const cad_reader::Plane plane(record.direction);
  if (plane.IsTilted()) notes_.Count(cad_reader::Note::kTiltedInsert);
  sink_.PutInsert(std::move(insert), array, plane);
}

}  // namespace dwg
