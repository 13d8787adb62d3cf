#include "host/cad/field_book_blocks.h"

#include <algorithm>
#include <cmath>

#include "services/display/symbols.h"

namespace {

using cad::Point;

constexpr int kFirstDrawing = 1;

// From a block to an insert of it that has one scale in all directions.
class Placing {
 public:
  Placing(const cad::InsertShape& insert, const Point& base)
      : at_(insert.at),
        base_(base),
        scale_(insert.scale.getX()),
        degrees_(insert.rotation),
        cos_(std::cos(insert.rotation * kRadiansPerDegree)),
        sin_(std::sin(insert.rotation * kRadiansPerDegree)) {}

  double Length(double inBlock) const { return inBlock * scale_; }
  double Direction(double inBlock) const {
    const double degrees = std::fmod(inBlock + degrees_, 360.0);
    return degrees < 0 ? degrees + 360 : degrees;
  }
  Point Vector(const Point& inBlock) const {
    return {(inBlock.getX() * cos_ - inBlock.getY() * sin_) * scale_,
            (inBlock.getX() * sin_ + inBlock.getY() * cos_) * scale_, inBlock.getZ() * scale_};
  }
  Point Place(const Point& inBlock) const {
    const Point moved = Vector({inBlock.getX() - base_.getX(), inBlock.getY() - base_.getY(),
                                inBlock.getZ() - base_.getZ()});
    return {at_.getX() + moved.getX(), at_.getY() + moved.getY(), at_.getZ() + moved.getZ()};
  }

 private:
  static constexpr double kRadiansPerDegree = 3.14159265358979323846 / 180;

  Point at_;
  Point base_;
  double scale_;
  double degrees_;
  double cos_;
  double sin_;
};

// Puts a shape of a block where an insert shows it.
struct Placed {
  const Placing& placing;

  void Move(Point& point) const { point = placing.Place(point); }
  void MoveAll(std::vector<Point>& points) const {
    for (Point& point : points) Move(point);
  }
  void operator()(cad::PointShape& it) const { Move(it.at); }
  void operator()(cad::LineShape& it) const {
    Move(it.from);
    Move(it.to);
  }
  void operator()(cad::PolylineShape& it) const { MoveAll(it.points); }
  void operator()(cad::CircleShape& it) const {
    Move(it.center);
    it.radius = placing.Length(it.radius);
  }
  void operator()(cad::ArcShape& it) const {
    Move(it.center);
    it.radius = placing.Length(it.radius);
    const double sweep = it.end - it.start;
    it.start = placing.Direction(it.start);
    it.end = it.start + sweep;
  }
  void operator()(cad::EllipseShape& it) const {
    Move(it.center);
    it.major = placing.Vector(it.major);
  }
  void operator()(cad::TextShape& it) const {
    Move(it.at);
    it.height = placing.Length(it.height);
    it.rotation = placing.Direction(it.rotation);
  }
  void operator()(cad::InsertShape& it) const {
    Move(it.at);
    it.scale = {placing.Length(it.scale.getX()), placing.Length(it.scale.getY()),
                placing.Length(it.scale.getZ())};
    it.rotation = placing.Direction(it.rotation);
  }
  void operator()(cad::FaceShape& it) const { MoveAll(it.points); }
  void operator()(cad::SolidShape& it) const { MoveAll(it.points); }
};

// Null when the entity is none that is to be taken apart.
const cad::InsertShape* FieldBookInsert(const CTcadEng& engine, const cad::Entity& entity) {
  const auto* const insert = std::get_if<cad::InsertShape>(&entity.shape);
  if (insert == nullptr || insert->block < 0 ||
      static_cast<std::size_t>(insert->block) >= engine.Blocks().size()) {
    return nullptr;
  }
  const Point& scale = insert->scale;
  const bool isEven =
      scale.getX() > 0 && scale.getX() == scale.getY() && scale.getX() == scale.getZ();
  const cad::Block& block = engine.Blocks()[static_cast<std::size_t>(insert->block)];
  return isEven && display::IsFieldBookBlock(block.name) ? insert : nullptr;
}

// Those that the block does not place stand at the insert itself.
cad::TextShape TextOf(const cad::Attribute& attribute, const cad::Block& block,
                      const Placing& placing) {
  const auto& defined = block.attributes;
  const auto found = std::find_if(defined.begin(), defined.end(),
                                  [&](const auto& it) { return it.tag == attribute.tag; });
  const bool isPlaced = found != defined.end();
  cad::TextShape text{isPlaced ? found->at : block.base,
                      isPlaced ? found->height : cad::AttributeDefinition{}.height, 0,
                      attribute.text};
  Placed{placing}(text);
  return text;
}

void TakeApart(const CTcadEng& engine, const cad::Entity& entity, const cad::InsertShape& insert,
               std::vector<cad::Entity>& parts) {
  const cad::Block& block = engine.Blocks()[static_cast<std::size_t>(insert.block)];
  const Placing placing(insert, block.base);
  for (const cad::Entity& inBlock : block.entities) {
    cad::Entity part = inBlock;
    if (part.drawing == kFirstDrawing) part.drawing = entity.drawing;
    if (part.color == cad::kByBlock) part.color = entity.color;
    part.origin = entity.origin;
    std::visit(Placed{placing}, part.shape);
    parts.push_back(std::move(part));
  }
  for (const cad::Attribute& attribute : insert.attributes) {
    if (attribute.text.empty()) continue;
    parts.push_back({entity.drawing, entity.color, entity.isPrivate, entity.origin,
                     TextOf(attribute, block, placing)});
  }
}

}  // namespace

std::unique_ptr<CTcadEng> WithoutFieldBookBlocks(const CTcadEng& engine) {
  const auto isOne = [](const CTcadEng& of) {
    return [&of](const cad::Entity& entity) { return FieldBookInsert(of, entity) != nullptr; };
  };
  const auto& entities = engine.Entities();
  if (std::none_of(entities.begin(), entities.end(), isOne(engine))) return nullptr;
  auto copy = std::make_unique<CTcadEng>(0, nullptr, /*temporary=*/true);
  copy->CopiaDa(const_cast<CTcadEng*>(&engine), /*withPrivate=*/true);  // which it only reads
  std::vector<cad::Entity> parts;
  for (const cad::Entity& entity : copy->Entities()) {
    if (const auto* const insert = FieldBookInsert(*copy, entity)) {
      TakeApart(*copy, entity, *insert, parts);
    }
  }
  copy->RemoveIf(isOne(*copy));
  copy->Reserve(copy->Entities().size() + parts.size());
  for (cad::Entity& part : parts) copy->Add(std::move(part));
  return copy;
}
