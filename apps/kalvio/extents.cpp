#include "extents.h"

#include <algorithm>
#include <cmath>

#include "host/document/host_document.h"

void Extent::Add(double coordinate) {
  if (!IsDefined(coordinate)) {
    ++undefined;
    return;
  }
  least = std::min(least, coordinate);
  most = IsDefined(most) ? std::max(most, coordinate) : coordinate;
}

void Extents::Add(const CEgn& point) {
  ++points;
  axes[0].Add(point.GetCoordX());
  axes[1].Add(point.GetCoordY());
  axes[2].Add(point.GetCoordZ());
}

namespace {

void AddStation(const CLibCmp& library, int job, int station, Extents& extents) {
  extents.Add(*library.GetStaAt(job, station));
  for (int i = 0; i < library.GetPunArSize(job, station); ++i) {
    const CPun& point = *library.GetPunAt(job, station, i);
    extents.Add(point);
    if (!IsDefined(point.GetDato0())) ++extents.withoutDistance;
  }
}

void AddTotalStation(const CLibCmp& library, Extents& extents) {
  for (int job = 0; job < library.GetJobArSize(); ++job) {
    for (int station = 0; station < library.GetStaArSize(job); ++station) {
      AddStation(library, job, station, extents);
    }
  }
  for (int i = 0; i < library.GetOriArSize(); ++i) extents.Add(*library.GetOriAt(i));
}

void AddGps(const CLibGps& library, Extents& extents) {
  for (int group = 0; group < library.GetGrpArSize(); ++group) {
    extents.Add(*library.GetGrpAt(group));
    for (int i = 0; i < library.GetPunArSize(group); ++i) extents.Add(*library.GetPunAt(group, i));
  }
}

void AddKnown(const CLibPnt& library, Extents& extents) {
  for (int group = 0; group < library.GetGrpArSize(); ++group) {
    for (int i = 0; i < library.GetPtnArSize(group); ++i) extents.Add(*library.GetPtnAt(group, i));
  }
}

void AddTerrain(const CLibDtm& library, Extents& extents) {
  for (int i = 0; i < library.GetPrjArSize(); ++i) {
    const CTris& triangulation = library.GetPrjAt(i)->GetTris();
    extents.hasDesign = extents.hasDesign || triangulation.GetNoTriVrts() > 0;
    for (int v = 0; v < triangulation.GetNoTriVrts(); ++v) {
      const tdk::geom::PNT_3D& vertex = triangulation.GetTriVrtAt(v);
      extents.axes[0].Add(vertex.getX());
      extents.axes[1].Add(vertex.getY());
      extents.axes[2].Add(vertex.getZ());
    }
  }
}

// By the ends of their elements; the axis of a road has no elevation of its own.
void AddRoads(const CLibRoad& library, Extents& extents) {
  for (int i = 0; i < library.GetRoadArSize(); ++i) {
    std::vector<const CPlaniElem*> elements;
    library.GetRoadAt(i)->RetrieveLinkedPlaniElems(elements);
    for (const CPlaniElem* const element : elements) {
      tdk::geom::PNT_2D end;
      element->GetEndPnt(end);
      for (const tdk::geom::PNT_2D& place : {element->GetStartPnt(), end}) {
        extents.axes[0].Add(place.getX());
        extents.axes[1].Add(place.getY());
      }
      extents.hasDesign = true;
    }
  }
}

void AddPlace(const cad::Point& place, Extents& extents) {
  extents.axes[0].Add(place.getX());
  extents.axes[1].Add(place.getY());
  extents.axes[2].Add(place.getZ());
}

void AddRound(const cad::Point& center, double radius, Extents& extents) {
  AddPlace({center.getX() - radius, center.getY() - radius, center.getZ()}, extents);
  AddPlace({center.getX() + radius, center.getY() + radius, center.getZ()}, extents);
}

// By the points that an entity is given by; arcs as their whole circles.
struct ShapeExtents {
  Extents& extents;

  void operator()(const cad::PointShape& shape) const { AddPlace(shape.at, extents); }
  void operator()(const cad::LineShape& shape) const {
    AddPlace(shape.from, extents);
    AddPlace(shape.to, extents);
  }
  void operator()(const cad::PolylineShape& shape) const { AddAll(shape.points); }
  void operator()(const cad::CircleShape& shape) const {
    AddRound(shape.center, shape.radius, extents);
  }
  void operator()(const cad::ArcShape& shape) const {
    AddRound(shape.center, shape.radius, extents);
  }
  void operator()(const cad::EllipseShape& shape) const {
    AddRound(shape.center, std::hypot(shape.major.getX(), shape.major.getY()), extents);
  }
  void operator()(const cad::TextShape& shape) const { AddPlace(shape.at, extents); }
  void operator()(const cad::InsertShape& shape) const { AddPlace(shape.at, extents); }
  void operator()(const cad::FaceShape& shape) const { AddAll(shape.points); }
  void operator()(const cad::SolidShape& shape) const { AddAll(shape.points); }
  void AddAll(const std::vector<cad::Point>& points) const {
    for (const cad::Point& point : points) AddPlace(point, extents);
  }
};

void AddDrawing(const CTcadEng& engine, Extents& extents) {
  for (const cad::Entity& entity : engine.Entities()) {
    std::visit(ShapeExtents{extents}, entity.shape);
    extents.hasDesign = true;
  }
}

void AddThemes(const gis::CLibGis& library, Extents& extents) {
  for (int i = 0; i < library.GetNumThemes(); ++i) {
    const gis::CTheme& theme = *library.GetTheme(i);
    for (std::size_t v = 0; v < theme.GetNumVertices(); ++v) {
      extents.axes[0].Add(theme.Xs()[v]);
      extents.axes[1].Add(theme.Ys()[v]);
      if (theme.Is3D()) extents.axes[2].Add(theme.Zs()[v]);
    }
    extents.hasDesign = extents.hasDesign || theme.GetNumVertices() > 0;
  }
}

}  // namespace

Extents ExtentsOf(HostDocument& document) {
  Extents extents;
  AddTotalStation(*document.GetLibCmp(), extents);
  AddGps(*document.GetLibGps(), extents);
  AddKnown(*document.GetLibPnt(), extents);
  AddTerrain(*document.GetLibDtm(), extents);
  AddRoads(*document.GetLibRoad(), extents);
  AddThemes(*document.GetLibGis(), extents);
  AddDrawing(*document.GetCadEngine(), extents);
  return extents;
}
