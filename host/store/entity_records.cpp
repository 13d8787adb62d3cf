// Entities of a drawing: from shapes to records and back.
#include "host/store/drawing_records.h"

#include <algorithm>
#include <utility>

namespace {

using R = EntityRecord;

// The ways between the fields of a record and the members of each kind of shape.
template <class Shape>
struct Ties;
template <>
struct Ties<cad::PointShape> {
  using S = cad::PointShape;
  static constexpr auto kAll = std::make_tuple(std::pair{&R::at, &S::at});
};
template <>
struct Ties<cad::LineShape> {
  using S = cad::LineShape;
  static constexpr auto kAll =
      std::make_tuple(std::pair{&R::from, &S::from}, std::pair{&R::to, &S::to});
};
template <>
struct Ties<cad::PolylineShape> {
  using S = cad::PolylineShape;
  static constexpr auto kAll =
      std::make_tuple(std::pair{&R::closed, &S::isClosed}, std::pair{&R::points, &S::points},
                      std::pair{&R::bulges, &S::bulges});
};
template <>
struct Ties<cad::CircleShape> {
  using S = cad::CircleShape;
  static constexpr auto kAll =
      std::make_tuple(std::pair{&R::center, &S::center}, std::pair{&R::radius, &S::radius});
};
template <>
struct Ties<cad::ArcShape> {
  using S = cad::ArcShape;
  static constexpr auto kAll =
      std::make_tuple(std::pair{&R::center, &S::center}, std::pair{&R::radius, &S::radius},
                      std::pair{&R::start, &S::start}, std::pair{&R::end, &S::end});
};
template <>
struct Ties<cad::EllipseShape> {
  using S = cad::EllipseShape;
  static constexpr auto kAll =
      std::make_tuple(std::pair{&R::center, &S::center}, std::pair{&R::major, &S::major},
                      std::pair{&R::ratio, &S::ratio}, std::pair{&R::start, &S::start},
                      std::pair{&R::end, &S::end});
};
template <>
struct Ties<cad::TextShape> {
  using S = cad::TextShape;
  static constexpr auto kAll =
      std::make_tuple(std::pair{&R::at, &S::at}, std::pair{&R::height, &S::height},
                      std::pair{&R::rotation, &S::rotation}, std::pair{&R::text, &S::text});
};
template <>
struct Ties<cad::InsertShape> {
  using S = cad::InsertShape;
  static constexpr auto kAll = std::make_tuple(
      std::pair{&R::at, &S::at}, std::pair{&R::scale, &S::scale},
      std::pair{&R::rotation, &S::rotation}, std::pair{&R::attributes, &S::attributes});
};
template <>
struct Ties<cad::FaceShape> {
  static constexpr auto kAll = std::make_tuple(std::pair{&R::points, &cad::FaceShape::points});
};
template <>
struct Ties<cad::SolidShape> {
  static constexpr auto kAll = std::make_tuple(std::pair{&R::points, &cad::SolidShape::points});
};

template <class Same>
void Copy(const Same& from, Same& to) {
  to = from;
}
void Copy(const SpaceRecord& from, cad::Point& to) { to = PointOf(from); }
void Copy(const cad::Point& from, SpaceRecord& to) { to = Parts(from); }

template <class Shape>
cad::Shape Made(const EntityRecord& record) {
  Shape shape;
  std::apply([&](const auto&... tie) { (Copy(record.*tie.first, shape.*tie.second), ...); },
             Ties<Shape>::kAll);
  return shape;
}

struct Kind {
  std::string_view type;
  std::array<std::string_view, 5> keys;  // unused ones are empty
  cad::Shape (*make)(const EntityRecord& record);
};
// In the order of the alternatives of a shape.
constexpr std::array<Kind, std::variant_size_v<cad::Shape>> kKinds = {
    {{"point", {"at"}, Made<cad::PointShape>},
     {"line", {"from", "to"}, Made<cad::LineShape>},
     {"polyline", {"closed"}, Made<cad::PolylineShape>},
     {"circle", {"center", "radius"}, Made<cad::CircleShape>},
     {"arc", {"center", "radius", "start", "end"}, Made<cad::ArcShape>},
     {"ellipse", {"center", "major", "ratio", "start", "end"}, Made<cad::EllipseShape>},
     {"text", {"at", "height", "rotation", "text"}, Made<cad::TextShape>},
     {"insert", {"block", "at", "scale", "rotation"}, Made<cad::InsertShape>},
     {"face", {}, Made<cad::FaceShape>},
     {"solid", {}, Made<cad::SolidShape>}}};
constexpr std::array<std::string_view, 3> kKeysOfAll = {"type", "layer", "color"};

const Kind* KindOf(std::string_view type) {
  const auto* const kind =
      std::find_if(kKinds.begin(), kKinds.end(), [&](const Kind& it) { return it.type == type; });
  return kind == kKinds.end() ? nullptr : &*kind;
}

template <class List>
bool Holds(const List& list, std::string_view key) {
  return std::find(list.begin(), list.end(), key) != list.end();
}

// A record of which no number is defined.
EntityRecord MadeBlank() {
  EntityRecord record;
  ForEachField<EntityRecord>([&](const auto& field) {
    using Value = std::remove_cvref_t<decltype(record.*field.member)>;
    if constexpr (std::is_same_v<Value, double>) record.*field.member = UndefinedValue;
    if constexpr (std::is_same_v<Value, SpaceRecord>) (record.*field.member).fill(UndefinedValue);
  });
  return record;
}

bool HasStraightEdges(const EntityRecord& record) {
  return std::all_of(record.bulges.begin(), record.bulges.end(), [](double b) { return b == 0; });
}

std::string KnownTypes() {
  std::string types;
  for (const Kind& kind : kKinds) {
    if (!types.empty()) types += &kind == &kKinds.back() ? " or " : ", ";
    types.append(1, '"').append(kind.type).append(1, '"');
  }
  return types;
}

bool HasFewPoints(std::string_view type) { return type == "face" || type == "solid"; }

bool HasRightPoints(const EntityRecord& record) {
  return !HasFewPoints(record.type) || record.points.size() == 3 || record.points.size() == 4;
}

bool HasRightBulges(const EntityRecord& record) {
  return record.bulges.empty() || record.bulges.size() == record.points.size();
}

}  // namespace

void EntityRecord::Reset() {
  EntityRecord fresh;
  fresh.points.swap(points);
  fresh.bulges.swap(bulges);
  fresh.attributes.swap(attributes);
  *this = std::move(fresh);
  points.clear();
  bulges.clear();
  attributes.clear();
}

bool EntityHas(std::string_view type, std::string_view key) {
  const Kind* const kind = KindOf(type);
  return Holds(kKeysOfAll, key) || (kind != nullptr && Holds(kind->keys, key));
}

EntityRecord RecordOf(const cad::Shape& shape) {
  static const EntityRecord kBlank = MadeBlank();
  EntityRecord record = kBlank;
  record.type = kKinds[shape.index()].type;
  std::visit(
      [&](const auto& one) {
        std::apply([&](const auto&... tie) { (Copy(one.*tie.second, record.*tie.first), ...); },
                   Ties<std::decay_t<decltype(one)>>::kAll);
      },
      shape);
  if (HasStraightEdges(record)) record.bulges.clear();
  if (!record.bulges.empty()) record.bulges.resize(record.points.size());
  return record;
}

std::optional<EntityTrouble> MakeShape(const EntityRecord& record, cad::Shape& shape) {
  const Kind* const kind = KindOf(record.type);
  if (kind == nullptr) return EntityTrouble{"type", KnownTypes()};
  if (!HasRightPoints(record)) return EntityTrouble{"points", "three or four points"};
  if (!HasRightBulges(record)) return EntityTrouble{"bulges", "as many as there are points"};
  shape = kind->make(record);
  auto* const line = std::get_if<cad::PolylineShape>(&shape);
  if (line != nullptr && HasStraightEdges(record)) line->bulges.clear();
  return std::nullopt;
}
