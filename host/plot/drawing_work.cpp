#include <cmath>
#include <numbers>

#include "host/plot/line_work.h"

namespace plot {
namespace {

using cad::Point;

constexpr double kRadians = std::numbers::pi / 180;  // of a degree
constexpr double kDegreesOfAChord = 6;
constexpr int kDeepest = 16;  // inserts in blocks in blocks

// From a block's own coordinates to those of the drawing.
struct Placement {
  double xx = 1, xy = 0, yx = 0, yy = 1, x = 0, y = 0;

  Place At(const Place& p) const { return {xx * p.x + xy * p.y + x, yx * p.x + yy * p.y + y}; }
  double Scale() const { return std::sqrt(std::abs(xx * yy - xy * yx)); }
  double Turn() const { return std::atan2(yx, xx) / kRadians; }
};

Placement Within(const Placement& outer, const cad::InsertShape& insert, const Point& base) {
  const double c = std::cos(insert.rotation * kRadians);
  const double s = std::sin(insert.rotation * kRadians);
  const double sx = insert.scale.getX();
  const double sy = insert.scale.getY();
  Placement inner{c * sx, -s * sy, s * sx, c * sy, 0, 0};
  const Place moved = inner.At({base.getX(), base.getY()});
  inner.x = insert.at.getX() - moved.x;
  inner.y = insert.at.getY() - moved.y;
  const Place origin = outer.At({inner.x, inner.y});
  return {outer.xx * inner.xx + outer.xy * inner.yx,
          outer.xx * inner.xy + outer.xy * inner.yy,
          outer.yx * inner.xx + outer.yy * inner.yx,
          outer.yx * inner.xy + outer.yy * inner.yy,
          origin.x,
          origin.y};
}

Place PlaceOf(const Point& point) { return {point.getX(), point.getY()}; }

class Flattener {
 public:
  Flattener(const CTcadEng& engine, std::vector<LineWork>& layers)
      : engine_(engine), layers_(layers) {}

  void Add(const cad::Entity& entity, const Placement& placement, int insertedOn,
           std::uint16_t insertedIn, int depth) {
    // What lies on the first drawing within a block goes where the block is inserted.
    const int drawing = depth > 0 && entity.drawing == 1 ? insertedOn : entity.drawing;
    if (drawing < 1 || static_cast<std::size_t>(drawing) >= layers_.size()) return;
    const std::uint16_t color = ColorOf(entity, drawing, insertedIn);
    if (const auto* const insert = std::get_if<cad::InsertShape>(&entity.shape)) {
      AddInsert(*insert, placement, drawing, color, depth);
      return;
    }
    into_ = &layers_[static_cast<std::size_t>(drawing)];
    placement_ = &placement;
    into_->colours.push_back(RgbOf(color));
    std::visit([this](const auto& shape) { AddShape(shape); }, entity.shape);
  }

 private:
  std::uint16_t ColorOf(const cad::Entity& entity, int drawing, std::uint16_t insertedIn) const {
    if (entity.color == cad::kByBlock) return insertedIn;
    if (entity.color != cad::kByLayer) return entity.color;
    bool byLayer = true;
    unsigned color = 7;
    engine_.GetDrawingColor(drawing, byLayer, color);
    return static_cast<std::uint16_t>(color);
  }

  void AddInsert(const cad::InsertShape& insert, const Placement& placement, int drawing,
                 std::uint16_t color, int depth) {
    const auto& blocks = engine_.Blocks();
    if (depth >= kDeepest || insert.block < 0 ||
        static_cast<std::size_t>(insert.block) >= blocks.size()) {
      return;
    }
    const cad::Block& block = blocks[static_cast<std::size_t>(insert.block)];
    const Placement inner = Within(placement, insert, block.base);
    for (const cad::Entity& entity : block.entities) {
      Add(entity, inner, drawing, color, depth + 1);
    }
    AddAttributes(insert, block, inner, drawing, color);
  }

  void AddAttributes(const cad::InsertShape& insert, const cad::Block& block,
                     const Placement& inner, int drawing, std::uint16_t color) {
    LineWork& layer = layers_[static_cast<std::size_t>(drawing)];
    for (const cad::Attribute& attribute : insert.attributes) {
      for (const cad::AttributeDefinition& definition : block.attributes) {
        if (definition.tag != attribute.tag || attribute.text.empty()) continue;
        layer.colours.push_back(RgbOf(color));
        layer.texts.push_back({inner.At(PlaceOf(definition.at)), definition.height * inner.Scale(),
                               inner.Turn(), SourceOf(layer), attribute.text});
      }
    }
  }

  static std::uint32_t SourceOf(const LineWork& layer) {
    return static_cast<std::uint32_t>(layer.colours.size() - 1);
  }
  void Line(const Place& from, const Place& to) {
    into_->legs.push_back({placement_->At(from), placement_->At(to), SourceOf(*into_)});
  }
  void Outline(const std::vector<Point>& points) {
    for (std::size_t i = 0; i < points.size(); ++i) {
      Line(PlaceOf(points[i]), PlaceOf(points[(i + 1) % points.size()]));
    }
  }
  // `at`: the place for a parameter, which runs from start to end, degrees.
  template <class At>
  void Curve(double start, double end, const At& at) {
    double sweep = std::fmod(end - start, 360.0);
    if (sweep <= 0) sweep += 360;
    const int chords = static_cast<int>(std::ceil(sweep / kDegreesOfAChord));
    Place from = at(start * kRadians);
    for (int i = 1; i <= chords; ++i) {
      const Place to = at((start + sweep * i / chords) * kRadians);
      Line(from, to);
      from = to;
    }
  }
  void Arc(const Place& center, double radius, double start, double end) {
    Curve(start, end, [&](double angle) {
      return Place{center.x + radius * std::cos(angle), center.y + radius * std::sin(angle)};
    });
  }
  // The centre lies beside the middle of the chord; the arc turns left where the bulge is positive.
  void Bulge(const Place& from, const Place& to, double bulge) {
    const double dx = to.x - from.x;
    const double dy = to.y - from.y;
    const double beside = (1 / bulge - bulge) / 4;
    const Place center{from.x + dx / 2 - dy * beside, from.y + dy / 2 + dx * beside};
    const double radius = Distance(center, from);
    double start = std::atan2(from.y - center.y, from.x - center.x) / kRadians;
    double end = std::atan2(to.y - center.y, to.x - center.x) / kRadians;
    if (bulge < 0) std::swap(start, end);
    if (std::isfinite(radius)) Arc(center, radius, start, end);
  }

  void AddShape(const cad::PointShape& it) { Line(PlaceOf(it.at), PlaceOf(it.at)); }
  void AddShape(const cad::LineShape& it) { Line(PlaceOf(it.from), PlaceOf(it.to)); }
  void AddShape(const cad::PolylineShape& it) {
    const std::size_t count = it.points.size();
    for (std::size_t i = 0; i + (it.isClosed ? 0 : 1) < count; ++i) {
      const Place from = PlaceOf(it.points[i]);
      const Place to = PlaceOf(it.points[(i + 1) % count]);
      const double bulge = i < it.bulges.size() ? it.bulges[i] : 0;
      if (bulge != 0 && from != to) {
        Bulge(from, to, bulge);
      } else {
        Line(from, to);
      }
    }
  }
  void AddShape(const cad::CircleShape& it) { Arc(PlaceOf(it.center), it.radius, 0, 360); }
  void AddShape(const cad::ArcShape& it) { Arc(PlaceOf(it.center), it.radius, it.start, it.end); }
  void AddShape(const cad::EllipseShape& it) {
    const Place major = PlaceOf(it.major);
    Curve(it.start, it.end, [&](double t) {
      const double along = std::cos(t);
      const double across = it.ratio * std::sin(t);
      return Place{it.center.getX() + along * major.x - across * major.y,
                   it.center.getY() + along * major.y + across * major.x};
    });
  }
  void AddShape(const cad::TextShape& it) {
    into_->texts.push_back({placement_->At(PlaceOf(it.at)), it.height * placement_->Scale(),
                            it.rotation + placement_->Turn(), SourceOf(*into_), it.text});
  }
  void AddShape(const cad::InsertShape&) {}
  void AddShape(const cad::FaceShape& it) { Outline(it.points); }
  void AddShape(const cad::SolidShape& it) { Outline(it.points); }

  const CTcadEng& engine_;
  std::vector<LineWork>& layers_;
  LineWork* into_ = nullptr;
  const Placement* placement_ = nullptr;
};

}  // namespace

std::vector<LineWork> DrawingsOf(const CTcadEng& engine) {
  std::vector<LineWork> layers(static_cast<std::size_t>(engine.GetNoDrawings()) + 1);
  Flattener flattener(engine, layers);
  for (const cad::Entity& entity : engine.Entities()) {
    if (entity.origin != cad::Origin::kUser || entity.isPrivate) continue;
    flattener.Add(entity, Placement{}, entity.drawing, 7, 0);
  }
  for (std::size_t id = 1; id < layers.size(); ++id) {
    LineWork& layer = layers[id];
    layer.position = static_cast<int>(id);
    layer.name = engine.GetDrawingName(layer.position).ToUtf8();
    layer.isVisible = engine.IsDrawingVisible(layer.position);
    layer.count = layer.colours.size();
  }
  std::erase_if(layers, [](const LineWork& layer) { return layer.colours.empty(); });
  return layers;
}

}  // namespace plot
