#include "host/landxml/element_reader.h"

#include <cmath>
#include <numbers>

#include "platform/numbers.h"
#include "services/translate.h"

namespace landxml_load {
namespace {

using std::numbers::pi;
using tdk::geom::PNT_2D;
using tdk::geom::VECTOR_2D;

constexpr double kNoLength = 1e-9;       // metres: an element that is left out
constexpr double kWrongBy = 0.02;        // metres: more than careless rounding
constexpr double kStraightRadius = 1e8;  // metres: what some programs write for a straight
constexpr double kClosedBy = 1e-6;       // metres: both ends of an arc in one place

double Distance(const PNT_2D& a, const PNT_2D& b) {
  return std::hypot(b.getX() - a.getX(), b.getY() - a.getY());
}

VECTOR_2D FromAngle(double angle) { return {std::cos(angle), std::sin(angle)}; }

double DirectionOf(const PNT_2D& from, const PNT_2D& to) {
  return std::atan2(to.getY() - from.getY(), to.getX() - from.getX());
}

// The angle from one radius to the other, in the direction of driving, within [0, 2 pi).
double SweepOf(const PNT_2D& centre, const PNT_2D& start, const PNT_2D& end, bool ccw) {
  const double x0 = start.getX() - centre.getX();
  const double y0 = start.getY() - centre.getY();
  const double x1 = end.getX() - centre.getX();
  const double y1 = end.getY() - centre.getY();
  const double left = std::atan2(x0 * y1 - y0 * x1, x0 * x1 + y0 * y1);
  const double sweep = ccw ? left : -left;
  return sweep < 0 ? sweep + 2 * pi : sweep;
}

// 1 over the radius, 0 for a straight end; nothing when the attribute says neither.
std::optional<double> CurvatureOf(const XmlElement& element, std::string_view attribute,
                                  const Units& units) {
  const std::string* const text = element.Find(attribute);
  if (text == nullptr) return std::nullopt;
  // "INF", "Infinity", "1.#INF": programs spell it as their library does.
  if (text->find_first_of("iI") != std::string::npos) return 0;
  const auto radius = LengthOf(element, attribute, units);
  if (!radius) return std::nullopt;
  const double size = std::abs(*radius);
  return size == 0 || size > kStraightRadius ? 0 : 1 / size;
}

}  // namespace

void ElementReader::Take(const XmlElement& geometry) {
  for (const XmlElement& element : geometry.children) TakeElement(element);
}

void ElementReader::TakeElement(const XmlElement& element) {
  // Stations of elements are often left out.
  if (const auto station = LengthOf(element, "staStart", context_.units)) prog_ = *station;
  if (element.name == "Line") {
    TakeLine(element);
  } else if (element.name == "Curve") {
    TakeCurve(element);
  } else if (element.name == "Spiral") {
    TakeSpiral(element);
  } else if (element.name == "IrregularLine") {
    TakeIrregularLine(element);
  } else if (element.name == "Chain") {
    TakeChain(element);
  }
}

std::optional<ElementReader::Ends> ElementReader::EndsOf(const XmlElement& element) {
  const auto start = PointOf(element.Child("Start"), context_.units, points_);
  const auto end = PointOf(element.Child("End"), context_.units, points_);
  if (start && end) return Ends{*start, *end};
  Refuse(element, Xlate("it has no start or no end"));
  return std::nullopt;
}

void ElementReader::Refuse(const XmlElement& element, const tdk::WString& why) {
  context_.remarks.Add(element.line,
                       Fill(Xlate("{1} is left out: {2}"), {tdk::WString(element.name), why}));
}

// What has no length is left out in silence, and numbers beyond all measure make nothing.
void ElementReader::Add(std::unique_ptr<CPlaniElem> element, double length) {
  const double ownLength = element->GetLength();
  if (ownLength >= kNoLength && std::isfinite(ownLength)) elements_.push_back(std::move(element));
  if (std::isfinite(length)) prog_ += length;
}

void ElementReader::AddLine(const Ends& ends) {
  Add(std::make_unique<CLinePlaniElem>(prog_, ends.start, ends.end),
      Distance(ends.start, ends.end));
}

void ElementReader::AddOther(const XmlElement& element, const Ends& ends, const tdk::WString& why) {
  context_.remarks.Add(
      element.line, Fill(Xlate("{1} keeps only its ends: {2}"), {tdk::WString(element.name), why}));
  const auto length = LengthOf(element, "length", context_.units);
  Add(std::make_unique<COtherPlaniElem>(prog_, ends.start, ends.end),
      length ? *length : Distance(ends.start, ends.end));
}

void ElementReader::TakeLine(const XmlElement& element) {
  if (const auto ends = EndsOf(element)) AddLine(*ends);
}

void ElementReader::TakeIrregularLine(const XmlElement& element) {
  const auto ends = EndsOf(element);
  if (!ends) return;
  PNT_2D from = ends->start;
  for (const XmlElement& list : element.children) {
    const std::size_t size = list.name == "PntList2D" ? 2 : list.name == "PntList3D" ? 3 : 0;
    if (size == 0) continue;
    const auto numbers = Numbers(list.text);
    if (!numbers || numbers->size() % size != 0) {
      Refuse(list, Xlate("it is no list of points"));
      continue;
    }
    for (std::size_t i = 0; i < numbers->size(); i += size) {
      const PNT_2D to((*numbers)[i + 1] * context_.units.metres,
                      (*numbers)[i] * context_.units.metres);
      AddLine({from, to});
      from = to;
    }
  }
  AddLine({from, ends->end});
}

void ElementReader::TakeChain(const XmlElement& element) {
  std::string_view names = element.text;
  std::vector<PNT_2D> places;
  constexpr std::string_view kBlanks = " \t\r\n";
  while (!platform::IsBlank(names)) {
    names.remove_prefix(names.find_first_not_of(kBlanks));
    const std::string_view name = names.substr(0, names.find_first_of(kBlanks));
    names.remove_prefix(name.size());
    const auto to = points_.Find(name);
    if (!to) {
      Refuse(element, Fill(Xlate("there is no point \"{1}\""), {tdk::WString(name)}));
      return;
    }
    places.push_back(*to);
  }
  for (std::size_t i = 1; i < places.size(); ++i) AddLine({places[i - 1], places[i]});
}

void ElementReader::TakeCurve(const XmlElement& element) {
  const auto ends = EndsOf(element);
  if (!ends) return;
  const std::string_view rotation = element.Value("rot");
  const auto centre = PointOf(element.Child("Center"), context_.units, points_);
  const auto radius = LengthOf(element, "radius", context_.units);
  if (Distance(ends->start, ends->end) < kClosedBy) {
    // A full circle is no element of a road; what has no length is left out in silence.
    if (LengthOf(element, "length", context_.units).value_or(0) > kClosedBy) {
      Refuse(element, Xlate("its ends are in one place"));
    }
  } else if (rotation != "cw" && rotation != "ccw") {
    AddOther(element, *ends, Xlate("it does not say whether it turns left or right"));
  } else if (centre && Distance(*centre, ends->start) >= kNoLength) {
    if (std::abs(Distance(*centre, ends->start) - Distance(*centre, ends->end)) > kWrongBy) {
      context_.remarks.Add(element.line, Xlate("the ends of this curve lie at different distances "
                                               "from its centre; it ends where it is driven to"));
    }
    AddArc(*ends, *centre, rotation == "ccw");
  } else if (radius && *radius != 0) {
    AddArcOfRadius(element, *ends, std::abs(*radius), rotation == "ccw");
  } else {
    AddOther(element, *ends, Xlate("it has no centre and no radius"));
  }
}

void ElementReader::AddArc(const Ends& ends, const PNT_2D& centre, bool ccw) {
  const double radius = Distance(centre, ends.start);
  const double x = (ends.start.getX() - centre.getX()) / radius;
  const double y = (ends.start.getY() - centre.getY()) / radius;
  const double sweep = SweepOf(centre, ends.start, ends.end, ccw);
  Add(std::make_unique<CArcPlaniElem>(prog_, ends.start, ccw ? VECTOR_2D(-y, x) : VECTOR_2D(y, -x),
                                      radius, sweep, ccw),
      radius * sweep);
}

void ElementReader::AddArcOfRadius(const XmlElement& element, const Ends& ends, double radius,
                                   bool ccw) {
  const double chord = Distance(ends.start, ends.end);
  if (chord > 2 * radius + kWrongBy) {
    AddOther(element, ends, Xlate("its radius does not reach from start to end"));
    return;
  }
  double sweep = 2 * std::asin(std::min(1.0, chord / (2 * radius)));
  const auto delta = NumberOf(element, "delta");
  const double length = LengthOf(element, "length", context_.units)
                            .value_or(delta ? context_.units.Radians(*delta) * radius : 0);
  if (length > pi * radius) sweep = 2 * pi - sweep;
  const double turn = ccw ? sweep : -sweep;
  const VECTOR_2D tangent = FromAngle(DirectionOf(ends.start, ends.end) - turn / 2);
  Add(std::make_unique<CArcPlaniElem>(prog_, ends.start, tangent, radius, sweep, ccw),
      radius * sweep);
}

void ElementReader::TakeSpiral(const XmlElement& element) {
  const auto ends = EndsOf(element);
  if (!ends) return;
  const std::string_view type = element.Value("spiType");
  const std::string_view rotation = element.Value("rot");
  const auto k0 = CurvatureOf(element, "radiusStart", context_.units);
  const auto k1 = CurvatureOf(element, "radiusEnd", context_.units);
  const auto length = LengthOf(element, "length", context_.units);
  if (!type.empty() && type != "clothoid") {
    AddOther(element, *ends,
             Fill(Xlate("a spiral of type \"{1}\" is no clothoid"), {tdk::WString(type)}));
  } else if (!k0 || !k1 || !length || !(*length >= 0) || (rotation != "cw" && rotation != "ccw")) {
    AddOther(element, *ends, Xlate("a radius, the length or the side is missing"));
  } else if (*k0 != 0 && *k1 != 0) {
    AddOther(element, *ends, Xlate("a clothoid between two arcs cannot be held"));
  } else if (*k0 == 0 && *k1 == 0) {
    AddLine(*ends);
  } else {
    AddClothoid(element, *ends, *k0, *k1, *length, rotation == "ccw");
  }
}

// Laid along the X axis first: the chord then tells how it must be turned.
void ElementReader::AddClothoid(const XmlElement& element, const Ends& ends, double k0, double k1,
                                double length, bool ccw) {
  if (length < kNoLength) return;
  const double a = std::sqrt(length / std::abs(k1 - k0));
  const bool isEntrance = k0 == 0;
  const PNT_2D origin;
  const PNT_2D far = CClotPlaniElem(0, origin, {1, 0}, length, a, isEntrance, ccw).PointAt(length);
  const VECTOR_2D tangent = FromAngle(DirectionOf(ends.start, ends.end) - DirectionOf(origin, far));
  if (std::abs(Distance(ends.start, ends.end) - Distance(origin, far)) > kWrongBy) {
    context_.remarks.Add(element.line, Xlate("the length and the radius of this spiral do not fit "
                                             "its ends; it ends where it is driven to"));
  }
  Add(std::make_unique<CClotPlaniElem>(prog_, ends.start, tangent, length, a, isEntrance, ccw),
      length);
}

}  // namespace landxml_load
