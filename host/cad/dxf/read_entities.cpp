#include "host/cad/dxf/read_entities.h"

#include <algorithm>
#include <cstdlib>

#include "services/progress.h"

namespace dxf_reader {
namespace {

constexpr int kPaperSpaceCode = 67;
constexpr std::uint64_t kBetweenProgress = 4096;  // entities
constexpr int kSample = 10'000;  // entities from which the number of all is guessed
constexpr std::string_view kEnds[] = {"ENDSEC", "ENDBLK", "EOF", "BLOCK", "SECTION"};
constexpr std::string_view kFollowers[] = {"VERTEX", "ATTRIB", "SEQEND"};

template <std::size_t size>
bool IsAmong(std::string_view name, const std::string_view (&names)[size]) {
  return std::find(std::begin(names), std::end(names), name) != std::end(names);
}

std::uint16_t ColorOf(const Fields& fields) {
  const int color = std::abs(fields.Whole(62, cad::kByLayer));
  return color <= cad::kByLayer ? static_cast<std::uint16_t>(color) : cad::kByLayer;
}

bool IsSame(const cad::Point& a, const cad::Point& b) {
  return a.getX() == b.getX() && a.getY() == b.getY() && a.getZ() == b.getZ();
}

}  // namespace

using E = EntityReader;
const EntityReader::Rule EntityReader::kRules[] = {
    {"TEXT", &E::TakeText},
    {"POINT", &E::TakePoint},
    {"LINE", &E::TakeLine},
    {"LWPOLYLINE", &E::TakeLightPolyline, &E::ReadLightPolyline},
    {"POLYLINE", &E::TakePolyline},
    {"INSERT", &E::TakeInsert},
    {"3DFACE", &E::TakeFace},
    {"ARC", &E::TakeArc},
    {"CIRCLE", &E::TakeCircle},
    {"MTEXT", &E::TakeLines, &E::ReadLines},
    {"SOLID", &E::TakeSolid},
    {"TRACE", &E::TakeSolid},
    {"ELLIPSE", &E::TakeEllipse},
    {"SPLINE", &E::TakeSpline, &E::ReadSpline},
    {"ATTDEF", &E::TakeAttributeDefinition},
    {"3DLINE", &E::TakeLine},
};

void EntityReader::ReadAll(cad::Block* block, bool isPaper) {
  block_ = block;
  isPaper_ = isPaper;
  sink_.Into(block);
  while (!IsAmong(pairs_.Text(), kEnds)) {
    ReadOne();
    if (++read_ % kBetweenProgress == 0) TellProgress(pairs_.BytesRead(), pairs_.FileSize());
  }
}

void EntityReader::ReadOne() {
  const std::string_view kind = pairs_.Text();
  const Rule* const rule = std::find_if(std::begin(kRules), std::end(kRules),
                                        [&](const Rule& each) { return each.name == kind; });
  if (rule == std::end(kRules)) {
    CountOther(kind);
    return;
  }
  looks_ = {};
  if (rule->read != nullptr) {
    (this->*rule->read)();
  } else {
    fields_.Read(pairs_);
  }
  if (IsLeftOut()) {
    SkipFollowers();
    return;
  }
  sink_.SetLook(context_.layers.IdOf(fields_.Layer()), ColorOf(fields_));
  looks_.Take(fields_.Looks());
  (this->*rule->take)();
  looks_.CountInto(context_.notes);
  if (!hasReserved_ && sink_.PutIntoEngine() >= kSample) ReserveRest();
}

void EntityReader::CountOther(std::string_view kind) {
  const std::string name(kind);
  if (SkipRecord() || isPaper_) {
    context_.notes.Count(Note::kPaperSpace);
  } else if (name != "SEQEND") {
    context_.notes.CountNotRead(name);
  }
}

bool EntityReader::IsLeftOut() {
  if (isPaper_ || (block_ == nullptr && fields_.Whole(kPaperSpaceCode) == 1)) {
    context_.notes.Count(Note::kPaperSpace);
    return true;
  }
  if (fields_.Whole(60) != 1) return false;
  context_.notes.Count(Note::kInvisible);
  return true;
}

bool EntityReader::SkipRecord() {
  bool isPaper = false;
  for (pairs_.Advance(); pairs_.Code() != 0; pairs_.Advance()) {
    if (pairs_.Code() == kPaperSpaceCode) isPaper = pairs_.Whole() == 1 && block_ == nullptr;
  }
  return isPaper;
}

void EntityReader::SkipFollowers() {
  while (IsAmong(pairs_.Text(), kFollowers)) SkipRecord();
}

// As many as there will be when the rest of the file is like what was read so far.
void EntityReader::ReserveRest() {
  constexpr double kSmallestEntity = 40;  // bytes
  const auto size = static_cast<double>(pairs_.FileSize());
  const double bytesEach =
      static_cast<double>(pairs_.BytesRead()) / static_cast<double>(sink_.PutIntoEngine());
  hasReserved_ = true;
  const double expected = size / std::max(bytesEach, kSmallestEntity);
  context_.engine.Reserve(context_.engine.Entities().size() + static_cast<std::size_t>(expected));
}

Plane EntityReader::PlaneOf() const {
  return fields_.HasExtrusion() ? Plane(fields_.Extrusion()) : Plane();
}

void EntityReader::TakePoint() { sink_.Put(cad::PointShape{fields_.PointAt(10)}); }

void EntityReader::TakeLine() {
  sink_.Put(cad::LineShape{fields_.PointAt(10), fields_.PointAt(11)});
}

// The fourth point of a triangle is the third once more, or not there.
std::vector<cad::Point> EntityReader::Corners() const {
  std::vector<cad::Point> points;
  for (int code = 10; code <= 12; ++code) points.push_back(fields_.PointAt(code));
  const cad::Point fourth = fields_.PointAt(13);
  if (fields_.Has(13) && !IsSame(fourth, points.back())) points.push_back(fourth);
  return points;
}

void EntityReader::TakeFace() { sink_.Put(cad::FaceShape{Corners()}); }

void EntityReader::TakeSolid() { sink_.PutSolid(Corners(), PlaneOf()); }

}  // namespace dxf_reader
