#include "extents.h"

#include <algorithm>

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

}  // namespace

Extents ExtentsOf(HostDocument& document) {
  Extents extents;
  AddTotalStation(*document.GetLibCmp(), extents);
  AddGps(*document.GetLibGps(), extents);
  AddKnown(*document.GetLibPnt(), extents);
  AddTerrain(*document.GetLibDtm(), extents);
  AddRoads(*document.GetLibRoad(), extents);
  return extents;
}
