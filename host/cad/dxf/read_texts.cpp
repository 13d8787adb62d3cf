#include <cmath>

#include "host/cad/dxf/read_entities.h"

namespace dxf_reader {

cad::Point EntityReader::TextPlace() const {
  return TextNumbers{fields_.PointAt(10), fields_.Has(10) || fields_.Has(20),
                     fields_.PointAt(11), fields_.Has(11),
                     fields_.Whole(72),   fields_.Whole(73)}
      .Place();
}

cad::TextShape EntityReader::TextOfFields() {
  return {TextPlace(), fields_.Real(40), fields_.Real(50), context_.text.Line(fields_.Text(1))};
}

void EntityReader::TakeText() {
  looks_.TakeLetters(fields_.Real(41, 1), fields_.Real(51));
  sink_.PutText(TextOfFields(), PlaneOf());
}

// ---- Texts of several lines ----

// A long text comes in pieces, which may end within a character.
void EntityReader::ReadLines() {
  lines_.clear();
  fields_.Read(pairs_, [this] {
    const bool isPiece = pairs_.Code() == 1 || pairs_.Code() == 3;
    if (isPiece) lines_ += pairs_.RawText();
    return isPiece;
  });
}

// Its place and the direction of its lines are the world's.
void EntityReader::TakeLines() {
  double direction = fields_.Real(50);
  if (fields_.Has(11) || fields_.Has(21)) {
    direction = WithinTurn(Degrees(std::atan2(fields_.Real(21), fields_.Real(11))));
  }
  sink_.PutLines({fields_.PointAt(10), fields_.Real(40), direction, fields_.Whole(71, 1),
                  fields_.Real(44, 1), context_.text.Lines(lines_)},
                 PlaneOf());
}

// ---- What the attributes of a block are ----

void EntityReader::TakeAttributeDefinition() {
  sink_.PutDefinition({context_.text.Name(fields_.Text(2)), TextPlace(), fields_.Real(40, 1)},
                      TextOfFields(), fields_.Whole(70), PlaneOf());
}

}  // namespace dxf_reader
