#include <algorithm>
#include <cmath>

#include "services/display/displays.h"
#include "services/progress.h"
#include "services/translate.h"

namespace {

using display::TargetLayers;

// How far a chord of a clothoid may lie beside it, metres.
constexpr double kChordError = 0.001;
constexpr double kLongestChord = 5;

class Pen {
 public:
  Pen(CTcadEng& engine, cad::Origin origin) : engine_(engine), origin_(origin) {}
  void Add(int drawing, cad::Shape shape) const {
    engine_.Add({drawing, cad::kByLayer, false, origin_, std::move(shape)});
  }

 private:
  CTcadEng& engine_;
  cad::Origin origin_;
};

void DrawTriangles(const CTris& triangulation, int drawing, const Pen& pen) {
  ProgressSteps progress(static_cast<std::uint64_t>(triangulation.GetNoTris()));
  for (int i = 0; i < triangulation.GetNoTris(); ++i) {
    progress.Step();
    const CTri& triangle = triangulation.GetTriAt(i);
    pen.Add(drawing, cad::FaceShape{{triangulation.GetTriVrtAt(triangle.GetVerIndex(0)),
                                     triangulation.GetTriVrtAt(triangle.GetVerIndex(1)),
                                     triangulation.GetTriVrtAt(triangle.GetVerIndex(2))}});
  }
}

// The closing point of a contour that repeats its first one is left out.
void DrawContours(const CCnts& contours, const TargetLayers& layers, const Pen& pen) {
  for (int i = 0; i < contours.GetNoCnts(); ++i) {
    const CCnt& contour = contours.GetCntAt(i);
    cad::PolylineShape line;
    for (int v = 0; v < contour.GetNoVrts(); ++v) line.points.push_back(contour.GetVrt(v));
    const auto same = [](const cad::Point& a, const cad::Point& b) {
      return a.getX() == b.getX() && a.getY() == b.getY() && a.getZ() == b.getZ();
    };
    if (line.points.size() > 2 && same(line.points.front(), line.points.back())) {
      line.points.pop_back();
    }
    line.isClosed = line.points.size() > 2;
    if (line.points.size() > 1) pen.Add(layers.Of(ToXlate("CONTOURS")), std::move(line));
  }
}

void DrawModel(const CDtmPrj& model, CTcadEng& engine, const Pen& pen) {
  const TargetLayers layers(engine, 0, model.GetName());
  if (model.GetTris().GetNoTris() > 0) {
    DrawTriangles(model.GetTris(), layers.Of(ToXlate("TRIANGLES")), pen);
  }
  for (int i = 0; i < model.GetVncs().GetNoVncs(); ++i) {
    const tdk::geom::LINE_3D& line = model.GetVncs().GetVncAt(i).GetCoords();
    pen.Add(layers.Of(ToXlate("BREAKLINES")),
            cad::PolylineShape{{line.getStart(), line.getEnd()}, {}, false});
  }
  DrawContours(model.GetOuterCnts(), layers, pen);
  DrawContours(model.GetIslandCnts(), layers, pen);
}

cad::Point Flat(const tdk::geom::PNT_2D& place) { return {place.getX(), place.getY(), 0}; }

double Degrees(double radians) {
  constexpr double kDegreesPerRadian = 57.29577951308232;
  const double degrees = std::fmod(radians * kDegreesPerRadian, 360);
  return degrees < 0 ? degrees + 360 : degrees;
}

// A drawing's arcs run counter-clockwise.
cad::ArcShape Arc(const CArcPlaniElem& arc) {
  const double radius = arc.GetRadius(0);
  const double side = arc.IsCcw() ? 1 : -1;
  const tdk::geom::PNT_2D& start = arc.GetStartPnt();
  const tdk::geom::VECTOR_2D& tangent = arc.GetStartTg();
  const double x = start.getX() - side * radius * tangent.getY();
  const double y = start.getY() + side * radius * tangent.getX();
  const double first = std::atan2(start.getY() - y, start.getX() - x);
  const double last = first + side * arc.GetAngle();
  return {
      {x, y, 0}, radius, Degrees(arc.IsCcw() ? first : last), Degrees(arc.IsCcw() ? last : first)};
}

// So dense that no chord lies further from the clothoid than allowed, by the sharpest radius.
cad::PolylineShape Dense(const CClotPlaniElem& clothoid) {
  const double length = clothoid.GetLength();
  const double radius = std::min(clothoid.GetRadius(0), clothoid.GetRadius(length));
  const double chord =
      std::clamp(std::sqrt(8 * radius * kChordError), length / 10'000, kLongestChord);
  const int parts = std::max(1, static_cast<int>(std::ceil(length / chord)));
  cad::PolylineShape line;
  for (int i = 0; i <= parts; ++i)
    line.points.push_back(Flat(clothoid.PointAt(length * i / parts)));
  return line;
}

void DrawElement(const CPlaniElem& element, int drawing, const Pen& pen) {
  if (element.GetType() == CPlaniElem::kArc) {
    pen.Add(drawing, Arc(static_cast<const CArcPlaniElem&>(element)));
  } else if (element.GetType() == CPlaniElem::kClothoid) {
    pen.Add(drawing, Dense(static_cast<const CClotPlaniElem&>(element)));
  } else {
    tdk::geom::PNT_2D end;
    element.GetEndPnt(end);
    pen.Add(drawing, cad::LineShape{Flat(element.GetStartPnt()), Flat(end)});
  }
}

// Height lines on their own ground: distances to the right, heights up, both in metres.
class ProfileSheet {
 public:
  ProfileSheet(CTcadEng& engine, const Pen& pen) : engine_(engine), pen_(pen) {}

  void Draw(const CRoad& road, int libraryTarget) {
    const TargetLayers layers(engine_, display::TargetOf(road.GetTargetDrawing(), libraryTarget),
                              road.GetName());
    const CProfile& profile = *road.GetRoadProfile();
    if (const CProfileAlti* const main = profile.GetMainPrjAlti()) {
      Begin();
      DrawLine(*main, layers.Of(ToXlate("PROFILE")));
      End();
    }
    for (int i = 0; i < profile.GetNumSections(); ++i) DrawSection(profile.GetSection(i), layers);
  }

 private:
  void DrawSection(const CProfile& section, const TargetLayers& layers) {
    Begin();
    std::vector<TAltiVrt> ground;
    ground.reserve(static_cast<std::size_t>(section.GetNumTerrVrts()));
    for (int i = 0; i < section.GetNumTerrVrts(); ++i) ground.push_back(section.GetTerrVrt(i));
    DrawVertices(ground, layers.Of(ToXlate("SECTIONS")));
    for (int i = 0; i < section.GetNumProfileAlti(); ++i) {
      DrawLine(section.GetProfileAlti(i), layers.Of(ToXlate("SECTIONS")));
    }
    End();
  }

  void DrawLine(const CProfileAlti& line, int drawing) {
    std::vector<TAltiVrt> vertices;
    vertices.reserve(static_cast<std::size_t>(line.GetNumVrts()));
    for (int i = 0; i < line.GetNumVrts(); ++i) vertices.push_back(line.GetVrt(i));
    DrawVertices(vertices, drawing);
  }

  // Cut where a vertex is undefined.
  void DrawVertices(const std::vector<TAltiVrt>& vertices, int drawing) {
    cad::PolylineShape piece;
    const auto finish = [&] {
      if (piece.points.size() > 1) pieces_.emplace_back(drawing, piece);
      piece.points.clear();
    };
    for (const TAltiVrt& vertex : vertices) {
      if (IsDefined(vertex.distance) && IsDefined(vertex.height)) {
        piece.points.emplace_back(vertex.distance, vertex.height, 0);
      } else {
        finish();
      }
    }
    finish();
  }

  void Begin() { pieces_.clear(); }

  // Sheets stand above each other, to the right of all that is drawn already.
  void End() {
    if (pieces_.empty()) return;
    if (!hasPlace_) FindPlace();
    constexpr double kGap = 10;
    double left = 0;
    double low = 0;
    double high = 0;
    bool isFirst = true;
    for (const auto& [drawing, piece] : pieces_) {
      for (const cad::Point& point : piece.points) {
        left = isFirst ? point.getX() : std::min(left, point.getX());
        low = isFirst ? point.getY() : std::min(low, point.getY());
        high = isFirst ? point.getY() : std::max(high, point.getY());
        isFirst = false;
      }
    }
    for (auto& [drawing, piece] : pieces_) {
      for (cad::Point& point : piece.points) {
        point = {right_ + point.getX() - left, up_ + point.getY() - low, 0};
      }
      pen_.Add(drawing, std::move(piece));
    }
    up_ += high - low + kGap;
  }

  void FindPlace() {
    constexpr double kMargin = 50;
    hasPlace_ = true;
    bool isFirst = true;
    const auto take = [&](const cad::Point& point) {
      right_ = isFirst ? point.getX() + kMargin : std::max(right_, point.getX() + kMargin);
      up_ = isFirst ? point.getY() : std::min(up_, point.getY());
      isFirst = false;
    };
    for (const cad::Entity& entity : engine_.Entities()) {
      if (const auto* const point = std::get_if<cad::PointShape>(&entity.shape)) take(point->at);
      if (const auto* const insert = std::get_if<cad::InsertShape>(&entity.shape)) take(insert->at);
      if (const auto* const line = std::get_if<cad::LineShape>(&entity.shape)) take(line->to);
      if (const auto* const face = std::get_if<cad::FaceShape>(&entity.shape))
        take(face->points[0]);
      if (const auto* const line = std::get_if<cad::PolylineShape>(&entity.shape)) {
        for (const cad::Point& point : line->points) take(point);
      }
    }
  }

  CTcadEng& engine_;
  const Pen& pen_;
  std::vector<std::pair<int, cad::PolylineShape>> pieces_;  // with their drawings
  bool hasPlace_ = false;
  double right_ = 0;
  double up_ = 0;
};

}  // namespace

CDisLibDtm::CDisLibDtm(CTcadEng* engine, CDocSymbolManager* /*symbols*/, CLibDtm* library,
                       bool /*all*/)
    : engine_(engine), library_(library) {}

void CDisLibDtm::AddAllDtm() {
  const Pen pen(*engine_, cad::Origin::kTerrain);
  for (int i = 0; library_ != nullptr && i < library_->GetPrjArSize(); ++i) {
    DrawModel(*library_->GetPrjAt(i), *engine_, pen);
  }
}

CDisRoad::CDisRoad(CTcadEng* engine, CDocSymbolManager* /*symbols*/, CLibRoad* library,
                   bool /*all*/)
    : engine_(engine), library_(library) {}

void CDisRoad::AddAllRoads() {
  const Pen pen(*engine_, cad::Origin::kRoads);
  for (int i = 0; library_ != nullptr && i < library_->GetRoadArSize(); ++i) {
    const CRoad& road = *library_->GetRoadAt(i);
    const TargetLayers layers(*engine_, road.GetTargetDrawing(), road.GetName());
    std::vector<const CPlaniElem*> elements;
    road.RetrieveLinkedPlaniElems(elements);
    for (const CPlaniElem* const element : elements) {
      DrawElement(*element, layers.Of(ToXlate("AXIS")), pen);
    }
  }
}

CDisLibProfile::CDisLibProfile(CTcadEng* engine, CDocSymbolManager* /*symbols*/,
                               CLibProfile* library, CLibRoad* roads, bool /*all*/)
    : engine_(engine), library_(library), roads_(roads) {}

void CDisLibProfile::AddAllProfiles() {
  const Pen pen(*engine_, cad::Origin::kProfiles);
  ProfileSheet sheet(*engine_, pen);
  const int target = library_ == nullptr ? 0 : library_->GetTargetDrawing();
  for (int i = 0; roads_ != nullptr && i < roads_->GetRoadArSize(); ++i) {
    sheet.Draw(*roads_->GetRoadAt(i), target);
  }
}
