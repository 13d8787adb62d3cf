// The geodesy engine, on PROJ. A library of its own, so that only exchanges that need it pay for
// it.
#include <proj.h>

#include <cmath>
#include <map>
#include <memory>
#include <string>

#include "host/geodesy/lazy_geodesy.h"

namespace {

struct ContextDeleter {
  void operator()(PJ_CONTEXT* context) const { proj_context_destroy(context); }
};
struct ObjectDeleter {
  void operator()(PJ* object) const { proj_destroy(object); }
};
using Context = std::unique_ptr<PJ_CONTEXT, ContextDeleter>;
using Object = std::unique_ptr<PJ, ObjectDeleter>;

void StaySilent(void* /*data*/, int /*level*/, const char* /*message*/) {}

// One place through a transformation; false, with the result untouched, when it fails.
bool Transform(PJ* transformation, PJ_DIRECTION direction, PJ_COORD from, PJ_COORD& to) {
  proj_errno_reset(transformation);
  const PJ_COORD result = proj_trans(transformation, direction, from);
  if (proj_errno(transformation) != 0 || result.xyz.x == HUGE_VAL) return false;
  to = result;
  return true;
}

class PlaneTransform : public ICoordTransform {
 public:
  // From plane (east, north, elevation) to longitude, latitude in degrees, and height.
  explicit PlaneTransform(Object transformation) : transformation_(std::move(transformation)) {}

  bool ToGeographic(const PlanePosition& plane, Geographic& place) const override {
    PJ_COORD to;
    if (!Transform(transformation_.get(), PJ_FWD,
                   proj_coord(plane.east, plane.north, plane.elev, HUGE_VAL), to)) {
      return false;
    }
    place = {proj_torad(to.xyz.y), proj_torad(to.xyz.x), to.xyz.z};
    return true;
  }

  bool ToPlane(const Geographic& place, PlanePosition& plane) const override {
    PJ_COORD to;
    if (!Transform(transformation_.get(), PJ_INV,
                   proj_coord(proj_todeg(place.lon), proj_todeg(place.lat), place.height, HUGE_VAL),
                   to)) {
      return false;
    }
    plane = {to.xyz.x, to.xyz.y, to.xyz.z};
    return true;
  }

 private:
  Object transformation_;
};

bool IsPlane(PJ_CONTEXT* context, const PJ* crs) {
  if (proj_get_type(crs) != PJ_TYPE_COMPOUND_CRS)
    return proj_get_type(crs) == PJ_TYPE_PROJECTED_CRS;
  const Object horizontal(proj_crs_get_sub_crs(context, crs, 0));
  return horizontal && proj_get_type(horizontal.get()) == PJ_TYPE_PROJECTED_CRS;
}

bool HasHeight(PJ_CONTEXT* context, const PJ* crs) {
  if (proj_get_type(crs) == PJ_TYPE_COMPOUND_CRS) return true;
  const Object axes(proj_crs_get_coordinate_system(context, crs));
  return axes && proj_cs_get_axis_count(context, axes.get()) == 3;
}

class ProjGeodesy : public IGeodesy {
 public:
  ProjGeodesy() : context_(proj_context_create()) {
    proj_log_func(context_.get(), nullptr, StaySilent);
    proj_context_set_enable_network(context_.get(), 0);
    cartesian_.reset(proj_create(context_.get(), "+proj=cart +ellps=WGS84"));
  }

  bool ToGeographic(const Geocentric& from, Geographic& to) override {
    PJ_COORD place;
    if (!Transform(cartesian_.get(), PJ_INV, proj_coord(from.x, from.y, from.z, 0), place))
      return false;
    to = {place.lpz.phi, place.lpz.lam, place.lpz.z};
    return true;
  }

  bool ToGeocentric(const Geographic& from, Geocentric& to) override {
    PJ_COORD place;
    if (!Transform(cartesian_.get(), PJ_FWD, proj_coord(from.lon, from.lat, from.height, 0),
                   place)) {
      return false;
    }
    to = {place.xyz.x, place.xyz.y, place.xyz.z};
    return true;
  }

  const ICoordTransform* TransformOf(const tdk::WString& crs) override {
    const auto [entry, isNew] = transforms_.try_emplace(crs.ToUtf8());
    if (isNew) entry->second = Make(crs.ToUtf8());
    return entry->second.get();
  }

  std::string WktOf(const tdk::WString& crs) override {
    const Object system(proj_create(context_.get(), crs.ToUtf8().c_str()));
    const char* const options[] = {"MULTILINE=NO", nullptr};
    const char* const wkt =
        system ? proj_as_wkt(context_.get(), system.get(), PJ_WKT1_ESRI, options) : nullptr;
    return wkt == nullptr ? std::string() : wkt;
  }

 private:
  std::unique_ptr<PlaneTransform> Make(const std::string& name) const {
    const Object crs(proj_create(context_.get(), name.c_str()));
    if (!crs || !IsPlane(context_.get(), crs.get())) return nullptr;
    // A system without heights leaves them as they are: they are taken as ellipsoidal.
    const char* const gps = HasHeight(context_.get(), crs.get()) ? "EPSG:4979" : "EPSG:4326";
    const Object target(proj_create(context_.get(), gps));
    Object raw(
        proj_create_crs_to_crs_from_pj(context_.get(), crs.get(), target.get(), nullptr, nullptr));
    if (!raw) return nullptr;
    Object ordered(proj_normalize_for_visualization(context_.get(), raw.get()));
    return ordered ? std::make_unique<PlaneTransform>(std::move(ordered)) : nullptr;
  }

  Context context_;
  Object cartesian_;
  std::map<std::string, std::unique_ptr<PlaneTransform>> transforms_;  // null: no plane system
};

}  // namespace

extern "C" __attribute__((visibility("default"))) IGeodesy* KalvioMakeGeodesy() {
  return new ProjGeodesy;
}
