#include "host/store/road_records.h"

#include <algorithm>
#include <span>

namespace {

using tdk::geom::PNT_2D;
using tdk::geom::VECTOR_2D;

constexpr std::string_view kLine = "line";
constexpr std::string_view kArc = "arc";
constexpr std::string_view kClothoid = "clothoid";
constexpr std::string_view kOther = "other";

struct ElementKind {
  std::string_view type;
  std::array<std::string_view, 8> fields;  // unused ones are empty
};
constexpr std::array<ElementKind, 4> kKinds = {
    {{kLine, {"type", "prog", "start", "end"}},
     {kArc, {"type", "prog", "start", "tangent", "radius", "angle", "ccw"}},
     {kClothoid, {"type", "prog", "start", "tangent", "length", "a", "entrance", "ccw"}},
     {kOther, {"type", "prog", "start", "end"}}}};

PlaceRecord Parts(const PNT_2D& place) { return {place.getX(), place.getY()}; }
PlaceRecord Parts(const VECTOR_2D& vector) { return {vector.getX(), vector.getY()}; }
PNT_2D PlaceOf(const PlaceRecord& parts) { return {parts[0], parts[1]}; }

void ReadStraight(const CPlaniElem& element, ElementRecord& record) {
  PNT_2D end;
  element.GetEndPnt(end);
  record.end = Parts(end);
}

void ReadArc(const CArcPlaniElem& arc, ElementRecord& record) {
  record.radius = arc.GetRadius(0);
  record.angle = arc.GetAngle();
}

void ReadClothoid(const CClotPlaniElem& clothoid, ElementRecord& record) {
  record.length = clothoid.GetLength();
  record.a = clothoid.GetClotoide().GetA();
  record.entrance = clothoid.IsEntrance();
}

}  // namespace

bool ElementHas(std::string_view type, std::string_view key) {
  const auto* const kind = std::find_if(kKinds.begin(), kKinds.end(),
                                        [&](const ElementKind& it) { return it.type == type; });
  return kind != kKinds.end() &&
         std::find(kind->fields.begin(), kind->fields.end(), key) != kind->fields.end();
}

RoadRecord RecordOf(const CRoad& road) {
  return {road.GetName().ToUtf8(), road.GetStartProg(), road.GetEndProg(), road.IsMarkedEmpty(),
          road.GetTargetDrawing()};
}

void Store(const RoadRecord& record, CRoad& road) {
  road.SetName(tdk::WString(std::string_view(record.name)));
  road.SetProgs(record.start, record.end);
  road.MarkEmpty(record.empty);
  road.SetTargetDrawing(record.targetDrawing);
}

ElementRecord RecordOf(const CPlaniElem& element) {
  ElementRecord record;
  record.prog = element.GetProg();
  record.start = Parts(element.GetStartPnt());
  record.tangent = Parts(element.GetStartTg());
  record.ccw = element.IsCcw();
  switch (element.GetType()) {
    case CPlaniElem::kArc:
      record.type = kArc;
      ReadArc(static_cast<const CArcPlaniElem&>(element), record);
      break;
    case CPlaniElem::kClothoid:
      record.type = kClothoid;
      ReadClothoid(static_cast<const CClotPlaniElem&>(element), record);
      break;
    default:
      record.type = element.GetType() == CPlaniElem::kStraight ? kLine : kOther;
      ReadStraight(element, record);
  }
  return record;
}

std::unique_ptr<CPlaniElem> MakeElement(const ElementRecord& record) {
  const PNT_2D start = PlaceOf(record.start);
  const VECTOR_2D tangent(record.tangent[0], record.tangent[1]);
  if (record.type == kLine) {
    return std::make_unique<CLinePlaniElem>(record.prog, start, PlaceOf(record.end));
  }
  if (record.type == kArc) {
    return std::make_unique<CArcPlaniElem>(record.prog, start, tangent, record.radius, record.angle,
                                           record.ccw);
  }
  if (record.type == kClothoid) {
    return std::make_unique<CClotPlaniElem>(record.prog, start, tangent, record.length, record.a,
                                            record.entrance, record.ccw);
  }
  if (record.type == kOther) {
    return std::make_unique<COtherPlaniElem>(record.prog, start, PlaceOf(record.end));
  }
  return nullptr;
}

SectionRecord RecordOf(const CProfile& section) {
  return {section.GetName().ToUtf8(), section.GetSectionProg()};
}

void Store(const SectionRecord& record, CProfile& section) {
  section.SetName(tdk::WString(std::string_view(record.name)));
  section.SetSectionProg(record.prog);
}

VertexRecord RecordOf(const TAltiVrt& vertex) {
  return {vertex.distance, vertex.height, vertex.isPrincipal};
}

TAltiVrt VertexOf(const VertexRecord& record, const std::optional<TRaccVert>& curve) {
  return {record.distance, record.height, record.principal, curve};
}
