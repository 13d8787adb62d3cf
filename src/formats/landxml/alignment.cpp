#include <cmath>
#include <vector>

#include "formats/landxml/alignment_parts.h"
#include "formats/landxml/landxml_document.h"
#include "formats/landxml/xml_print.h"

namespace landxml {
namespace {

using tdk::geom::PNT_2D;
using tdk::geom::VECTOR_2D;

const char* Rotation(const CPlaniElem& element) { return element.IsCcw() ? "ccw" : "cw"; }

VECTOR_2D EndTangent(const CPlaniElem& element) {
  VECTOR_2D tangent;
  element.GetTg(element.GetLength(), tangent);
  return tangent;
}

PNT_2D EndPoint(const CPlaniElem& element) {
  PNT_2D end;
  element.GetEndPnt(end);
  return end;
}

void PrintPlace(platform::OutputFile& file, std::string_view tag, const PNT_2D& place) {
  PrintLine(file, "\t\t\t\t\t<", tag, ">", place.getY(), " ", place.getX(), "</", tag, ">");
}

// Where the tangents at both ends meet, by their slopes. One that is parallel to the Y axis, or
// both in one direction, give no finite number: readers of these files are used to it.
PNT_2D TangentIntersection(const CPlaniElem& element) {
  const PNT_2D& start = element.GetStartPnt();
  const VECTOR_2D& startTangent = element.GetStartTg();
  const PNT_2D end = EndPoint(element);
  const VECTOR_2D endTangent = EndTangent(element);
  const double m0 = startTangent.getY() / startTangent.getX();
  const double b0 = m0 * -start.getX() + start.getY();
  const double m1 = endTangent.getY() / endTangent.getX();
  const double b1 = m1 * -end.getX() + end.getY();
  const double x = (b1 - b0) / (m0 - m1);
  return {x, m0 * x + b0};
}

PNT_2D Centre(const CPlaniElem& element, double radius) {
  const double side = element.IsCcw() ? 1 : -1;
  const PNT_2D& start = element.GetStartPnt();
  const VECTOR_2D& tangent = element.GetStartTg();
  return {start.getX() - side * radius * tangent.getY(),
          start.getY() + side * radius * tangent.getX()};
}

}  // namespace

double DirectionDegrees(const VECTOR_2D& vector) {
  constexpr double kDegrees = 57.29577951308233;
  double direction = std::atan2(vector.getY(), vector.getX()) * kDegrees;
  while (direction < 0) direction += 360;
  while (direction >= 360) direction -= 360;
  return direction;
}

void WriteLine(platform::OutputFile& file, const CPlaniElem& element) {
  PrintLine(file, "\t\t\t\t<Line length=\"", element.GetLength(), "\" dir=\"",
            DirectionDegrees(element.GetStartTg()), "\" staStart=\"", element.GetProg(), "\">");
  PrintPlace(file, "Start", element.GetStartPnt());
  PrintPlace(file, "End", EndPoint(element));
  PrintLine(file, "\t\t\t\t</Line>");
}

void WriteCurve(platform::OutputFile& file, const CArcPlaniElem& element) {
  const double radius = element.GetRadius(0);
  PrintLine(file, "\t\t\t\t<Curve rot=\"", Rotation(element), "\" delta=\"", element.GetAngle(),
            "\" dirEnd=\"", DirectionDegrees(EndTangent(element)), "\" dirStart=\"",
            DirectionDegrees(element.GetStartTg()), "\" length=\"", element.GetLength(),
            "\" radius=\"", radius, "\" staStart=\"", element.GetProg(), "\">");
  PrintPlace(file, "Start", element.GetStartPnt());
  PrintPlace(file, "Center", Centre(element, radius));
  PrintPlace(file, "End", EndPoint(element));
  PrintPlace(file, "PI", TangentIntersection(element));
  PrintLine(file, "\t\t\t\t</Curve>");
}

// The order differs from that of a curve, and the constant is negative; both are kept.
void WriteSpiral(platform::OutputFile& file, const CClotPlaniElem& element) {
  const double length = element.GetLength();
  const double a = element.GetClotoide().GetA();
  Print(file, "\t\t\t\t<Spiral length=\"", length, "\" ");
  if (element.IsEntrance()) {
    Print(file, "radiusEnd=\"", element.GetRadius(length), "\" radiusStart=\"INF\" ");
  } else {
    Print(file, "radiusEnd=\"INF\" radiusStart=\"", element.GetRadius(0), "\" ");
  }
  PrintLine(file, "rot=\"", Rotation(element), "\" spiType=\"clothoid\" constant=\"", -(a * a),
            "\" dirEnd=\"", DirectionDegrees(EndTangent(element)), "\" dirStart=\"",
            DirectionDegrees(element.GetStartTg()), "\" staStart=\"", element.GetProg(), "\">");
  PrintPlace(file, "Start", element.GetStartPnt());
  PrintPlace(file, "PI", TangentIntersection(element));
  PrintPlace(file, "End", EndPoint(element));
  PrintLine(file, "\t\t\t\t</Spiral>");
}

void WriteCoordGeom(platform::OutputFile& file, const CRoad& road, const tdk::WString& name) {
  PrintLine(file, "\t\t\t<CoordGeom name=\"CoordGeom_", name, "\" state=\"existing\">");
  std::vector<const CPlaniElem*> elements;
  road.RetrieveLinkedPlaniElems(elements);
  for (const CPlaniElem* const element : elements) {
    switch (element->GetType()) {
      case CPlaniElem::kStraight: WriteLine(file, *element); break;
      case CPlaniElem::kArc: WriteCurve(file, static_cast<const CArcPlaniElem&>(*element)); break;
      case CPlaniElem::kClothoid:
        WriteSpiral(file, static_cast<const CClotPlaniElem&>(*element));
        break;
      default: break;
    }
  }
  PrintLine(file, "\t\t\t</CoordGeom>");
}

void WriteAlignment(platform::OutputFile& file, const CRoad& road) {
  const tdk::WString name = road.GetName();
  const double start = road.GetStartProg();
  PrintLine(file, "\t\t<Alignment name=\"", name, "\" length=\"", road.GetEndProg() - start,
            "\" staStart=\"", start, "\" state=\"existing\">");
  const CProfile* const profile = road.GetRoadProfile();
  const CProfileAlti* const main = profile == nullptr ? nullptr : profile->GetMainPrjAlti();
  bool isThere = false;
  const double height = main == nullptr ? 0 : CalcQuoteAtAltiProg(*main, start, isThere);
  PNT_2D place;
  if (const CRoadPlaniElem* const first = road.GetFirstRoadPlaniElem()) {
    place = first->GetElem()->GetStartPnt();
  }
  PrintLine(file, "\t\t\t<Start name=\"Start_", name, "\" state=\"existing\">", place.getY(), " ",
            place.getX(), " ", height, "</Start>");
  if (!road.IsEmpty()) WriteCoordGeom(file, road, name);
  if (main != nullptr && !main->IsEmpty()) WriteProfile(file, *main, name);
  if (profile != nullptr && profile->IsSectionPresent()) WriteCrossSects(file, *profile);
  PrintLine(file, "\t\t</Alignment>");
}

}  // namespace landxml
