#include "host/gis/shp_writer.h"

#include <algorithm>
#include <memory>
#include <vector>

#include "host/gis/ring_order.h"
#include "services/progress.h"
#include "services/translate.h"

namespace shape {
namespace {

// No measure: anything below -1e38.
constexpr double kNoMeasure = -1e39;

std::uint64_t MostVertices(const gis::CTheme& theme) {
  std::uint64_t most = 0;
  for (int feature = 0; feature < theme.GetNumFeatures(); ++feature) {
    most = std::max<std::uint64_t>(most, theme.GetFeature(feature).Size());
  }
  return most;
}

// The vertices of one feature as the library takes them. Its memory is used again for the next.
class ShapeBuilder {
 public:
  ShapeBuilder(const gis::CTheme& theme, const ShpLayout& layout)
      : theme_(theme), layout_(layout) {}

  /// Good until the next.
  SHPObject& Of(int feature) {
    Clear();
    for (int part = 0; part < theme_.GetNumParts(feature); ++part) {
      AddPart(theme_.GetPart(feature, part));
    }
    const bool isSomewhere = isPlaced_ && !x_.empty();
    if (!isPlaced_) ++unplaced_;
    if (isSomewhere && IsPolygon()) TurnRings();
    return Object(isSomewhere);
  }

  SHPObject& Nowhere() { return Object(false); }

  void TellRemarks(Remarks& remarks) const {
    RemarkCount(remarks, ToXlate("features without coordinates, written as null shapes: {1}"),
                unplaced_);
    RemarkCount(remarks, ToXlate("vertices without a height, written with height 0: {1}"),
                heightless_);
    RemarkCount(remarks, ToXlate("rings that were open, now closed: {1}"), openRings_);
    RemarkCount(remarks,
                ToXlate("lines of one vertex and rings of fewer than three corners, which other "
                        "programs may refuse: {1}"),
                shortParts_);
  }

 private:
  bool IsPolygon() const { return layout_.kind.entity == gis::EntityType::kPolygon; }

  void Clear() {
    for (auto* list : {&x_, &y_, &z_, &m_}) list->clear();
    starts_.clear();
    isPlaced_ = true;
  }

  void AddPart(const gis::VertexRange& part) {
    if (part.Size() == 0) return;
    starts_.push_back(static_cast<int>(x_.size()));
    for (std::size_t v = part.first; v < part.last; ++v) AddVertex(theme_.GetVertex(v));
    const bool isClosed = IsPolygon() && IsClosed(part);
    if (part.Size() < LeastVertices() + (isClosed ? 1 : 0)) ++shortParts_;
    if (!IsPolygon() || isClosed) return;
    AddVertex(theme_.GetVertex(part.first));
    ++openRings_;
  }

  // Of a line, or corners of a ring.
  std::size_t LeastVertices() const {
    if (IsPolygon()) return 3;
    return layout_.kind.entity == gis::EntityType::kLine ? 2 : 1;
  }

  bool IsClosed(const gis::VertexRange& part) const {
    const gis::Vertex first = theme_.GetVertex(part.first);
    const gis::Vertex last = theme_.GetVertex(part.last - 1);
    return first.x == last.x && first.y == last.y && first.z == last.z;
  }

  void AddVertex(const gis::Vertex& vertex) {
    isPlaced_ = isPlaced_ && IsDefined(vertex.x) && IsDefined(vertex.y);
    x_.push_back(vertex.x);
    y_.push_back(vertex.y);
    if (layout_.kind.hasHeights) {
      if (!IsDefined(vertex.z)) ++heightless_;
      z_.push_back(IsDefined(vertex.z) ? vertex.z : 0);
    }
    if (layout_.writesMeasures) m_.push_back(IsDefined(vertex.m) ? vertex.m : kNoMeasure);
  }

  Ring RingAt(std::size_t part) const {
    const auto first = static_cast<std::size_t>(starts_[part]);
    const std::size_t last =
        part + 1 < starts_.size() ? static_cast<std::size_t>(starts_[part + 1]) : x_.size();
    return {std::span(x_).subspan(first, last - first), std::span(y_).subspan(first, last - first)};
  }

  void TurnRings() {
    rings_.clear();
    for (std::size_t part = 0; part < starts_.size(); ++part) rings_.push_back(RingAt(part));
    const std::vector<bool> areHoles = AreHoles(rings_);
    for (std::size_t part = 0; part < rings_.size(); ++part) {
      const double area = TwiceArea(rings_[part]);
      if (area == 0 || (area > 0) == areHoles[part]) continue;
      Turn(static_cast<std::size_t>(starts_[part]), rings_[part].x.size());
    }
  }

  void Turn(std::size_t first, std::size_t size) {
    for (auto* list : {&x_, &y_, &z_, &m_}) {
      if (list->empty()) continue;
      std::reverse(list->begin() + static_cast<std::ptrdiff_t>(first),
                   list->begin() + static_cast<std::ptrdiff_t>(first + size));
    }
  }

  SHPObject& Object(bool isSomewhere) {
    object_ = {};
    object_.nShapeId = -1;
    object_.nSHPType = isSomewhere ? layout_.kind.type : SHPT_NULL;
    if (!isSomewhere) return object_;
    const bool hasParts = layout_.kind.entity != gis::EntityType::kPoint;
    object_.nParts = hasParts ? static_cast<int>(starts_.size()) : 0;
    kinds_.assign(starts_.size(), SHPP_RING);
    object_.panPartStart = starts_.data();
    object_.panPartType = kinds_.data();
    object_.nVertices = static_cast<int>(x_.size());
    object_.padfX = x_.data();
    object_.padfY = y_.data();
    // The library looks for both where a file may have them.
    z_.resize(x_.size());
    object_.bMeasureIsUsed = layout_.writesMeasures ? 1 : 0;
    m_.resize(x_.size());
    object_.padfZ = z_.data();
    object_.padfM = m_.data();
    SHPComputeExtents(&object_);
    return object_;
  }

  const gis::CTheme& theme_;
  const ShpLayout& layout_;
  std::vector<double> x_;
  std::vector<double> y_;
  std::vector<double> z_;
  std::vector<double> m_;
  std::vector<int> starts_;
  std::vector<int> kinds_;
  std::vector<Ring> rings_;
  SHPObject object_{};
  bool isPlaced_ = true;
  std::uint64_t unplaced_ = 0;
  std::uint64_t heightless_ = 0;
  std::uint64_t openRings_ = 0;
  std::uint64_t shortParts_ = 0;
};

bool WriteShapes(SHPHandle file, const gis::CTheme& theme, int nullShapes, const ShpLayout& layout,
                 Remarks& remarks) {
  ShapeBuilder shapes(theme, layout);
  ProgressSteps progress(static_cast<std::uint64_t>(theme.GetNumFeatures()));
  bool isGood = true;
  for (int feature = 0; feature < theme.GetNumFeatures() && isGood; ++feature) {
    progress.Step();
    isGood = SHPWriteObject(file, -1, &shapes.Of(feature)) >= 0;
  }
  for (int i = 0; i < nullShapes && isGood; ++i) {
    isGood = SHPWriteObject(file, -1, &shapes.Nowhere()) >= 0;
  }
  shapes.TellRemarks(remarks);
  return isGood;
}

}  // namespace

std::uint64_t ShpSize(const ShapeKind& kind, bool writesMeasures, std::uint64_t shapes,
                      std::uint64_t parts, std::uint64_t vertices) {
  constexpr std::uint64_t kFileHeader = 100;
  constexpr std::uint64_t kRecordHeader = 8;
  constexpr std::uint64_t kNumber = 8;
  const std::uint64_t numbers = 2 + std::uint64_t{kind.hasHeights} + std::uint64_t{writesMeasures};
  const bool isSingle = kind.entity == gis::EntityType::kPoint && !kind.isMany;
  // A type; of all but single points also the extents, two for each axis, and two counts.
  const std::uint64_t fixed = isSingle ? 4 : 4 + 2 * numbers * kNumber + 8;
  return kFileHeader + shapes * (kRecordHeader + fixed) + parts * 4 + vertices * numbers * kNumber;
}

ShpLayout LayOut(const gis::CTheme& theme, bool withHeights) {
  const bool isPoint = theme.GetType() == gis::EntityType::kPoint;
  ShpLayout layout;
  layout.mostVertices = MostVertices(theme);
  const bool isMany = isPoint && layout.mostVertices > 1;
  const int type = TypeOf(theme.GetType(), isMany, withHeights, theme.HasMeasures());
  layout.kind = *KindOf(type);
  // A point with a height has a measure in every file.
  layout.writesMeasures = theme.HasMeasures() || type == SHPT_POINTZ;
  const std::uint64_t parts = isPoint ? 0 : theme.GetNumAllParts();
  // A vertex more for each ring that has to be closed.
  const std::uint64_t vertices =
      theme.GetNumVertices() + (theme.GetType() == gis::EntityType::kPolygon ? parts : 0);
  layout.size = ShpSize(layout.kind, layout.writesMeasures,
                        static_cast<std::uint64_t>(theme.GetNumFeatures()), parts, vertices);
  return layout;
}

bool WriteShp(const gis::CTheme& theme, int nullShapes, const ShpLayout& layout, OutputStream& shp,
              OutputStream& shx, Remarks& remarks) {
  StreamSet streams;
  streams.Add("shp", shp);
  streams.Add("shx", shx);
  SAHooks hooks = streams.Hooks();
  const std::unique_ptr<SHPInfo, decltype(&SHPClose)> file(
      SHPCreateLL(StreamSet::Name("shp").c_str(), layout.kind.type, &hooks), &SHPClose);
  return file != nullptr && WriteShapes(file.get(), theme, nullShapes, layout, remarks);
}

}  // namespace shape
