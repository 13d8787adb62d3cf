#include "host/plot/road_lines.h"

#include <algorithm>

#include "host/plot/nice_numbers.h"
#include "model/undefined.h"

namespace plot {
namespace {

constexpr int kRoughChords = 64;
constexpr double kMostChords = 5'000;
constexpr double kMostRadii = 200;  // the length of a clothoid in its least radius
constexpr int kMostMarks = 20'000;
constexpr double kJoint = 1e-3;  // elements that are no farther apart join, metres
constexpr double kPi = 3.14159265358979323846;

std::vector<const CPlaniElem*> ElementsOf(const CRoad& road) {
  std::vector<const CPlaniElem*> elements;
  if (!road.IsEmpty()) road.RetrieveLinkedPlaniElems(elements);
  return elements;
}

Place At(const CPlaniElem& element, double distance) {
  const tdk::geom::PNT_2D place = element.PointAt(distance);
  return {place.getX(), place.getY()};
}

bool IsThere(const Place& place) { return IsDefined(place.x) && IsDefined(place.y); }

double LeastRadius(const CPlaniElem& element) {
  return std::min(element.GetRadius(0), element.GetRadius(element.GetLength()));
}

// No road winds so often; each place of such a clothoid takes long to work out.
bool IsTwisted(const CPlaniElem& element) {
  return element.GetType() == CPlaniElem::kClothoid &&
         !(element.GetLength() <= kMostRadii * LeastRadius(element));
}

// A curve's chord of length s leaves it by s * s * curvature / 8.
double ChordsOf(const CPlaniElem& element, double chordError) {
  const double radius = LeastRadius(element);
  if (chordError == kRoughChord || IsTwisted(element) || !(radius > 0)) return kRoughChords;
  const double chord = std::min(std::sqrt(8 * chordError * radius), radius * kPi / 8);
  return std::clamp(std::ceil(element.GetLength() / chord), 1.0, kMostChords);
}

Polyline LineOf(const CPlaniElem& element, double chordError) {
  const bool isCurved =
      element.GetType() == CPlaniElem::kArc || element.GetType() == CPlaniElem::kClothoid;
  const int chords = isCurved ? static_cast<int>(ChordsOf(element, chordError)) : 1;
  Polyline line = {{element.GetStartPnt().getX(), element.GetStartPnt().getY()}};
  for (int i = 1; i < chords; ++i) line.push_back(At(element, element.GetLength() * i / chords));
  tdk::geom::PNT_2D end;
  element.GetEndPnt(end);
  line.push_back({end.getX(), end.getY()});
  return std::all_of(line.begin(), line.end(), IsThere) ? line : Polyline{};
}

}  // namespace

std::vector<Polyline> AxisOf(const CRoad& road, double chordError) {
  std::vector<Polyline> axis;
  for (const CPlaniElem* const element : ElementsOf(road)) {
    const Polyline line = LineOf(*element, chordError);
    if (line.empty()) continue;
    if (axis.empty() || Distance(axis.back().back(), line.front()) > kJoint) {
      axis.push_back(line);
    } else {
      axis.back().insert(axis.back().end(), line.begin() + 1, line.end());
    }
  }
  return axis;
}

std::vector<ChainageMark> ChainageMarks(const CRoad& road, double step) {
  std::vector<ChainageMark> marks;
  for (const CPlaniElem* const element : ElementsOf(road)) {
    if (IsTwisted(*element)) continue;
    const double start = element->GetProg();
    const Multiples chainages =
        MultiplesWithin(start, start + element->GetLength(), step, kMostMarks);
    for (int i = 0; i < chainages.count; ++i) {
      const double chainage = (chainages.first + i) * step;
      const double distance = std::clamp(chainage - start, 0.0, element->GetLength());
      const Place place = At(*element, distance);
      // Where one element ends, the next begins.
      const bool isTwice = !marks.empty() && std::abs(marks.back().chainage - chainage) < step / 2;
      if (isTwice || !IsThere(place)) continue;
      tdk::geom::VECTOR_2D tangent;
      element->GetTg(distance, tangent);
      marks.push_back({chainage, place, std::atan2(tangent.getY(), tangent.getX())});
    }
  }
  return marks;
}

}  // namespace plot
