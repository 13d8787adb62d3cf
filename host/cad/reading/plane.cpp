#include "host/cad/reading/plane.h"

#include <cmath>
#include <numbers>

namespace cad_reader {
namespace {

using cad::Point;

constexpr double kStraight = 1e-9;  // how far off Z a direction is that is Z

Point Cross(const Point& a, const Point& b) {
  return {a.getY() * b.getZ() - a.getZ() * b.getY(), a.getZ() * b.getX() - a.getX() * b.getZ(),
          a.getX() * b.getY() - a.getY() * b.getX()};
}

Point Unit(const Point& v) {
  const double length = std::hypot(v.getX(), v.getY(), v.getZ());
  if (!(length > 0) || !std::isfinite(length)) return {0, 0, 1};
  return {v.getX() / length, v.getY() / length, v.getZ() / length};
}

}  // namespace

double Radians(double degrees) { return degrees * (std::numbers::pi / 180); }

// Of the doubles that come to the same radians, the one that a person would have written: it has
// few decimals.
double Degrees(double radians) {
  constexpr double kDecimals = 1e9;
  const double degrees = radians * (180 / std::numbers::pi);
  const double rounded = std::round(degrees * kDecimals) / kDecimals;
  return Radians(rounded) == radians ? rounded : degrees;
}

double WithinTurn(double degrees) {
  const double rest = std::fmod(degrees, 360);
  const double turned = rest < 0 ? rest + 360 : rest;
  return turned < 360 ? turned : 0;
}

Plane::Plane(const Point& direction) : z_(Unit(direction)) {
  constexpr double kNearZ = 1.0 / 64;
  if (std::abs(z_.getX()) < kStraight && std::abs(z_.getY()) < kStraight) {
    kind_ = z_.getZ() > 0 ? Kind::kWorld : Kind::kMirrored;
    return;
  }
  kind_ = Kind::kTilted;
  const bool isNearZ = std::abs(z_.getX()) < kNearZ && std::abs(z_.getY()) < kNearZ;
  x_ = Unit(Cross(isNearZ ? Point(0, 1, 0) : Point(0, 0, 1), z_));
  y_ = Unit(Cross(z_, x_));
}

Point Plane::ToWorld(const Point& p) const {
  if (kind_ == Kind::kWorld) return p;
  if (kind_ == Kind::kMirrored) return {-p.getX(), p.getY(), -p.getZ()};
  const auto sum = [&](double x, double y, double z) {
    return p.getX() * x + p.getY() * y + p.getZ() * z;
  };
  return {sum(x_.getX(), y_.getX(), z_.getX()), sum(x_.getY(), y_.getY(), z_.getY()),
          sum(x_.getZ(), y_.getZ(), z_.getZ())};
}

double Plane::DirectionToWorld(double degrees) const {
  if (kind_ == Kind::kWorld) return degrees;
  if (kind_ == Kind::kMirrored) return WithinTurn(180 - degrees);
  const Point way = ToWorld({std::cos(Radians(degrees)), std::sin(Radians(degrees)), 0});
  return WithinTurn(Degrees(std::atan2(way.getY(), way.getX())));
}

}  // namespace cad_reader
