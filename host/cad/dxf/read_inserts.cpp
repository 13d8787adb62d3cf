#include <algorithm>
#include <cmath>

#include "host/cad/dxf/read_entities.h"

namespace dxf_reader {
namespace {

// How many inserts the arrays of a file may make: a few bytes may ask for a billion of them.
constexpr int kMostCopies = 100'000;

}  // namespace

void EntityReader::TakeInsert() {
  cad::InsertShape insert;
  insert.block = context_.blocks.IdOf(fields_.Text(2));
  insert.at = fields_.PointAt(10);
  insert.scale = {fields_.Real(41, 1), fields_.Real(42, 1), fields_.Real(43, 1)};
  insert.rotation = fields_.Real(50);
  ReadAttributes(insert.attributes);
  if (PlaneOf().IsTilted()) context_.notes.Count(Note::kTiltedInsert);
  PutInserts(std::move(insert));
}

void EntityReader::ReadAttributes(std::vector<cad::Attribute>& attributes) {
  while (pairs_.Text() == "ATTRIB") {
    part_.Read(pairs_);
    attributes.push_back({context_.text.Name(part_.Text(2)), context_.text.Line(part_.Text(1))});
  }
  if (pairs_.Text() == "SEQEND") SkipRecord();
}

// In rows and columns; the attributes are those of the first.
void EntityReader::PutInserts(cad::InsertShape insert) {
  std::int64_t columns = std::max(1, fields_.Whole(70, 1));
  std::int64_t rows = std::max(1, fields_.Whole(71, 1));
  if (columns * rows - 1 > kMostCopies - copies_) {
    context_.notes.Count(Note::kArray, static_cast<std::uint64_t>(columns * rows - 1));
    columns = rows = 1;
  }
  copies_ += static_cast<int>(columns * rows - 1);
  const double cos = std::cos(Radians(insert.rotation));
  const double sin = std::sin(Radians(insert.rotation));
  const cad::Point first = insert.at;
  for (std::int64_t i = 0; i < columns * rows; ++i) {
    const double x = fields_.Real(44) * static_cast<double>(i % columns);
    const double y = fields_.Real(45) * static_cast<double>(i / columns);
    if (i > 0) {
      insert.at = {first.getX() + x * cos - y * sin, first.getY() + x * sin + y * cos,
                   first.getZ()};
    }
    PutInsert(insert);
    insert.attributes.clear();
  }
}

// A mirrored plane turns the other way, and mirrors the block across its Y axis.
void EntityReader::PutInsert(cad::InsertShape insert) {
  const Plane plane = PlaneOf();
  insert.at = plane.ToWorld(insert.at);
  if (plane.IsMirrored()) {
    insert.rotation = WithinTurn(-insert.rotation);
    insert.scale = {-insert.scale.getX(), insert.scale.getY(), -insert.scale.getZ()};
  } else {
    insert.rotation = plane.DirectionToWorld(insert.rotation);
  }
  const int position = context_.blocks.PositionOf(insert.block);
  if (block_ == nullptr && position < 0) {
    waiting_.push_back({drawing_, color_, false, cad::Origin::kUser, std::move(insert)});
    return;
  }
  if (block_ == nullptr) insert.block = position;
  Put(std::move(insert));
}

void EntityReader::AddWaiting() {
  block_ = nullptr;
  for (cad::Entity& entity : waiting_) {
    auto& insert = std::get<cad::InsertShape>(entity.shape);
    insert.block = context_.blocks.PositionOf(insert.block);
    drawing_ = entity.drawing;
    color_ = entity.color;
    if (insert.block < 0) {
      context_.notes.Count(Note::kUnknownBlock);
    } else {
      Put(std::move(entity.shape));
    }
  }
  waiting_.clear();
}

}  // namespace dxf_reader
