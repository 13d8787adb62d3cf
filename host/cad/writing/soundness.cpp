#include "host/cad/writing/soundness.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace cad_writer {
namespace {

// Shorter, or flatter, it is a point or a line to other programs.
constexpr double kShortestAxis = 1e-9;
constexpr double kLeastRatio = 1e-6;

bool IsLength(double value) { return IsNumber(value) && value > 0; }
bool IsFactor(double value) { return IsNumber(value) && value != 0; }

bool ArePlaces(const std::vector<cad::Point>& points) {
  return std::all_of(points.begin(), points.end(), IsPlace);
}

bool IsSoundArea(const std::vector<cad::Point>& corners) {
  return (corners.size() == 3 || corners.size() == 4) && ArePlaces(corners);
}

struct Soundness {
  bool operator()(const cad::PointShape& it) const { return IsPlace(it.at); }
  bool operator()(const cad::LineShape& it) const { return IsPlace(it.from) && IsPlace(it.to); }
  bool operator()(const cad::PolylineShape& it) const {
    return it.points.size() >= 2 && ArePlaces(it.points) &&
           std::all_of(it.bulges.begin(), it.bulges.end(), [](double b) { return IsNumber(b); });
  }
  bool operator()(const cad::CircleShape& it) const {
    return IsPlace(it.center) && IsLength(it.radius);
  }
  bool operator()(const cad::ArcShape& it) const {
    return IsPlace(it.center) && IsLength(it.radius) && IsNumber(it.start) && IsNumber(it.end);
  }
  bool operator()(const cad::EllipseShape& it) const {
    return IsPlace(it.center) && IsPlace(it.major) &&
           std::hypot(it.major.getX(), it.major.getY()) > kShortestAxis && it.ratio > kLeastRatio &&
           it.ratio <= 1 && IsNumber(it.start) && IsNumber(it.end);
  }
  bool operator()(const cad::TextShape& it) const {
    return IsPlace(it.at) && IsLength(it.height) && IsNumber(it.rotation);
  }
  bool operator()(const cad::InsertShape& it) const {
    return IsPlace(it.at) && IsFactor(it.scale.getX()) && IsFactor(it.scale.getY()) &&
           IsFactor(it.scale.getZ()) && IsNumber(it.rotation);
  }
  bool operator()(const cad::FaceShape& it) const { return IsSoundArea(it.points); }
  bool operator()(const cad::SolidShape& it) const { return IsSoundArea(it.points); }
};

}  // namespace

bool IsSound(const cad::Shape& shape) { return std::visit(Soundness{}, shape); }

bool IsSound(const cad::AttributeDefinition& definition) {
  return IsPlace(definition.at) && IsLength(definition.height);
}

}  // namespace cad_writer
