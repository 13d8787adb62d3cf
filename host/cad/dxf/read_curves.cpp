#include "host/cad/dxf/read_entities.h"

namespace dxf_reader {
namespace {

constexpr int kClosed = 1;

}  // namespace

void EntityReader::TakeCircle() {
  sink_.PutCircle(fields_.PointAt(10), fields_.Real(40), PlaneOf());
}

void EntityReader::TakeArc() {
  sink_.PutArc({fields_.PointAt(10), fields_.Real(40), fields_.Real(50), fields_.Real(51)},
               PlaneOf());
}

void EntityReader::TakeEllipse() {
  const double end = fields_.Has(42) ? Degrees(fields_.Real(42)) : 360;
  sink_.PutEllipse({fields_.PointAt(10), fields_.PointAt(11), fields_.Extrusion(), fields_.Real(40),
                    Degrees(fields_.Real(41)), end});
}

void EntityReader::ReadSpline() {
  spline_ = {};
  fields_.Read(pairs_, [this] { return KeepSplineNumber(); });
  spline_.degree = fields_.Whole(71, 3);
  spline_.isClosed = fields_.HasFlag(70, kClosed);
}

bool EntityReader::KeepSplineNumber() {
  const int code = pairs_.Code();
  if (code == 40) {
    spline_.knots.push_back(pairs_.Real());
  } else if (code == 41) {
    spline_.weights.push_back(pairs_.Real());
  } else if (code % 10 <= 1 && code >= 10 && code <= 31) {
    std::vector<cad::Point>& points = code % 10 == 0 ? spline_.controls : spline_.fits;
    const double value = pairs_.Real();
    if (code < 20) {
      points.emplace_back(value, 0.0, 0.0);
    } else if (!points.empty()) {
      const cad::Point& last = points.back();
      points.back() = {last.getX(), code < 30 ? value : last.getY(),
                       code < 30 ? last.getZ() : value};
    }
  } else {
    return false;
  }
  return true;
}

}  // namespace dxf_reader
