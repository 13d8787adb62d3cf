#include "host/plot/plan_extent.h"

#include <algorithm>
#include <array>

namespace plot {

void Box::Add(const Place& place) {
  left = std::min(left, place.x);
  right = std::max(right, place.x);
  low = std::min(low, place.y);
  high = std::max(high, place.y);
}

void Box::AddBox(const Box& box) {
  left = std::min(left, box.left);
  right = std::max(right, box.right);
  low = std::min(low, box.low);
  high = std::max(high, box.high);
}

bool ClipLeg(const Box& box, Place& a, Place& b) {
  const double dx = b.x - a.x;
  const double dy = b.y - a.y;
  if (!std::isfinite(dx) || !std::isfinite(dy)) return false;
  struct Side {
    double towards;   // how fast the leg goes out through this side
    double distance;  // from its start to the side
  };
  const std::array<Side, 4> sides = {
      {{-dx, a.x - box.left}, {dx, box.right - a.x}, {-dy, a.y - box.low}, {dy, box.high - a.y}}};
  double from = 0;
  double to = 1;
  for (const Side& side : sides) {
    if (side.towards == 0) {
      if (side.distance < 0) return false;
      continue;
    }
    const double share = side.distance / side.towards;
    if (side.towards < 0) {
      from = std::max(from, share);
    } else {
      to = std::min(to, share);
    }
  }
  if (from > to) return false;
  const Place start = a;
  const Place end = b;
  if (from > 0) a = Between(start, end, from);
  if (to < 1) b = Between(start, end, to);
  return true;
}

std::vector<Polyline> ClipLine(const Box& box, const Polyline& line, double least) {
  std::vector<Polyline> parts;
  bool goesOn = false;  // the last part ends where the next leg starts
  for (std::size_t i = 1; i < line.size(); ++i) {
    Place a = line[i - 1];
    Place b = line[i];
    if (!ClipLeg(box, a, b)) {
      goesOn = false;
      continue;
    }
    if (!goesOn || a != line[i - 1]) parts.push_back({a});
    Polyline& part = parts.back();
    // Of vertices that crowd, the last one moves on.
    if (part.size() > 1 && Distance(part[part.size() - 2], part.back()) < least) part.pop_back();
    part.push_back(b);
    goesOn = b == line[i];
  }
  return parts;
}

double LengthOf(const Polyline& line) {
  double length = 0;
  for (std::size_t i = 1; i < line.size(); ++i) length += Distance(line[i - 1], line[i]);
  return length;
}

OnLine Along(const Polyline& line, double distance) {
  for (std::size_t i = 1; i < line.size(); ++i) {
    const Place& a = line[i - 1];
    const Place& b = line[i];
    const double length = Distance(a, b);
    if (length == 0) continue;
    if (distance <= length || i + 1 == line.size()) {
      return {Between(a, b, std::clamp(distance / length, 0.0, 1.0)),
              std::atan2(b.y - a.y, b.x - a.x)};
    }
    distance -= length;
  }
  return {line.empty() ? Place{} : line.back(), 0};
}

}  // namespace plot
