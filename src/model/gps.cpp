#include "model/gps.h"

namespace {

// The place of the ground point below an antenna: the ellipsoid's normal runs through both.
bool GroundPlace(const Geocentric& phaseCentre, double antennaHeight, Geographic& place) {
  IGeodesy* const geodesy = IGeodesy::Current();
  if (geodesy == nullptr || !phaseCentre.IsComplete() || !IsDefined(antennaHeight) ||
      !geodesy->ToGeographic(phaseCentre, place)) {
    return false;
  }
  place.height -= antennaHeight;
  return true;
}

double StoredOrDerived(const Geographic& stored, double Geographic::*part,
                       const Geocentric& phaseCentre, double antennaHeight) {
  Geographic derived;
  if (IsDefined(stored.*part) || !GroundPlace(phaseCentre, antennaHeight, derived)) {
    return stored.*part;
  }
  return derived.*part;
}

}  // namespace

CPunGps::~CPunGps() = default;
CGrpGps::~CGrpGps() = default;

const ICoordTransform* CConvCoord::Transform() const {
  IGeodesy* const geodesy = IGeodesy::Current();
  if (geodesy == nullptr || crs_.View().empty()) return nullptr;
  return geodesy->TransformOf(GetCrs());
}

bool CConvCoord::PlanAttToGrafGps(double north, double east, double elev, double /*local*/,
                                  double& lat, double& lon, double& height) const {
  const ICoordTransform* const transform = Transform();
  Geographic place;
  if (transform == nullptr || !transform->ToGeographic({east, north, elev}, place)) return false;
  lat = place.lat;
  lon = place.lon;
  height = place.height;
  return true;
}

bool CConvCoord::GrafGpsToPlanAtt(double lat, double lon, double height, double& north,
                                  double& east, double& elev) const {
  const ICoordTransform* const transform = Transform();
  PlanePosition plane;
  if (transform == nullptr || !transform->ToPlane({lat, lon, height}, plane)) return false;
  north = plane.north;
  east = plane.east;
  elev = plane.elev;
  return true;
}

double CPunGps::Derived(double Geographic::*part) const {
  return StoredOrDerived(place_, part, phaseCentre_, antennaHeight_);
}

double CGrpGps::Derived(double Geographic::*part) const {
  return StoredOrDerived(base_, part, phaseCentre_, baseAntennaHeight_);
}

void CPunGps::GetGeocCeFaMis(double& x, double& y, double& z) const {
  x = phaseCentre_.x;
  y = phaseCentre_.y;
  z = phaseCentre_.z;
}

void CPunGps::GetGeocTerrMis(double& x, double& y, double& z) const {
  Geographic place;
  Geocentric ground;
  if (GroundPlace(phaseCentre_, antennaHeight_, place)) {
    IGeodesy::Current()->ToGeocentric(place, ground);
  }
  x = ground.x;
  y = ground.y;
  z = ground.z;
}

void CGrpGps::GetGeocCeFaMis(double& x, double& y, double& z) const {
  x = phaseCentre_.x;
  y = phaseCentre_.y;
  z = phaseCentre_.z;
}

int CLibGps::GetPunArSize(int grp) const {
  const CGrpGps* const parent = GetGrpAt(grp);
  return parent == nullptr ? 0 : CountOf(parent->points_);
}

CPunGps* CLibGps::GetPunAt(int grp, int pun) const {
  const CGrpGps* const parent = GetGrpAt(grp);
  return parent == nullptr ? nullptr : ElementAt(parent->points_, pun);
}

CGrpGps* CLibGps::AddGrp(bool /*notify*/) {
  if (!MayAdd(AddedKind::kGpsGroup, groups_.Size())) return nullptr;
  return &groups_.Append(GetGrpArSize());
}

CPunGps* CLibGps::AddPun(int grp, bool /*notify*/) {
  CGrpGps* const parent = GetGrpAt(grp);
  if (parent == nullptr || !MayAdd(AddedKind::kGpsPoint, parent->points_.Size())) return nullptr;
  return &parent->points_.Append();
}

bool CLibGps::GetIndiciDiGrp(const CGrpGps* group, int& grp) const {
  if (group == nullptr || GetGrpAt(group->index_) != group) return false;
  grp = group->index_;
  return true;
}
