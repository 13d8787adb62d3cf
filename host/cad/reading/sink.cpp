#include "host/cad/reading/sink.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace cad_reader {
namespace {

constexpr double kLineDistance = 5.0 / 3;  // of the text's height
// How many inserts the arrays of a file may make: a few bytes may ask for a billion of them.
constexpr std::int64_t kMostCopies = 100'000;

// How a text's place is meant.
constexpr int kLeft = 0;
constexpr int kAligned = 3;
constexpr int kFitted = 5;

bool IsZero(const cad::Point& p) { return p.getX() == 0 && p.getY() == 0 && p.getZ() == 0; }

// The file says where the top, the middle or the bottom of all lines is.
cad::Point FirstLinePlace(const LinesNumbers& it) {
  const auto lines = static_cast<double>(std::count(it.text.begin(), it.text.end(), '\n'));
  const double below = lines * kLineDistance * it.spacing * it.height;
  const int row = (std::clamp(it.attachment, 1, 9) - 1) / 3;  // top, middle, bottom
  const double up = row == 0 ? -it.height : row == 1 ? (below - it.height) / 2 : below;
  return {it.at.getX() - up * std::sin(Radians(it.direction)),
          it.at.getY() + up * std::cos(Radians(it.direction)), it.at.getZ()};
}

}  // namespace

void EntitySink::Put(cad::Shape&& shape) {
  if (!IsFinite(shape)) {
    notes_.Count(Note::kNoShape);
    return;
  }
  cad::Entity entity{drawing_, color_, false, cad::Origin::kUser, std::move(shape)};
  if (block_ != nullptr) {
    block_->entities.push_back(std::move(entity));
  } else {
    ++put_;
    engine_.Add(std::move(entity));
  }
}

// The third and the fourth point change places.
void EntitySink::PutSolid(std::vector<cad::Point> corners, const Plane& plane) {
  for (cad::Point& point : corners) point = plane.ToWorld(point);
  if (corners.size() == 4) std::swap(corners[2], corners[3]);
  Put(cad::SolidShape{std::move(corners)});
}

// ---- Texts ----

// Programs that cannot tell where a text begins leave that point out, or write zeros.
cad::Point TextNumbers::Place() const {
  const bool isAlong = across == kAligned || across == kFitted;
  const bool isAligned = (across != kLeft || up != 0) && !isAlong;
  const bool isFirst = hasFirst && !(isAligned && IsZero(first));
  return isFirst || !hasSecond ? first : second;
}

void EntitySink::PutText(cad::TextShape text, const Plane& plane) {
  if (plane.IsTilted()) notes_.Count(Note::kTiltedText);
  text.at = plane.ToWorld(text.at);
  text.rotation = plane.DirectionToWorld(text.rotation);
  Put(std::move(text));
}

void EntitySink::PutLines(LinesNumbers lines, const Plane& plane) {
  if (plane.IsTilted()) notes_.Count(Note::kTiltedText);
  const cad::Point at = FirstLinePlace(lines);
  Put(cad::TextShape{at, lines.height, lines.direction, std::move(lines.text)});
}

void EntitySink::PutDefinition(cad::AttributeDefinition definition, const Plane& plane) {
  definition.at = plane.ToWorld(definition.at);
  if (IsFinite(definition.at) && std::isfinite(definition.height)) {
    block_->attributes.push_back(std::move(definition));
  } else {
    notes_.Count(Note::kNoShape);
  }
}

void EntitySink::PutDefinition(cad::AttributeDefinition definition, cad::TextShape text, int flags,
                               const Plane& plane) {
  if (block_ == nullptr) {
    notes_.CountNotRead("ATTDEF");
  } else if ((flags & kAttributeConstant) == 0) {
    PutDefinition(std::move(definition), plane);
  } else if ((flags & kAttributeInvisible) == 0) {
    PutText(std::move(text), plane);
  }
}

// ---- Inserts ----

// In rows and columns; the attributes are those of the first.
void EntitySink::PutInsert(cad::InsertShape insert, const InsertArray& array, const Plane& plane) {
  std::int64_t columns = std::max(1, array.columns);
  std::int64_t rows = std::max(1, array.rows);
  if (columns * rows - 1 > kMostCopies - copies_) {
    notes_.Count(Note::kArray, static_cast<std::uint64_t>(columns * rows - 1));
    columns = rows = 1;
  }
  copies_ += columns * rows - 1;
  const double cos = std::cos(Radians(insert.rotation));
  const double sin = std::sin(Radians(insert.rotation));
  const cad::Point first = insert.at;
  for (std::int64_t i = 0; i < columns * rows; ++i) {
    const double x = array.columnWidth * static_cast<double>(i % columns);
    const double y = array.rowHeight * static_cast<double>(i / columns);
    if (i > 0) {
      insert.at = {first.getX() + x * cos - y * sin, first.getY() + x * sin + y * cos,
                   first.getZ()};
    }
    PutSingleInsert(insert, plane);
    insert.attributes.clear();
  }
}

// A mirrored plane turns the other way, and mirrors the block across its Y axis.
void EntitySink::PutSingleInsert(cad::InsertShape insert, const Plane& plane) {
  insert.at = plane.ToWorld(insert.at);
  if (plane.IsMirrored()) {
    insert.rotation = WithinTurn(-insert.rotation);
    insert.scale = {-insert.scale.getX(), insert.scale.getY(), -insert.scale.getZ()};
  } else {
    insert.rotation = plane.DirectionToWorld(insert.rotation);
  }
  const int position = blocks_.PositionOf(insert.block);
  if (block_ == nullptr && position < 0) {
    waiting_.push_back({drawing_, color_, false, cad::Origin::kUser, std::move(insert)});
    return;
  }
  if (block_ == nullptr) insert.block = position;
  Put(std::move(insert));
}

void EntitySink::AddWaiting() {
  block_ = nullptr;
  for (cad::Entity& entity : waiting_) {
    auto& insert = std::get<cad::InsertShape>(entity.shape);
    insert.block = blocks_.PositionOf(insert.block);
    SetLook(entity.drawing, entity.color);
    if (insert.block < 0) {
      notes_.Count(Note::kUnknownBlock);
    } else {
      Put(std::move(entity.shape));
    }
  }
  waiting_.clear();
}

}  // namespace cad_reader
