#include "host/geodesy/gps_positions.h"

namespace {

bool SetPlane(const CConvCoord& conversion, const Geographic& place, CEgn& point) {
  double north = 0;
  double east = 0;
  double elev = 0;
  if (!conversion.GrafGpsToPlanAtt(place.lat, place.lon, place.height, north, east, elev)) {
    return false;
  }
  point.SetCoord(east, north, elev);
  point.CalcolaValiditaXYZ();
  return true;
}

bool PlaceOfPlane(const CConvCoord& conversion, const CEgn& point, Geographic& place) {
  return point.HasPlane() && IsDefined(point.GetCoordZ()) &&
         conversion.PlanAttToGrafGps(point.GetCoordY(), point.GetCoordX(), point.GetCoordZ(), 0,
                                     place.lat, place.lon, place.height);
}

// `place` is what the point has; `store` keeps one that was worked out.
template <class Store>
void Complete(const CConvCoord& conversion, Geographic place, CEgn& point, Store store,
              CompletedPositions& completed) {
  if (place.IsComplete()) {
    if (!point.HasPlane() && SetPlane(conversion, place, point)) ++completed.plane;
  } else if (PlaceOfPlane(conversion, point, place)) {
    store(place);
    ++completed.geographic;
  }
}

void CompleteGroup(CLibGps& library, int index, CompletedPositions& completed) {
  CGrpGps& group = *library.GetGrpAt(index);
  const CConvCoord& conversion = group.GetConvCoord();
  Complete(
      conversion, {group.GetBaseLat(), group.GetBaseLong(), group.GetBaseElev()}, group,
      [&](const Geographic& place) {
        group.SetBaseLat(place.lat);
        group.SetBaseLong(place.lon);
        group.SetBaseElev(place.height);
      },
      completed);
  for (int i = 0; i < library.GetPunArSize(index); ++i) {
    CPunGps& point = *library.GetPunAt(index, i);
    Complete(
        conversion, {point.GetLat(), point.GetLong(), point.GetElev()}, point,
        [&](const Geographic& place) {
          point.SetLat(place.lat);
          point.SetLong(place.lon);
          point.SetElev(place.height);
        },
        completed);
  }
}

NoPlane WhyNoPlane(const CGrpGps& group, const CPunGps& point) {
  if (group.GetCrs().IsEmpty()) return NoPlane::kNoSystem;
  if (!group.IsCdElabValid()) return NoPlane::kUnknownSystem;
  const Geographic place{point.GetLat(), point.GetLong(), point.GetElev()};
  return place.IsComplete() ? NoPlane::kOutside : NoPlane::kNoPosition;
}

}  // namespace

void GiveReferenceSystem(CLibGps& library, const tdk::WString& crs) {
  for (int i = 0; i < library.GetGrpArSize(); ++i) {
    CGrpGps& group = *library.GetGrpAt(i);
    if (group.GetCrs().IsEmpty()) group.SetCrs(crs);
  }
}

CompletedPositions CompletePositions(CLibGps& library, const tdk::WString& crs) {
  GiveReferenceSystem(library, crs);
  CompletedPositions completed;
  for (int i = 0; i < library.GetGrpArSize(); ++i) {
    if (library.GetGrpAt(i)->IsCdElabValid()) CompleteGroup(library, i, completed);
  }
  return completed;
}

std::vector<GroupPositions> PlanePositions(const CLibGps& library) {
  std::vector<GroupPositions> groups;
  for (int i = 0; i < library.GetGrpArSize(); ++i) {
    GroupPositions& positions = groups.emplace_back();
    positions.group = i;
    for (int k = 0; k < library.GetPunArSize(i); ++k) {
      const CPunGps& point = *library.GetPunAt(i, k);
      if (point.HasPlane()) {
        ++positions.withPlane;
      } else {
        positions.missing.push_back({k, WhyNoPlane(*library.GetGrpAt(i), point)});
      }
    }
  }
  return groups;
}
