#include "services/display/displays.h"
#include "services/progress.h"
#include "services/translate.h"

namespace {

// A drawing has no undefined heights.
cad::Point PlaceOf(const gis::CTheme& theme, std::size_t vertex) {
  const tdk::geom::PNT_3D point = theme.GetPoint(vertex);
  return {point.getX(), point.getY(), IsDefined(point.getZ()) ? point.getZ() : 0};
}

class ThemePen {
 public:
  ThemePen(CTcadEng& engine, const gis::CTheme& theme, int drawing)
      : engine_(engine), theme_(theme), drawing_(drawing) {}

  void Draw() {
    ProgressSteps progress(static_cast<std::uint64_t>(theme_.GetNumFeatures()));
    for (int feature = 0; feature < theme_.GetNumFeatures(); ++feature) {
      progress.Step();
      for (int part = 0; part < theme_.GetNumParts(feature); ++part) {
        DrawPart(theme_.GetPart(feature, part));
      }
    }
  }

 private:
  void DrawPart(const gis::VertexRange& vertices) {
    if (theme_.GetType() == gis::EntityType::kPoint) {
      for (std::size_t v = vertices.first; v < vertices.last; ++v) {
        Add(cad::PointShape{PlaceOf(theme_, v)});
      }
      return;
    }
    // The last vertex of a ring is its first one.
    const bool isRing = theme_.GetType() == gis::EntityType::kPolygon && vertices.Size() > 3;
    cad::PolylineShape line;
    for (std::size_t v = vertices.first; v < vertices.last - (isRing ? 1 : 0); ++v) {
      line.points.push_back(PlaceOf(theme_, v));
    }
    line.isClosed = isRing;
    if (line.points.size() > 1) Add(std::move(line));
  }

  void Add(cad::Shape shape) {
    engine_.Add({drawing_, cad::kByLayer, false, cad::Origin::kGis, std::move(shape)});
  }

  CTcadEng& engine_;
  const gis::CTheme& theme_;
  int drawing_;
};

// Each theme has a layer of its own name where neither it nor its library has a target drawing.
int DrawingOf(CTcadEng& engine, const gis::CLibGis& library, const gis::CTheme& theme) {
  const int target =
      display::TargetOf(library.GetThemeTargetDrawing(&theme), library.GetTargetDrawing());
  if (target != 0) return target;
  const tdk::WString name = theme.GetName().IsEmpty() ? Xlate("GIS") : theme.GetName();
  return engine.AddDrawing(0, name, /*visible=*/true, /*locked=*/false, /*isPrivate=*/false);
}

}  // namespace

CDisLibGis::CDisLibGis(CTcadEng* engine, CDocSymbolManager* /*symbols*/, gis::CLibGis* library,
                       bool /*all*/)
    : engine_(engine), library_(library) {}

void CDisLibGis::RiCreaTutto() {
  AnnullaTutto();
  for (int i = 0; library_ != nullptr && i < library_->GetNumThemes(); ++i) {
    const gis::CTheme& theme = *library_->GetTheme(i);
    ThemePen(*engine_, theme, DrawingOf(*engine_, *library_, theme)).Draw();
  }
}

void CDisLibGis::AnnullaTutto() {
  engine_->RemoveIf([](const cad::Entity& entity) { return entity.origin == cad::Origin::kGis; });
}
