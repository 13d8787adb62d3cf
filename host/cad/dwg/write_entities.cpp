#include "host/cad/dwg/write_entities.h"

#include <algorithm>
#include <iterator>

#include "host/cad/writing/soundness.h"
#include "services/progress.h"

namespace dwg {
namespace {

using cad_writer::kRadiansPerDegree;

constexpr std::uint16_t kClosed = 1;
constexpr std::uint8_t kVertexInSpace = 32;

bool IsLevel(const std::vector<cad::Point>& points) {
  return std::all_of(points.begin(), points.end(), [&](const cad::Point& point) {
    return point.getZ() == points.front().getZ();
  });
}

VertexChain ChainOf(Handle polyline, std::size_t vertices) {
  return {polyline + 1, polyline + vertices, polyline + vertices + 1};
}

}  // namespace

EntityWriter::EntityWriter(RecordWriter& records, const FilePlan& plan)
    : records_(records),
      plan_(plan),
      next_(plan.FirstEntity()),
      inserts_(plan.Engine().Blocks().size()) {}

// ---- Chains ----

EntityChain EntityWriter::WriteModel() {
  chain_ = {};
  head_ = {};
  WriteEntities(plan_.Engine().Entities(), cad_writer::kInNoBlock);
  return chain_;
}

EntityChain EntityWriter::WriteBlock(int position) {
  const cad::Block& block = plan_.Engine().Blocks()[static_cast<std::size_t>(position)];
  chain_ = {};
  head_ = {};
  head_.space = Space::kOwner;
  head_.owner = plan_.HandlesOf(plan_.BlockAt(position)).record;
  std::vector<const cad::AttributeDefinition*> definitions;
  for (const auto& each : block.attributes) {
    if (cad_writer::IsSound(each)) definitions.push_back(&each);
  }
  const bool hasEntities = NextWritten(block.entities, 0, position) < block.entities.size();
  for (const cad::AttributeDefinition* const each : definitions) {
    WriteDefinition(*each, each == definitions.back() && !hasEntities);
  }
  WriteEntities(block.entities, position);
  return chain_;
}

std::size_t EntityWriter::NextWritten(const std::vector<cad::Entity>& entities, std::size_t from,
                                      int block) const {
  while (from < entities.size() && !plan_.TakesAll() &&
         plan_.FateOf(entities[from], block) != cad_writer::Fate::kWritten) {
    ++from;
  }
  return from;
}

void EntityWriter::WriteEntities(const std::vector<cad::Entity>& entities, int block) {
  ProgressSteps progress(entities.size());
  for (std::size_t i = NextWritten(entities, 0, block); i < entities.size();) {
    progress.Step();
    const cad::Entity& entity = entities[i];
    i = NextWritten(entities, i + 1, block);
    head_.layer = plan_.LayerHandle(plan_.LayerPosition(entity.drawing));
    head_.color = std::min(entity.color, cad::kByLayer);
    BeginEntity(RecordsOf(entity.shape), i == entities.size());
    std::visit(*this, entity.shape);
  }
}

void EntityWriter::BeginEntity(Handle records, bool isLast) {
  own_ = next_;
  next_ += records;
  head_.previous = chain_.last;
  head_.next = isLast ? 0 : next_;
  head_.hasNeighbours = head_.previous + 1 != own_ || head_.next != own_ + 1;
  if (chain_.first == 0) chain_.first = own_;
  chain_.last = own_;
}

bool EntityWriter::IsLight(const cad::PolylineShape& polyline) const {
  return plan_.FileVersion() == Version::k2000 && cad_writer::IsFlat(polyline);
}

Handle EntityWriter::RecordsOf(const cad::Shape& shape) const {
  if (const auto* const polyline = std::get_if<cad::PolylineShape>(&shape)) {
    return IsLight(*polyline) ? 1 : 2 + polyline->points.size();
  }
  const auto* const insert = std::get_if<cad::InsertShape>(&shape);
  return insert == nullptr || insert->attributes.empty() ? 1 : 2 + insert->attributes.size();
}

EntityHead EntityWriter::PartHead(std::size_t part, std::size_t parts) const {
  EntityHead head = head_;
  head.space = Space::kOwner;
  head.owner = own_;
  const Handle handle = own_ + 1 + part;
  head.previous = part == 0 ? 0 : handle - 1;
  head.next = part + 1 >= parts ? 0 : handle + 1;
  head.hasNeighbours = head.previous == 0 || head.next == 0;
  return head;
}

void EntityWriter::EndParts(std::size_t parts) {
  EntityHead head = PartHead(0, 1);
  EndRecord end;
  records_.Entity(kSequenceEnd, own_ + 1 + parts, head, end);
}

// ---- Shapes ----

void EntityWriter::operator()(const cad::PointShape& point) {
  PointRecord record;
  record.at = point.at;
  Put(kPoint, record);
}

void EntityWriter::operator()(const cad::LineShape& line) {
  LineRecord record;
  record.from = line.from;
  record.to = line.to;
  Put(kLine, record);
}

void EntityWriter::operator()(const cad::CircleShape& circle) {
  CircleRecord record;
  record.center = circle.center;
  record.radius = circle.radius;
  Put(kCircle, record);
}

void EntityWriter::operator()(const cad::ArcShape& arc) {
  ArcRecord record;
  record.circle.center = arc.center;
  record.circle.radius = arc.radius;
  record.start = arc.start * kRadiansPerDegree;
  record.end = arc.end * kRadiansPerDegree;
  Put(kArc, record);
}

void EntityWriter::operator()(const cad::EllipseShape& ellipse) {
  EllipseRecord record;
  record.center = ellipse.center;
  record.major = {ellipse.major.getX(), ellipse.major.getY(), 0};
  record.ratio = ellipse.ratio;
  record.start = ellipse.start * kRadiansPerDegree;
  record.end = ellipse.end * kRadiansPerDegree;
  Put(kEllipse, record);
}

// One of three corners has its last one twice.
void EntityWriter::operator()(const cad::FaceShape& face) {
  Put(kFace, FaceRecord{{face.points[0], face.points[1], face.points[2], face.points.back()}});
}

// The last two of four corners stand in the order of a Z. A filled area has one elevation: one that
// has more becomes a face, so that no height is lost.
void EntityWriter::operator()(const cad::SolidShape& solid) {
  if (!IsLevel(solid.points)) {
    (*this)(cad::FaceShape{solid.points});
    return;
  }
  SolidRecord record;
  record.elevation = solid.points[0].getZ();
  const cad::Point* const corners[] = {&solid.points[0], &solid.points[1], &solid.points.back(),
                                       &solid.points[2]};
  for (std::size_t i = 0; i < std::size(corners); ++i) record.corners[i] = *corners[i];
  Put(kSolid, record);
}

// ---- Polylines ----

void EntityWriter::operator()(const cad::PolylineShape& polyline) {
  if (IsLight(polyline)) {
    WriteLightPolyline(polyline);
  } else if (cad_writer::IsFlat(polyline)) {
    WriteFlatPolyline(polyline);
  } else {
    WriteSpacePolyline(polyline);
  }
}

void EntityWriter::WriteLightPolyline(const cad::PolylineShape& polyline) {
  LightPolylineRecord record;
  record.isClosed = polyline.isClosed;
  record.elevation = polyline.points.front().getZ();
  record.points.assign(polyline.points.begin(), polyline.points.end());
  record.bulges = polyline.bulges;
  if (!record.bulges.empty()) record.bulges.resize(record.points.size());
  Put(kLightPolyline, record);
}

void EntityWriter::WriteFlatPolyline(const cad::PolylineShape& polyline) {
  const std::size_t count = polyline.points.size();
  FlatPolylineRecord record;
  record.flags = polyline.isClosed ? kClosed : 0;
  record.elevation = polyline.points.front().getZ();
  record.vertices = ChainOf(own_, count);
  Put(kFlatPolyline, record);
  for (std::size_t i = 0; i < count; ++i) {
    EntityHead head = PartHead(i, count);
    FlatVertexRecord vertex{0, polyline.points[i], cad_writer::BulgeAt(polyline, i)};
    records_.Entity(kFlatVertex, own_ + 1 + i, head, vertex);
  }
  EndParts(count);
}

void EntityWriter::WriteSpacePolyline(const cad::PolylineShape& polyline) {
  const std::size_t count = polyline.points.size();
  SpacePolylineRecord record;
  record.flags = polyline.isClosed ? kClosed : 0;
  record.vertices = ChainOf(own_, count);
  Put(kSpacePolyline, record);
  for (std::size_t i = 0; i < count; ++i) {
    EntityHead head = PartHead(i, count);
    SpaceVertexRecord vertex{kVertexInSpace, polyline.points[i]};
    records_.Entity(kSpaceVertex, own_ + 1 + i, head, vertex);
  }
  EndParts(count);
}

}  // namespace dwg
