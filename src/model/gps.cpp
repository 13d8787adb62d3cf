#include "model/gps.h"

#include <cmath>

ICoordTransform::~ICoordTransform() = default;
CPunGps::~CPunGps() = default;
CGrpGps::~CGrpGps() = default;

bool CConvCoord::PlanAttToGrafGps(double north, double east, double elev, double /*rotation*/,
                                  double /*scale*/, double& lat, double& lon, double& height) const {
  Geographic place;
  if (transform_ == nullptr || !transform_->PlaneToGeographic(north, east, elev, place)) return false;
  lat = place.lat;
  lon = place.lon;
  height = place.height;
  return true;
}

void CPunGps::GetGeocCeFaMis(double& x, double& y, double& z) const {
  x = phaseCentre_.x;
  y = phaseCentre_.y;
  z = phaseCentre_.z;
}

void CPunGps::GetGeocTerrMis(double& x, double& y, double& z) const {
  x = y = z = UndefinedValue;
  const Geocentric& top = phaseCentre_;
  if (!IsDefined(top.x) || !IsDefined(top.y) || !IsDefined(top.z) || !IsDefined(place_.lat) ||
      !IsDefined(place_.lon) || !IsDefined(antennaHeight_)) {
    return;
  }
  x = top.x - antennaHeight_ * std::cos(place_.lat) * std::cos(place_.lon);
  y = top.y - antennaHeight_ * std::cos(place_.lat) * std::sin(place_.lon);
  z = top.z - antennaHeight_ * std::sin(place_.lat);
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
